// Starting a run, and what waits until the worker has left.
#include "app/StopFlag.h"
#include "desktop/Look.h"
#include "window/BrowseRepair.h"
#include "window/ColumnFit.h"
#include "window/CustomButton.h"
#include "window/DrgDrp.h"
#include "window/ListTools.h"
#include "window/MyTreeWidget.h"
#include "window/ResultOrder.h"
#include "window/ui_BrowseRepairObj.h"

#include <QAction>
#include <QHeaderView>

void BrowseRepair::OnSaveWindow()
{
    nNextButtonId = 10000;
    pApp->bRepairScreen = true;
    if (!pApp->bChineseBuild) CreateMenuBar2();
    say(ui->label_3, [this] { ui->label_3->setText(tr("Repairing Selected photos")); });
    say(ui->label_5, [this] {
        ui->label_5->setText(tr("This may take a while, depending on the number of photos and their file size. Please "
                                "wait while the process is completed."));
    });
    ui->UpdateBtn->setEnabled(false);
    ui->UpdateBtn_2->setEnabled(false);
    pApp->bResultsPage = true;
    setUpResultTree();

    nSelectedCount = 0;
    QList<QTreeWidgetItem *> rows;
    for (int i = 0; i < pFileList->topLevelItemCount(); ++i)
        if (pFileList->topLevelItem(i)->checkState(0) == Qt::Checked) rows << makeSourceRow(pFileList->topLevelItem(i));
    pResultTree->addTopLevelItems(rows);

    ui->checkBox1_2->setEnabled(false);
    ui->checkBox1_2->setCheckState(Qt::Unchecked);
    ui->ShowLabl->show();
    ui->checkBox3->setCheckState(Qt::Checked);
    ui->checkBox3->setEnabled(false);
    pResultTree->setEnabled(false);
    RepairFilesProcess();
}

void BrowseRepair::setUpResultTree()
{
    pResultTree->clear();
    m_order->forget();
    lstRowButtons.clear();
    pResultTree->setColumnCount(7);
    say(pResultTree, [this] {
        pResultTree->setHeaderLabels({tr(" File Name"), tr(" Type"), QString(), tr(" Resolution"), QString()});
        fitResultColumns();
    });
    pResultTree->setGeometry(22, 180, 400, 290);
    pResultTree->setFont(look::font(QStringLiteral("Helvetica neue Medium"), 13));
    pResultTree->setAlternatingRowColors(true);
    pResultTree->setTextElideMode(Qt::ElideMiddle);
    pResultTree->setUniformRowHeights(true);
    pResultTree->setIconSize(QSize(16, 16));
    for (int hidden : {column::Path, column::Status, column::ButtonId, column::IsSource})
        pResultTree->setColumnHidden(hidden, true);
    pResultTree->header()->setMinimumSectionSize(40);
    fitResultColumns();
    pResultTree->setIndentation(12);
}

void BrowseRepair::fitResultColumns()
{
    const QFontMetrics words(pResultTree->font());
    constexpr int kBadge = 20, kMargins = 14;
    int type = 0;
    for (const char *one : {"Repaired", "Extracted", "Thumbnail", "Salvaged"})
        type = std::max(type, words.horizontalAdvance(typeText(QLatin1String(one))));
    // The button of a failed row is wider, and lies over the next column, which is empty there.
    pResultTree->setColumnWidth(column::Type, type + kBadge + kMargins);
    pResultTree->setColumnWidth(column::Resolution, words.horizontalAdvance(QStringLiteral("4000x6000")) + kMargins);
    fitColumns(pResultTree, column::Name, 120);
}

QTreeWidgetItem *BrowseRepair::makeSourceRow(const QTreeWidgetItem *listRow)
{
    auto *row = new ResultRow;
    row->setText(column::Name, listRow->text(0));
    row->setToolTip(column::Name, listRow->text(1));
    row->setText(column::Path, listRow->text(1));
    row->setCheckState(column::Name, Qt::Checked);
    row->setSizeHint(column::Name, QSize(15, 15));
    row->setText(column::ButtonId, QString::number(nNextButtonId));
    row->setText(column::IsSource, QStringLiteral("1"));
    lstRowButtons.append({nNextButtonId, listRow->text(0), nullptr});
    ++nNextButtonId;
    ++nSelectedCount;
    return row;
}

