// Which scan of a file is the picture that a person misses, and which are thumbnails.
#include "salvage/structure/ScanFinder.h"
#include "salvage/structure/SegmentList.h"
#include "salvage/structure/Structure.h"
#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <cstring>

namespace salvage {

namespace {

constexpr size_t kNone = size_t(-1);
constexpr size_t kBetweenScans = 1500; // bytes of the tables between two scans of a picture, at most
constexpr size_t kSmallest = 16;       // bytes of entropy data that are worth a try

size_t find(ByteView file, size_t from, size_t to, std::initializer_list<quint8> what)
{
    to = std::min(to, file.size());
    if (from >= to) return kNone;
    const auto found =
        std::search(file.begin() + qptrdiff(from), file.begin() + qptrdiff(to), what.begin(), what.end());
    return found == file.begin() + qptrdiff(to) ? kNone : size_t(found - file.begin());
}

/// True where a segment stands at `at` whose length leads to `further` others, or to a scan.
bool leadsOn(ByteView file, size_t at, int further)
{
    if (at < file.size() && file[at] != 0xFF && leadsOnWithoutFF(file, at, file.size())) return true;
    if (at + 3 >= file.size() || file[at] != 0xFF || !isHeaderMarker(file[at + 1]) || file[at + 1] == 0xD8)
        return false;
    return further == 0 || file[at + 1] == 0xDA || leadsOn(file, at + 2 + wordAt(file, at + 2), further - 1);
}

bool isUsualName(ByteView body)
{
    for (const char *name : {"Exif", "MPF", "Phot", "http", "JFXX", "ICC_", "FPXR", "Adob", "Duck"})
        if (startsWith(body, name)) return true;
    return false;
}

/// End of the segment at `at`, whose marker may have lost its FF; 0 if none stands there.
size_t segmentEnd(ByteView file, size_t at)
{
    if (at + 4 >= file.size()) return 0;
    if (file[at] != 0xFF) return leadsOnWithoutFF(file, at, file.size()) ? at + 1 + wordAt(file, at + 1) : 0;
    const quint8 marker = file[at + 1];
    const size_t end = at + 2 + wordAt(file, at + 2);
    return isHeaderMarker(marker) && marker != 0xD8 && end >= at + 4 ? end : 0;
}

bool isSoundBody(quint8 marker, ByteView body)
{
    if (marker == 0xC4) return isAllTables(body);
    if (marker == 0xDB) return dqtScore(body) > 0.9;
    if (marker == 0xDD) return body.size() == 2;
    return isFrame(marker) ? sofScore(body) > 0.7 : isApp(marker) || marker == 0xFE;
}

/// APP segments of the chain that begins at the file's start, whether or not each has its FF.
void addAppsOfChain(ByteView file, std::vector<Range> &ranges)
{
    constexpr int kMostSegments = 4000;
    size_t at = 2;
    for (int n = 0; n < kMostSegments; ++n) {
        const size_t end = segmentEnd(file, at);
        if (end == 0 || !segmentEnd(file, end)) return;
        const size_t begin = file[at] == 0xFF ? at : at - 1;
        if (file[begin + 1] == 0xDA) return;
        if (isApp(file[begin + 1]) && file[begin + 1] != 0xE0) ranges.push_back({begin, end});
        at = end;
    }
}

void addApps(ByteView file, const Budget &budget, std::vector<Range> &ranges)
{
    StopPoll poll(budget);
    constexpr size_t kSmallestWithPicture = 200;
    for (size_t at = 0; at + 4 < file.size(); ++at) {
        const void *found = std::memchr(file.data() + at, 0xFF, file.size() - at - 4);
        if (!found || poll.stopped()) return;
        at = size_t(static_cast<const quint8 *>(found) - file.data());
        if (!isApp(file[at + 1]) || file[at + 1] == 0xE0) continue;
        const size_t length = wordAt(file, at + 2);
        const size_t end = at + 2 + length;
        if (length < kSmallestWithPicture || (!ranges.empty() && at < ranges.back().end)) continue;
        if (!leadsOn(file, end, 0)) continue;
        const bool named =
            isUsualName(slice(file, at + 4, at + 8)) || find(file, at, at + 16, {0xFF, 0xD8, 0xFF}) != kNone;
        if (named || leadsOn(file, end, 1)) ranges.push_back({at, end});
    }
}

/// Reads numbers of a TIFF structure in its byte order (TIFF 6.0, section 2).
struct TiffOrder
{
    bool little = false;
    quint32 longAt(ByteView file, size_t at) const
    {
        quint32 value = 0;
        for (size_t i = 0; i < 4 && at + i < file.size(); ++i)
            value |= quint32(file[at + i]) << (8 * (little ? i : 3 - i));
        return value;
    }
    /// The value of the LONG entry `tag` behind `base`, 0 if there is none.
    quint32 entry(ByteView file, size_t base, quint8 tag) const
    {
        constexpr size_t kReach = 70'000;
        const size_t at = little ? find(file, base, base + kReach, {tag, 2, 4, 0, 1, 0, 0, 0})
                                 : find(file, base, base + kReach, {2, tag, 0, 4, 0, 0, 0, 1});
        return at == kNone ? 0 : longAt(file, at + 8);
    }
};

/// What Exif says of its thumbnail: JPEGInterchangeFormat and its length.
void addExifThumbnails(ByteView file, std::vector<Range> &ranges)
{
    constexpr size_t kFront = 200'000;
    constexpr quint32 kMost = 66'000;
    constexpr int kMostStructures = 64; // each costs a search of its entries
    int structures = 0;
    for (size_t base = 0; base + 4 < std::min(kFront, file.size()); ++base) {
        const bool little = file[base] == 'I' && file[base + 1] == 'I' && file[base + 2] == 42 && file[base + 3] == 0;
        const bool big = file[base] == 'M' && file[base + 1] == 'M' && file[base + 2] == 0 && file[base + 3] == 42;
        if (!little && !big) continue;
        if (++structures > kMostStructures) return;
        const TiffOrder order{little};
        const quint32 offset = order.entry(file, base, 0x01);
        const quint32 length = order.entry(file, base, 0x02);
        const size_t begin = base + offset;
        if (offset == 0 || offset >= kMost || length <= 100 || length >= kMost || begin + length > file.size())
            continue;
        if (file[begin] == 0xFF || file[begin] == 0) ranges.push_back({begin, begin + length});
    }
}

bool isNested(ByteView file, const Scan &scan, const Range &range)
{
    if (scan.at < range.begin || scan.at >= range.end) return false;
    const bool inApp = isApp(file[range.begin + 1]) && file[range.begin + 1] != 0xE0;
    const size_t near = range.end > 64 ? range.end - 64 : 0;
    return inApp || scan.end <= range.end + 8
        || find(file, std::max(scan.at, near), range.end + 64, {0xFF, 0xD9}) != kNone;
}

bool isNested(ByteView file, const Scan &scan, const std::vector<Range> &ranges)
{
    return std::any_of(ranges.begin(), ranges.end(), [&](const Range &range) { return isNested(file, scan, range); });
}

struct Area
{
    quint32 width = 0;
    quint32 height = 0;
    quint64 pixels() const { return quint64(width) * height; }
};

/// The size that the last sound frame in front of the scan gives; 0 x 0 if there is none near by.
Area areaOf(ByteView file, const Scan &scan)
{
    constexpr size_t kReach = 3000;
    const size_t from = scan.at > kReach ? scan.at - kReach : 0;
    for (size_t at = scan.at; at-- > from;) {
        if (file[at] != 0xFF || at + 10 >= file.size() || !isFrame(file[at + 1]) || file[at + 4] != 8) continue;
        const ByteView body = slice(file, at + 4, at + 2 + wordAt(file, at + 2));
        if (sofScore(body) == 1) return {wordAt(body, 3), wordAt(body, 1)};
    }
    return {};
}

/// True for a whole chain of segments, with tables, from the file's start to the scan. Some may have lost their FF.
bool isUnbroken(ByteView file, const Scan &scan)
{
    if (file.size() < 4 || file[0] != 0xFF || file[1] != 0xD8) return false;
    bool quant = false;
    bool huffman = false;
    constexpr int kMostSegments = 4000;
    size_t at = 2;
    for (int n = 0; at < scan.at; ++n) {
        const size_t end = segmentEnd(file, at);
        if (n == kMostSegments || end == 0) return false;
        const quint8 marker = file[at] == 0xFF ? file[at + 1] : file[at];
        quant = quant || marker == 0xDB;
        huffman = huffman || marker == 0xC4;
        at = end;
    }
    // A scan header without its FF seems to begin a byte early.
    if (at == scan.at + 1 && file[at] == 0xDA) --at;
    return at == scan.at && quant && huffman;
}

/// True where the last segment of a header that ends at `end` is what its marker says, to its last byte.
bool endsSoundly(ByteView file, size_t end)
{
    constexpr int kMostSegments = 4000;
    size_t at = 2;
    for (int n = 0; n < kMostSegments; ++n) {
        const size_t next = segmentEnd(file, at);
        if (next == 0) return false;
        if (next >= end) {
            const size_t body = file[at] == 0xFF ? at + 4 : at + 3;
            return next == end && isSoundBody(file[body - 3], slice(file, body, end));
        }
        at = next;
    }
    return false;
}

/// The candidates of one file, largest first, and the choice among them.
class Choice
{
public:
    Choice(ByteView file, const KnownTables &known, Budget &budget)
        : m_file(file), m_known(known), m_budget(budget), m_chains(file, budget)
    {
    }

