#include "soak/DamageKinds.h"

#include <algorithm>

namespace soak {

namespace {

using Damaged = std::optional<QByteArray>;

void flipBit(QByteArray &bytes, int at, Random &random)
{
    bytes[at] = char(quint8(bytes[at]) ^ 1 << random.below(8));
}

/// An offset in the header, behind SOI, and in front of the entropy data. The bodies of APPn hold most of the bytes of
/// many files and no part of the picture: half of the hits keep clear of them.
int placeInHeader(const JpegMap &map, Random &random)
{
    std::vector<Segment> wanted;
    const bool anywhere = random.below(2) == 0;
    for (const Segment &segment : map.segments) {
        const bool app = (segment.marker & 0xF0) == 0xE0 || segment.marker == 0xFE;
        if (anywhere || !app) wanted.push_back(segment);
    }
    int total = 0;
    for (const Segment &segment : wanted) total += segment.size();
    int at = random.below(total);
    for (const Segment &segment : wanted) {
        if (at < segment.size()) return segment.begin + at;
        at -= segment.size();
    }
    return map.scanBegin - 1;
}

Damaged bitsFlipped(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    for (int hits = random.betweenBySize(1, 24); hits > 0; --hits)
        flipBit(bytes, placeInHeader(source.map, random), random);
    return bytes;
}

Damaged bytesHit(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    for (int hits = random.betweenBySize(1, 12); hits > 0; --hits) {
        const int at = placeInHeader(source.map, random);
        bytes[at] = random.otherByte(bytes[at]);
    }
    return bytes;
}

Damaged segmentLost(const Source &source, const Source &, Random &random)
{
    const Segment &segment = random.pick(source.map.segments);
    return QByteArray(source.bytes).remove(segment.begin, segment.size());
}

Damaged segmentTwice(const Source &source, const Source &, Random &random)
{
    const Segment &segment = random.pick(source.map.segments);
    return QByteArray(source.bytes).insert(segment.begin, source.bytes.mid(segment.begin, segment.size()));
}

/// Two neighbours, of which the second isn't the scan's.
Damaged segmentsSwapped(const Source &source, const Source &, Random &random)
{
    const auto &segments = source.map.segments;
    if (segments.size() < 3) return {};
    const int first = random.below(int(segments.size()) - 2);
    const Segment &one = segments[size_t(first)];
    const Segment &other = segments[size_t(first) + 1];
    if (one.end != other.begin) return {};
    return QByteArray(source.bytes)
        .replace(one.begin, other.end - one.begin,
                 source.bytes.mid(other.begin, other.size()) + source.bytes.mid(one.begin, one.size()));
}

/// Zeros in front of a marker, where FF alone may fill.
Damaged filled(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    const size_t spared = size_t(random.below(int(source.map.segments.size()) + 1));
    for (size_t i = source.map.segments.size(); i-- > 0;) {
        const int count = random.betweenBySize(1, 64);
        if (i != spared && (i + 1 == source.map.segments.size() || random.below(2) == 0))
            bytes.insert(source.map.segments[i].begin, QByteArray(count, '\0'));
    }
    return bytes == source.bytes ? Damaged() : bytes;
}

Damaged wrongLength(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    const Segment &segment = random.pick(source.map.segments);
    const int hit = random.below(3); // the upper byte, the lower, or both
    if (hit != 1) bytes[segment.begin + 2] = random.otherByte(bytes[segment.begin + 2]);
    if (hit != 0) bytes[segment.begin + 3] = random.otherByte(bytes[segment.begin + 3]);
    return bytes;
}

Damaged markerHit(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    const Segment &segment = random.pick(source.map.segments);
    const int hit = random.below(3);
    if (hit != 1) bytes[segment.begin] = random.otherByte(bytes[segment.begin]);
    if (hit != 0) bytes[segment.begin + 1] = random.otherByte(bytes[segment.begin + 1]);
    return bytes;
}

Damaged ffLost(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    bool some = false;
    for (auto it = source.map.segments.rbegin(); it != source.map.segments.rend(); ++it) {
        if (random.below(3) != 0) continue;
        bytes.remove(it->begin, 1);
        some = true;
    }
    if (!some) bytes.remove(random.pick(source.map.segments).begin, 1);
    return bytes;
}

Damaged hitBody(const Source &source, const Segment &segment, int most, Random &random)
{
    if (segment.end <= segment.body()) return {};
    QByteArray bytes = source.bytes;
    for (int hits = random.between(1, most); hits > 0; --hits) {
        const int at = random.between(segment.body(), segment.end - 1);
        bytes[at] = random.otherByte(bytes[at]);
    }
    return bytes;
}

Damaged frameFields(const Source &source, const Source &, Random &random)
{
    const Segment *frame = source.map.frame();
    return frame ? hitBody(source, *frame, 3, random) : std::nullopt;
}

Damaged frameLost(const Source &source, const Source &, Random &)
{
    const Segment *frame = source.map.frame();
    if (!frame) return {};
    return QByteArray(source.bytes).remove(frame->begin, frame->size());
}

Damaged sizeZeroed(const Source &source, const Source &, Random &random)
{
    const Segment *frame = source.map.frame();
    if (!frame) return {};
    // Height and width stand behind the precision.
    const int first = random.below(2) * 2;
    const int count = first == 0 ? 2 + random.below(2) * 2 : 2;
    return QByteArray(source.bytes).replace(frame->body() + 1 + first, count, QByteArray(count, '\0'));
}

Damaged scanHeaderFields(const Source &source, const Source &, Random &random)
{
    return hitBody(source, source.map.segments.back(), 3, random);
}

Damaged scanHeaderLost(const Source &source, const Source &, Random &)
{
    const Segment &scan = source.map.segments.back();
    return QByteArray(source.bytes).remove(scan.begin, scan.size());
}

Damaged intervalValue(const Source &source, const Source &, Random &random)
{
    const auto found = source.map.all(0xDD);
    if (found.empty()) return {};
    return hitBody(source, found.back(), 2, random);
}

Damaged appHit(const Source &source, const Source &, Random &random)
{
    std::vector<Segment> apps;
    for (const Segment &segment : source.map.segments)
        if ((segment.marker & 0xF0) == 0xE0 && segment.size() > 4) apps.push_back(segment);
    if (apps.empty()) return {};
    // Length field and all: what a body holds seldom matters.
    Segment segment = random.pick(apps);
    QByteArray bytes = source.bytes;
    for (int hits = random.betweenBySize(1, 60); hits > 0; --hits) {
        const int at = random.between(segment.begin + 2, segment.end - 1);
        bytes[at] = random.otherByte(bytes[at]);
    }
    return bytes;
}

Damaged eighthBitLost(const Source &source, const Source &, Random &random)
{
    QByteArray bytes = source.bytes;
    const int end = std::min(source.map.scanBegin, random.betweenBySize(16, 1 << 16));
    for (int at = 0; at < end; ++at) bytes[at] = char(bytes[at] & 0x7F);
    return bytes;
}

} // namespace

const std::vector<DamageKind> &headerDamage()
{
    static const std::vector<DamageKind> kinds = {
        {"bits flipped in the header", bitsFlipped, 63},
        {"bytes hit in the header", bytesHit, 30},
        {"a segment lost", segmentLost, 34},
        {"a segment twice", segmentTwice, 30},
        {"segments swapped", segmentsSwapped, 30},
        {"zeros between segments", filled, 30},
        {"a wrong length field", wrongLength, 34},
        {"a marker hit", markerHit, 35},
        {"FF bytes of the header lost", ffLost},
        {"SOF fields", frameFields, 30},
        {"width or height zeroed", sizeZeroed, 30},
        {"SOF lost", frameLost},
        {"SOS fields", scanHeaderFields, 30},
        {"SOS lost", scanHeaderLost},
        {"DRI value", intervalValue, 30},
        {"bytes of APPn hit", appHit, 30},
        {"eighth bit lost in the head", eighthBitLost},
    };
    return kinds;
}

} // namespace soak
