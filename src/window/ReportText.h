// What was done for a file, in words for the tool tip of its row.
#pragma once

#include "engine/RepairReport.h"

#include <QStringList>

struct FileOutcome;
struct SalvageReport;

/// One line for each thing: what was mended, or why nothing came out; never empty.
QString reportText(const FileOutcome &outcome);

/// What may bring back more of a file, a line each; part of reportText(). Empty where nothing helps or nothing is wanted.
QStringList adviceLines(const FileOutcome &outcome);

/// What deep salvage did, and how sure its picture is, in one line; empty if it had nothing to do.
QString salvageText(const SalvageReport &salvage);

/// "\n2 Invalid Files" or "\n1 Thumbnail Absent": of two counts that aren't 0 the second one. Empty if both are 0.
QString runSummary(quint32 invalid, quint32 thumbnailsAbsent);
/// How much of a picture is there, in a sentence; "" where nobody could tell.
QString wholenessWords(const Wholeness &wholeness);
