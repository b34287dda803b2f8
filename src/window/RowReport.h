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
/// The same of a run with a sample: what the file gave before stays known beside it, and all of it where the sample gave
/// nothing because of a stop.
void keepSampleReport(QTreeWidgetItem *source, const FileOutcome &outcome);
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
/// True for a row that the repair with a sample has failed for, or that no other way has repaired: it has a button.
bool isOpenToSample(const QTreeWidgetItem *row);
/// True for a source whose result isn't whole, or was made with a sample, and that another sample may do better for.
bool mayTrySample(const QTreeWidgetItem *source);
/// True where a sample was tried for the source, whatever came of it.
bool wasSampleTried(const QTreeWidgetItem *source);
/// The name under which the next sample's result leaves what stands below the source. While no worker runs.
SampleName nameForSample(const QTreeWidgetItem *source);
/// True for the row of a HEIC of which the tiles alone came out: it counts as repaired, but a sample is wanted.
bool holdsTilesAlone(const QTreeWidgetItem *source);
