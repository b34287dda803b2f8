// Deep salvage: a damaged JPEG in, the best picture out that structure, counts and the entropy data allow.
// Pure functions over bytes: no file, no application object, no state between two calls.
#pragma once

#include "salvage/Budget.h"
#include "salvage/Steps.h"
#include "salvage/Types.h"
#include "salvage/tables/KnownTables.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace salvage {

struct Result
{
    QByteArray file; ///< a whole JPEG
    quint16 width = 0;
    quint16 height = 0;
    std::vector<Step> steps;
    Certainty certainty = Certainty::Guess;
    double share = 0;       ///< of the picture that was read, 0 to 1
    bool perfect = false;   ///< every MCU was read and the data were used up
    bool realigned = false; ///< the scan was written anew
    bool quantSure = false; ///< a quantization table was replaced by a known one that others give away
    bool sizeFound = false; ///< the size isn't the frame's
};

/// How a JPEG reads as it stands.
struct Reading
{
    bool readable = false; ///< a frame, its tables and a scan are there
    bool progressive = false;
    quint16 width = 0;
    quint16 height = 0;
    double share = 0;         ///< of the MCUs (baseline) that were read in front of the first error, 0 to 1
    quint32 errors = 0;       ///< in the entropy data; bytes that were left over count as one
    bool roughTables = false; ///< a quantization table that no encoder would write
    bool ended = false;       ///< an EOI follows the data
    /// Every MCU was read, and no quantization table looks damaged.
    bool clean() const { return readable && errors == 0 && share >= 1 && !roughTables; }
};

/// Reads `file` with its own tables as a strict decoder would. Takes about as long as one decode; asks `budget` on the way.
Reading readAsItStands(ByteView file, const KnownTables &known, Budget &budget);

/// The best picture that `file` alone gives; nothing where no scan is found or a stop was asked for. Takes memory for the
/// coefficients of one picture beside the file. `file` must outlive the call.
std::optional<Result> salvage(ByteView file, const KnownTables &known, Budget &budget);

/// True if `result` should stand beside the output `told` that the other ways made of `source`; both have been found to
/// decode. An empty `told` has no say.
bool worthShowing(const Result &result, ByteView told, ByteView source, const KnownTables &known, Budget &budget);

} // namespace salvage
