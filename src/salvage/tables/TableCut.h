// Cuts the body of a damaged DHT segment into its tables, by the fewest hits that explain every byte of it.
#pragma once

#include "salvage/tables/Huffman.h"

#include <vector>

namespace salvage {

class KnownTables;

/// One table of a body, and what it may have been before the damage.
struct CutTable
{
    size_t begin = 0; ///< of its Tc/Th byte, in the body
    size_t end = 0;
    HuffmanKey key = 0;               ///< class by what the symbols are; number as found, 0 where that is lost
    bool keyLost = false;             ///< the key can't be, or names the other class
    bool asFound = false;             ///< not a byte is in doubt, but the key's
    std::vector<TableOption> options; ///< at least one, the best first
    std::vector<TableOption> others;  ///< what it may be as a table of the other class; often empty
};

struct TableCut
{
    std::vector<CutTable>
        tables;      ///< front to back, without a byte between them; empty where the body isn't tables alone
    double cost = 0; ///< about the number of bytes that must have been hit
};

/// Every place of the body is tried as the end of each table: a table costs what it takes to make its counts leave one
/// code and its symbols legal, different and ascending, or to make a known table of it. The cheapest way through the
/// body is taken. Nothing for a body of over 1,100 bytes, or where more than eight hits would be needed.
TableCut cutTables(ByteView body, bool progressive, const KnownTables &known);

} // namespace salvage
