#include "engine/Judge.h"

#include "app/StopFlag.h"
#include "decoder/Client.h"
#include "engine/BlockSource.h"

#include <QColorSpace>

namespace {

/// Decoding 12 megapixels of a HEIC takes about 0.3 GiB; the largest picture that is shown takes ten times that.
constexpr quint64 kHeicMemory = quint64(3) << 30;
/// Most pictures are judged by then, and what was made of them isn't lost.
constexpr int kGraceMilliseconds = 150;

decoder::Client &judgeClient()
{
    static decoder::Client client;
    return client;
}

decoder::Client &viewClient()
{
    static decoder::Client client;
    return client;
}

} // namespace

void startJudge()
{
    judgeClient().start();
}

Verdict judgeJpeg(const QString &path)
{
    Verdict verdict;
    const FileSource file(path);
    if (!file.isOpen()) return verdict;
    const decoder::Answer answer =
        judgeClient().judge(file.descriptor(), {pictureMemoryLimit(), stopRequested, kGraceMilliseconds});
    verdict.decodes = answer.opens;
    verdict.size = answer.size;
    verdict.icon = answer.icon;
    verdict.warnings = answer.warnings;
    if (!answer.problem.isEmpty()) verdict.warnings.append(answer.problem);
    verdict.severalScans = answer.severalScans;
    verdict.stopped = answer.ending == decoder::Ending::Stopped;
    return verdict;
}

QImage loadForView(const QString &path, const QSize &box, QSize &fullSize, const std::function<bool()> &abandoned)
{
    fullSize = QSize(0, 0);
    const FileSource file(path);
    if (!file.isOpen()) return {};
    const decoder::Answer answer = viewClient().view(file.descriptor(), box, {pictureMemoryLimit(), abandoned, 0});
    fullSize = answer.size;
    return answer.picture;
}

QImage loadHeicForView(const QString &path, const QSize &box, QSize &fullSize, const std::function<bool()> &abandoned)
{
    fullSize = QSize(0, 0);
    const FileSource file(path);
    if (!file.isOpen()) return {};
    const decoder::Answer answer = viewClient().heic(file.descriptor(), box, {kHeicMemory, abandoned, 0});
    fullSize = answer.size;
    QImage image = answer.picture;
    const QColorSpace colours = answer.profile.isEmpty() ? QColorSpace() : QColorSpace::fromIccProfile(answer.profile);
    if (colours.isValid()) {
        image.setColorSpace(colours);
        image.convertToColorSpace(QColorSpace::SRgb);
    }
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}
