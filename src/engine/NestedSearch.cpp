#include "engine/NestedSearch.h"

#include "app/StopFlag.h"
#include "engine/Guards.h"
#include "engine/Markers.h"

#include <algorithm>

namespace {

constexpr size_t kCapacity = NestedTable<quint32>::kCapacity;

/// The first image of an SOI node; one whose end is the file's stays open.
int recordImage(SegmentNode &node, quint64 start, quint64 eoi, quint64 fileSize, bool &closed)
{
    node.wSoiNestedFlag = 1;
    node.aNestedStart.setFirst(quint32(start));
    node.nSoiNested = 1;
    if (eoi >= fileSize) return 1;
    closed = true;
    node.nSoiNested = 2;
    node.aNestedLength.setFirst(qint32(eoi + 2 - quint32(start)));
    return 1;
}

} // namespace

bool opensNestedImage(FileWindow &file, quint64 offset)
{
    const quint16 length = file.wordAt(offset + 4);
    // One byte above what the largest header of a thumbnail has: three tables in a DQT (197), all four in a DHT (418),
    // a JFIF APP0 (16), three components in a frame (17) and in a scan header (12).
    switch (file.wordAt(offset + 2)) {
    case jpeg::DQT: return length < 198;
    case jpeg::DHT: return length < 419;
    case jpeg::APP0: return length < 17;
    case jpeg::SOF0: return length < 18;
    case jpeg::SOS:
    case jpeg::APP13: return length < 13;
    case jpeg::APP1:
    case jpeg::APP2:
    case jpeg::APP14: return true;
    default: return false;
    }
}

bool opensImage(FileWindow &file, quint64 offset)
{
    return jpeg::isImageOpener(file.wordAt(offset + 2));
}

NestedImages imagesInSegment(FileWindow &file, quint64 first, quint64 last)
{
    NestedImages found;
    bool open = false;
    for (quint64 at = file.nextFF(first, last + 1); at <= last && !stopRequested(); at = file.nextFF(at, last + 1)) {
        const quint16 word = file.wordAt(at);
        if (word == jpeg::SOI && !open) {
            if (opensNestedImage(file, at)) {
                found.starts.push_back(quint32(at));
                found.lengths.push_back(0);
                open = true;
            }
            at += 2;
        } else if (word == jpeg::EOI && open) {
            found.lengths.back() = qint32(at + 2 - found.starts.back());
            open = false;
            if (found.starts.size() == kCapacity) break;
            ++at;
        } else {
            ++at;
        }
    }
    return found;
}

TrailingImages::TrailingImages(FileWindow &file, quint64 fileSize, size_t limit)
    : m_file(file), m_size(fileSize), m_limit(limit)
{
}

quint64 TrailingImages::nextStart(quint64 from)
{
    if (from >= m_start.from && from <= m_start.answer) return m_start.answer;
    quint64 at = m_file.nextFF(from, m_size);
    while (at < m_size && !(m_file.wordAt(at) == jpeg::SOI && opensImage(m_file, at))) {
        if (stopRequested()) return m_size;
        at = m_file.nextFF(at + 1, m_size);
    }
    m_start = {from, at};
    return at;
}

quint64 TrailingImages::nextEnd(quint64 from)
{
    if (from >= m_end.from && from <= m_end.answer) return m_end.answer;
    quint64 at = m_file.nextFF(from, m_size);
    while (at < m_size && m_file.wordAt(at) != jpeg::EOI) {
        if (stopRequested()) return m_size;
        at = m_file.nextFF(at + 1, m_size);
    }
    m_end = {from, at};
    return at;
}

void TrailingImages::searchChain(quint64 from)
{
    const Known start = m_start;
    const Known end = m_end;
    m_starts = std::make_shared<NestedTable<quint32>::Values>();
    m_lengths = std::make_shared<NestedTable<qint32>::Values>();
    quint64 at = nextStart(from);
    while (at < m_size && m_starts->size() < m_limit && !stopRequested()) {
        const quint64 eoi = nextEnd(at + 2);
        m_starts->push_back(quint32(at));
        m_lengths->push_back(eoi < m_size ? qint32(eoi + 2 - at) : 0);
        if (eoi >= m_size) break;
        at = nextStart(eoi + 1);
    }
    m_start = start; // the places asked for next lie far in front of where this search has ended
    m_end = end;
}

