#include "salvage/structure/ScanFinder.h"

#include "salvage/structure/SegmentList.h"
#include "salvage/structure/Structure.h"
#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <cstring>
#include <set>

namespace salvage {

namespace {

constexpr size_t kNone = size_t(-1);
constexpr size_t kMostScans = 200; // a file made of scan headers must not cost its square

size_t nextFF(ByteView file, size_t from)
{
    if (from >= file.size()) return kNone;
    if (file[from] == 0xFF) return from; // spares the call where a file is full of them
    const void *found = std::memchr(file.data() + from, 0xFF, file.size() - from);
    return found ? size_t(static_cast<const quint8 *>(found) - file.data()) : kNone;
}

bool isStartOfPicture(ByteView file, size_t at)
{
    return at + 3 < file.size() && file[at] == 0xFF && file[at + 1] == 0xD8 && file[at + 2] == 0xFF
        && isHeaderMarker(file[at + 3]);
}

bool isNamedApp(ByteView body)
{
    for (const char *name : {"Exif", "JFIF", "Adob", "http", "ICC_"})
        if (startsWith(body, name)) return true;
    return false;
}

/// Looks for the marker that ends a scan.
class EndFinder
{
public:
    EndFinder(ByteView file, const Budget &budget) : m_file(file), m_poll(budget) {}

    size_t from(size_t begin)
    {
        for (size_t at = nextFF(m_file, begin); at != kNone && at + 1 < m_file.size(); at = nextFF(m_file, at)) {
            if (m_poll.stopped()) break;
            const quint8 marker = m_file[at + 1];
            if (marker == 0xFF) {
                ++at;
                continue;
            }
            if (marker != 0 && !isRestart(marker) && endsScan(at)) return at;
            at += 2;
        }
        return m_file.size();
    }

private:
    bool endsScan(size_t at);
    bool endsPicture(size_t at);
    bool isQuantSegment(ByteView body);

    ByteView m_file;
    StopPoll m_poll;
    Patience m_patience;
    size_t m_nextStart = 0; // of a picture, as far as it was looked for
};

/// True for an EOI that is followed by nothing, by filling, or by another picture.
bool EndFinder::endsPicture(size_t at)
{
    const ByteView behind = slice(m_file, at + 2, at + 66);
    if (behind.size() < 62) return true;
    if (isStartOfPicture(m_file, at + 2) || (behind[0] == 0 && behind[1] == 0)) return true;
    if (std::count(behind.begin(), behind.end(), 0) > 40) return true;
    constexpr size_t kReach = 400;
    for (m_nextStart = std::max(m_nextStart, at + 2); m_nextStart < at + 2 + kReach; ++m_nextStart)
        if (isStartOfPicture(m_file, m_nextStart)) return true;
    return false;
}

bool EndFinder::isQuantSegment(ByteView body)
{
    constexpr size_t kTable = 65;
    if (body.empty() || body.size() % kTable || body.size() > 4 * kTable || m_patience.lost()) return false;
    return m_patience.saw(dqtScore(body) > 0.95);
}

/// True where the marker at `at` stands before real structure, so that the entropy data in front of it end there.
bool EndFinder::endsScan(size_t at)
{
    const quint8 marker = m_file[at + 1];
    if (marker == 0xD9) return endsPicture(at);
    if (marker == 0xD8) return isStartOfPicture(m_file, at);
    if (!isHeaderMarker(marker)) return false;
    const size_t length = wordAt(m_file, at + 2);
    const ByteView body = slice(m_file, at + 4, at + 2 + length);
    switch (marker) {
    case 0xDA: return length >= 8 && sosScore(body) == 1;
    case 0xC4: return length < 1100 && isAllTables(body);
    case 0xDB: return isQuantSegment(body);
    case 0xDD: return length == 4 && at + 6 < m_file.size() && m_file[at + 6] == 0xFF;
    default: break;
    }
    if (isFrame(marker)) return sofScore(body) == 1;
    return isApp(marker) && length > 8 && isNamedApp(body);
}

/// Collects scans, each place once.
class ScanList
{
public:
    ScanList(ByteView file, const Budget &budget) : m_file(file), m_budget(budget) {}

