// What is known of a row of results beside its told columns: the report of its file, and how much of a picture is there.
#pragma once

#include "engine/OneFile.h"

class QTreeWidgetItem;

/// What came of a source, from the best to the least.
enum class Found {
    Healthy, ///< the source opens as it is
    Whole,
    Partial,
    Doubtful,
    Unjudged, ///< nobody could tell
    Nothing,  ///< no picture, or thumbnails alone
};

/// Keeps what was done for a source at its row and at the rows of those outputs that it names, and describes them.
void keepReport(QTreeWidgetItem *source, const FileOutcome &outcome);
/// Keeps how much of an output's picture is there, in front of keepReport().
void keepWholeness(QTreeWidgetItem *output, const Wholeness &wholeness);
/// Null for a row that has none as yet.
const FileOutcome *outcomeOf(const QTreeWidgetItem *row);
const RepairReport *reportOf(const QTreeWidgetItem *row);
/// An output's; Unjudged for all other rows.
Wholeness wholenessIn(const QTreeWidgetItem *output);

/// Puts badges, tool tips and words for screen readers on a source row and its outputs, in the language of the interface.
void describeRows(QTreeWidgetItem *source);

/// The picture of a source is as good as the worst of those that came out of it, for each is another one; but a sample's
/// and a salvage's show the same again, and of a raw file's previews one is enough. Thumbnails don't count.
Found foundIn(const QTreeWidgetItem *source);
/// What one output is; tiles alone are never whole.
Found foundInOutput(const QTreeWidgetItem *output);
/// True for the row of a HEIC of which the tiles alone came out: it counts as repaired, but a sample is wanted.
bool holdsTilesAlone(const QTreeWidgetItem *source);
