// The search for the header of a picture in several scans, progressive as a rule: all of them are decoded, and errors count.
#pragma once

#include "salvage/entropy/PictureReader.h"
#include "salvage/search/Search.h"

namespace salvage {

/// The header by which the scans are read with the fewest errors: tables, samplings, size, kind of frame, and last spoilt
/// symbols. `fit.perfect` where there is no error at all; `fit.share` of all that was to be read.
std::optional<Solution> solveScans(const Draft &draft, ByteView data, Budget &budget);

} // namespace salvage
