// What a run does to the window, on the main thread.
#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/Look.h"
#include "engine/OneFile.h"
#include "window/BrowseRepair.h"
#include "window/CustomButton.h"
#include "window/DetailsPane.h"
#include "window/KindIcon.h"
#include "window/MyTreeWidget.h"
#include "window/ResultOrder.h"
#include "window/ResultSummary.h"
#include "window/RowReport.h"
#include "window/SecondTry.h"
#include "window/ui_BrowseRepairObj.h"

#include <QFileInfo>
#include <QPixmap>

namespace {

/// What an earlier run gave for a source is there, whatever comes of the run in hand.
bool hasResult(const QTreeWidgetItem *row)
{
    const QTreeWidgetItem *source = row->parent() ? row->parent() : row;
    for (int i = 0; i < source->childCount(); ++i)
        if (source->child(i)->text(column::Status) == QLatin1String(status::Output)) return true;
    return false;
}

} // namespace

QString BrowseRepair::typeText(const QString &type)
{
    if (type == QLatin1String("Repaired")) return tr("Repaired");
    if (type == QLatin1String("Extracted")) return tr("Extracted");
    if (type == QLatin1String("Thumbnail")) return tr("Thumbnail");
    if (type == QLatin1String("Salvaged")) return tr("Salvaged");
    return type;
}

QTreeWidgetItem *BrowseRepair::sourceRow(int number) const
{
    return pResultTree->topLevelItem(number);
}

void BrowseRepair::showRunStart()
{
    ui->progressBar_2->show();
    m_summary->hide();
    m_secondTry->hide();
    m_details->showRow(nullptr);
    ui->BackBtn_2->setEnabled(false);
    lstRepairedInfo.clear();
    ui->progressBar_2->setValue(0);
    ui->progressBar_2->setRange(0, int(nSelectedCount));
    emit displayItem();
    emit Showlabel();
    emit SetCheckBoxEnabled();
}

void BrowseRepair::showFileStart(const QString &name)
{
    ui->progressBar_2->show();
    curFileInfo.strName = name;
    ui->RemovFileBtn->setEnabled(false);
    pDropButton->setEnabled(false);
}

void BrowseRepair::addOutputRow(QTreeWidgetItem *source, const OutputRow &output, bool leftAligned, bool withResolution)
{
    auto *row = new ResultRow;
    row->setCheckState(column::Name, Qt::Unchecked);
    row->setText(column::Name, output.name);
    row->setData(column::Type, Qt::UserRole, output.type);
    row->setText(column::Type, typeText(output.type));
    if (leftAligned) row->setTextAlignment(column::Type, Qt::AlignLeft | Qt::AlignVCenter);
    if (withResolution) row->setText(column::Resolution, output.resolution);
    row->setText(column::Status, output.statusCode);
    // The judge, which makes the small pictures, decodes no HEIC.
    row->setIcon(column::Name,
                 output.icon.isNull() ? kindIcon(QFileInfo(output.name).suffix())
                                      : QIcon(QPixmap::fromImage(output.icon)));
    keepWholeness(row, output.wholeness);
    source->addChild(row);
    emit ExpandThumb(source);
    curFileInfo.strName = output.name;
    curFileInfo.strResolution = output.resolution;
    lstRepairedInfo.append(curFileInfo);
}

void BrowseRepair::setReport(QTreeWidgetItem *source, const FileOutcome &outcome)
{
    if (!source) return;
    keepReport(source, outcome);
    if (CustomButton *button = buttonOf(source)) button->setToolTip(source->toolTip(column::Name));
}

void BrowseRepair::finishStoppedRows()
{
    m_stopSeen = true;
    const bool withSample = !m_plan.samplePath.isEmpty(); // results of the run before are no part of this one
    bool behindStop = false;
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        const QString code = (*it)->text(column::Status);
        if (code == QLatin1String(status::Stopped))
            behindStop = true;
        else if (behindStop && code != QLatin1String(status::Invalid) && !(withSample && hasResult(*it)))
            (*it)->setText(column::Status, QLatin1String(status::Stopped));
    }
    FileOutcome stopped;
    stopped.report.reason = RepairReason::Stopped;
    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) {
        if (reportOf(sourceRow(i))) continue;
        stopped.source = sourceRow(i)->text(column::Path);
        setReport(sourceRow(i), stopped);
    }
}

