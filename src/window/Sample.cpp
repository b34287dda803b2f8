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

bool isOpenToSample(const QTreeWidgetItem *row)
{
    const QString code = row->text(column::Status);
    return code == QLatin1String(status::Invalid) || code == QLatin1String(status::StoppedSample)
        || code == QLatin1String(status::Queued);
}

bool isHeic(const QString &suffix)
{
    const QString upper = suffix.toUpper();
    return upper == QLatin1String("HEIC") || upper == QLatin1String("HEIF");
}

} // namespace

QTreeWidgetItem *BrowseRepair::firstRowNamed(const QString &name, Qt::CaseSensitivity sensitivity) const
{
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it)
        if ((*it)->text(column::Name).compare(name, sensitivity) == 0) return *it;
    return nullptr;
}

QTreeWidgetItem *BrowseRepair::rowOfPath(const QString &path) const
{
    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i)
        if (pResultTree->topLevelItem(i)->text(column::Path) == path) return pResultTree->topLevelItem(i);
    return nullptr;
}

void BrowseRepair::OnClickAddReference(unsigned int id)
{
    if (m_workerBusy || pAdvancedDlg) return; // a stopped worker is about to leave, or a second press of a double click
    setFlag(pApp->bStopRepair, false);
    pApp->pReferenceFileDlg->reset();
    pApp->nSampleFormatId = id;
    strSampleList.clear();

    QString name;
    for (const RefScan &entry : lstRowButtons)
        if (entry.nId == id) name = entry.strName;
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        if (!(isOpenToSample(*it) || holdsTilesAlone(*it)) || (*it)->text(column::Name) != name) continue;
        strSampleList.append((*it)->text(column::Path));
        pApp->strFileSuffix = QFileInfo((*it)->text(column::Path)).suffix();
        break;
    }
    if (strSampleList.isEmpty()) return;

    pAdvancedDlg = new AdvancedRepairDlg(this, sampleText(strSampleList.first()), pApp->pReferenceFileDlg);
    pAdvancedDlg->setAttribute(Qt::WA_DeleteOnClose);
    // Next only hides it, to make room for the second dialog.
    connect(pAdvancedDlg, &QDialog::finished, pAdvancedDlg, &QObject::deleteLater);
    pAdvancedDlg->show();
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

void BrowseRepair::ReferenceRepairProcess()
{
    if (m_workerBusy) return;
    m_order->suspend();
    ui->label_5->clear();
    RunPlan plan;
    plan.samplePath = pApp->strSamplePath;
    if (pApp->bHeicReferenceRepair) {
        strSampleList = QStringList{pathOfSampleRow()}; // one file a run, whatever the box says
    } else if (pApp->bApplyToAllSameFormat) {
        strSampleList.clear();
        for (int i = 0; i < pResultTree->topLevelItemCount(); ++i)
            if (isOpenToSample(pResultTree->topLevelItem(i)))
                strSampleList.append(pResultTree->topLevelItem(i)->text(column::Path));
    }
    for (const QString &path : qAsConst(strSampleList)) plan.rows.append({0, QFileInfo(path).fileName(), path});
    startRun(plan);
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

void BrowseRepair::showSampleOutput(const QString &fileName, const OutputRows &rows, bool stopped)
{
    QTreeWidgetItem *target = firstRowNamed(fileName);
    if (!target) return;
    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *source = pResultTree->topLevelItem(i);
        if (source->text(column::Name) != fileName) continue;
        if (CustomButton *button = buttonOf(source)) {
            button->setText(QString());
            button->hide();
            button->setEnabled(false);
        }
    }
    if (stopped || rows.rows.isEmpty()) {
        if (stopped) target->setText(column::Status, QLatin1String(status::Stopped));
        return;
    }
    const OutputRow &output = rows.rows.first();
    if (!output.thumbnail) target->setText(column::Status, QLatin1String(status::Repaired));
    addOutputRow(target, output, false, true);
    QTreeWidgetItem *child = target->child(target->childCount() - 1);
    child->setCheckState(column::Name, Qt::Checked);
    target->setData(column::Name, Qt::CheckStateRole, QVariant());
    bHasRepaired = true;
}
