#include "salvage/structure/SegmentList.h"

#include "salvage/structure/Structure.h"
#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <bit>

namespace salvage {

namespace {

constexpr size_t kQuantBody = 65;
constexpr size_t kLongestTableBody = 1100;
constexpr size_t kMostSegments = 20'000;
constexpr size_t kLongestGap = 70'000; // tables stand near their scan
constexpr size_t kGapsInAll = 300'000;

/// A segment whose body is sound by its own structure, whatever stands behind it.
bool isWhole(quint8 marker, ByteView body, Patience &patience)
{
    if (body.size() > kLongestTableBody) return false;
    if (marker == 0xC4) return isAllTables(body);
    if (marker == 0xDB) return body.size() % kQuantBody == 0 && !patience.lost() && patience.saw(dqtScore(body) > 0.97);
    if (isFrame(marker)) return sofScore(body) == 1;
    return marker == 0xDD && body.size() == 2;
}

bool isStrong(ByteView file, size_t at, size_t to, size_t end, Patience &patience)
{
    if (end > to || end < at + 4) return false;
    if (end == to) return true;
    const bool leadsOn = end + 1 < to && file[end] == 0xFF && (isHeaderMarker(file[end + 1]) || file[end + 1] == 0xFF);
    return leadsOn || isWhole(file[at + 1], slice(file, at + 4, end), patience) || leadsOnWithoutFF(file, end, to);
}

/// Looks in a gap for whatever has the shape of a table or a frame.
class GapReader
{
public:
    GapReader(ByteView file, const Segment &gap, const KnownTables &known, std::vector<Segment> &out)
        : m_file(file), m_known(known), m_out(out), m_from(gap.begin), m_to(gap.end)
    {
        if (m_to - m_from > kLongestGap) m_from = m_to - kLongestGap;
    }

    void read()
    {
        if (readAsOneSegment()) return;
        const size_t before = m_out.size();
        findFrames();
        findQuantTables();
        findHuffmanTables();
        findInterval();
        findNamedTables();
        std::sort(m_out.begin() + qptrdiff(before), m_out.end(),
                  [](const Segment &a, const Segment &b) { return a.begin < b.begin; });
    }

private:
    void add(int marker, size_t begin, size_t end, size_t bodyAt)
    {
        m_out.push_back({marker, begin, end, slice(m_file, bodyAt, end), false, true});
    }
    bool covered(int marker, size_t begin, size_t end) const
    {
        return std::any_of(m_out.begin(), m_out.end(), [&](const Segment &each) {
            return each.marker == marker && each.begin >= begin && each.end <= end;
        });
    }
    bool readAsOneSegment();
    void findFrames();
    void findQuantTables();
    void findHuffmanTables();
    void findInterval();
    void findNamedTables();