    bool full() const { return scans.size() >= kMostScans; }
    void add(size_t at, size_t bodyAt, size_t start, double score, bool marked)
    {
        if (start >= m_file.size() || full() || !m_seen.insert(start).second) return;
        // Data that begin inside others end where those do; looking for the end anew would cost a hostile file's square.
        const auto around = std::find_if(scans.begin(), scans.end(),
                                         [&](const Scan &scan) { return scan.start <= start && start < scan.end; });
        const size_t end = around == scans.end() ? scanEnd(m_file, start, m_budget) : around->end;
        scans.push_back({at, start, end, slice(m_file, bodyAt, start), score, marked});
    }
    void addMarked(size_t at);
    void addUnmarked(size_t at);

    std::vector<Scan> scans;

private:
    ByteView m_file;
    const Budget &m_budget;
    std::set<size_t> m_seen;
};

/// FF DA stands at `at`.
void ScanList::addMarked(size_t at)
{
    const size_t length = wordAt(m_file, at + 2);
    const bool usual = length == 8 || length == 10 || length == 12 || length == 14;
    const double score = usual ? sosScore(slice(m_file, at + 4, at + 2 + length)) : 0;
    const bool otherIsSound = sosScore(slice(m_file, at + 4, at + 14)) == 1; // of three components
    if (score > 0.8 && (score == 1 || !otherIsSound)) {
        add(at, at + 4, at + 2 + length, score, true);
        return;
    }
    for (const size_t n : {3U, 1U, 4U}) {
        const double other = sosScore(slice(m_file, at + 4, at + 8 + 2 * n));
        // Without the length another number than the usual one of components needs the count.
        const bool counted = at + 4 < m_file.size() && m_file[at + 4] == n;
        if (other <= 0.87 || (n != 3 && !counted)) continue;
        add(at, at + 4, at + 8 + 2 * n, other - 0.1, true);
        return;
    }
    // Marker and length together are no chance, whatever has become of the fields.
    if (score >= 0.5) add(at, at + 4, at + 2 + length, score - 0.1, true);
}

/// The bytes at `at` could be the length field of a scan header of three components or one.
void ScanList::addUnmarked(size_t at)
{
    const size_t length = wordAt(m_file, at);
    if (length != 12 && length != 8) return;
    const ByteView body = slice(m_file, at + 2, at + length);
    if (body.size() != length - 2 || at < 2) return;
    const bool sound = length == 12
        ? sosScore(body) == 1 && (body[8] == 63 || body[8] == 0)
        : sosScore(body) == 1 && body[1] <= 1 && body[2] <= 0x11 && body[4] == 63 && body[5] == 0;
    // The header begins at what is left of its marker; in front of that a table may end.
    const size_t begin = m_file[at - 1] == 0xDA && m_file[at - 2] != 0xFF ? at - 1 : at - 2;
    if (sound) add(begin, at + 2, at + length, 0.9, false);
}

/// Scan headers known by their last three bytes alone, where something of their head stands too.
void addByTail(ByteView file, ScanList &list)
{
    constexpr size_t kFront = 200'000;
    constexpr size_t kSegment = 14; // of three components
    for (size_t end = kSegment; end < std::min(file.size(), kFront) && !list.full(); ++end) {
        if (file[end - 1] != 0 || file[end - 2] != 63 || file[end - 3] != 0) continue;
        if (file[end] == 0 || file[end] == 0xFF) continue;
        const size_t at = end - kSegment;
        const double score = sosScore(slice(file, at + 4, end));
        const bool headStands = file[at] == 0xFF || file[at + 1] == 0xDA || file[at + 3] == 12 || file[at + 3] == 14;
        if (score > 0.7 && headStands) list.add(at, at + 4, end, score - 0.2, false);
    }
}

/// True for bytes that look like entropy data from the first one on.
bool beginsWithEntropyData(ByteView file)
{
    const ByteView head = slice(file, 0, 4096);
    if (head.size() <= 200 || std::set<quint8>(head.begin(), head.end()).size() <= 100) return false;
    for (size_t i = 0; i < std::min<size_t>(600, file.size() - 1); ++i) {
        if (file[i] != 0xFF) continue;
        const quint8 marker = file[i + 1];
        if (marker == 0xD8 || marker == 0xDB || marker == 0xC0 || marker == 0xE0 || marker == 0xE1) return false;
    }
    return true;
}

bool hasSoundScanHeader(ByteView file, size_t at)
{
    return sosScore(slice(file, at + 4, at + 2 + wordAt(file, at + 2))) == 1;
}

bool isSoundPart(quint8 marker, ByteView body, const KnownTables &known)
{
    if (marker == 0xC4) return dhtScore(body, known) > 0.5;
    if (marker == 0xDB) return dqtScore(body) > 0.7;
    if (marker == 0xDD) return body.size() == 2;
    return sofScore(body) > 0.7;
}

/// Where the data would begin behind a usual scan header of which enough is left.
size_t behindSpoiltHeader(ByteView file, size_t at)
{
    static constexpr std::array<quint8, 14> kUsual = {0xFF, 0xDA, 0, 12, 3, 1, 0, 2, 0x11, 3, 0x11, 0, 63, 0};
    const ByteView there = slice(file, at, at + kUsual.size());
    int same = 0;
    for (size_t i = 0; i < there.size(); ++i) same += there[i] == kUsual.at(i);
    return same >= 6 ? at + kUsual.size() : at;
}

} // namespace

size_t scanEnd(ByteView file, size_t from, const Budget &budget)
{
    return EndFinder(file, budget).from(from);
}

std::vector<Scan> findScans(ByteView file, Budget &budget)
{
    ScanList list(file, budget);
    StopPoll poll(budget);
    for (size_t at = nextFF(file, 0); at != kNone && !list.full() && !poll.stopped(); at = nextFF(file, at + 1))
        if (at + 1 < file.size() && file[at + 1] == 0xDA) list.addMarked(at);
    for (size_t at = 0; at + 14 < file.size() && !list.full() && !poll.stopped(); ++at) {
        const void *zero = std::memchr(file.data() + at, 0, file.size() - at - 14);
        if (!zero) break;
        at = size_t(static_cast<const quint8 *>(zero) - file.data());
        if (file[at + 1] == 12 || file[at + 1] == 8) list.addUnmarked(at);
    }
    addByTail(file, list);
    return list.scans;
}

Scan scanWithoutHeader(ByteView file, const KnownTables &known, const Budget &budget)
{
    Scan best;
    Scan last;
    bool headed = false; // a scan with a header of its own stands in the file
    StopPoll poll(budget);
    Patience patience;
    for (size_t at = nextFF(file, 0); at != kNone && at + 4 < file.size(); at = nextFF(file, at + 1)) {
        if (poll.stopped() || patience.lost()) break;
        const quint8 marker = file[at + 1];
        const size_t length = wordAt(file, at + 2);
        const size_t end = at + 2 + length;
        const bool isPart = marker == 0xC4 || marker == 0xDB || marker == 0xC0 || marker == 0xC2 || marker == 0xDD;
        if (!isPart || length < 2 || length > 2000 || end >= file.size()) continue;
        if (!patience.saw(isSoundPart(marker, slice(file, at + 4, end), known))) continue;
        const bool markerFollows = file[end] == 0xFF && end + 1 < file.size() && isHeaderMarker(file[end + 1]);
        const bool scanFollows = markerFollows && file[end + 1] == 0xDA && hasSoundScanHeader(file, end);
        headed = headed || scanFollows;
        if (scanFollows || (markerFollows && file[end + 1] != 0xDA)) continue;
        if (file[end] != 0xFF && leadsOnWithoutFF(file, end, file.size())) continue;
        Scan scan;
        scan.at = end;
        scan.start = behindSpoiltHeader(file, end);
        scan.end = scan.start < last.end ? last.end : scanEnd(file, scan.start, budget);
        scan.score = 0.3;
        last = scan;
        if (scan.end > scan.start && double(scan.end - scan.start) >= 0.8 * double(best.end - best.start)) best = scan;
    }
    if (!headed && best.end - best.start < 100 && beginsWithEntropyData(file)) {
        best = {};
        best.end = scanEnd(file, 0, budget);
        best.score = 0.1;
    }
    return best;
}

bool cannotBeFirst(ByteView sosBody)
{
    if (sosBody.size() < 6) return false;
    const quint8 start = sosBody[sosBody.size() - 3];
    const quint8 approximation = sosBody[sosBody.size() - 1];
    return start > 0 || approximation >> 4;
}

std::vector<Scan> firstScansBefore(ByteView file, const Scan &scan, const KnownTables &known, const Budget &budget)
{
    constexpr size_t kReach = 4'000'000;
    constexpr size_t kLeast = 16; // bytes of data
    constexpr size_t kMost = 16;
    std::vector<Scan> all;
    StopPoll poll(budget);
    Patience patience;
    for (size_t at = nextFF(file, scan.at > kReach ? scan.at - kReach : 0); at < scan.at; at = nextFF(file, at + 1)) {
        if (poll.stopped() || patience.lost() || all.size() == kMost) break;
        const quint8 marker = file[at + 1];
        const size_t length = wordAt(file, at + 2);
        const size_t end = at + 2 + length;
        const bool isPart = marker == 0xC4 || marker == 0xDB || marker == 0xC2 || marker == 0xDD;
        if (!isPart || length < 3 || length > 2000 || end + kLeast >= scan.at) continue;
        if (!patience.saw(isSoundPart(marker, slice(file, at + 4, end), known))) continue;
        if (file[end] == 0xFF && isHeaderMarker(file[end + 1]) && file[end + 1] != 0xDA) continue;
        const bool isSos = file[end] == 0xFF && file[end + 1] == 0xDA;
        const size_t behindSos = end + 2 + wordAt(file, end + 2);
        if (isSos && sosScore(slice(file, end + 4, behindSos)) == 1) continue; // a scan that needs no finding
        Scan first;
        first.at = end;
        first.start = isSos && behindSos < end + 20 ? behindSos : behindSpoiltHeader(file, end);
        first.end = scanEnd(file, first.start, budget);
        first.score = 0.3;
        all.push_back(first);
    }
    return all;
}

/// Offset of the entropy data of the scan that follows behind tables and comments, 0 if none does.
size_t ChainFinder::nextScanBehind(size_t end, bool &progressive) const
{
    constexpr int kMostSegments = 1000; // between two scans
    const auto passable = [](quint8 marker) {
        return marker == 0xC4 || marker == 0xDD || marker == 0xDB || marker == 0xFE;
    };
    size_t at = end;
    for (int n = 0; n < kMostSegments && at + 4 < m_file.size() && m_file[at] == 0xFF && passable(m_file[at + 1]); ++n)
        at += 2 + wordAt(m_file, at + 2);
    if (at + 4 >= m_file.size() || m_file[at] != 0xFF || m_file[at + 1] != 0xDA) return 0;
    const size_t start = at + 2 + wordAt(m_file, at + 2);
    const ByteView body = slice(m_file, at + 4, start);
    if (sosScore(body) < 1) return 0;
    progressive = progressive || cannotBeFirst(body);
    return start;
}

ScanChain ChainFinder::from(const Scan &scan)
{
    constexpr int kLongest = 100; // no picture has so many
    std::vector<size_t> passed;
    ScanChain chain{scan.end, 1, false};
    while (chain.scans < kLongest && !m_budget.stopped()) {
        const auto behind = m_behind.find(chain.end);
        if (behind != m_behind.end()) {
            chain = {behind->second.end, chain.scans - 1 + behind->second.scans,
                     chain.progressive || behind->second.progressive};
            break;
        }
        passed.push_back(chain.end);
        const size_t start = nextScanBehind(chain.end, chain.progressive);
        if (start == 0) break;
        chain.end = scanEnd(m_file, start, m_budget);
        ++chain.scans;
    }
    int scans = chain.scans;
    for (const size_t end : passed) m_behind[end] = {chain.end, scans--, chain.progressive};
    return chain;
}

} // namespace salvage
