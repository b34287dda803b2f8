// The driver of a run. Everything here runs on the worker and touches no widget: effects are posted, in a fixed order.
#include "app/StopFlag.h"
#include "engine/DeepRoad.h"
#include "engine/OneFile.h"
#include "window/BrowseRepair.h"
#include "window/ReportText.h"

#include <QTreeWidgetItem>

#include <optional>

namespace {

QStringList pathsOf(const RunPlan &plan)
{
    QStringList paths;
    for (const RunRow &row : plan.rows) paths << row.path;
    return paths;
}

bool isJpeg(const QString &suffix)
{
    const QString upper = suffix.toUpper();
    return upper == QLatin1String("JPG") || upper == QLatin1String("JPEG");
}

} // namespace

void BrowseRepair::runDriver()
{
    if (!m_plan.salvaged.isEmpty())
        salvageAgain();
    else if (pApp->bReferenceRepair)
        OnRepairRefrenceFile();
    else if (pApp->bHeicReferenceRepair)
        OnRepairHEICWithRefFiles();
    else
        RepairJpegFile();
}

void BrowseRepair::RepairJpegFile()
{
    beginRun(pathsOf(m_plan));
    if (m_leaving) setFlag(pApp->bStopRepair, true); // the line above has lowered it
    postToRun([this] { showRunStart(); });

    bool stopped = false;
    unsigned int buttonIndex = 0;
    std::optional<DeepRoad> deep;
    if (m_plan.deepSalvage) deep.emplace(pathsOf(m_plan));
    for (int i = 0; i < m_plan.rows.size() && !stopped; ++i)
        stopped = !repairRow(m_plan.rows[i], i + 1, buttonIndex, deep ? &*deep : nullptr);
    // A stop during the last file's salvage leaves that file as the other ways have finished it.
    if (deep && stopRequested()) stopped = true;
    if (stopped) {
        setFlag(pApp->bRepairRunning, false);
        postToRun([this] { finishStoppedRows(); });
    }
    setFlag(pApp->bFileInProgress, false);
    pApp->bContainerWalk = false;
    pApp->bTrailingImages = false;
    if (pApp->nThumbAbsentCount != 0 || pApp->nInvalidCount != 0) {
        const QString text = runSummary(pApp->nInvalidCount, pApp->nThumbAbsentCount);
        pApp->bRunMessage = true;
        postToRun([this, text] { emit msgShow(text); });
    }
    setFlag(pApp->bRepairRunning, false);
    if (stopped) resetRunFields();
    postToRun([this] { finishRun(); });
}

bool BrowseRepair::repairRow(const RunRow &row, int number, unsigned int &buttonIndex, DeepRoad *deep)
{
    const auto stop = [&] {
        postStatus(row.row, status::Stopped);
        return false;
    };
    if (stopRequested()) return stop();
    setFlag(pApp->bFileInProgress, true);
    postToRun([this, name = row.name] { showFileStart(name); });
    FileOutcome outcome;
    if (!row.path.isEmpty()) {
        postProgress(number);
        if (stopRequested()) return stop();
        postStep(number);
        outcome = repairOneFile(row.path);
        if (stopRequested()) return stop();
        if (outcome.statusCode == QLatin1String(status::Invalid)) {
            ++buttonIndex;
            postToRun([this, row = row.row, number] {
                sourceRow(row)->setText(column::Status, QLatin1String(status::Invalid));
                emit setCustomButton(unsigned(number));
            });
        }
    }
    if (!postOutputs(row, outcome, buttonIndex)) return stop();
    postToRun([this, row = row.row] { sourceRow(row)->setData(column::Name, Qt::CheckStateRole, QVariant()); });
    if (stopRequested()) {
        postStatus(row.row, status::Stopped);
        postToRun([this] { emit HideProgressBar(); });
        return false;
    }
    // What the other ways have made stands by now and stays, even if the salvage is stopped.
    if (deep && !row.path.isEmpty()) salvageRow(*deep, row, number, outcome);
    return true;
}

bool BrowseRepair::postOutputs(const RunRow &row, const FileOutcome &outcome, unsigned int &buttonIndex)
{
    const OutputRows outputs = makeRows(outcome);
    const bool jpeg = isJpeg(outcome.suffix);
    const bool exactHeic = outcome.suffix == QLatin1String("HEIC");
    const bool heic = outcome.suffix.toUpper() == QLatin1String("HEIC");
    bool first = true;
    for (const OutputRow &output : outputs.rows) {
        const bool counts = jpeg ? !output.thumbnail : first;
        const bool showsButton = counts && (jpeg || heic);
        postToRun([this, row = row.row, output, counts, showsButton, index = buttonIndex, aligned = first || jpeg,
                   exactHeic] {
            QTreeWidgetItem *source = sourceRow(row);
            if (counts) source->setText(column::Status, QLatin1String(status::Repaired));
            if (showsButton) emit showCustomButton(index);
            addOutputRow(source, output, aligned, !exactHeic);
        });
        if (counts) ++buttonIndex;
        first = false;
    }
    postToRun([this, row = row.row, outcome] { setReport(sourceRow(row), outcome); });
    return outputs.sourceStatus != QLatin1String(status::Stopped);
}

void BrowseRepair::postStatus(int row, const char *status)
{
    postToRun([this, row, status] { sourceRow(row)->setText(column::Status, QLatin1String(status)); });
}

void BrowseRepair::postProgress(int number)
{
    postToRun([this, number, total = m_plan.rows.size()] {
        const QString percent = total > 0 ? QString::number(quint32(number) * 100 / quint32(total)) + " %" : QString();
        emit ShowProgressLabel(
            tr("Repairing file ") + QString::number(number) + ' ' + tr("of") + ' ' + QString::number(total), percent);
    });
}

void BrowseRepair::postStep(int number)
{
    postToRun(
        [this, number, total = m_plan.rows.size()] { emit SetFileProgressvalue(total == 1 ? 1 : unsigned(number)); });
}
