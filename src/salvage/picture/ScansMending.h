// Damage in the entropy data of a picture in several scans.
#pragma once

#include "salvage/entropy/PictureReader.h"
#include "salvage/search/ScansData.h"

namespace salvage {

/// The codes that can't stand in a scan, mended anew: each can be a byte that was hit (FE), a stuffed zero that was hit or one
/// that is lost, and only the right choices let the scan be read to its end. Changes `scans` where all of a scan is read
/// then. `header` is the one by which they are read best.
void mendCodes(const Header &header, ScansData &scans, Budget &budget);

} // namespace salvage