CustomButton *BrowseRepair::makeButton(int index)
{
    // Most rows never need one, and a tree with thousands of widgets in its cells is slow to lay out.
    RefScan &entry = lstRowButtons[index];
    if (entry.pButton) return entry.pButton;
    entry.pButton = new CustomButton(entry.nId);
    entry.pButton->setObjectName(QStringLiteral("rowButton"));
    entry.pButton->setFlat(true);
    entry.pButton->setFixedSize(140, 20);
    entry.pButton->setStyleSheet(QStringLiteral("border:none"));
    entry.pButton->setCursor(Qt::PointingHandCursor);
    entry.pButton->setAccessibleName(tr("Advance repair") + ' ' + entry.strName);
    entry.pButton->setToolTip(sourceRow(index)->toolTip(column::Name));
    pResultTree->setRowButton(sourceRow(index), column::Type, entry.pButton);
    connect(entry.pButton, &CustomButton::MousePressed, this, &BrowseRepair::OnClickAddReference);
    return entry.pButton;
}

void BrowseRepair::RepairFilesProcess()
{
    ui->AddFilesBtn->hide();
    ui->RemovFileBtn->hide();
    ui->StartRepairFilesBtn->hide();
    ui->UpdateBtn_2->show();
    ui->HelpBtn->setVisible(!pApp->bChineseBuild);
    ui->label->setFont(look::font(QStringLiteral("Helvetica neue"), 13));
    say(ui->label, [this] { ui->label->setText(tr("Repairing selected photos")); });
    RunPlan plan;
    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = pResultTree->topLevelItem(i);
        plan.rows.append({i, row->text(column::Name), row->text(column::Path)});
    }
    startRun(plan);
}

void BrowseRepair::startRun(RunPlan plan)
{
    m_order->suspend();
    plan.run = ++m_run;
    plan.deepSalvage = pApp->bDeepSalvage;
    m_deepSalvage->setEnabled(false);
    // Until then the first page stays.
    if (m_workerBusy)
        m_listTools->showLine(tr("What was begun before is still being ended and wiped; the run starts after that."));
    afterRun([this, plan] {
        if (plan.run != m_run) return;
        m_listTools->showLine({});
        m_plan = plan;
        m_stopSeen = false;
        m_workerBusy = true;
        m_repairThread.pBrowseRepair = this;
        connect(&m_repairThread, &QRepairThread::ProcessCompleted, this, &BrowseRepair::SwitchToOriginalState,
                Qt::UniqueConnection);
        m_repairThread.Init();
    });
}

void BrowseRepair::afterRun(std::function<void()> task)
{
    if (m_workerBusy)
        m_afterRun.push_back(std::move(task));
    else
        task();
}

void BrowseRepair::postToRun(std::function<void()> effect)
{
    m_effects.post([this, run = m_plan.run, effect = std::move(effect)] {
        if (run == m_run) effect();
    });
}

void BrowseRepair::postWorkerLeft()
{
    m_effects.post([this] { OnWorkerLeft(); });
}

void BrowseRepair::OnWorkerLeft()
{
    m_repairThread.wait(); // it has nothing left to do but to return
    m_workerBusy = false;
    // A task may start the next run; what stands behind it then waits for that one.
    while (!m_workerBusy && !m_afterRun.empty()) {
        const std::function<void()> task = std::move(m_afterRun.front());
        m_afterRun.erase(m_afterRun.begin());
        task();
    }
    if (m_workerBusy) return;
    m_deepSalvage->setEnabled(true);
    emit workerLeft();
}

void BrowseRepair::runAside(std::function<void()> work)
{
    m_workerBusy = true;
    m_aside.start([this, work = std::move(work)] {
        work();
        postWorkerLeft();
    });
}

void BrowseRepair::endWorker()
{
    m_leaving = true;
    if (!m_workerBusy) return;
    // The start of a run lowers the stop byte; raised again and again it can't be missed.
    do setFlag(pApp->bStopRepair, true);
    while (!m_repairThread.wait(20));
    m_aside.waitForDone();
    m_effects.clear();
    m_workerBusy = false;
}
