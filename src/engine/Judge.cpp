#include "engine/Judge.h"

#include "engine/FileWindow.h"
#include "engine/Markers.h"

#include <QFile>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <atomic>
#include <mutex>

namespace {

// Messages of the toolkit arrive on the thread that causes them, but their handler is one for the whole program. So one
// dispatcher stands for good, and a capture claims the messages of its own thread alone.
thread_local QStringList *tCapture = nullptr;
std::atomic<QtMessageHandler> previousHandler{nullptr};

std::atomic<quint64> lowerLimit{0};

void dispatchMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (tCapture && type != QtFatalMsg) {
        constexpr int kMostMessages = 100;
        if (tCapture->size() < kMostMessages) tCapture->append(message.simplified());
        return;
    }
    if (const QtMessageHandler previous = previousHandler) previous(type, context, message);
}

class MessageCapture
{
public:
    explicit MessageCapture(QStringList &messages)
    {
        static std::once_flag once;
        std::call_once(once, [] { previousHandler = qInstallMessageHandler(dispatchMessage); });
        tCapture = &messages;
    }
    ~MessageCapture() { tCapture = nullptr; }
    MessageCapture(const MessageCapture &) = delete;
    MessageCapture &operator=(const MessageCapture &) = delete;
};

/// Components whose coefficients the decoder must keep for the whole picture: all of them where the picture comes in
/// more than one scan, else none.
int bufferedComponents(const QString &path)
{
    FileWindow file(path, 4096);
    if (!file.isOpen()) return 0;
    int components = 0;
    for (quint64 at = 2; at + 4 <= file.size();) {
        at = file.nextFF(at, file.size());
        const quint16 word = file.wordAt(at);
        const bool standsAlone = word <= 0xFF01 || (word >= jpeg::RST0 && word <= jpeg::EOI) || word == 0xFFFF;
        if (standsAlone) {
            ++at;
            continue;
        }
        if (jpeg::isFrameHeader(word)) {
            components = file.byteAt(at + 9);
            if (word == jpeg::SOF2) return components;
        }
        if (word == jpeg::SOS) return file.byteAt(at + 4) < components ? components : 0;
        at += 2 + quint64(file.wordAt(at + 2));
    }
    return 0;
}

/// Bytes that decoding takes: the picture itself and the coefficients that the decoder holds beside it.
quint64 memoryNeeded(int buffered, const QSize &size, QImage::Format format)
{
    const quint64 pixels = quint64(size.width()) * quint64(size.height());
    const quint64 pixelBytes = format == QImage::Format_Grayscale8 ? 1 : 4;
    return pixels * (pixelBytes + 2 * quint64(buffered));
}

quint64 freeMemory()
{
    QFile info(QStringLiteral("/proc/meminfo"));
    if (!info.open(QIODevice::ReadOnly)) return ~quint64(0);
    for (const QByteArray &line : info.readAll().split('\n')) {
        if (!line.startsWith("MemAvailable:")) continue;
        bool ok = false;
        const quint64 kilobytes = line.mid(13).trimmed().split(' ').first().toULongLong(&ok);
        return ok ? kilobytes * 1024 : ~quint64(0);
    }
    return ~quint64(0);
}

/// False, with a reason, for what isn't a JPEG at all or claims more pixels than there is memory for. `several` gets
/// whether the picture comes in more than one scan.
bool fitsMemory(const QString &path, QStringList &warnings, bool &several)
{
    QImageReader header(path, "jpg");
    const QSize claimed = header.size();
    if (!claimed.isValid()) return false;
    const int buffered = bufferedComponents(path);
    several = buffered > 0;
    if (memoryNeeded(buffered, claimed, header.imageFormat()) <= pictureMemoryLimit()) return true;
    warnings << QStringLiteral("the header claims %1 x %2 pixels, more than there is memory for")
                    .arg(claimed.width())
                    .arg(claimed.height());
    return false;
}

} // namespace

quint64 pictureMemoryLimit()
{
    const quint64 limit = std::min(freeMemory() / 2, quint64(4) << 30);
    const quint64 lower = lowerLimit;
    return lower > 0 ? std::min(lower, limit) : limit;
}

void setPictureMemoryLimit(quint64 bytes)
{
    lowerLimit = bytes;
}

Verdict judgeJpeg(const QString &path)
{
    Verdict verdict;
    const MessageCapture capture(verdict.warnings);
    if (!fitsMemory(path, verdict.warnings, verdict.severalScans)) return verdict;
    QImage image;
    verdict.decodes = image.load(path, "JPG");
    if (!verdict.decodes) return verdict;
    verdict.size = image.size();
    verdict.icon = image.scaled(QSize(32, 32), Qt::KeepAspectRatio, Qt::FastTransformation);
    return verdict;
}

QImage loadForView(const QString &path, const QSize &box, QSize &fullSize)
{
    fullSize = QSize(0, 0);
    QStringList warnings;
    bool several = false;
    const MessageCapture capture(warnings);
    if (!fitsMemory(path, warnings, several)) return {};
    QImageReader reader(path, "jpg");
    const QSize size = reader.size();
    const bool small = size.width() < box.width() && size.height() < box.height();
    // The decoder skips most of its work where the picture is to be a fraction of its size; twice the box leaves enough
    // for smooth scaling.
    const QSize wanted = size.scaled(box * 2, Qt::KeepAspectRatio);
    if (wanted.width() < size.width()) reader.setScaledSize(wanted);
    const QImage image = reader.read();
    if (image.isNull()) return {};
    fullSize = size;
    return (small ? image : image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}