    void fill();
    std::vector<Candidate> best();

private:
    struct Entry
    {
        Candidate candidate;
        double size = 0; // bytes of entropy data, less where the scan is a doubtful one
    };

    void add(const Scan &scan)
    {
        const ScanChain chain = m_chains.from(scan);
        const double bytes = double(chain.end - scan.start);
        m_entries.push_back({{scan, chain, 0}, bytes * (scan.score > 0.85 ? 1 : 0.8)});
    }
    bool leadsToWholeScan(const Scan &scan) const;
    bool followsHeader(const Scan &scan) const;
    size_t mainEntry() const;
    size_t headerFrom(const Candidate &candidate) const;
    Candidate withFirstScan(const Candidate &candidate);

    ByteView m_file;
    const KnownTables &m_known;
    Budget &m_budget;
    ChainFinder m_chains;
    std::vector<Entry> m_entries;
};

void Choice::fill()
{
    const std::vector<Scan> scans = findScans(m_file, m_budget);
    const std::vector<Range> ranges = nestedRanges(m_file, m_budget);
    std::vector<Scan> nested;
    for (const Scan &scan : scans) {
        if (scan.end <= scan.start + kSmallest) continue;
        if (isNested(m_file, scan, ranges))
            nested.push_back(scan);
        else
            add(scan);
    }
    const Scan bare = scanWithoutHeader(m_file, m_known, m_budget);
    const bool hidden = std::any_of(scans.begin(), scans.end(),
                                    [&](const Scan &scan) { return scan.start == bare.start || scan.at == bare.at; })
        || std::any_of(ranges.begin(), ranges.end(),
                       [&](const Range &range) { return range.begin <= bare.at && bare.at < range.end; });
    double largest = 0;
    for (const Entry &entry : m_entries)
        largest = std::max(largest, double(entry.candidate.chain.end - entry.candidate.scan.start));
    if (!hidden && bare.end > bare.start && (double(bare.end - bare.start) > 1.5 * largest || followsHeader(bare)))
        add(bare);
    if (m_entries.empty())
        for (const Scan &scan : nested) add(scan);
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [](const Entry &a, const Entry &b) { return a.size > b.size; });
}

/// True where a scan of a whole baseline picture follows: what stands in front of it is no scan.
bool Choice::leadsToWholeScan(const Scan &scan) const
{
    const bool pictureEnds =
        scan.end + 1 >= m_file.size() || m_file[scan.end + 1] == 0xD9 || m_file[scan.end + 1] == 0xD8;
    return !pictureEnds && std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry &entry) {
        const Candidate &other = entry.candidate;
        const ByteView body = other.scan.body;
        if (other.scan.at < scan.end || other.scan.at - scan.end > kBetweenScans || other.scan.score < 1) return false;
        const bool wholeBand = body[body.size() - 3] == 0 && body[body.size() - 2] == 63;
        return wholeBand && (body[0] > 1 || other.chain.scans == 1);
    });
}

