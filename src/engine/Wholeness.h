// How much of a picture is there: from the decoder's words, and where it complained, from the entropy data.
#pragma once

#include "engine/Judge.h"
#include "engine/RepairReport.h"

/// For the JPEG at `path`, which gave `verdict`:
/// - Whole: the decoder had no complaint and each component's scans are there, or it complained about something else than
///   the picture and each MCU can be read.
/// - Partial: MCUs are missing, as data ended early, are zeros or restart intervals are lost. `share` are those that can be
///   read in front of the first error of their interval.
/// - Doubtful: next to nothing is missing, but codes were wrong, data were left over or came out too short by a little,
///   details are absent or levels multiplied by zero, so parts may be displaced or false; `share` as above, kUncounted
///   where nothing can be counted.
/// - Unjudged: it doesn't decode.
/// Costs nothing where the decoder had no complaint and there is one scan, else about half a decode.
Wholeness wholenessOf(const QString &path, const Verdict &verdict);

/// Makes a picture partial of whose `bytes` in the source the medium has refused some, if `refused` isn't 0: zeros decode
/// like any picture.
void lessen(Wholeness &wholeness, quint64 refused, quint64 bytes);

/// True for a picture of a sample that is noise: hardly an MCU could be read by the sample's tables.
bool looksUnfit(const Wholeness &wholeness);
