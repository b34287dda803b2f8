// The run that repairs one HEIC with a sample: its driver on the worker, and what it does to the rows.
#include "app/StopFlag.h"
#include "engine/OneFile.h"
#include "window/BrowseRepair.h"
#include "window/MyTreeWidget.h"

#include <QFileInfo>

QString BrowseRepair::pathOfSampleRow() const
{
    for (const RefScan &entry : lstRowButtons) {
        if (entry.nId != pApp->nSampleFormatId) continue;
        const QTreeWidgetItem *row = firstRowNamed(entry.strName, Qt::CaseInsensitive);
        return row ? row->text(column::Path) : QString();
    }
    return {};
}

void BrowseRepair::OnRepairHEICWithRefFiles()
{
    if (m_leaving) setFlag(pApp->bStopRepair, true);
    postToRun([this] {
        emit ShowString();
        emit displayItem();
        emit EnableProgressBar();
        emit ShowProgress();
    });
    const QString path = m_plan.rows.value(0).path;
    const FileOutcome outcome = repairOneFileWithSample(m_plan.samplePath, path);
    const OutputRows rows = makeSampleRows(outcome);
    const bool stopped = stopRequested();
    if (stopped) resetRunFields();
    postToRun([this, rows, stopped, fileName = QFileInfo(path).fileName(), outcome] {
        showHeicSampleOutput(fileName, rows, outcome);
        m_stopSeen = stopped;
        emit CompletionMsgBox();
    });
}

void BrowseRepair::showHeicSampleOutput(const QString &fileName, const OutputRows &rows, const FileOutcome &outcome)
{
    QTreeWidgetItem *target = firstRowNamed(fileName, Qt::CaseInsensitive);
    if (!target) return;
    if (!rows.rows.isEmpty()) {
        target->setText(column::Status, QLatin1String(status::Repaired));
        // The tiles alone of the run before lay under the same name, and are replaced.
        for (int i = target->childCount() - 1; i >= 0; --i)
            if (target->child(i)->text(column::Name) == rows.rows.first().name) delete target->takeChild(i);
        addOutputRow(target, rows.rows.first(), false, false);
        target->child(target->childCount() - 1)->setCheckState(column::Name, Qt::Checked);
        bHasRepaired = true;
        for (int i = 0; i < lstRowButtons.size(); ++i) {
            if (lstRowButtons[i].strName.compare(fileName, Qt::CaseInsensitive) != 0) continue;
            emit showCustomButton(unsigned(i));
            break;
        }
    }
    setReport(target, outcome);
}
