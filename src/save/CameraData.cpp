#include "save/CameraData.h"

#include "engine/FileWindow.h"
#include "engine/Markers.h"
#include "save/ExifCheck.h"

#include <QSize>
#include <QVector>
#include <QtEndian>

#include <algorithm>

namespace {

/// Room for a profile of several hundred parts, and for what an editor puts in front of it.
constexpr qint64 kBeginning = 8 << 20;

const QByteArray kExifMark("Exif\0\0", 6);
const QByteArray kProfileMark("ICC_PROFILE\0", 12);
constexpr int kProfileHead = 14; // the mark, the number of the part and how many there are
constexpr int kProfileTags = 128;

struct Segment
{
    int at = 0; ///< of the FF
    quint8 code = 0;
    QByteArray body; ///< behind the length field
};

quint16 word(const QByteArray &bytes, int at)
{
    return qFromBigEndian<quint16>(bytes.constData() + at);
}

quint32 longWord(const QByteArray &bytes, int at)
{
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

/// The segments in front of the scan. Behind damage it goes on at the next segment that names itself as Exif or profile,
/// but never into the scan or another picture.
class HeaderZone
{
public:
    explicit HeaderZone(const QByteArray &bytes) : m_bytes(bytes)
    {
        if (startsPicture(0))
            m_at = 2;
        else
            seek();
        while (!m_ended)
            if (!takeSegment()) seek();
    }

    const QVector<Segment> &segments() const { return m_segments; }
    QSize frame() const { return m_frame; } ///< invalid if no frame header was met
    int components() const { return m_components; }
    /// Segments that follow the file's own start without a gap.
    int firstSegments() const { return m_gapSeen ? m_beforeGap : m_segments.size(); }

private:
    quint8 byteAt(int at) const { return at < m_bytes.size() ? quint8(m_bytes[at]) : quint8(0); }
    bool startsPicture(int at) const { return byteAt(at) == 0xFF && byteAt(at + 1) == 0xD8 && byteAt(at + 2) == 0xFF; }

    /// The end of the segment at `at`, 0 if none stands there.
    int endOfSegment(int at) const
    {
        const quint8 code = byteAt(at + 1);
        if (byteAt(at) != 0xFF || code < 0xC0 || (code >= 0xD0 && code <= 0xD9) || code == 0xFF) return 0;
        if (at + 4 > m_bytes.size()) return 0;
        const int length = word(m_bytes, at + 2);
        const int end = at + 2 + length;
        return length >= 2 && end + 2 <= m_bytes.size() && byteAt(end) == 0xFF && byteAt(end + 1) >= 0xC0 ? end : 0;
    }

    bool startsScan(int at) const
    {
        const int components = byteAt(at + 4);
        return byteAt(at) == 0xFF && byteAt(at + 1) == 0xDA && components >= 1 && components <= 4 && byteAt(at + 2) == 0
            && byteAt(at + 3) == 6 + 2 * components;
    }

    bool takeSegment()
    {
        while (byteAt(m_at) == 0xFF && byteAt(m_at + 1) == 0xFF) ++m_at; // fill bytes
        if (startsScan(m_at)) {
            m_ended = true;
            return true;
        }
        const int end = endOfSegment(m_at);
        if (end == 0) return false;
        const Segment segment{m_at, byteAt(m_at + 1), m_bytes.mid(m_at + 4, end - m_at - 4)};
        if (jpeg::isFrameHeader(quint16(0xFF00 | segment.code)) && segment.body.size() >= 6) {
            m_frame = QSize(word(segment.body, 3), word(segment.body, 1));
            m_components = quint8(segment.body[5]);
        }
        m_segments.append(segment);
        m_at = end;
        return true;
    }

    bool namesItself(int at) const
    {
        const quint8 code = byteAt(at + 1);
        if (code != 0xE1 && code != 0xE2) return false;
        const QByteArray &mark = code == 0xE1 ? kExifMark : kProfileMark;
        return m_bytes.mid(at + 4, mark.size()) == mark && endOfSegment(at) != 0;
    }

    void seek()
    {
        if (!m_gapSeen) m_beforeGap = m_segments.size();
        m_gapSeen = true;
        for (;; ++m_at) {
            m_at = m_bytes.indexOf('\xFF', m_at);
            m_ended = m_at < 0 || startsScan(m_at) || (startsPicture(m_at) && !m_segments.isEmpty());
            if (m_ended || namesItself(m_at)) return;
            if (startsPicture(m_at)) {
                m_at += 2;
                return;
            }
        }
    }

    const QByteArray &m_bytes;
    QVector<Segment> m_segments;
    QSize m_frame;
    int m_components = 0;
    int m_at = 0;
    int m_beforeGap = 0;
    bool m_gapSeen = false;
    bool m_ended = false;
};

bool isExif(const Segment &segment)
{
    return segment.code == 0xE1 && segment.body.startsWith(kExifMark);
}

bool isProfile(const Segment &segment)
{
    return segment.code == 0xE2 && segment.body.startsWith(kProfileMark) && segment.body.size() > kProfileHead;
}

QByteArray asSegment(quint8 code, const QByteArray &body)
{
    QByteArray segment("\xFF\0\0\0", 4);
    segment[1] = char(code);
    qToBigEndian(quint16(body.size() + 2), segment.data() + 2);
    return segment + body;
}

/// ICC.1:2010, 7.2 and 7.3: the length, the mark of a profile, the colours, and all tags in bounds.
bool isSoundProfile(const QByteArray &profile, int components)
{
    if (profile.size() < kProfileTags + 4 || longWord(profile, 0) != quint32(profile.size())) return false;
    if (profile.mid(36, 4) != "acsp") return false;
    const QByteArray colours = profile.mid(16, 4);
    const int wanted = colours == "GRAY" ? 1 : colours == "RGB " ? 3 : colours == "CMYK" ? 4 : 0;
    if (wanted != components) return false;
    const qint64 tags = longWord(profile, kProfileTags);
    if (tags == 0 || kProfileTags + 4 + 12 * tags > profile.size()) return false;
    for (int at = kProfileTags + 4; at < kProfileTags + 4 + 12 * tags; at += 12)
        if (qint64(longWord(profile, at + 4)) + longWord(profile, at + 8) > profile.size()) return false;
    return true;
}

/// The parts of the profile as segments in their order; empty if it isn't whole and sound.
QByteArray profileOf(const HeaderZone &source, int components)
{
    QVector<QByteArray> parts;
    for (const Segment &segment : source.segments()) {
        if (!isProfile(segment)) continue;
        const int number = quint8(segment.body[kProfileHead - 2]);
        const int count = quint8(segment.body[kProfileHead - 1]);
        if (parts.isEmpty()) parts.resize(count);
        if (parts.size() != count || number < 1 || number > count || !parts[number - 1].isEmpty()) return {};
        parts[number - 1] = segment.body;
    }
    QByteArray profile;
    QByteArray segments;
    for (const QByteArray &part : qAsConst(parts)) {
        if (part.isEmpty()) return {};
        profile += part.mid(kProfileHead);
        segments += asSegment(0xE2, part);
    }
    return isSoundProfile(profile, components) ? segments : QByteArray();
}

QByteArray beginningOf(const QString &path)
{
    FileWindow file(path);
    if (!file.isOpen()) return {};
    QByteArray bytes(int(std::min<quint64>(file.size(), quint64(kBeginning))), Qt::Uninitialized);
    file.read(0, bytes.data(), bytes.size());
    return bytes;
}

/// Where segments may be put in: readers look for APP0 right behind SOI.
int placeFor(const HeaderZone &output)
{
    int place = 2;
    for (const Segment &segment : output.segments()) {
        if (segment.code != 0xE0 || segment.at != place) break;
        place = segment.at + 4 + segment.body.size();
    }
    return place;
}

} // namespace

InsertedBytes cameraDataFor(const QByteArray &output, const QByteArray &source)
{
    const HeaderZone repaired(output);
    const QVector<Segment> &own = repaired.segments();
    if (!output.startsWith("\xFF\xD8") || repaired.firstSegments() != own.size() || !repaired.frame().isValid())
        return {};
    const HeaderZone damaged(source);
    const QVector<Segment> &found = damaged.segments();
    const bool frameAgrees = damaged.frame() == repaired.frame();

    QByteArray segments;
    bool belongs = frameAgrees;
    const auto exif = std::find_if(found.begin(), found.end(), isExif);
    if (exif != found.end()) {
        const SoundExif block = soundExif(exif->body.mid(kExifMark.size()));
        const bool atItsPlace = exif - found.begin() < damaged.firstSegments();
        if (block.size.isValid())
            belongs = frameAgrees || block.size == repaired.frame();
        else
            belongs = frameAgrees || (atItsPlace && !damaged.frame().isValid());
        if (belongs && !block.tiff.isEmpty() && std::none_of(own.begin(), own.end(), isExif))
            segments += asSegment(0xE1, kExifMark + block.tiff);
    }
    if (belongs && std::none_of(own.begin(), own.end(), isProfile))
        segments += profileOf(damaged, repaired.components());
    return segments.isEmpty() ? InsertedBytes() : InsertedBytes{placeFor(repaired), segments};
}

InsertedBytes cameraDataOfFiles(const QString &outputPath, const QString &sourcePath)
{
    return cameraDataFor(beginningOf(outputPath), beginningOf(sourcePath));
}
