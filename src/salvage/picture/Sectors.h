// Sectors of a medium that came twice or in the wrong order: undone, the entropy data are as they were.
#pragma once

#include "salvage/search/Search.h"

#include <optional>

namespace salvage {

/// The entropy data with a doubled sector (512 or 4096 bytes) taken out, or with two sectors changed back. Nothing where the
/// data don't decode to their end by that, every MCU and every byte. Swaps are looked for in data without restart intervals.
std::optional<QByteArray> undoSectors(const Header &header, const ScanData &data, Budget &budget);

} // namespace salvage
