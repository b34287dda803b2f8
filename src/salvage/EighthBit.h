// Undoes a transfer over seven bits, which took the upper bit of every byte at the front of a file.
#pragma once

#include "salvage/Budget.h"
#include "salvage/tables/KnownTables.h"

#include <QByteArray>

#include <optional>

namespace salvage {

/// Where the header of `file` has lost the eighth bit of its bytes, in front of its entropy data: the file with the bits put
/// back that the picture hangs on. Markers are certain, lengths lead from segment to segment, tables are known ones or follow
/// from what encoders write; the size and the interval are those by which the data decode. What the other segments hold stays
/// as it is; a colour profile, which nobody could use, goes. Nothing for any other file.
std::optional<QByteArray> restoreEighthBits(ByteView file, const KnownTables &known, Budget &budget);

} // namespace salvage
