// A picture in several scans of which some break: what is behind a break is put where the end of the scan says.
#pragma once

#include "salvage/entropy/PictureReader.h"
#include "salvage/search/ScansData.h"

#include <optional>

namespace salvage {

/// The picture as far as each scan can be used. A scan that gives levels or coefficients is read on behind its errors, and what
/// comes behind the break is counted from the end; one that refines is used up to its first error, and up to the first
/// place where what it refines isn't sure. Nothing where every scan is whole, or the picture is too large to be held.
std::optional<Coefficients> realignScans(const Header &header, const ScansData &scans, Budget &budget);

} // namespace salvage
