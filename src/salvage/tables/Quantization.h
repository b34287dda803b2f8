// Quantization tables of a damaged header: known ones by agreement, a set's other half, the shape of what is sound; the steps
// across the borders of blocks decide where these leave a choice.
#pragma once

#include "salvage/picture/Picture.h"
#include "salvage/search/Draft.h"

#include <functional>

namespace salvage {

/// What was done to the tables.
struct QuantOutcome
{
    int replaced = 0; ///< tables that differ from what was found, or were made
    int sure = 0;     ///< of them those that a known set or table gives away
};

/// Fills `header.quant` with a table for each component. `coefficients` is asked only where the picture has to decide; it
/// gives the picture in hand and the rows of MCUs that were read.
using PictureInHand = std::function<std::pair<const Coefficients *, quint32>()>;
QuantOutcome chooseQuant(Header &header, const Draft &draft, const KnownTables &known, const PictureInHand &picture);

/// True if a table of `header` looks damaged: it has values that no encoder would write, or differs from a known set in its
/// first values alone. A known table never does.
bool quantLooksDamaged(const Header &header, const KnownTables &known);

} // namespace salvage
