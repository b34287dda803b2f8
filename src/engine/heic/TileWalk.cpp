#include "engine/heic/TileWalk.h"

#include "app/StopFlag.h"
#include "engine/heic/Boxes.h"

namespace {

constexpr quint32 kLengthField = 4;

/// The head of a slice's unit and its first parameters, as the encoders of phones write them.
bool isSlice(quint32 word)
{
    return word == 0x2801AF84 || word == 0x2801AF80;
}

/// Follows the chain of lengths; `tile` gets the number of each tile, the offset of its slice and the slice's bytes.
template<typename Tile>
TileWalk walk(FileWindow &file, Tile tile)
{
    TileWalk walk;
    const quint64 size = file.size();
    const quint64 slice = findFirstSlice(file);
    // A slice with no room for a length field in front of it wraps to the end of all offsets: no tile.
    walk.position = slice < size ? slice - kLengthField : size + 1;
    quint32 length = 0;
    while (walk.position <= size && !stopRequested()) {
        walk.position += length;
        if (walk.position < size + kLengthField) length = fourBytesAt(file, walk.position);
        walk.position += kLengthField;
        if (!isSlice(fourBytesAt(file, walk.position))) continue;
        tile(walk.count, walk.position, length);
        ++walk.count;
    }
    return walk;
}

} // namespace

quint64 findFirstSlice(FileWindow &file)
{
    constexpr quint8 kFirst = 0x28;
    const quint64 size = file.size();
    quint64 at = file.nextByte(kFirst, 0, size);
    while (at < size && !(file.byteAt(at + 1) == 0x01 && isSlice(fourBytesAt(file, at))))
        at = file.nextByte(kFirst, at + 1, size);
    return at;
}

TileWalk walkTiles(FileWindow &file, quint32 *lengths, size_t kept)
{
    return walk(file, [lengths, kept](unsigned int number, quint64, quint32 length) {
        if (number < kept) lengths[number] = length + kLengthField;
    });
}

double shareOfSoundTiles(FileWindow &file)
{
    unsigned int sound = 0;
    const TileWalk tiles = walk(file, [&](unsigned int, quint64 slice, quint32 length) {
        const quint64 end = slice + length;
        if (end > file.size()) return;
        quint64 at = file.nextByte(0, slice, end);
        while (at < end && !(at + 2 < end && file.byteAt(at + 1) == 0 && file.byteAt(at + 2) == 0))
            at = file.nextByte(0, at + 1, end);
        if (at >= end) ++sound;
    });
    return tiles.count ? double(sound) / tiles.count : 0;
}
