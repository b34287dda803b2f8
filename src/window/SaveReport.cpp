#include "window/SaveReport.h"

#include "app/KesmiraApp.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace {

class Words
{
    Q_DECLARE_TR_FUNCTIONS(SaveReport)

public:
    /// Why an output isn't among the saved ones; empty if it is.
    static QString problem(const SavedRow &row)
    {
        switch (row.result) {
        case SaveResult::Saved: return {};
        case SaveResult::Skipped: return tr("%1: skipped").arg(row.name);
        case SaveResult::Identical: return tr("%1: skipped, the same file is there already").arg(row.name);
        case SaveResult::Failed: break;
        }
        return row.name + QLatin1String(": ") + row.error;
    }

    static QString spared(const SavedRow &row)
    {
        return tr("%1 was saved as %2, for one of the photos to repair has that name there.")
            .arg(row.name, QFileInfo(row.target).fileName());
    }

    static QString count(int saved, int all) { return tr("%1 of %2 files were saved.").arg(saved).arg(all); }

    /// `with` of the saved copies got the camera's data, `without` could have.
    static QString note(int with, int without)
    {
        if (with > 0) return tr("Saved with the camera's data (date, place, orientation, colours): %1").arg(with);
        if (without == 0) return {};
        if (pApp->bCameraData) return tr("No camera data (date, place, orientation, colours) were found to put back.");
        const QString lack = tr("The saved photos lack the camera's data (date, place, orientation, colours).");
        if (pApp->bChineseBuild) return lack; // it has no menu
        return tr("%1 To save them with these, choose \"Put the camera's data back\" in the File menu first.")
            .arg(lack);
    }
};

} // namespace

SavingReport savingReport(const SaveOutcome &outcome, const CameraSources &couldTake)
{
    SavingReport report;
    report.anyThere = false;
    int saved = 0;
    int with = 0;
    int without = 0;
    QStringList notes;
    for (const SavedRow &row : outcome.rows) {
        if (row.result == SaveResult::Saved && row.sparesOriginal) notes << Words::spared(row);
        if (row.result == SaveResult::Saved) ++saved;
        if (row.result == SaveResult::Saved || row.result == SaveResult::Identical) report.anyThere = true;
        if (row.cameraData) ++with;
        if (row.result == SaveResult::Saved && !row.cameraData && couldTake.contains(row.name)) ++without;
        const QString problem = Words::problem(row);
        if (!problem.isEmpty()) report.problems << problem;
    }
    if (!report.problems.isEmpty()) report.shortfall = Words::count(saved, outcome.rows.size());
    if (report.problems.isEmpty() && saved > 1) notes.prepend(Words::count(saved, saved)); // success names no number
    notes << Words::note(with, without);
    notes.removeAll(QString());
    report.note = notes.join('\n');
    return report;
}
