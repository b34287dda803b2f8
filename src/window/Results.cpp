// The results page at rest: the summary, checks, what a click on a row shows.
#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/Look.h"
#include "dialogs/CompletionMsg.h"
#include "dialogs/StopDlg.h"
#include "engine/OneFile.h"
#include "window/BrowseRepair.h"
#include "window/CustomButton.h"
#include "window/DetailsPane.h"
#include "window/Globals.h"
#include "window/MyTreeWidget.h"
#include "window/ResultOrder.h"
#include "window/ResultSummary.h"
#include "window/RowReport.h"
#include "window/SecondTry.h"
#include "window/ui_BrowseRepairObj.h"

namespace {

bool hasStatus(const QTreeWidgetItem *row, std::initializer_list<const char *> codes)
{
    const QString code = row->text(column::Status);
    return std::any_of(codes.begin(), codes.end(), [&](const char *one) { return code == QLatin1String(one); });
}

template<typename Condition>
int countRows(QTreeWidget *tree, Condition condition)
{
    int rows = 0;
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        if (condition(*it)) ++rows;
    return rows;
}

Qt::CheckState stateFor(int checked, int countable)
{
    if (checked >= 1 && checked <= countable - 1) return Qt::PartiallyChecked;
    return checked == countable ? Qt::Checked : Qt::Unchecked;
}

} // namespace

CustomButton *BrowseRepair::buttonOf(const QTreeWidgetItem *row) const
{
    if (!row || lstRowButtons.isEmpty()) return nullptr;
    // Ids run on from the first: a run may have thousands of rows, and this is asked for each.
    return lstRowButtons.value(numberOf(row)).pButton;
}

int BrowseRepair::numberOf(const QTreeWidgetItem *source) const
{
    return int(source->text(column::ButtonId).toUInt() - lstRowButtons.first().nId);
}

void BrowseRepair::showTitle()
{
    say(ui->label, [this] { ui->label->setText(tr("Kesmira")); });
    ui->label->setFont(look::font(QStringLiteral("Helvetica neue Medium"), 14));
}

void BrowseRepair::OnCompletionMsgBox()
{
    stopDlgObj->hide(); // the run is over: there is nothing left to stop
    setLanguageFlags(storedLanguage());
    ui->Preview_Label->setPixmap(look::picture(placeholderPicture(), devicePixelRatioF()));

    say(ui->label_5, [this] {
        ui->label_5->setText(
            tr("Click on the 'Save Repaired Files' to save all your repaired photos. Click the file to preview it. "));
    });
    m_repairThread.quit();
    showTitle();
    say(ui->label_3, [this] { ui->label_3->setText(tr("Repair process completed.")); });
    m_repairThread.quit();
    // Whoever has stopped the run knows that it is over.
    const quint64 run = m_run;
    if (!m_stopSeen) CompletionMsgObj->exec();
    if (run != m_run) return; // closed meanwhile

    ui->SaveRepairBtn_2->setEnabled(bHasRepaired);
    for (QWidget *hidden :
         {static_cast<QWidget *>(ui->progressBar_2), static_cast<QWidget *>(ui->label_RepairFileName),
          static_cast<QWidget *>(ui->Percnt_Label), static_cast<QWidget *>(ui->StopRepairProcessBtn_2)})
        hidden->hide();
    pResultTree->setEnabled(true);
    ui->SaveRepairBtn_2->show();
    ui->SaveRepairBtn_2->setEnabled(true);
    pApp->bReferenceRepair = false;
    for (QWidget *enabled : {static_cast<QWidget *>(ui->HelpBtn_1), static_cast<QWidget *>(ui->ShowLabl),
                             static_cast<QWidget *>(ui->checkBox3), static_cast<QWidget *>(ui->SelectAll_labl),
                             static_cast<QWidget *>(ui->checkBox1_2), static_cast<QWidget *>(ui->UpdateBtn),
                             static_cast<QWidget *>(ui->UpdateBtn_2)})
        enabled->setEnabled(true);
    pApp->bRepairScreen = true;
    pApp->bBackEnabled = false;
    pApp->bFileListActive = false;
    showButtonsByStatus();

    const auto isOutput = [](const QTreeWidgetItem *row) { return hasStatus(row, {status::Output}); };
    const int all = countRows(pResultTree, [](const QTreeWidgetItem *) { return true; });
    const int invalid = countRows(pResultTree, [](const auto *row) { return hasStatus(row, {status::Invalid}); });
    const int outputs = countRows(pResultTree, isOutput);
    ui->SaveRepairBtn_2->setEnabled(outputs > 0 && invalid != all);
    for (QTreeWidgetItemIterator it(pResultTree); *it && !m_plan.again; ++it)
        if (isOutput(*it)) (*it)->setCheckState(column::Name, Qt::Checked);
    ui->checkBox1_2->setCheckState(outputs == 0 ? Qt::Unchecked : Qt::Checked);
    if (m_plan.again) countChecks(); // what was ticked or saved before the run is as it was
    pResultTree->setFocus();
    showFindings();
}