void BrowseRepair::finishRun()
{
    pResultTree->setEnabled(true);
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        const QString code = (*it)->text(column::Status);
        if (code != QLatin1String(status::Repaired) && code != QLatin1String(status::Invalid)) continue;
        (*it)->setText(column::Type, QString());
        (*it)->setText(column::Resolution, QString());
        (*it)->setData(column::Name, Qt::CheckStateRole, QVariant());
    }
    emit ShowThumblabl();
    emit SetCheckBoxEnabled();
    emit ThumbChbox();
    emit SelectAllLable();
    // In front of the summary, which has the last word on this button.
    if (pApp->bResultsPage) ui->SaveRepairBtn_2->setEnabled(true);
    emit CompletionMsgBox();
}

void BrowseRepair::SwitchToOriginalState()
{
    ui->progressBar_2->hide();
    ui->label_RepairFileName->hide();
    ui->SaveRepairBtn_2->show();
    ui->StopRepairProcessBtn_2->hide();
    ui->BackBtn_2->setEnabled(true);
}

void BrowseRepair::DisplaySavedItems()
{
    ui->frame->hide();
    m_details->showRow(nullptr);
    ui->Preview_Label->setPixmap(look::picture(placeholderPicture(), devicePixelRatioF()));
    ui->Preview_Label->show();
    ui->frame2->show();
    ui->StopRepairProcessBtn_2->show();
    ui->SaveRepairBtn_2->hide();
    pApp->bResultsPage = true;
    ui->StopRepairProcessBtn_2->setFocus();
}

void BrowseRepair::OnShowlabel()
{
    for (QLabel *label : {ui->label_RepairFileName, ui->Percnt_Label}) {
        label->clear();
        label->show();
    }
    ui->BackBtn_2->setEnabled(false);
}

void BrowseRepair::OnSetCheckBoxEnabled()
{
    ui->checkBox1_2->setCheckState(Qt::Checked);
    ui->checkBox1_2->setEnabled(false);
}

void BrowseRepair::OnShowProgresslabel(const QString &text, const QString &percent)
{
    ui->label_RepairFileName->setText(text);
    ui->Percnt_Label->setText(percent);
    ui->ShowLabl->setEnabled(false);
}

void BrowseRepair::OnSetFileProgressvalue(unsigned int value)
{
    ui->progressBar_2->setValue(int(value));
}

void BrowseRepair::OnshowCustomButton(unsigned int index)
{
    if (index >= unsigned(lstRowButtons.size())) return;
    CustomButton *button = lstRowButtons[int(index)].pButton;
    if (!button) return;
    button->setText(QString());
    button->hide();
    button->setEnabled(false);
}

void BrowseRepair::OnsetCustomButton(unsigned int number)
{
    if (number == 0 || number > unsigned(lstRowButtons.size())) return;
    makeAdvanceButton(makeButton(int(number) - 1), QT_TR_NOOP("Advance repair"));
}

void BrowseRepair::makeAdvanceButton(QPushButton *button, const char *text)
{
    const QString style = QStringLiteral("text-align: left; padding: 1 5px ;background:transparent");
    button->setProperty(kWords, text);
    button->setText(tr(text));
    if (button->styleSheet() != style) {
        QFont font = look::font(QStringLiteral("Helvetica neue Medium"), 12);
        font.setUnderline(true);
        button->setFont(font);
        QPalette colours = button->palette();
        colours.setColor(QPalette::ButtonText, colours.color(QPalette::Link));
        button->setPalette(colours);
        button->setProperty("role", "link");
        button->setStyleSheet(style);
    }
    button->show();
    button->setEnabled(true);
}

void BrowseRepair::OnExpandThumb(QTreeWidgetItem *item)
{
    item->setExpanded(true);
}

void BrowseRepair::OnJPGCAll(const QString &) {}

void BrowseRepair::OnHideProgressBar()
{
    ui->progressBar_2->hide();
}

void BrowseRepair::OnShowThumblabl() {}

void BrowseRepair::OnThumbChbox()
{
    ui->checkBox3->setEnabled(true);
}

void BrowseRepair::OnSelectAllLable()
{
    ui->SelectAll_labl->setEnabled(true);
}

void BrowseRepair::OnShowString()
{
    OnShowlabel();
}

void BrowseRepair::OnShowProgress()
{
    m_summary->hide();
    m_secondTry->hide();
    m_details->showRow(nullptr); // they would lie over the words of the progress
    ui->StopRepairProcessBtn_2->show();
    ui->SaveRepairBtn_2->hide();
    ui->BackBtn_2->setEnabled(false);
    pResultTree->setEnabled(false);
}

void BrowseRepair::OnEnableProgressBar()
{
    ui->progressBar_2->setValue(0);
    ui->progressBar_2->show();
}