int TrailingImages::record(SegmentNode &node, quint64 offset, bool &closed)
{
    const quint64 start = nextStart(offset);
    if (start >= m_size) return 0;
    const quint64 eoi = nextEnd(start + 2);
    recordImage(node, start, eoi, m_size, closed);
    if (eoi >= m_size) return 1;

    if (!m_starts) searchChain(eoi + 1);
    // What a place sees behind its first image are the images of the one chain that lie behind that image's end.
    const auto behind = std::upper_bound(m_starts->begin(), m_starts->end(), quint32(eoi));
    const auto from = size_t(behind - m_starts->begin());
    node.aNestedStart.setFurther(m_starts, from);
    node.aNestedLength.setFurther(m_lengths, from);
    const size_t count = std::min(m_starts->size() - from, kCapacity - 1);
    const bool open = count > 0 && (*m_lengths)[from + count - 1] == 0;
    node.nSoiNested = quint16(2 + 2 * count - (open ? 1 : 0));
    return int(count) + 1;
}

namespace {

bool isHopped(quint16 word)
{
    return word == jpeg::APP1 || word == jpeg::APP2 || word == jpeg::APP13;
}

/// Where a search for a stream's image looks behind the FF at `offset`.
quint64 behind(FileWindow &file, quint64 offset)
{
    return isHopped(file.wordAt(offset)) ? offset + file.wordAt(offset + 2) + 2 : offset + 1;
}

quint64 streamStart(FileWindow &file, quint64 fileSize, quint64 offset)
{
    quint64 at = file.nextFF(offset, fileSize);
    while (at < fileSize && !stopRequested()) {
        if (file.wordAt(at) == jpeg::SOI && opensImage(file, at)) return at;
        at = file.nextFF(behind(file, at), fileSize);
    }
    return fileSize;
}

quint64 streamEnd(FileWindow &file, quint64 fileSize, quint64 offset)
{
    quint64 at = file.nextFF(offset, fileSize);
    while (at < fileSize && file.wordAt(at) != jpeg::EOI && !stopRequested())
        at = file.nextFF(behind(file, at), fileSize);
    return at;
}

// The longest hop: a length field of 65,535 and the marker.
constexpr quint64 kLongestHop = 65537;

} // namespace

int recordStreamImage(FileWindow &file, quint64 fileSize, SegmentNode &node, quint64 offset, bool &closed)
{
    const quint64 start = streamStart(file, fileSize, offset);
    if (start >= fileSize) return 0;
    return recordImage(node, start, streamEnd(file, fileSize, start + 2), fileSize, closed);
}

StreamImages::StreamImages(FileWindow &file, quint64 fileSize) : m_size(fileSize)
{
    constexpr quint64 kNone = ~quint64(0);
    quint64 at = fileSize > 0 ? file.previousFF(fileSize - 1, 0) : kNone;
    while (at != kNone && !stopRequested()) {
        const quint16 word = file.wordAt(at);
        if (word == jpeg::EOI || isHopped(word)) {
            m_ahead.push_front({at, word == jpeg::EOI ? at : endFrom(behind(file, at))});
            while (m_ahead.size() > 1 && m_ahead[m_ahead.size() - 2].offset > at + kLongestHop) m_ahead.pop_back();
        } else if (word == jpeg::SOI && opensImage(file, at)) {
            m_images.push_front({at, endFrom(at + 2)});
            if (m_images.size() > guards::kChainNodes) m_images.pop_back();
        }
        at = at > 0 ? file.previousFF(at - 1, 0) : kNone;
    }
    m_ahead.clear();
}

quint64 StreamImages::endFrom(quint64 offset) const
{
    const auto first = std::lower_bound(m_ahead.begin(), m_ahead.end(), offset,
                                        [](const Place &place, quint64 from) { return place.offset < from; });
    return first == m_ahead.end() ? m_size : first->end;
}

int StreamImages::record(SegmentNode &node, quint64 offset, bool &closed)
{
    while (!m_images.empty() && m_images.front().offset < offset) m_images.pop_front();
    if (m_images.empty() || m_images.front().offset != offset) return 0;
    return recordImage(node, offset, m_images.front().end, m_size, closed);
}
