#include "save/ExifCheck.h"

#include <QVector>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr qint64 kHead = 8;
constexpr qint64 kEntry = 12;

namespace tag {
constexpr quint16 Orientation = 0x0112;
constexpr quint16 StripOffset = 0x0111;
constexpr quint16 StripLength = 0x0117;
constexpr quint16 DateTime = 0x0132;
constexpr quint16 ThumbnailOffset = 0x0201;
constexpr quint16 ThumbnailLength = 0x0202;
constexpr quint16 ExifList = 0x8769;
constexpr quint16 GpsList = 0x8825;
constexpr quint16 DateTimeOriginal = 0x9003;
constexpr quint16 DateTimeDigitized = 0x9004;
constexpr quint16 PixelWidth = 0xA002;
constexpr quint16 PixelHeight = 0xA003;
constexpr quint16 InteropList = 0xA005;
} // namespace tag

namespace type {
constexpr quint16 Ascii = 2;
constexpr quint16 Short = 3;
constexpr quint16 Long = 4;
} // namespace type

/// Bytes of one value of each type, from 1 on.
constexpr std::array<qint64, 13> kTypeBytes = {1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

struct Entry
{
    quint16 tag = 0;
    quint16 type = 0;
    quint32 count = 0;
    qint64 at = 0;    ///< offset of its value
    qint64 bytes = 0; ///< length of its value
};

class Checker
{
public:
    explicit Checker(const QByteArray &tiff) : m_tiff(tiff) {}

    SoundExif run()
    {
        if (m_tiff.size() < kHead) return {};
        m_little = m_tiff.startsWith(QByteArray("II\x2A\0", 4));
        if (!m_little && !m_tiff.startsWith(QByteArray("MM\0\x2A", 4))) return {};
        const qint64 first = number32(4);
        if (!prune(first)) return {};
        const qint64 next = nextField(first);
        if (next > 0 && number32(next) != 0) {
            const qint64 thumbnail = number32(next);
            if (!prune(thumbnail) || !thumbnailStands(thumbnail)) put32(next, 0);
        }
        return {m_tiff, m_size};
    }

private:
    struct Span
    {
        qint64 begin, end;
    };

    quint16 number16(qint64 at) const
    {
        const char *bytes = m_tiff.constData() + at;
        return m_little ? qFromLittleEndian<quint16>(bytes) : qFromBigEndian<quint16>(bytes);
    }
    quint32 number32(qint64 at) const
    {
        const char *bytes = m_tiff.constData() + at;
        return m_little ? qFromLittleEndian<quint32>(bytes) : qFromBigEndian<quint32>(bytes);
    }
    void put16(qint64 at, quint16 value)
    {
        char *bytes = m_tiff.data() + at;
        m_little ? qToLittleEndian(value, bytes) : qToBigEndian(value, bytes);
    }
    void put32(qint64 at, quint32 value)
    {
        char *bytes = m_tiff.data() + at;
        m_little ? qToLittleEndian(value, bytes) : qToBigEndian(value, bytes);
    }

    bool overlapsList(qint64 begin, qint64 end) const
    {
        return begin < kHead || std::any_of(m_lists.begin(), m_lists.end(), [&](const Span &list) {
                   return begin < list.end && list.begin < end;
               });
    }

    /// Where the list at `list` names the next one; 0 if the block ends in front of that.
    qint64 nextField(qint64 list) const
    {
        const qint64 at = list + 2 + kEntry * number16(list);
        return at + 4 <= m_tiff.size() ? at : 0;
    }

    Entry entryAt(qint64 at) const
    {
        Entry entry{number16(at), number16(at + 2), number32(at + 4), at + 8, 0};
        if (entry.type < 1 || entry.type > kTypeBytes.size()) return entry;
        entry.bytes = kTypeBytes[size_t(entry.type - 1)] * qint64(entry.count);
        if (entry.bytes > 4) entry.at = number32(at + 8);
        return entry;
    }

    /// Takes out of the list at `list` what doesn't stand. False if nothing does.
    bool prune(qint64 list)
    {
        if (list < kHead || list + 2 > m_tiff.size()) return false;
        const int count = number16(list);
        const qint64 end = list + 2 + kEntry * count;
        if (end > m_tiff.size() || overlapsList(list, end)) return false; // that lists in a ring end here, too
        m_lists.append({list, end});
        const bool hasNext = end + 4 <= m_tiff.size();
        const QByteArray before =
            m_tiff.mid(int(list + 2), int(end - list - 2)) + m_tiff.mid(int(end), hasNext ? 4 : 0);

        QByteArray kept;
        for (qint64 at = list + 2; at < end; at += kEntry)
            if (stands(entryAt(at))) kept += m_tiff.mid(int(at), int(kEntry));
        const int keptCount = int(kept.size() / kEntry);
        if (keptCount < count) {
            kept += before.right(hasNext ? 4 : 0); // the number of the next list moves up with the entries
            kept.append(QByteArray(before.size() - kept.size(), '\0'));
            m_tiff.replace(int(list + 2), kept.size(), kept);
            put16(list, quint16(keptCount));
        }
        return keptCount > 0;
    }

    bool stands(const Entry &entry)
    {
        if (entry.type < 1 || entry.type > kTypeBytes.size() || entry.at + entry.bytes > m_tiff.size()) return false;
        if (entry.bytes > 4 && overlapsList(entry.at, entry.at + entry.bytes)) return false;
        if (entry.type == type::Ascii && !isText(entry)) return false;
        switch (entry.tag) {
        case tag::ExifList:
        case tag::GpsList:
        case tag::InteropList: return entry.type == type::Long && entry.count == 1 && prune(number32(entry.at));
        case tag::Orientation:
            return entry.type == type::Short && entry.count == 1 && number16(entry.at) >= 1 && number16(entry.at) <= 8;
        case tag::DateTime:
        case tag::DateTimeOriginal:
        case tag::DateTimeDigitized: return isDate(entry);
        case tag::PixelWidth: m_size.setWidth(value(entry)); return m_size.width() >= 0;
        case tag::PixelHeight: m_size.setHeight(value(entry)); return m_size.height() >= 0;
        default: return true;
        }
    }

    /// The one number of an entry, -1 if it is none.
    int value(const Entry &entry) const
    {
        if (entry.count != 1) return -1;
        if (entry.type == type::Short) return number16(entry.at);
        return entry.type == type::Long && number32(entry.at) <= 0xFFFF ? int(number32(entry.at)) : -1;
    }

    /// The value up to its first zero; some cameras leave what was in their memory behind it.
    QByteArray text(const Entry &entry) const
    {
        const QByteArray bytes = m_tiff.mid(int(entry.at), int(entry.bytes));
        return bytes.left(bytes.contains('\0') ? bytes.indexOf('\0') : bytes.size());
    }

    bool isText(const Entry &entry) const
    {
        const QByteArray letters = text(entry);
        return std::all_of(letters.begin(), letters.end(), [](char letter) {
            return quint8(letter) >= 0x20 || letter == '\t' || letter == '\n' || letter == '\r';
        });
    }

    /// A date that the camera didn't know is blank; editors write the form of ISO 8601.
    bool isDate(const Entry &entry) const
    {
        const QByteArray letters = text(entry);
        return entry.type == type::Ascii && std::all_of(letters.begin(), letters.end(), [](char letter) {
                   return std::strchr("0123456789 :-/.+TZ", letter) != nullptr;
               });
    }

    /// The thumbnail lies in the block, as a JPEG or as one strip of samples; or there is none.
    bool thumbnailStands(qint64 list) const
    {
        qint64 jpeg[2] = {};
        qint64 strip[2] = {};
        for (int i = 0; i < number16(list); ++i) {
            const Entry entry = entryAt(list + 2 + kEntry * i);
            const bool isStrip = entry.tag == tag::StripOffset || entry.tag == tag::StripLength;
            const bool isJpeg = entry.tag == tag::ThumbnailOffset || entry.tag == tag::ThumbnailLength;
            if (!isStrip && !isJpeg) continue;
            const bool isShort = entry.type == type::Short;
            if (entry.count != 1 || (!isShort && entry.type != type::Long)) return false;
            const bool isLength = entry.tag == tag::StripLength || entry.tag == tag::ThumbnailLength;
            (isStrip ? strip : jpeg)[isLength] = isShort ? number16(entry.at) : number32(entry.at);
        }
        const auto inBlock = [this](const qint64(&part)[2]) {
            return (part[0] == 0 && part[1] == 0)
                || (part[0] >= kHead && part[1] > 0 && part[0] + part[1] <= m_tiff.size()
                    && !overlapsList(part[0], part[0] + part[1]));
        };
        return inBlock(strip) && inBlock(jpeg) && (jpeg[1] == 0 || m_tiff.mid(int(jpeg[0]), 2) == "\xFF\xD8");
    }

    QByteArray m_tiff;
    QVector<Span> m_lists;
    QSize m_size;
    bool m_little = false;
};

} // namespace

SoundExif soundExif(const QByteArray &tiff)
{
    return Checker(tiff).run();
}
