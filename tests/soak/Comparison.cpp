#include "soak/Comparison.h"

#include <QImageReader>

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <jpeglib.h>

namespace soak {

namespace {

struct Decoder
{
    jpeg_decompress_struct info = {};
    jpeg_error_mgr errors = {};
    std::jmp_buf failed = {};
};

void leave(j_common_ptr info)
{
    std::longjmp(static_cast<Decoder *>(info->client_data)->failed, 1);
}

void saySomethingToNobody(j_common_ptr) {}

} // namespace

Comparison compare(const QImage &truth, const QImage &picture)
{
    Comparison result;
    if (truth.isNull() || truth.size() != picture.size()) return result;
    const QImage left = truth.convertToFormat(QImage::Format_RGB32);
    const QImage right = picture.convertToFormat(QImage::Format_RGB32);
    quint64 sum = 0;
    quint64 wrong = 0;
    for (int y = 0; y < left.height(); ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(left.constScanLine(y));
        const auto *b = reinterpret_cast<const QRgb *>(right.constScanLine(y));
        for (int x = 0; x < left.width(); ++x) {
            const int red = std::abs(qRed(a[x]) - qRed(b[x]));
            const int green = std::abs(qGreen(a[x]) - qGreen(b[x]));
            const int blue = std::abs(qBlue(a[x]) - qBlue(b[x]));
            sum += quint64(red + green + blue);
            wrong += std::max({red, green, blue}) >= Comparison::kWrongFrom ? 1 : 0;
        }
    }
    const double pixels = double(left.width()) * left.height();
    result.sameSize = true;
    result.meanDifference = double(sum) / (pixels * 3);
    result.rightShare = 1 - double(wrong) / pixels;
    return result;
}

QImage pictureOf(const QByteArray &file)
{
    return QImage::fromData(file, "JPG");
}

QImage pictureAt(const QString &path)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    return reader.read();
}

bool isHealthy(const QByteArray &file)
{
    Decoder decoder;
    decoder.info.err = jpeg_std_error(&decoder.errors);
    decoder.info.client_data = &decoder;
    decoder.errors.error_exit = leave;
    decoder.errors.output_message = saySomethingToNobody;
    std::vector<JSAMPLE> row;
    if (setjmp(decoder.failed) != 0) {
        jpeg_destroy_decompress(&decoder.info);
        return false;
    }
    jpeg_create_decompress(&decoder.info);
    jpeg_mem_src(&decoder.info, reinterpret_cast<const unsigned char *>(file.constData()),
                 static_cast<unsigned long>(file.size()));
    jpeg_read_header(&decoder.info, TRUE);
    jpeg_start_decompress(&decoder.info);
    row.resize(size_t(decoder.info.output_width) * size_t(decoder.info.output_components));
    while (decoder.info.output_scanline < decoder.info.output_height) {
        JSAMPROW line = row.data();
        jpeg_read_scanlines(&decoder.info, &line, 1);
    }
    jpeg_finish_decompress(&decoder.info);
    const bool warned = decoder.errors.num_warnings > 0;
    jpeg_destroy_decompress(&decoder.info);
    return !warned && !pictureOf(file).isNull();
}

} // namespace soak