/// True for data that follow directly behind a whole header but for its SOS.
bool Choice::followsHeader(const Scan &scan) const
{
    if (!isUnbroken(m_file, scan) || !endsSoundly(m_file, scan.at)) return false;
    if (scan.marked) return true;
    if (leadsToWholeScan(scan)) return false;
    // Another segment whose marker is hit is no data.
    constexpr size_t kLongestTables = 1200;
    const size_t size = scan.end - scan.start;
    for (const size_t head : {4U, 3U, 2U, 5U})
        if (size > head + 8 && size < kLongestTables
            && classify(slice(m_file, scan.start + head, scan.end), m_known).score > 0.75)
            return false;
    return true;
}

/// The first picture of the file that isn't small against the largest, or hangs together with the file's start.
size_t Choice::mainEntry() const
{
    std::vector<size_t> first;
    const double largest = m_entries[0].size;
    for (size_t i = 0; i < m_entries.size(); ++i) {
        const Scan &scan = m_entries[i].candidate.scan;
        if (scan.score <= 0.85 && !followsHeader(scan)) continue;
        if (m_entries[i].size < 0.12 * largest && !isUnbroken(m_file, scan)) continue;
        const bool covered = std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry &other) {
            return &other != &m_entries[i] && other.candidate.scan.start <= scan.at
                && scan.at < other.candidate.chain.end;
        });
        if (!covered) first.push_back(i);
    }
    if (first.empty()) return 0;
    std::sort(first.begin(), first.end(),
              [this](size_t a, size_t b) { return m_entries[a].candidate.scan.at < m_entries[b].candidate.scan.at; });
    constexpr quint32 kThumbnail = 256;
    std::vector<Area> areas;
    areas.reserve(first.size());
    for (const size_t i : first) areas.push_back(areaOf(m_file, m_entries[i].candidate.scan));
    for (size_t i = 0; i + 1 < first.size(); ++i) {
        const Area &area = areas[i];
        const bool small = area.width && std::max(area.width, area.height) <= kThumbnail;
        const bool passedOver = small && !isUnbroken(m_file, m_entries[first[i]].candidate.scan)
            && std::any_of(areas.begin() + qptrdiff(i) + 1, areas.end(),
                           [&](const Area &other) { return other.pixels() >= 4 * area.pixels(); });
        if (!passedOver) return first[i];
    }
    return first.back();
}

