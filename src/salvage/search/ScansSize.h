// The size and the sampling of a picture in several scans, from the number of blocks that its scans hold.
#pragma once

#include "salvage/entropy/PictureReader.h"
#include "salvage/search/SizeGuess.h"

namespace salvage {

/// How many units each component's scans hold.
struct ScanCounts
{
    quint32 mcus = 0;            ///< of the first scan that has several components; 0 where there is none
    std::vector<quint32> blocks; ///< by component, of a scan of its own; 0 where none could be counted
    std::vector<qint16> levels;  ///< DC of the first component's first block, unit by unit of the first scan
};

/// Counts the units of all scans but those that refine. `parts` have tables and samplings, their sizes don't matter.
/// Nothing where the first scan isn't used up by whole units: tables or samplings are others.
std::optional<ScanCounts> countScans(const std::vector<ScanPart> &parts, ByteView data, Budget &budget);

/// True where a picture of this size, with the samplings of `header`, has these counts.
bool hasCounts(const Header &header, const ScanCounts &counts, PictureSize size);

/// Sizes that give these counts, in whole units; `unit` gets their pixels: a block where the finest component was counted
/// alone, else an MCU. `header` has the samplings.
std::vector<PictureSize> sizesOf(const Header &header, const ScanCounts &counts, SizeUnit &unit);

} // namespace salvage
