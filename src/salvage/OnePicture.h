// From one scan of a damaged file to a whole picture: header, tables, quantization, mended data.
#pragma once

#include "salvage/Salvage.h"
#include "salvage/structure/ScanFinder.h"

namespace salvage {

/// The best picture that one candidate gives; nothing where no header can be made for it.
std::optional<Result> salvageOne(ByteView file, const Candidate &candidate, const KnownTables &known, Budget &budget);

} // namespace salvage
