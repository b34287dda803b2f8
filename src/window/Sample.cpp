// The repair with a sample file: its dialogs, and what its run does to the rows. On the main thread.
#include "app/StopFlag.h"
#include "dialogs/AdvancedRepairDlg.h"
#include "dialogs/ReferenceFileDlg.h"
#include "engine/OneFile.h"
#include "engine/heic/TileLayout.h"
#include "engine/jpg_repair.h"
#include "window/BrowseRepair.h"
#include "window/CustomButton.h"
#include "window/MyTreeWidget.h"
#include "window/ResultOrder.h"
#include "window/RowReport.h"
#include "window/ui_BrowseRepairObj.h"

#include <QFileInfo>

namespace {

bool isHeic(const QString &suffix)
{
    const QString upper = suffix.toUpper();
    return upper == QLatin1String("HEIC") || upper == QLatin1String("HEIF");
}

} // namespace

QTreeWidgetItem *BrowseRepair::sampleRow() const
{
    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *source = pResultTree->topLevelItem(i);
        if (source->text(column::ButtonId).toUInt() == pApp->nSampleFormatId) return source;
    }
    return nullptr;
}

void BrowseRepair::OnClickAddReference(unsigned int id)
{
    if (m_workerBusy || pAdvancedDlg) return; // a stopped worker is about to leave, or a second press of a double click
    setFlag(pApp->bStopRepair, false);
    pApp->pReferenceFileDlg->reset();
    pApp->nSampleFormatId = id;
    strSampleList.clear();
    const QTreeWidgetItem *source = sampleRow();
    if (!source || !mayTrySample(source)) return;
    const QFileInfo damaged(source->text(column::Path));
    strSampleList.append(damaged.filePath());
    pApp->strFileSuffix = damaged.suffix();

    pAdvancedDlg = new AdvancedRepairDlg(this, sampleText(damaged.filePath()), pApp->pReferenceFileDlg);
    pAdvancedDlg->setDamagedFile(damaged.fileName(), isHeic(damaged.suffix()));
    pApp->pReferenceFileDlg->setDamagedFile(damaged.fileName());
    pAdvancedDlg->setAttribute(Qt::WA_DeleteOnClose);
    // Next only hides it, to make room for the second dialog.
    connect(pAdvancedDlg, &QDialog::finished, pAdvancedDlg, &QObject::deleteLater);
    pAdvancedDlg->show();
}

void BrowseRepair::askForSample(QTreeWidgetItem *source)
{
    OnClickAddReference(source->text(column::ButtonId).toUInt());
}

QString BrowseRepair::sampleText(const QString &path) const
{
    if (!isHeic(QFileInfo(path).suffix())) return AdvancedRepairDlg::jpegText();
    return AdvancedRepairDlg::heicText(layoutName(jpg_repair().CheckingImageType(path)));
}

void BrowseRepair::OnRefe_CheckBoxClicked()
{
    pApp->bApplyToAllSameFormat = pApp->pReferenceFileDlg->checkBox->isChecked();
}

RunRow BrowseRepair::sampleRunRow(const QTreeWidgetItem *source) const
{
    return {numberOf(source), source->text(column::Name), source->text(column::Path), nameForSample(source)};
}

void BrowseRepair::ReferenceRepairProcess()
{
    const QTreeWidgetItem *asked = sampleRow();
    if (m_workerBusy || !asked) return;
    m_order->suspend();
    RunPlan plan;
    plan.samplePath = pApp->strSamplePath;
    // Whoever asks from a row that has results wants nothing else of these to change.
    plan.again = !isOpenToSample(asked);
    if (!pApp->bHeicReferenceRepair && pApp->bApplyToAllSameFormat) { // a HEIC is one a run, whatever the box says
        strSampleList.clear();
        for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *source = pResultTree->topLevelItem(i);
            const bool wanted = plan.again ? mayTrySample(source) : isOpenToSample(source);
            if (!wanted || isHeic(QFileInfo(source->text(column::Path)).suffix())) continue;
            strSampleList.append(source->text(column::Path));
            plan.rows.append(sampleRunRow(source));
        }
    } else {
        plan.rows.append(sampleRunRow(asked));
    }
    startRunAgain(plan);
}

void BrowseRepair::startRunAgain(RunPlan plan)
{
    ui->label_5->clear();
    say(ui->label_3, [this] { ui->label_3->setText(tr("Repairing Selected photos")); });
    startRun(std::move(plan));
}

void BrowseRepair::finishRunAgain(bool stopped)
{
    m_stopSeen = stopped;
    emit CompletionMsgBox();
}

void BrowseRepair::showSampleRunStart(int total)
{
    ui->progressBar_2->setRange(0, total);
    emit ShowProgress();
    emit EnableProgressBar();
    emit ShowString();
}

void BrowseRepair::showSampleFile(const QString &name)
{
    say(ui->label_5, [this, name] { ui->label_5->setText(tr("Repairing File : ") + name); });
}

void BrowseRepair::showSampleReport(int row, const FileOutcome &outcome)
{
    QTreeWidgetItem *source = sourceRow(row);
    keepSampleReport(source, outcome);
    if (CustomButton *button = buttonOf(source)) button->setToolTip(source->toolTip(column::Name));
}

void BrowseRepair::showSampleOutput(int row, const OutputRows &rows, bool stopped)
{
    QTreeWidgetItem *target = sourceRow(row);
    if (CustomButton *button = buttonOf(target)) {
        button->setText(QString());
        button->hide();
        button->setEnabled(false);
    }
    if (stopped && target->childCount() == 0) target->setText(column::Status, QLatin1String(status::Stopped));
    if (stopped || rows.rows.isEmpty()) return;
    const OutputRow &output = rows.rows.first();
    if (!output.thumbnail) target->setText(column::Status, QLatin1String(status::Repaired));
    addOutputRow(target, output, false, true);
    // Beside a picture that stands, noise is nothing to save.
    const bool worthSaving = !m_plan.again || output.wholeness.completeness != Completeness::Doubtful;
    target->child(target->childCount() - 1)->setCheckState(column::Name, worthSaving ? Qt::Checked : Qt::Unchecked);
    target->setData(column::Name, Qt::CheckStateRole, QVariant());
    bHasRepaired = true;
}
