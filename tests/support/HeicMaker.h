// HEICs of tiles, made byte by byte. The payload of a tile is filler behind its first four bytes: nothing here decodes.
#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

struct HeicOptions
{
    int tiles = 48;
    int entryCount = 0x33;       ///< of `iinf`; its items are the tiles, the grid of them, and others behind
    int seed = 1;                ///< another one gives tiles of other lengths and bytes
    bool wideReferences = false; ///< item numbers of four bytes in `iref`
    QByteArray behind = {};      ///< bytes behind the last tile
};

/// A made HEIC with the places of what it holds.
struct MadeHeic
{
    QByteArray bytes;
    QByteArray iinf, iref, iprp, idat, iloc; ///< whole boxes
    QByteArray metaSize;                     ///< the four bytes of the size field of `meta`
    QByteArray stream;                       ///< from the first tile's length field to the file's end
    std::vector<int> lengths;                ///< of the tiles, their length fields included

    int at(const QByteArray &part) const { return bytes.indexOf(part); }
};

/// A healthy one: `ftyp`; `meta` with handler, data information, primary item and the five boxes; `mdat` around the tiles.
MadeHeic makeHeic(const HeicOptions &options = {});

/// The number, high byte first.
QByteArray be16(int value);
QByteArray be32(quint32 value);
QByteArray heicBox(const char *type, const QByteArray &body);
/// A tile with its length field: the pattern, then filler.
QByteArray heicTile(int payload, int seed = 1, const QByteArray &pattern = QByteArray("\x28\x01\xAF\x84", 4));

/// What a rewrite of `tiles` with these boxes must be, worked out from the layout of the file alone: `metaSize` and the
/// boxes of one file, the stream and the lengths of another or the same.
QByteArray expectedRewrite(const MadeHeic &boxes, const MadeHeic &tiles);
