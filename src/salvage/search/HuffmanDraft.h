// Which Huffman tables a draft may have: those that its DHT segments hold, mended, moved to the keys that the scan asks
// for, and made where none is left.
#pragma once

#include "salvage/search/Draft.h"

#include <vector>

namespace salvage {

/// Fills the options and first choices of `draft`, whose frame and scan are set, from the bodies of its DHT segments, front
/// to back. May set the scan's table numbers to the usual ones where no table has them.
void draftHuffman(Draft &draft, const std::vector<ByteView> &bodies, const KnownTables &known);

} // namespace salvage
