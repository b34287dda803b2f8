// What the bodies of segments look like by themselves, without a marker or a length that could be trusted.
// Formats: ISO/IEC 10918-1, B.2.2 (SOF), B.2.3 (SOS), B.2.4.1 (DQT), B.2.4.2 (DHT).
#pragma once

#include "salvage/Types.h"

#include <vector>

namespace salvage {

class KnownTables;

using Counts = std::array<quint8, 16>;

/// Code space that the counts take, of 65,536.
quint32 kraftSum(const Counts &counts);
/// True where the counts leave free just the code of all ones of the longest length, as an encoder's table always does and
/// chance does not.
bool leavesOneCode(const Counts &counts);
int symbolCount(const Counts &counts);

/// True for a symbol that a table of its class may hold at all; `progressive` allows runs of end-of-band.
bool isLegalSymbol(quint8 tableClass, quint8 symbol, bool progressive);

enum class TableState { Sound, DoubtfulSymbols, DoubtfulCounts };
/// What a table's own structure says of it.
TableState stateOf(HuffmanKey key, const HuffmanTable &table, bool progressive);

struct PlacedTable
{
    size_t begin = 0; ///< of its Tc/Th byte, in the body
    size_t end = 0;
    HuffmanKey key = 0;
    HuffmanTable table;
};
/// The table that stands at `at` of a DHT body, with end 0 if its counts lead out of the body or the key can't be.
PlacedTable tableAt(ByteView body, size_t at);
/// Tables that leave one code, wherever in `body` they stand, front to back and not overlapping.
std::vector<PlacedTable> soundTables(ByteView body);
/// True for a DHT body that is nothing but tables; dhtScore() is 1 then, and only then.
bool isAllTables(ByteView body);
/// The counts with one of them changed so that they sum up to `symbols` and leave one code; nearly always one or none.
std::vector<Counts> mendedCounts(const Counts &counts, int symbols);

/// The values, as bits by zig-zag index, that no encoder would put beside their neighbours: 3.2 times off the median of the
/// ten around them, within a stretch where the steps average over 2^0.9, or among the first and four times those behind.
quint64 roughValues(const QuantTable &table);

/// How well a body passes for one of its kind, 0 to 1; a score of 1 is sound in every field.
double sosScore(ByteView body);
double sofScore(ByteView body);
double dqtScore(ByteView body);
double dhtScore(ByteView body, const KnownTables &known);

/// True where segments stand that have lost the FF of their marker: the length at `at` + 1 leads to a sound marker before
/// `to`, to a body that is sound by itself, to another such segment, or to `to`.
bool leadsOnWithoutFF(ByteView file, size_t at, size_t to);

/// True for the second byte of a marker that stands in a header: SOI, SOF0 to SOF2, DHT, SOS, DQT, DRI, APPn, COM.
bool isHeaderMarker(quint8 marker);
/// True for a byte that may be the key of a Huffman table: classes 0 and 1, numbers 0 to 3.
constexpr bool isHuffmanKey(quint8 byte)
{
    return (byte & 0xEC) == 0;
}
constexpr bool isFrame(quint8 marker)
{
    return marker >= 0xC0 && marker <= 0xC2;
}
constexpr bool isRestart(quint8 marker)
{
    return (marker & 0xF8) == 0xD0;
}
constexpr bool isApp(quint8 marker)
{
    return (marker & 0xF0) == 0xE0;
}

} // namespace salvage