void BrowseRepair::showFindings()
{
    m_order->resume();
    m_summary->refresh();
    m_secondTry->refresh();
    if (!pResultTree->currentItem()) pResultTree->setCurrentItem(pResultTree->topLevelItem(0));
    m_details->showRow(pResultTree->currentItem());
}

void BrowseRepair::OnFiltered()
{
    QTreeWidgetItem *current = pResultTree->currentItem();
    if (!current) return;
    const QTreeWidgetItem *source = current->parent() ? current->parent() : current;
    if (!source->isHidden()) return;
    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) {
        if (pResultTree->topLevelItem(i)->isHidden()) continue;
        pResultTree->setCurrentItem(pResultTree->topLevelItem(i));
        previewRow(pResultTree->topLevelItem(i));
        return;
    }
}

void BrowseRepair::showButtonsByStatus()
{
    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = pResultTree->topLevelItem(i);
        CustomButton *button = buttonOf(row);
        if (hasStatus(row, {status::Invalid, status::StoppedSample, status::Queued}) || holdsTilesAlone(row)) {
            makeAdvanceButton(makeButton(i), QT_TR_NOOP("Advance Repair"));
        } else if (button && hasStatus(row, {status::Sample, status::Output, status::Repaired})) {
            button->hide();
            button->setEnabled(false);
        } else if (hasStatus(row, {status::Stopped})) {
            button = makeButton(i);
            button->setProperty(kWords, QT_TR_NOOP("Aborted"));
            button->setText(tr("Aborted"));
            button->setStyleSheet(QStringLiteral("text-align: left;"));
            button->show();
            button->setEnabled(false);
        }
    }
}

void BrowseRepair::OnItemClicked(QTreeWidgetItem *item, int)
{
    if (item->treeWidget()) item->setExpanded(!item->isExpanded());
    if (hasStatus(item, {status::Invalid})) ui->SaveRepairBtn_2->setEnabled(true);
    setLanguageFlags(storedLanguage());
    countChecks();
    previewRow(item);
}

void BrowseRepair::countChecks()
{
    const auto checkedWith = [](std::initializer_list<const char *> codes) {
        return [codes](const QTreeWidgetItem *row) {
            return row->checkState(column::Name) == Qt::Checked && hasStatus(row, codes);
        };
    };
    const int countable = countRows(pResultTree, [](const QTreeWidgetItem *row) {
        return hasStatus(row, {status::Output, status::Stopped, status::Invalid});
    });
    const int checkedOutputs = countRows(pResultTree, checkedWith({status::Output}));
    const int checkedOther = countRows(pResultTree, checkedWith({status::Output, status::Stopped}));
    ui->checkBox1_2->setTristate(true);
    ui->SaveRepairBtn_2->setEnabled(stateFor(checkedOutputs, countable) != Qt::Unchecked);
    ui->checkBox1_2->setCheckState(stateFor(checkedOther, countable));
}

void BrowseRepair::OnRowEntered(QTreeWidgetItem *item)
{
    // The space key does nothing in this tree, so Return ticks a row for whoever has no mouse.
    const QVariant box = item->data(column::Name, Qt::CheckStateRole);
    if (box.isValid())
        item->setCheckState(column::Name, item->checkState(column::Name) == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    const bool open = item->isExpanded();
    OnItemClicked(item, column::Name);
    if (box.isValid()) item->setExpanded(open);
}

void BrowseRepair::OnSaveCheckBoxbtnClicked(bool checked)
{
    pApp->bApplyToAllSameFormat = false;
    if (ui->checkBox1_2->isTristate()) {
        ui->checkBox1_2->setTristate(false);
        ui->checkBox1_2->setChecked(checked);
    }
    int ticked = 0;
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        if (hasStatus(*it, {status::Invalid, status::Repaired, status::StoppedSample})) {
            (*it)->setData(column::Name, Qt::CheckStateRole, QVariant());
            if (checked) ui->SaveRepairBtn_2->setEnabled(false);
            continue;
        }
        (*it)->setCheckState(column::Name, checked ? Qt::Checked : Qt::Unchecked);
        if (checked && !hasStatus(*it, {status::Stopped})) ++ticked;
    }
    ui->SaveRepairBtn_2->setEnabled(ticked > 0);
}

void BrowseRepair::OnThumbnailHideChkBox(bool checked)
{
    ui->ShowLabl->setEnabled(true);
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        QTreeWidgetItem *row = *it;
        if (checked) {
            if (!row->text(column::Resolution).isEmpty()) row->setHidden(false);
            continue;
        }
        const bool repaired = hasStatus(row, {status::Repaired});
        int place = 0;
        for (int i = 0; i < row->childCount() && place < 4; ++i) {
            QTreeWidgetItem *child = row->child(i);
            if (isSalvaged(child)) continue; // no thumbnail, and of no say in what the first one is
            const bool output = hasStatus(child, {status::Output});
            // The first row of a repaired source is its main image.
            if (output && !(place == 0 && repaired))
                child->setHidden(true);
            else if (repaired)
                child->setHidden(false);
            ++place;
        }
    }
}
