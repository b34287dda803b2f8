#include "decoderchild/Handlers.h"

#include "decoderchild/HeicDecoder.h"
#include "decoderchild/JpegCost.h"
#include "decoderchild/JpegDecoder.h"
#include "decoderchild/Trials.h"
#include "engine/FileWindow.h"

#include <QColorSpace>

#include <algorithm>
#include <cmath>
#include <new>

namespace decoder {
namespace {

QStringList *hearing = nullptr;

void hear(QtMsgType, const QMessageLogContext &, const QString &message)
{
    if (hearing) hearing->append(message.simplified());
}

/// Fitted into the box; where it is smaller both ways, its own size.
QImage fitted(const QImage &image, const QSize &size, const QSize &box)
{
    const bool small = size.width() < box.width() && size.height() < box.height();
    return small ? image : image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// The box that the request asks for, as it is for a picture of `size` that is turned afterwards; where the picture is
/// asked for as it is, its size, or what there is room for.
QSize boxFor(const Request &request, const QSize &size, bool sideways)
{
    const QSize box(request.width, request.height);
    if (!box.isEmpty()) return sideways ? box.transposed() : box;
    const double bytes = 4.0 * size.width() * size.height();
    const double share = std::sqrt(double(request.pictureBytes) / std::max(bytes, 1.0));
    return share >= 1 ? size : QSize(int(size.width() * share), int(size.height() * share)).expandedTo({1, 1});
}

/// A decoder that knows the picture's size, where the picture is worth its price; else null, with the reason in `answer`.
std::unique_ptr<JpegDecoder> openJpeg(const Request &request, FileSource &file, Answer &answer)
{
    FileWindow window(file);
    const JpegCost cost = costOf(window);
    const QString refused = refusal(cost, file.size(), request.memory);
    answer.severalScans = cost.severalScans;
    if (!refused.isEmpty()) {
        answer.warnings.append(refused);
        return nullptr;
    }
    auto decoder = std::make_unique<JpegDecoder>(file);
    return decoder->size().isValid() ? std::move(decoder) : nullptr;
}

void judge(const Request &request, FileSource &file, Answer &answer, QImage &image)
{
    const auto decoder = openJpeg(request, file, answer);
    if (decoder) image = decoder->read();
    if (image.isNull()) return;
    answer.opens = true;
    answer.size = image.size();
    answer.icon = image.scaled(QSize(kIconSide, kIconSide), Qt::KeepAspectRatio, Qt::FastTransformation);
}

QByteArray profileOf(const QImage &image)
{
    const QColorSpace colours = image.colorSpace();
    return colours.isValid() ? colours.iccProfile() : QByteArray();
}

/// Answers View and Show.
void view(const Request &request, FileSource &file, Answer &answer, QImage &image)
{
    const auto decoder = openJpeg(request, file, answer);
    if (!decoder) return;
    const QSize size = decoder->size();
    const bool show = request.task == Task::Show;
    if (show) answer.turn = decoder->turn();
    const bool sideways = answer.turn & QImageIOHandler::TransformationRotate90;
    const QSize box = boxFor(request, size, sideways);
    // The decoder skips most of its work where the picture is to be a fraction of its size; twice the box leaves enough
    // for smooth scaling.
    const QSize wanted = size.scaled(box * 2, Qt::KeepAspectRatio);
    if (wanted.width() < size.width()) decoder->scaleTo(wanted);
    image = decoder->read();
    if (image.isNull()) return;
    answer.opens = true;
    answer.size = sideways ? size.transposed() : size;
    if (show) answer.profile = profileOf(image);
    answer.picture = turned(fitted(image, size, box).convertToFormat(QImage::Format_ARGB32_Premultiplied), answer.turn);
    if (answer.picture.isNull()) answer.problem = QStringLiteral("there is no memory for the picture");
}

void heic(const Request &request, FileSource &file, Answer &answer, QImage &)
{
    decodeHeic(file, answer);
    const QSize box(request.width, request.height);
    if (answer.opens && !box.isEmpty()) answer.picture = fitted(answer.picture, answer.size, box);
}

void trial(const Request &request, FileSource &, Answer &answer, QImage &)
{
    answer.warnings = misbehave(Trial(request.width));
}

struct Handler
{
    Task task;
    void (*answer)(const Request &, FileSource &, Answer &, QImage &);
};

constexpr Handler kHandlers[] = {
    {Task::Judge, judge}, {Task::View, view}, {Task::Show, view}, {Task::Heic, heic}, {Task::Trial, trial},
};

} // namespace

bool loadDecoders()
{
    qInstallMessageHandler(hear);
    return loadJpegDecoder() && loadHeicDecoder();
}

Answer handle(const Request &request, FileSource &file, QImage &decoded)
{
    Answer answer;
    QStringList said;
    hearing = &said;
    try {
        for (const Handler &handler : kHandlers)
            if (handler.task == request.task) handler.answer(request, file, answer, decoded);
    } catch (const std::bad_alloc &) {
        answer = Answer();
        answer.problem = QStringLiteral("there is no memory for the picture");
    }
    hearing = nullptr;
    answer.warnings += said;
    return answer;
}

} // namespace decoder
