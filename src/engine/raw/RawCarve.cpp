#include "engine/raw/RawCarve.h"

#include "app/StopFlag.h"
#include "engine/Markers.h"

#include <algorithm>

namespace {

/// Where the parts of a start lie, in bytes from its first one.
struct OpenerShape
{
    quint8 firstByte;
    int marker;
    int image;
};

constexpr OpenerShape shapeOf(CarveOpener opener)
{
    switch (opener) {
    case CarveOpener::EeD8: return {0xEE, 2, 1};
    case CarveOpener::BareD8: return {0xD8, 1, 0};
    default: return {0xFF, 2, 0};
    }
}

bool opensHere(FileWindow &file, const CarveRule &rule, const OpenerShape &shape, quint64 at)
{
    if (shape.marker == 2 && file.byteAt(at + 1) != 0xD8) return false;
    const quint16 marker = file.wordAt(at + quint64(shape.marker));
    return marker != 0 && std::find(rule.markers.begin(), rule.markers.end(), marker) != rule.markers.end();
}

bool hasRoom(FileWindow &file, quint64 behind, int room)
{
    return room == CarveRule::kNoTest || behind + quint64(room) < file.size();
}

/// Offset of FF D9, or the file's size.
quint64 findEnd(FileWindow &file, quint64 from, bool stops)
{
    const quint64 size = file.size();
    for (quint64 at = from; at < size && !(stops && stopRequested()); ++at) {
        at = file.nextByte(0xFF, at, size, stops);
        if (at < size && file.byteAt(at + 1) == 0xD9) return at;
    }
    return size;
}

} // namespace

bool findCarveHit(FileWindow &file, const CarveRule &rule, quint64 from, CarveHit &hit)
{
    const quint64 size = file.size();
    const OpenerShape shape = shapeOf(rule.opener);
    for (quint64 at = from; at < size && !stopRequested(); ++at) {
        at = file.nextByte(shape.firstByte, at, size);
        if (at >= size || !opensHere(file, rule, shape, at)) continue;
        const quint64 behind = at + quint64(shape.marker) + 2;
        hit = {};
        hit.startStored = hasRoom(file, behind, rule.roomBehindStart);
        if (hit.startStored) hit.start = quint32(at + quint64(shape.image));
        const quint64 end = findEnd(file, behind, rule.stopsInside);
        hit.next = std::min(end + 2, size);
        hit.endStored = end < size && hasRoom(file, end + 2, rule.roomBehindEnd);
        if (hit.endStored) hit.end = quint32(end + 2);
        return true;
    }
    return false;
}

RawImages carve(FileWindow &file, const CarveRule &rule)
{
    // Two pictures are picked out of the first three; what lies behind them is passed.
    std::array<quint32, 3> starts = {};
    std::array<quint32, 3> ends = {};
    size_t startCount = 0;
    size_t endCount = 0;
    CarveHit hit;
    while (startCount < starts.size() && endCount < ends.size() && findCarveHit(file, rule, hit.next, hit)) {
        if (hit.startStored) starts[startCount++] = hit.start;
        if (hit.endStored) ends[endCount++] = hit.end;
        if (rule.images == 1) break;
    }
    RawImages found;
    if (rule.images == 1) {
        found.first.start = starts[0];
        if (endCount > 0) found.first.length = ends[0] - starts[0];
        return found;
    }
    if (startCount == 0 || endCount == 0) return found;
    found.first = {starts[0], ends[0] - starts[0]};
    // A third picture takes the second one's place. Its length counts from the first one's start, so that the copy runs
    // on behind its end: what lies there is no harm to a decoder.
    found.second.start = starts[2] != 0 ? starts[2] : starts[1];
    const quint32 secondEnd = ends[2] != 0 ? ends[2] : ends[1];
    if (secondEnd != 0) found.second.length = secondEnd - starts[0];
    return found;
}
