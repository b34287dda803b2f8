#include "engine/TrueFormat.h"

#include "engine/FileWindow.h"

#include <QByteArray>
#include <QList>

namespace {

struct Signature
{
    int offset;
    QByteArray bytes;
    const char *format;
};

const QList<Signature> &signatures()
{
    static const QList<Signature> known = {
        {0, QByteArray("\xFF\xD8\xFF", 3), "JPEG"},
        {0, QByteArray("\x89PNG\r\n", 6), "PNG"},
        {0, "GIF8", "GIF"},
        {8, "WEBP", "WebP"},
        {0, QByteArray("II*\0", 4), "TIFF"},
        {0, QByteArray("MM\0*", 4), "TIFF"},
        {0, "%PDF-", "PDF"},
        {0, QByteArray("PK\3\4", 4), "ZIP"},
        {0, QByteArray("\x1F\x8B\x08", 3), "gzip"},
        {0, "Rar!\x1A", "RAR"},
        {0, QByteArray("7z\xBC\xAF\x27\x1C", 6), "7z"},
        {0, "8BPS", "PSD"},
        {4, "ftypavif", "AVIF"},
        {4, "ftypavis", "AVIF"},
        {4, "ftypheic", "HEIC"},
        {4, "ftypheix", "HEIC"},
        {4, "ftyphevc", "HEIC"},
        {4, "ftypmif1", "HEIC"},
        {4, "ftypmsf1", "HEIC"},
        {4, "ftypcrx ", "CR3"},
        {4, "ftypisom", "MP4"},
        {4, "ftypmp4", "MP4"},
        {4, "ftypqt  ", "MP4"},
    };
    return known;
}

/// "BM", and in the next four bytes the file's own size: two letters alone are no sign.
bool isBitmap(FileWindow &file)
{
    quint8 head[6] = {};
    file.read(0, head, sizeof head);
    const quint32 size = head[2] | head[3] << 8 | head[4] << 16 | quint32(head[5]) << 24;
    return head[0] == 'B' && head[1] == 'M' && size == file.size();
}

} // namespace

QString formatOfBytes(FileWindow &file)
{
    QByteArray head(32, '\0');
    file.read(0, head.data(), head.size());
    for (const Signature &each : signatures())
        if (head.mid(each.offset, each.bytes.size()) == each.bytes) return QString::fromLatin1(each.format);
    return isBitmap(file) ? QStringLiteral("BMP") : QString();
}

bool formatFits(const QString &format, const QString &suffix)
{
    const QString upper = suffix.toUpper();
    const bool jpeg = upper == QLatin1String("JPG") || upper == QLatin1String("JPEG");
    const bool heic = upper == QLatin1String("HEIC") || upper == QLatin1String("HEIF") || upper == QLatin1String("HIF");
    if (format.isEmpty()) return true;
    if (jpeg || format == QLatin1String("JPEG")) return jpeg && format == QLatin1String("JPEG");
    if (heic || format == QLatin1String("HEIC")) return heic && format == QLatin1String("HEIC");
    if (format == QLatin1String("CR3")) return upper == format;
    return format == QLatin1String("TIFF"); // camera raw is built on it
}
