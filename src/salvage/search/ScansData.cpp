#include "salvage/search/ScansData.h"

#include "salvage/entropy/Entropy.h"
#include "salvage/structure/Structure.h"

#include <algorithm>

namespace salvage {

namespace {

constexpr size_t kMostScans = 100; // no picture has so many
constexpr size_t kLongestHead = 5'000;

bool isMarker(ByteView file, size_t at, quint8 marker)
{
    return at + 1 < file.size() && file[at] == 0xFF && file[at + 1] == marker;
}

/// End of the sound SOS segment at `at`, 0 where there is none.
size_t behindSos(ByteView file, size_t at)
{
    if (!isMarker(file, at, 0xDA)) return 0;
    const size_t end = at + 2 + wordAt(file, at + 2);
    return end < file.size() && sosScore(slice(file, at + 4, end)) == 1 ? end : 0;
}

/// End of the segment at `at` that may stand between two scans, 0 where none does.
size_t behindSegment(ByteView file, size_t at)
{
    if (at + 4 > file.size() || file[at] != 0xFF) return 0;
    const quint8 marker = file[at + 1];
    const bool isTables = marker == 0xC4 || marker == 0xDD || marker == 0xDB;
    if (!isTables && marker != 0xFE && !isApp(marker)) return 0;
    const size_t end = at + 2 + wordAt(file, at + 2);
    const bool leadsOn = end > at + 3 && end + 1 < file.size() && file[end] == 0xFF && isHeaderMarker(file[end + 1]);
    return leadsOn || (marker == 0xC4 && end < file.size() && isAllTables(slice(file, at + 4, end))) ? end : 0;
}

/// What stands between two scans.
struct Head
{
    QByteArray bytes;
    size_t end = 0; ///< where the entropy data behind it begin; 0 where no scan follows
    bool broken = false;
};

/// The header of the next scan from `at` on; what isn't sound is passed over.
Head nextHead(ByteView file, size_t at, StopPoll &poll)
{
    Head head;
    for (; at + 4 < file.size() && !poll.stopped();) {
        if (const size_t end = behindSos(file, at)) {
            head.bytes += toBytes(slice(file, at, end));
            head.end = end;
            return head;
        }
        if (isMarker(file, at, 0xD9) || isMarker(file, at, 0xD8)) return head;
        if (const size_t end = behindSegment(file, at)) {
            if (!isApp(file[at + 1]) && file[at + 1] != 0xFE) head.bytes += toBytes(slice(file, at, end));
            if (size_t(head.bytes.size()) > kLongestHead) return head;
            at = end;
            continue;
        }
        // Fill bytes may stand in front of a marker; anything else is damage.
        if (file[at] != 0xFF || file[at + 1] != 0xFF) head.broken = true;
        const auto next = std::find(file.begin() + qptrdiff(at) + 1, file.end(), 0xFF);
        at = size_t(next - file.begin());
    }
    return head;
}

/// The end of the picture: the last EOI in front of the next one.
size_t endOfPicture(ByteView file, const Candidate &candidate)
{
    static constexpr std::array<quint8, 3> kStart = {0xFF, 0xD8, 0xFF};
    static constexpr std::array<quint8, 2> kEnd = {0xFF, 0xD9};
    const auto from = file.begin() + qptrdiff(std::min(candidate.chain.end, file.size()));
    const auto next = std::search(from, file.end(), kStart.begin(), kStart.end());
    auto end = std::find_end(from, next, kEnd.begin(), kEnd.end());
    if (end == next && next - from <= 16) end = from;
    return size_t(end - file.begin());
}

} // namespace

int ScansData::codesMended() const
{
    int sum = 0;
    for (const RawScan &scan : scans) sum += scan.codesMended;
    return sum;
}

QByteArray ScansData::joined() const
{
    QByteArray all;
    for (const RawScan &scan : scans) all.append(scan.head).append(scan.bytes);
    return all;
}

ScansData takeScans(ByteView file, const Candidate &candidate, bool restarts, const Budget &budget)
{
    ScansData data;
    const ByteView picture = slice(file, 0, endOfPicture(file, candidate));
    StopPoll poll(budget);
    Head head;
    for (head.end = candidate.scan.start; head.end && data.scans.size() < kMostScans && !budget.stopped();) {
        RawScan scan;
        scan.head = head.bytes;
        const size_t end = scanEnd(picture, head.end, budget);
        scan.raw = slice(picture, head.end, end);
        scan.bytes = cleanScan(scan.raw, restarts, scan.codesMended, budget);
        data.scans.push_back(std::move(scan));
        head = nextHead(picture, end, poll);
        data.scansLost = data.scansLost || head.broken;
    }
    return data;
}

} // namespace salvage
