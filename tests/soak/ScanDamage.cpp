#include "soak/DamageKinds.h"

#include <algorithm>

namespace soak {

namespace {

using Damaged = std::optional<QByteArray>;

int scanSize(const JpegMap &map)
{
    return map.scanEnd - map.scanBegin;
}

int placeInScan(const JpegMap &map, Random &random)
{
    return map.scanBegin + random.below(scanSize(map));
}

Damaged bitsFlipped(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    for (int hits = random.betweenBySize(1, 60); hits > 0; --hits) {
        const int at = placeInScan(source.map, random);
        bytes[at] = char(quint8(bytes[at]) ^ 1 << random.below(8));
    }
    return bytes;
}

Damaged illegalCodes(const Source &source, const Source &, Random &random)
{
    if (scanSize(source.map) < 8) return {};
    QByteArray bytes = source.bytes;
    for (int hits = random.betweenBySize(1, 20); hits > 0; --hits) {
        const int at = source.map.scanBegin + random.below(scanSize(source.map) - 1);
        // Every other one makes use of an FF that stands there, so that a single byte is lost.
        const int code = random.between(1, 0xFE);
        const int stuffed = bytes.indexOf(QByteArray::fromRawData("\xFF\0", 2), at);
        if (random.below(2) == 0 && stuffed >= 0 && stuffed < source.map.scanEnd) {
            bytes[stuffed + 1] = char(code);
            continue;
        }
        bytes[at] = char(0xFF);
        bytes[at + 1] = char(code);
    }
    return bytes;
}

Damaged junkRun(const Source &source, const Source &, Random &random)
{
    const int count = std::min(random.betweenBySize(8, 2048), scanSize(source.map) / 2);
    if (count < 1) return {};
    const int at = source.map.scanBegin + random.below(scanSize(source.map) - count);
    return QByteArray(source.bytes).replace(at, count, random.bytes(count));
}

Damaged stuffingLost(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    const QByteArray stuffed = QByteArray::fromRawData("\xFF\0", 2);
    bool some = false;
    for (int hits = random.betweenBySize(1, 20); hits > 0; --hits) {
        const int at = bytes.indexOf(stuffed, placeInScan(source.map, random));
        if (at < 0 || at >= source.map.scanEnd - hits) continue;
        bytes.remove(at + 1, 1);
        some = true;
    }
    return some ? Damaged(bytes) : std::nullopt;
}

Damaged restartsHit(const Source &source, const Source &, Random &random)
{
    if (source.map.restarts.empty()) return {};
    QByteArray bytes = source.bytes;
    for (int hits = random.betweenBySize(1, 12); hits > 0; --hits) {
        const int at = random.pick(source.map.restarts) + random.below(2);
        bytes[at] = random.otherByte(bytes[at]);
    }
    return bytes;
}

Damaged restartsLost(const Source &source, const Source &, Random &random)
{
    if (source.map.restarts.empty()) return {};
    QByteArray bytes = source.bytes;
    const int share = random.between(1, 8); // one in so many goes
    const int spared = random.below(share);
    bool some = false;
    for (int i = int(source.map.restarts.size()) - 1; i >= 0; --i) {
        if (i % share != spared) continue;
        bytes.remove(source.map.restarts[size_t(i)], 2);
        some = true;
    }
    return some ? Damaged(bytes) : std::nullopt;
}

Damaged intervalLost(const Source &source, const Source &, Random &random)
{
    const auto &restarts = source.map.restarts;
    if (restarts.size() < 3) return {};
    const int first = random.below(int(restarts.size()) - 2);
    const int last = std::min(int(restarts.size()) - 1, first + random.between(1, 5));
    const int from = restarts[size_t(first)];
    return QByteArray(source.bytes).remove(from, restarts[size_t(last)] - from);
}

Damaged bytesPutIn(const Source &source, const Source &, Random &random)
{
    const int count = random.betweenBySize(1, 512);
    return QByteArray(source.bytes).insert(placeInScan(source.map, random), random.bytes(count));
}

Damaged bytesLost(const Source &source, const Source &, Random &random)
{
    const int at = placeInScan(source.map, random);
    return QByteArray(source.bytes).remove(at, std::min(random.betweenBySize(1, 512), source.map.scanEnd - at));
}

} // namespace

const std::vector<DamageKind> &scanDamage()
{
    static const std::vector<DamageKind> kinds = {
        {"illegal FF codes in the scan", illegalCodes, 34},
        {"bits flipped in the scan", bitsFlipped, 34},
        {"a run of junk in the scan", junkRun},
        {"zeros behind FF lost in the scan", stuffingLost},
        {"restart markers hit", restartsHit},
        {"restart markers lost", restartsLost},
        {"restart intervals lost", intervalLost},
        {"bytes put in", bytesPutIn},
        {"bytes lost", bytesLost},
    };
    return kinds;
}

} // namespace soak
