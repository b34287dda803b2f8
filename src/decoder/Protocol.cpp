#include "decoder/Protocol.h"

#include <QDataStream>
#include <QTransform>

#include <cstring>

namespace decoder {
namespace {

constexpr quint32 kMagic = 0x4B4D4131;
constexpr int kMostWarnings = 100;
constexpr int kLongestWarning = 1000;
constexpr int kLongestProfile = 2 << 20;
constexpr int kLongestSide = 1 << 17;

bool knownFormat(quint32 format)
{
    switch (format) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32_Premultiplied:
    case QImage::Format_Grayscale8:
    case QImage::Format_RGB888:
    case QImage::Format_RGBA8888: return true;
    default: return false;
    }
}

struct Shape
{
    quint32 width = 0, height = 0, format = 0;

    bool isNull() const { return width == 0 && height == 0; }
    bool isSane() const
    {
        return width > 0 && height > 0 && width <= quint32(kLongestSide) && height <= quint32(kLongestSide)
            && knownFormat(format);
    }
    quint64 lineBytes() const
    {
        const quint64 depth = quint64(QImage::toPixelFormat(QImage::Format(format)).bitsPerPixel());
        return (width * depth + 31) / 32 * 4;
    }
    quint64 bytes() const { return lineBytes() * height; }
};

QDataStream &operator<<(QDataStream &stream, const Shape &shape)
{
    return stream << shape.width << shape.height << shape.format;
}

QDataStream &operator>>(QDataStream &stream, Shape &shape)
{
    return stream >> shape.width >> shape.height >> shape.format;
}

Shape shapeOf(const QImage &image)
{
    return {quint32(image.width()), quint32(image.height()), quint32(image.format())};
}

/// A copy of the pixels in `from`; null where there is no memory for it.
QImage copied(const Shape &shape, const uchar *from)
{
    QImage image(int(shape.width), int(shape.height), QImage::Format(shape.format));
    if (image.isNull() || pixelBytes(image) != shape.bytes()) return {};
    std::memcpy(image.bits(), from, size_t(shape.bytes()));
    return image;
}

bool readIcon(QDataStream &stream, QImage &icon)
{
    Shape shape;
    QByteArray pixels;
    stream >> shape >> pixels;
    if (shape.isNull()) return pixels.isEmpty();
    if (!shape.isSane() || shape.width > kIconSide || shape.height > kIconSide
        || quint64(pixels.size()) != shape.bytes())
        return false;
    icon = copied(shape, reinterpret_cast<const uchar *>(pixels.constData()));
    return true;
}

/// One by one: the toolkit makes room for as many texts as a list claims before it looks for them.
bool readWarnings(QDataStream &stream, QStringList &warnings)
{
    quint32 count = 0;
    stream >> count;
    if (count > quint32(kMostWarnings)) return false;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString warning;
        stream >> warning;
        if (warning.size() > kLongestWarning) return false;
        warnings.append(warning);
    }
    return true;
}

} // namespace

QImage turned(const QImage &image, QImageIOHandler::Transformations turn)
{
    const bool mirror = turn & QImageIOHandler::TransformationMirror;
    const bool flip = turn & QImageIOHandler::TransformationFlip;
    QImage result = mirror || flip ? image.mirrored(mirror, flip) : image;
    if (turn & QImageIOHandler::TransformationRotate90) result = result.transformed(QTransform().rotate(90));
    return result;
}

quint64 pixelBytes(const QImage &image)
{
    return quint64(image.bytesPerLine()) * quint64(image.height());
}

QByteArray pack(const Answer &answer)
{
    QStringList warnings = answer.warnings.mid(0, kMostWarnings);
    for (QString &warning : warnings) warning.truncate(kLongestWarning);
    const QByteArray icon(reinterpret_cast<const char *>(answer.icon.constBits()), int(answer.icon.sizeInBytes()));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << kMagic << answer.opens << answer.severalScans << qint32(answer.size.width())
           << qint32(answer.size.height()) << warnings << answer.problem.left(kLongestWarning) << shapeOf(answer.icon)
           << icon << shapeOf(answer.picture)
           << (answer.profile.size() <= kLongestProfile ? answer.profile : QByteArray()) << quint8(answer.turn);
    return bytes;
}

bool unpack(const QByteArray &bytes, quint64 room, const Pixels &pixels, Answer &answer)
{
    Answer read;
    Shape shape;
    quint32 magic = 0;
    qint32 width = 0, height = 0;
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    stream >> magic;
    if (magic != kMagic) return false;
    stream >> read.opens >> read.severalScans >> width >> height;
    if (!readWarnings(stream, read.warnings)) return false;
    stream >> read.problem;
    if (stream.status() != QDataStream::Ok || read.problem.size() > kLongestWarning || !readIcon(stream, read.icon))
        return false;
    quint8 turn = 0;
    stream >> shape >> read.profile >> turn;
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || read.profile.size() > kLongestProfile) return false;
    if (turn > QImageIOHandler::TransformationRotate270) return false;
    read.turn = QImageIOHandler::Transformations(turn);
    const bool sized = width > 0 && height > 0 && width <= kLongestSide && height <= kLongestSide;
    if (read.opens ? !sized : (width != 0 || height != 0)) return false;
    read.size = QSize(width, height);
    if (!shape.isNull()) {
        if (!read.opens || !shape.isSane() || shape.bytes() > room) return false;
        const uchar *from = pixels(shape.bytes());
        if (from) read.picture = copied(shape, from);
        if (read.picture.isNull()) return false;
    }
    answer = read;
    return true;
}

} // namespace decoder
