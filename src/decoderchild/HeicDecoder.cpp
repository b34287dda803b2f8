#include "decoderchild/HeicDecoder.h"

#include "engine/FileWindow.h"
#include "engine/heic/ReadingCopy.h"

#include <libheif/heif.h>

#include <cstring>
#include <memory>

namespace {

using Context = std::unique_ptr<heif_context, decltype(&heif_context_free)>;
using Handle = std::unique_ptr<const heif_image_handle, decltype(&heif_image_handle_release)>;
using Image = std::unique_ptr<const heif_image, decltype(&heif_image_release)>;
using Options = std::unique_ptr<heif_decoding_options, decltype(&heif_decoding_options_free)>;

bool failed(const heif_error &error, QString &problem)
{
    if (error.code == heif_error_Ok) return false;
    problem = QString::fromUtf8(error.message).simplified();
    if (problem.isEmpty()) problem = QStringLiteral("the picture can't be decoded");
    return true;
}

QByteArray profileOf(const heif_image_handle *handle)
{
    QByteArray profile(int(heif_image_handle_get_raw_color_profile_size(handle)), 0);
    if (profile.isEmpty()) return {};
    const heif_error error = heif_image_handle_get_raw_color_profile(handle, profile.data());
    return error.code == heif_error_Ok ? profile : QByteArray();
}

/// Rows of the interleaved plane as a picture of its own.
QImage imageOf(const heif_image *image, QImage::Format format)
{
    int stride = 0;
    const quint8 *rows = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
    QImage copy(heif_image_get_primary_width(image), heif_image_get_primary_height(image), format);
    if (!rows || copy.isNull()) return {};
    const int lineBytes = copy.width() * copy.depth() / 8;
    for (int y = 0; y < copy.height(); ++y) std::memcpy(copy.scanLine(y), rows + qint64(stride) * y, size_t(lineBytes));
    return copy;
}

void decode(const QByteArray &bytes, decoder::Answer &answer)
{
    const Context context(heif_context_alloc(), heif_context_free);
    if (failed(
            heif_context_read_from_memory_without_copy(context.get(), bytes.constData(), size_t(bytes.size()), nullptr),
            answer.problem))
        return;
    heif_image_handle *foundHandle = nullptr;
    if (failed(heif_context_get_primary_image_handle(context.get(), &foundHandle), answer.problem)) return;
    const Handle handle(foundHandle, heif_image_handle_release);

    const bool alpha = heif_image_handle_has_alpha_channel(handle.get()) != 0;
    const qint64 pixels =
        qint64(heif_image_handle_get_width(handle.get())) * heif_image_handle_get_height(handle.get());
    if (pixels * 4 > decoder::kWholePictureBytes) {
        answer.problem = QStringLiteral("the picture has more pixels than can be shown");
        return;
    }
    const Options options(heif_decoding_options_alloc(), heif_decoding_options_free);
    options->convert_hdr_to_8bit = 1;
    heif_image *foundImage = nullptr;
    const heif_chroma chroma = alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
    if (failed(heif_decode_image(handle.get(), &foundImage, heif_colorspace_RGB, chroma, options.get()),
               answer.problem))
        return;
    const Image image(foundImage, heif_image_release);
    answer.picture = imageOf(image.get(), alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    if (answer.picture.isNull()) answer.problem = QStringLiteral("there is no memory for the picture");
    answer.profile = profileOf(handle.get());
}

} // namespace

bool loadHeicDecoder()
{
    return heif_init(nullptr).code == heif_error_Ok;
}

void decodeHeic(BlockSource &source, decoder::Answer &answer)
{
    FileWindow file(source);
    const QByteArray bytes = readableHeicBytes(file, answer.problem);
    if (!answer.problem.isEmpty()) return;
    decode(bytes, answer);
    answer.opens = !answer.picture.isNull();
    if (answer.opens) answer.size = answer.picture.size();
}
