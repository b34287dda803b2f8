// The driver of a run with a sample file. Runs on the worker and touches no widget.
#include "app/StopFlag.h"
#include "engine/OneFile.h"
#include "window/BrowseRepair.h"
#include "window/RowReport.h"

#include <QFileInfo>
#include <QTreeWidgetItem>

void BrowseRepair::OnRepairRefrenceFile()
{
    if (m_leaving) setFlag(pApp->bStopRepair, true);
    const int total = m_plan.rows.size();
    postToRun([this, total] { showSampleRunStart(total); });
    bool stopNoted = false;
    for (int n = 1; n <= total; ++n) {
        const SampleStep step = repairRowWithSample(m_plan.rows[n - 1], n);
        stopNoted = stopNoted || step == SampleStep::StopNoted;
        if (step != SampleStep::Next) break;
    }
    const bool stopped = stopRequested();
    if (stopped) resetRunFields();
    postToRun([this, stopped, stopNoted] {
        if (stopNoted) finishStoppedRows();
        finishRunAgain(stopped);
    });
}

BrowseRepair::SampleStep BrowseRepair::repairRowWithSample(const RunRow &row, int number)
{
    postToRun([this, row = row.row] {
        if (isOpenToSample(sourceRow(row))) sourceRow(row)->setText(column::Status, QLatin1String(status::Queued));
    });
    const FileOutcome outcome = repairOneFileWithSample(m_plan.samplePath, row.path, row.sampleName);
    if (outcome.results.isEmpty()) {
        postToRun([this, row = row.row, outcome] { showSampleReport(row, outcome); });
        return stopRequested() ? SampleStep::Leave : SampleStep::Next;
    }
    postToRun([this, name = QFileInfo(row.path).fileName()] { showSampleFile(name); });
    postProgress(number);
    if (stopRequested()) return SampleStep::Leave;

    const bool last = number == m_plan.rows.size();
    const OutputRows rows = makeSampleRows(outcome);
    const bool stopped = stopRequested();
    postToRun([this, number, last, rows, stopped, row = row.row, outcome] {
        emit SetFileProgressvalue(last ? 1 : unsigned(number));
        showSampleOutput(row, rows, stopped);
        showSampleReport(row, outcome);
    });
    return stopped ? SampleStep::StopNoted : SampleStep::Next;
}
