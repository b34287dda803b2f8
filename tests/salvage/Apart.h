// JPEGs taken apart by libjpeg, which shares no line with what is tested, and small tools around them.
#pragma once

#include "salvage/entropy/Entropy.h"
#include "salvage/tables/KnownTables.h"

#include <QImage>

#include <array>
#include <vector>

/// The blocks of one component as libjpeg has them, without the padding of MCUs.
struct BlockPlane
{
    quint32 wide = 0;
    quint32 high = 0;
    std::vector<std::array<qint16, 64>> blocks; ///< row by row; zig-zag order inside
};

struct Apart
{
    QByteArray file;
    salvage::Header header; ///< up to the first scan, with its tables; APP segments are left out
    QByteArray data;        ///< from behind the first SOS up to EOI, further scans included
    std::vector<BlockPlane> planes;
};

/// A healthy JPEG; anything else ends the program.
Apart takeApart(const QByteArray &jpeg);

/// "" where the picture has just the blocks of `apart`, else the place of the first that differs.
QString difference(const salvage::Coefficients &picture, const Apart &apart);
/// The blocks of `apart` as decode() orders them, padded with zeros to whole MCUs.
salvage::Coefficients coefficientsOf(const Apart &apart);

/// Row-major place of a zig-zag index, found by walking the diagonals.
int placeOfZigzag(int index);
/// Entropy data from text of 0 and 1, other characters left out: stuffed, the last byte filled with ones.
QByteArray packBits(const QByteArray &text);
/// The code of each symbol of a table as such a text, by the table's order (ISO/IEC 10918-1, C.2).
std::vector<QByteArray> codesOf(const salvage::HuffmanTable &table);
/// The body of a DHT with one table.
QByteArray dhtBody(int key, const salvage::HuffmanTable &table);

/// Annex K's tables and nothing else.
const salvage::KnownTables &annexKOnly();
/// What the program has it decoded to; null where that fails.
QImage shown(const QByteArray &jpeg);
