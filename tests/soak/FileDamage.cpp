#include "soak/DamageKinds.h"

#include <algorithm>

namespace soak {

namespace {

using Damaged = std::optional<QByteArray>;

constexpr int kSector = 512;
constexpr int kCluster = 4096;

/// A sector or a cluster that the file fills, by its offset; nothing for a small file.
struct Block
{
    int begin = 0;
    int size = 0;
};

std::optional<Block> anyBlock(const Source &source, Random &random)
{
    const int size = random.below(2) == 0 ? kSector : kCluster;
    const int blocks = source.map.imageEnd / size;
    if (blocks < 2) return {};
    return Block{random.below(blocks) * size, size};
}

Damaged firstCutOff(const Source &source, const Source &, Random &random)
{
    const JpegMap &map = source.map;
    switch (random.below(10)) {
    case 0: return source.bytes.mid(random.between(1, map.imageEnd / 2));
    case 1:
    case 2: return source.bytes.mid(random.between(1, map.scanBegin - 1));
    default: {
        // APPn fill most of many headers, and a cut there costs nothing: most cuts go through what the picture needs.
        const auto first = std::find_if(map.segments.begin(), map.segments.end(),
                                        [](const Segment &segment) { return (segment.marker & 0xF0) != 0xE0; });
        return source.bytes.mid(random.between(first->begin + 1, map.scanBegin - 1));
    }
    }
}

Damaged endCutOff(const Source &source, const Source &, Random &random)
{
    const int data = source.map.scanEnd - source.map.scanBegin;
    return source.bytes.left(source.map.scanEnd - 1 - random.below(data * 3 / 4));
}

Damaged mixed(const Source &source, const Source &other, Random &random)
{
    switch (random.below(4)) {
    case 0: return random.bytes(random.betweenBySize(1, 1 << 16)) + source.bytes;
    case 1: return source.bytes + other.bytes;
    case 2: { // between two segments
        const int at = random.pick(source.map.segments).begin;
        return QByteArray(source.bytes).insert(at, random.bytes(random.betweenBySize(1, 4096)));
    }
    default: { // the end of another picture in front
        const int from = random.between(other.map.scanBegin, other.map.imageEnd - 1);
        return other.bytes.mid(from, other.map.imageEnd - from) + source.bytes;
    }
    }
}

Damaged blockZeroed(const Source &source, const Source &, Random &random)
{
    const auto block = anyBlock(source, random);
    if (!block) return {};
    return QByteArray(source.bytes).replace(block->begin, block->size, QByteArray(block->size, '\0'));
}

Damaged headZeroed(const Source &source, const Source &, Random &random)
{
    const int count = std::min(random.betweenBySize(2, kCluster), source.map.scanBegin);
    return QByteArray(source.bytes).replace(0, count, QByteArray(count, '\0'));
}

Damaged headIsJunk(const Source &source, const Source &, Random &random)
{
    const int count = std::min(random.betweenBySize(2, kCluster), source.map.scanBegin);
    return QByteArray(source.bytes).replace(0, count, random.bytes(count));
}

Damaged startLost(const Source &source, const Source &, Random &)
{
    return source.bytes.mid(2);
}

Damaged endLost(const Source &source, const Source &, Random &)
{
    return source.bytes.left(source.map.scanEnd);
}

Damaged sectorsSwapped(const Source &source, const Source &, Random &random)
{
    const auto first = anyBlock(source, random);
    if (!first) return {};
    const int second = random.below(source.map.imageEnd / first->size) * first->size;
    QByteArray bytes = source.bytes;
    bytes.replace(first->begin, first->size, source.bytes.mid(second, first->size));
    return bytes.replace(second, first->size, source.bytes.mid(first->begin, first->size));
}

Damaged sectorLost(const Source &source, const Source &, Random &random)
{
    const auto block = anyBlock(source, random);
    if (!block) return {};
    return QByteArray(source.bytes).remove(block->begin, block->size);
}

Damaged sectorTwice(const Source &source, const Source &, Random &random)
{
    const auto block = anyBlock(source, random);
    if (!block) return {};
    return QByteArray(source.bytes).insert(block->begin, source.bytes.mid(block->begin, block->size));
}

Damaged sectorOfAnother(const Source &source, const Source &other, Random &random)
{
    const auto block = anyBlock(source, random);
    if (!block || other.bytes.size() < block->size) return {};
    const int from = random.below(other.bytes.size() / block->size) * block->size;
    return QByteArray(source.bytes).replace(block->begin, block->size, other.bytes.mid(from, block->size));
}

Damaged junkBehind(const Source &source, const Source &, Random &random)
{
    const int count = random.betweenBySize(1, 1 << 16);
    return source.bytes + (random.below(2) == 0 ? QByteArray(count, '\0') : random.bytes(count));
}

/// As a transfer that begins anew leaves it.
Damaged beginningTwice(const Source &source, const Source &, Random &random)
{
    return source.bytes.left(random.betweenBySize(2, source.map.imageEnd - 1)) + source.bytes;
}

/// The file keeps its length: what comes in front pushes its end out.
Damaged shifted(const Source &source, const Source &, Random &random)
{
    const int count = random.betweenBySize(1, 1024);
    return (random.bytes(count) + source.bytes).left(source.bytes.size());
}

Damaged toLf(const Source &source, const Source &, Random &)
{
    return QByteArray(source.bytes).replace("\r\n", "\n");
}

Damaged toCrLf(const Source &source, const Source &, Random &)
{
    return QByteArray(source.bytes).replace("\n", "\r\n");
}

} // namespace

const std::vector<DamageKind> &fileDamage()
{
    static const std::vector<DamageKind> kinds = {
        {"first part of the file cut off", firstCutOff, 35},
        {"end cut off", endCutOff, 35},
        {"a mix of files and junk", mixed, 34},
        {"a block zeroed", blockZeroed, 34},
        {"the head zeroed", headZeroed, 34},
        {"the head overwritten with junk", headIsJunk, 30},
        {"SOI lost", startLost, 30},
        {"EOI lost", endLost, 30},
        {"junk behind the end", junkBehind, 30},
        {"the beginning twice", beginningTwice, 30},
        {"sectors swapped", sectorsSwapped},
        {"a sector lost", sectorLost},
        {"a sector twice", sectorTwice},
        {"a sector of another file", sectorOfAnother},
        {"the file shifted by bytes", shifted},
        {"CR LF turned to LF", toLf},
        {"LF turned to CR LF", toCrLf},
    };
    return kinds;
}

} // namespace soak