    ByteView m_file;
    const KnownTables &m_known;
    std::vector<Segment> &m_out;
    size_t m_from;
    size_t m_to;
};

/// One segment whose two to five first bytes are spoilt.
bool GapReader::readAsOneSegment()
{
    const size_t size = m_to - m_from;
    std::array<size_t, 4> heads = {4, 3, 2, 5};
    // A length that stands says where the body begins: tables of few symbols are sound from more places than one.
    std::stable_partition(heads.begin(), heads.end(), [&](size_t head) {
        return head < size && wordAt(m_file, m_from + head - 2) == size - head + 2;
    });
    for (const size_t head : heads) {
        if (size <= head + 8 || size >= 1200) continue;
        const BodyClass found = classify(slice(m_file, m_from + head, m_to), m_known);
        if (found.score <= 0.75 || found.marker == 0xDD) continue;
        add(found.marker, m_from, m_to, m_from + head);
        return true;
    }
    if (size != 6 || (m_file[m_from + 1] != 0xDD && wordAt(m_file, m_from + 2) != 4)) return false;
    add(0xDD, m_from, m_to, m_from + 4);
    return true;
}

void GapReader::findFrames()
{
    for (size_t at = m_from + 1; at + 9 <= m_to; ++at) {
        const quint8 length = m_file[at - 1];
        const quint8 components = m_file[at + 5];
        if (m_file[at] != 8 || (components != 1 && components != 3 && components != 4)) continue;
        // The fields of three components are no chance even where the length is lost.
        const bool lengthStands = length == 0x08 || length == 0x0B || length == 0x11 || length == 0x14;
        if (!lengthStands && components != 3) continue;
        for (const size_t n : {3U, 1U, 4U}) {
            const size_t end = at + 6 + 3 * n;
            if (end > m_to || sofScore(slice(m_file, at, end)) < 1 || wordAt(m_file, at + 1) >= 30000) continue;
            add(0xC0, at < 4 ? 0 : at - 4, end, at);
            break;
        }
    }
}

void GapReader::findQuantTables()
{
    for (size_t at = m_from; at + kQuantBody <= m_to; ++at) {
        if (m_file[at] >= 4 || m_file[at + 1] == 0) continue;
        QuantTable table{};
        std::copy_n(m_file.begin() + qptrdiff(at) + 1, 64, table.begin());
        if (std::find(table.begin(), table.end(), 0) != table.end()) continue;
        const auto endsLength = [](quint8 byte) { return byte == 0x43 || byte == 0x84 || byte == 0xC5; };
        const bool isLength = m_file[at] == 0 && endsLength(m_file[at + 1]) && m_file[at + 2] < 4;
        const bool behindLength = at < m_from + 2 ? !isLength : endsLength(m_file[at - 1]);
        const bool smooth = behindLength && std::popcount(roughValues(table)) <= 4
            && *std::max_element(table.begin(), table.end()) > 2 && table[0] < 100;
        if (smooth || m_known.isKnown(table)) add(0xDB, at, at + kQuantBody, at);
    }
}

void GapReader::findHuffmanTables()
{
    for (const PlacedTable &each : soundTables(slice(m_file, m_from, m_to))) {
        const auto &symbols = each.table.symbols;
        if (symbols.size() <= 3 || stateOf(each.key, each.table, true) != TableState::Sound) continue;
        add(0xC4, m_from + each.begin, m_from + each.end, m_from + each.begin);
    }
}

void GapReader::findInterval()
{
    for (size_t at = m_from; at + 6 <= m_to; ++at) {
        if (m_file[at] != 0xFF || m_file[at + 1] != 0xDD || wordAt(m_file, at + 2) != 4) continue;
        add(0xDD, at, at + 6, at + 4);
        return;
    }
}

/// Tables whose marker or length stands, but whose body is damaged or broken off.
void GapReader::findNamedTables()
{
    constexpr size_t kLongestBody = 6000; // more than four tables are a fifth of
    Patience patience;
    for (size_t at = m_from; at + 4 <= m_to && !patience.lost(); ++at) {
        if (m_file[at] != 0xFF) continue;
        const size_t length = wordAt(m_file, at + 2);
        const size_t end = length < 1000 ? std::min(at + 2 + length, m_to) : m_to;
        const ByteView body = slice(m_file, at + 4, end);
        if (m_file[at + 1] == 0xC4) {
            if (body.size() > 18 && body.size() <= kLongestBody
                && patience.saw(dhtScore(body, m_known) > 0.6 && !covered(0xC4, at, end)))
                add(0xC4, at, end, at + 4);
        } else if (m_file[at + 1] == 0xDB && m_file[at + 2] == 0
                   && (m_file[at + 3] == 0x43 || m_file[at + 3] == 0x84 || m_file[at + 3] == 0xC5)) {
            if (body.size() + 2 == length && patience.saw(!covered(0xDB, at, end))) add(0xDB, at, end, at + 4);
        }
    }
}

double scoreAs(int marker, ByteView body, const KnownTables &known)
{
    if (marker == 0xDB) return dqtScore(body);
    if (marker == 0xC4) return dhtScore(body, known);
    return isFrame(quint8(marker)) ? sofScore(body) : 0;
}

/// True where the body says that the segment is another one than its marker does; then that marker is put in.
bool reclassify(Segment &segment, const KnownTables &known)
{
    if (segment.marker == 0xD8 || segment.marker == 0xD9 || segment.body.size() > 1000) return false;
    if (scoreAs(segment.marker, segment.body, known) >= 0.5) return false;
    for (const char *name : {"JFIF", "Adob", "Exif"})
        if (startsWith(segment.body, name)) return false;
    const BodyClass found = classify(segment.body, known);
    if (found.score <= 0.8 || found.marker == 0xDD) return false;
    segment.marker = found.marker;
    segment.strong = false;
    return true;
}

/// Where the gaps begin that are near enough to the end of the walk.
size_t firstGapToRead(const std::vector<Segment> &walked)
{
    size_t from = size_t(-1);
    size_t bytes = 0;
    for (size_t i = walked.size(); i-- > 0 && bytes < kGapsInAll;) {
        if (walked[i].marker != Segment::kGap) continue;
        bytes += std::min(kLongestGap, walked[i].end - walked[i].begin);
        from = walked[i].begin;
    }
    return from;
}

} // namespace

std::vector<Segment> walkSegments(ByteView file, size_t from, size_t to, const Budget &budget)
{
    std::vector<Segment> segments;
    StopPoll poll(budget);
    Patience patience;
    size_t gap = from;
    const auto closeGap = [&](size_t end) {
        if (end >= gap + 4) segments.push_back({Segment::kGap, gap, end, slice(file, gap, end), false, true});
    };
    for (size_t at = from; at < to && !poll.stopped();) {
        size_t end = 0;
        // Directly behind a segment the marker's second byte is enough.
        if (at == gap && at > from && file[at] != 0xFF && leadsOnWithoutFF(file, at, to)) {
            end = at + 1 + wordAt(file, at + 1);
            segments.push_back({file[at], at - 1, end, slice(file, at + 3, end), true, true});
            at = gap = end;
            continue;
        }
        if (file[at] == 0xFF && at + 1 < file.size()) {
            const quint8 marker = file[at + 1];
            if (marker == 0xD8 || marker == 0xD9) {
                end = at + 2;
            } else if (at + 3 < file.size() && isHeaderMarker(marker)) {
                end = at + 2 + wordAt(file, at + 2);
                if (!isStrong(file, at, to, end, patience)) end = 0;
            }
        }
        if (end == 0) {
            ++at;
            continue;
        }
        closeGap(at);
        segments.push_back({file[at + 1], at, end, slice(file, at + 4, end), true, true});
        at = gap = end;
        if (segments.size() >= 2 * kMostSegments)
            segments.erase(segments.begin(), segments.end() - qptrdiff(kMostSegments));
    }
    closeGap(to);
    return segments;
}

BodyClass classify(ByteView body, const KnownTables &known)
{
    const std::array<BodyClass, 4> classes = {{{0xDD, body.size() == 2 ? 1.0 : 0.0},
                                               {0xDB, dqtScore(body)},
                                               {0xC4, dhtScore(body, known)},
                                               {0xC0, sofScore(body)}}};
    return *std::max_element(classes.begin(), classes.end(),
                             [](const BodyClass &a, const BodyClass &b) { return a.score < b.score; });
}

std::vector<Segment> gatherSegments(ByteView file, size_t from, size_t to, const KnownTables &known,
                                    const Budget &budget)
{
    // The scan's header may have lost its FF, and seem to begin a byte early.
    if (to + 1 < file.size() && file[to] != 0xFF && file[to + 1] == 0xDA) ++to;
    std::vector<Segment> all;
    std::vector<Segment> walked = walkSegments(file, from, to, budget);
    const size_t readFrom = firstGapToRead(walked);
    for (Segment &segment : walked) {
        if (budget.stopped()) break;
        if (segment.marker == Segment::kGap) {
            if (segment.begin >= readFrom) GapReader(file, segment, known, all).read();
            continue;
        }
        reclassify(segment, known);
        all.push_back(segment);
    }
    size_t last = from;
    for (const Segment &segment : all)
        if (segment.marker == 0xD9) last = std::max(last, segment.end);
    for (Segment &segment : all) segment.ofMain = segment.begin >= last;
    return all;
}

} // namespace salvage
