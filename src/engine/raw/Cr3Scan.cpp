#include "engine/raw/Cr3Scan.h"

#include "app/StopFlag.h"
#include "engine/Guards.h"
#include "engine/raw/RawCarve.h"

#include <algorithm>

namespace {

constexpr quint32 fourCc(const char (&text)[5])
{
    quint32 code = 0;
    for (int i = 0; i < 4; ++i) code = code << 8 | quint8(text[i]);
    return code;
}

/// Places in a box are those of its type, which its size stands in front of.
class Cr3Boxes
{
public:
    explicit Cr3Boxes(FileWindow &file) : m_file(file) {}

    Cr3Images images()
    {
        Cr3Images found;
        walkTopLevel();
        if (!m_isCr3) return found;
        found.thumbnail = thumbnail();
        if (m_preview != 0 && m_preview < m_remaining) found.preview = boxImage(m_preview, 0x10);
        if (m_track != 0 && m_track < m_remaining) found.full = trackImage();
        return found;
    }

private:
    quint32 word32(quint64 at) { return quint32(m_file.wordAt(at)) << 16 | m_file.wordAt(at + 2); }

    void walkTopLevel();
    bool takeBox(quint64 at, quint32 type);
    std::optional<quint64> findThumbnail(quint64 from);
    Cr3Image thumbnail();
    Cr3Image boxImage(quint64 box, quint64 lengthAt);
    Cr3Image trackImage();
    static quint32 usable(quint32 length) { return length <= guards::kCr3Image ? length : 0; }

    FileWindow &m_file;
    bool m_isCr3 = false;
    bool m_complete = false; // the walk has met a usable mdat
    quint64 m_remaining = 0; // steps that were left then: what stands for the file's size from there on
    quint32 m_sum = 0;       // of the sizes of the boxes passed
    quint64 m_end = 0;       // of mdat
    quint64 m_track = 0;
    quint64 m_preview = 0;
};

/// Notes what the box at `at` tells. False if it is none of those that the walk hops over.
bool Cr3Boxes::takeBox(quint64 at, quint32 type)
{
    switch (type) {
    case fourCc("ftyp"): m_isCr3 = true; break;
    case fourCc("moov"):
        // Over its first child, whose size is read, and the one behind it, whose size is always the same.
        if (word32(at + 8) == fourCc("uuid")) m_track = quint32(at + 0x74 + word32(at + 4));
        break;
    case fourCc("uuid"):
        if (word32(at + 0x20) == fourCc("PRVW")) m_preview = at + 0x20;
        break;
    default: return false;
    }
    return true;
}

void Cr3Boxes::walkTopLevel()
{
    const quint64 steps = m_file.size();
    quint64 at = 0;
    for (quint64 step = 1; step <= steps && at < m_file.size() && !stopRequested(); ++step) {
        const quint32 type = word32(at);
        if (type == fourCc("ftyp") && (word32(at + 0x3C) != fourCc("Cano") || word32(at + 0x40) != fourCc("nCR3"))) {
            m_isCr3 = false;
            return;
        }
        if (type == fourCc("mdat")) {
            m_complete = word32(at - 4) == 1;
            if (!m_complete) return;
            m_end = quint32(word32(at + 8) + m_sum);
            m_remaining = steps - step;
            return;
        }
        if (!takeBox(at, type)) {
            ++at;
            continue;
        }
        const quint32 size = word32(at - 4);
        if (size == 0) return; // would stand still until the steps run out
        m_sum = type == fourCc("ftyp") ? size : m_sum + size;
        at += size;
    }
}

/// Hops over the boxes between the first camera data and the thumbnail.
std::optional<quint64> Cr3Boxes::findThumbnail(quint64 from)
{
    for (quint64 at = from; at < m_file.size() && !stopRequested();) {
        const quint32 type = word32(at);
        if (type == fourCc("THMB")) return at;
        const bool hops = type == fourCc("CMT2") || type == fourCc("CMT3") || type == fourCc("CMT4");
        const quint32 step = hops ? word32(at - 4) : 1;
        if (step == 0) return {};
        at += step;
    }
    return {};
}

Cr3Image Cr3Boxes::thumbnail()
{
    constexpr quint64 kReach = 512;
    std::optional<quint64> camera;
    for (quint64 at = 0; at < kReach; ++at)
        if (word32(at) == fourCc("CMT1")) camera = at;
    if (!camera || !m_complete) return {};
    const auto box = findThumbnail(*camera + word32(*camera - 4));
    return box ? boxImage(*box, 0xC) : Cr3Image();
}

Cr3Image Cr3Boxes::boxImage(quint64 box, quint64 lengthAt)
{
    Cr3Image image;
    image.start = box + 0x14;
    image.length = usable(word32(box + lengthAt));
    image.blank = image.start + image.length >= m_remaining;
    return image.length != 0 ? image : Cr3Image();
}

Cr3Image Cr3Boxes::trackImage()
{
    const quint32 size = word32(m_track - 4);
    if (size == 0 || size >= m_end) return {};
    Cr3Image image;
    // Behind the file's end there is nothing to find, however long the track claims to be.
    const quint64 end = std::min(m_track + size, m_file.size());
    for (quint64 at = m_track; at < end && at + 4 <= m_end && !stopRequested(); ++at) {
        const quint32 type = word32(at);
        if (type == fourCc("stsz")) image.length = usable(word32(at + 8));
        if (type != fourCc("co64")) continue;
        image.start = word32(at + 0x10);
        break;
    }
    return image.length != 0 ? image : Cr3Image();
}

Cr3Image carveNext(FileWindow &file, quint64 &from)
{
    static constexpr CarveRule rule{
        .markers = {0xFFDB, 0xFFC4, 0xFFE0}, .roomBehindStart = 0, .roomBehindEnd = 0, .stopsInside = false};
    CarveHit hit;
    if (!findCarveHit(file, rule, from, hit)) {
        from = file.size();
        return {};
    }
    from = hit.next;
    if (!hit.endStored) return {};
    return {hit.start, hit.end - hit.start, false};
}

} // namespace

Cr3Images findCr3Images(FileWindow &file, quint32 &carvePosition)
{
    Cr3Images found = Cr3Boxes(file).images();
    if (found.full.length != 0 || found.preview.length != 0 || found.thumbnail.length != 0) return found;
    found = {};
    found.carved = true;
    quint64 from = 0;
    // A picture right at the file's start is not a thumbnail, nor a full image, and only moves the search on.
    found.thumbnail = carveNext(file, from);
    if (found.thumbnail.start == 0) found.thumbnail = {};
    found.preview = carveNext(file, from);
    found.full = carveNext(file, from);
    if (found.full.start == 0) found.full = {};
    carvePosition = quint32(from);
    return found;
}