/// Behind the last picture of about this size that ends in front of the scan.
size_t Choice::headerFrom(const Candidate &candidate) const
{
    const double own = double(candidate.chain.end - candidate.scan.start);
    size_t from = 0;
    for (const Entry &entry : m_entries) {
        const size_t end = entry.candidate.chain.end;
        if (end <= candidate.scan.at && double(end - entry.candidate.scan.start) >= 0.5 * own)
            from = std::max(from, end);
    }
    return from;
}

/// From the first scan of the picture on, where the candidate's can't be it.
Candidate Choice::withFirstScan(const Candidate &candidate)
{
    if (!cannotBeFirst(candidate.scan.body)) return candidate;
    for (const Scan &first : firstScansBefore(m_file, candidate.scan, m_known, m_budget)) {
        if (first.end <= first.start || first.end > candidate.scan.at) continue;
        const ScanChain chain = m_chains.from(first);
        if (chain.end >= candidate.chain.end) return {first, chain, 0};
    }
    return candidate;
}

std::vector<Candidate> Choice::best()
{
    std::vector<Candidate> best;
    if (m_entries.empty()) return best;
    const auto main = m_entries.begin() + qptrdiff(mainEntry());
    std::rotate(m_entries.begin(), main, main + 1);
    constexpr size_t kMost = 3;
    for (const Entry &entry : m_entries) {
        // A scan in the middle of a picture that is tried already is no picture of its own.
        const bool partOfOther = std::any_of(best.begin(), best.end(), [&](const Candidate &other) {
            return other.scan.start <= entry.candidate.scan.start && entry.candidate.scan.start < other.chain.end;
        });
        if (best.size() >= kMost || partOfOther) continue;
        best.push_back(withFirstScan(entry.candidate));
        best.back().headerFrom = headerFrom(best.back());
    }
    return best;
}

} // namespace

std::vector<Range> nestedRanges(ByteView file, const Budget &budget)
{
    std::vector<Range> ranges;
    addApps(file, budget, ranges);
    addAppsOfChain(file, ranges);
    addExifThumbnails(file, ranges);
    return ranges;
}

std::vector<Candidate> chooseScans(ByteView file, const KnownTables &known, Budget &budget)
{
    Choice choice(file, known, budget);
    choice.fill();
    return choice.best();
}

} // namespace salvage
