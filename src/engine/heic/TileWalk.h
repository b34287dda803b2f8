// The tiles of a HEIC: a length field of four bytes, then so many bytes, and again, from the first one to the file's end.
#pragma once

#include "engine/FileWindow.h"

/// Offset of the first slice of an HEVC tile, which lies behind the tile's length field. The file's size if there is
/// none, or a stop was asked for.
quint64 findFirstSlice(FileWindow &file);

struct TileWalk
{
    unsigned int count = 0;
    quint64 position = 0; ///< where the walk ended
};

/// Follows the lengths from the first tile to the end, through whatever lies between, and counts what begins as a tile.
/// Puts the bytes of the first `kept` tiles, their length fields included, into `lengths`. A stop ends the walk.
TileWalk walkTiles(FileWindow &file, quint32 *lengths, size_t kept);

/// The share of the tiles, 0 to 1, whose bytes are all there and can be a slice's: three zeros in a row never occur in
/// one (ISO/IEC 23008-2, 7.4.2). Other damage to a tile isn't seen. 0 where there is no tile.
double shareOfSoundTiles(FileWindow &file);
