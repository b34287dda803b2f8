// The run that repairs one HEIC with a sample: its driver on the worker, and what it does to the rows.
#include "app/StopFlag.h"
#include "engine/OneFile.h"
#include "window/BrowseRepair.h"
#include "window/MyTreeWidget.h"

#include <QFileInfo>

void BrowseRepair::OnRepairHEICWithRefFiles()
{
    if (m_leaving) setFlag(pApp->bStopRepair, true);
    postToRun([this] {
        emit ShowString();
        emit displayItem();
        emit EnableProgressBar();
        emit ShowProgress();
    });
    const RunRow row = m_plan.rows.value(0);
    const FileOutcome outcome = repairOneFileWithSample(m_plan.samplePath, row.path, row.sampleName);
    const OutputRows rows = makeSampleRows(outcome);
    const bool stopped = stopRequested();
    if (stopped) resetRunFields();
    postToRun([this, rows, stopped, row = row.row, outcome] {
        showHeicSampleOutput(row, rows, outcome);
        finishRunAgain(stopped);
    });
}

void BrowseRepair::showHeicSampleOutput(int row, const OutputRows &rows, const FileOutcome &outcome)
{
    QTreeWidgetItem *target = sourceRow(row);
    if (!rows.rows.isEmpty()) {
        target->setText(column::Status, QLatin1String(status::Repaired));
        // The tiles alone of the run before lay under the same name, and are replaced.
        for (int i = target->childCount() - 1; i >= 0; --i)
            if (target->child(i)->text(column::Name) == rows.rows.first().name) delete target->takeChild(i);
        addOutputRow(target, rows.rows.first(), false, false);
        target->child(target->childCount() - 1)->setCheckState(column::Name, Qt::Checked);
        bHasRepaired = true;
        emit showCustomButton(unsigned(row));
    }
    showSampleReport(row, outcome);
}
