// Huffman tables of a damaged header: read out of DHT bodies, mended by counts and by known tables, searched symbol by symbol.
#pragma once

#include "salvage/Budget.h"
#include "salvage/entropy/Entropy.h"
#include "salvage/structure/Structure.h"

#include <optional>
#include <vector>

namespace salvage {

class KnownTables;

/// Where a table that may be the right one comes from.
enum class TableOrigin { AsFound, Known, CountsMended, SymbolsSearched };

struct TableOption
{
    HuffmanTable table;
    TableOrigin origin = TableOrigin::AsFound;
};

struct ReadTable
{
    HuffmanKey key = 0;
    HuffmanTable table;
    TableState state = TableState::Sound;
};

/// The body of a DHT cut at its sound tables.
struct DhtReading
{
    std::vector<ReadTable> tables;
    std::vector<ByteView> gaps; ///< what lies between; each is one damaged table, or rubbish
};
DhtReading readDht(ByteView body, bool progressive);

/// Known tables that agree with one whose symbols are doubtful, best first, at most three.
std::vector<HuffmanTable> knownLike(HuffmanKey key, const HuffmanTable &table, const KnownTables &known);

/// What a gap can be as one table whose number of symbols is known by the gap's length: known tables that agree in half of
/// their bytes, then its own with one count mended. The key as far as it can be told.
struct KeyedOption
{
    HuffmanKey key = 0;
    TableOption option;
};
std::vector<KeyedOption> readingsOf(ByteView gap, const KnownTables &known);

/// Which symbols of a table can't be right.
struct Doubt
{
    std::vector<bool> doubtful;   ///< by place
    bool ascending = false;       ///< the symbols of each length ascend, as those that an encoder made do
    std::vector<size_t> groupEnd; ///< by place: behind the last symbol of the same length
    std::vector<size_t> groupBegin;
    bool any() const;
};
Doubt doubtIn(HuffmanKey key, const HuffmanTable &table, bool progressive);

/// Values that could stand at `place`, given the symbols at the places that `fixed` marks.
std::vector<quint8> valuesFor(HuffmanKey key, const HuffmanTable &table, size_t place, const Doubt &doubt,
                              const std::vector<bool> &fixed, bool progressive);

/// Searches the spoilt symbols of the tables in `header` that nobody knows, by how far `data` decode with each choice. Uses
/// at most Budget::kSymbolMilliseconds. The header with the best choice and every hole filled; nothing where no symbol is
/// doubtful.
std::optional<Header> searchSymbols(const Header &header, ByteView data, const KnownTables &known, Budget &budget);

} // namespace salvage
