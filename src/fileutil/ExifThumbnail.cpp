#include "fileutil/ExifThumbnail.h"

#include <QtEndian>

namespace {

constexpr quint16 kJpegAt = 0x0201;
constexpr quint16 kJpegBytes = 0x0202;
constexpr quint32 kEntryBytes = 12;

/// Numbers of a TIFF structure in its own byte order; 0 past its end.
class Tiff
{
public:
    explicit Tiff(const QByteArray &bytes) : m_bytes(bytes), m_little(bytes.startsWith("II")) {}
    bool isOne() const { return (m_little || m_bytes.startsWith("MM")) && word(2) == 42; }
    quint16 word(quint32 at) const { return number<quint16>(at); }
    quint32 dword(quint32 at) const { return number<quint32>(at); }

private:
    template<typename Number>
    Number number(quint32 at) const
    {
        if (quint64(at) + sizeof(Number) > quint64(m_bytes.size())) return 0;
        const char *from = m_bytes.constData() + at;
        return m_little ? qFromLittleEndian<Number>(from) : qFromBigEndian<Number>(from);
    }

    const QByteArray &m_bytes;
    const bool m_little;
};

/// What follows "Exif\0\0"; empty if there is no such segment before anything but APPn and comments.
QByteArray exifOf(FileWindow &file)
{
    quint64 at = 2;
    for (quint16 marker = file.wordAt(at); (marker >= 0xFFE0 && marker <= 0xFFEF) || marker == 0xFFFE;
         marker = file.wordAt(at)) {
        const quint16 length = file.wordAt(at + 2);
        if (length < 2) return {};
        if (marker == 0xFFE1) {
            QByteArray body(length - 2, 0);
            file.read(at + 4, body.data(), quint64(body.size()));
            if (body.startsWith(QByteArray("Exif\0\0", 6))) return body.mid(6);
        }
        at += 2 + length;
    }
    return {};
}

} // namespace

QByteArray exifThumbnail(FileWindow &file)
{
    if (file.wordAt(0) != 0xFFD8) return {};
    const QByteArray bytes = exifOf(file);
    const Tiff tiff(bytes);
    if (!tiff.isOne()) return {};
    const quint32 first = tiff.dword(4);
    const quint32 second = tiff.dword(first + 2 + tiff.word(first) * kEntryBytes);
    if (second == 0) return {};
    quint32 jpegAt = 0, jpegBytes = 0;
    for (quint32 i = 0; i < tiff.word(second); ++i) {
        const quint32 entry = second + 2 + i * kEntryBytes;
        if (tiff.word(entry) == kJpegAt) jpegAt = tiff.dword(entry + 8);
        if (tiff.word(entry) == kJpegBytes) jpegBytes = tiff.dword(entry + 8);
    }
    const bool inside = quint64(jpegAt) + jpegBytes <= quint64(bytes.size());
    const QByteArray jpeg = inside ? bytes.mid(int(jpegAt), int(jpegBytes)) : QByteArray();
    return jpeg.startsWith("\xFF\xD8") ? jpeg : QByteArray();
}
