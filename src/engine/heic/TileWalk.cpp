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
        if (walk.count < kept) lengths[walk.count] = length + kLengthField;
        ++walk.count;
    }
    return walk;
}
