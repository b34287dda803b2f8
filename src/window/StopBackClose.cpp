// The three ways out: Stop ends a run and keeps what was made, Back and Close empty the working folder.
#include "app/Originals.h"
#include "app/StopFlag.h"
#include "app/WorkingRoot.h"
#include "dialogs/BackApplicationDlg.h"
#include "dialogs/CloseApplicationDlg.h"
#include "dialogs/StopDlg.h"
#include "engine/OneFile.h"
#include "engine/jpg_repair.h"
#include "save/ScratchFolder.h"
#include "save/WipeFolder.h"
#include "window/BrowseRepair.h"
#include "window/CustomButton.h"
#include "window/DetailsPane.h"
#include "window/DrgDrp.h"
#include "window/Globals.h"
#include "window/MyTreeWidget.h"
#include "window/ui_BrowseRepairObj.h"

#include <QCloseEvent>
#include <QDir>

void BrowseRepair::StopProcess()
{
    stopDlgObj->exec();
}

void BrowseRepair::OnRunProcess()
{
    stopDlgObj->hide();
}

void BrowseRepair::OnStopProcess()
{
    pApp->bApplyToAllSameFormat = false;
    setFlag(pApp->bStopRepair, true);
    setFlag(pApp->bFileInProgress, false);
    SwitchToOriginalState();
    stopDlgObj->close();
    m_repairThread.quit();

    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = pResultTree->topLevelItem(i);
        const QString code = row->text(column::Status);
        if (code == QLatin1String(status::Invalid) || code == QLatin1String(status::Queued)
            || code == QLatin1String(status::StoppedSample)) {
            row->setText(column::Status, QLatin1String(status::StoppedSample));
        } else if (code == QLatin1String(status::Repaired) || code == QLatin1String(status::Sample)
                   || code == QLatin1String(status::Output)) {
            if (CustomButton *button = buttonOf(row)) {
                button->hide();
                button->setEnabled(false);
            }
        }
    }
    // The last row of the tree decides.
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        const QString code = (*it)->text(column::Status);
        ui->SaveRepairBtn_2->setEnabled(code != QLatin1String(status::Stopped)
                                        && code != QLatin1String(status::Invalid));
    }
    for (QWidget *enabled : {static_cast<QWidget *>(ui->checkBox1_2), static_cast<QWidget *>(ui->label_2),
                             static_cast<QWidget *>(ui->SelectAll_labl), static_cast<QWidget *>(ui->ShowLabl),
                             static_cast<QWidget *>(ui->UpdateBtn), static_cast<QWidget *>(ui->UpdateBtn_2)})
        enabled->setEnabled(true);
    // The fields of the run are the worker's until it has left; it resets them itself on its way out.
    if (!m_workerBusy) resetRunFields();
}

void BrowseRepair::resetRunFields()
{
    for (bool *flag :
         {&pApp->bRepairRunning, &pApp->bOverwriteOnce, &pApp->bRenameOnce, &pApp->bSaveCancelled, &pApp->bFolderRename,
          &pApp->bSkipCurrentFile, &pApp->bOverwriteAll, &pApp->bRenameAll, &pApp->bSkipAllFiles})
        setFlag(*flag, false);
    pApp->nFileSize = 0;
    jpg_repair().EmptyMemoryAllocation();
    for (QString *text : {&pApp->strFileName, &pApp->strCurrentPath, &pApp->strRepairedPath, &pApp->strThumb1Path,
                          &pApp->strThumb2Path, &pApp->strTempCopyPath, &pApp->strBuiltPath})
        text->clear();
}

void BrowseRepair::OnClickedBackBtn()
{
    pBackDlg->setWarning(unsavedText());
    pBackDlg->exec();
    if (pApp->strCloseAnswer != QLatin1String("YesBtn")) {
        pBackDlg->close();
        return;
    }
    ++m_run; // what a stopped worker still has to say finds nobody
    m_preview.cancel();
    pApp->bFirstScreen = false;
    pApp->bRepairScreen = false;
    pApp->bSampleRunState = false;
    pApp->bBackEnabled = false;
    pApp->bFileListActive = true;

    ui->Preview_Label->clear();
    lstRowButtons.clear();
    pApp->bBackRequested = true;
    m_details->showRow(nullptr);
    pResultTree->clear();
    ui->graphicsView->hide();
    ui->frame2->hide();
    ui->label_5->clear();
    ui->checkBox1->setEnabled(true);
    ui->label_2->setEnabled(true);
    ui->AddFilesBtn->show();
    ui->RemovFileBtn->setEnabled(true);
    pDropButton->setEnabled(true);
    showTitle(); // a stopped run that is left at once has no chance to do so
    ui->StartRepairFilesBtn->show();
    ui->StartRepairFilesBtn->setEnabled(true);
    pApp->bResultsPage = false;
    ui->frame->show();
    pFileList->setFocus();
    takeHandedOver();
    afterRun([this] {
        pApp->bHeicReferenceRepair = false;
        pApp->bReferenceRepair = false;
        pApp->lstResultNames.clear();
        pApp->nInvalidCount = 0;
        if (pApp->strTempDir.isEmpty()) return;
        removeWorkingFolders(); // they hold files as yet, and stay, to be emptied by the wipe
        // Overwriting hundreds of pictures takes its time.
        runAside([name = pApp->strTempDirName] { WipeFolder().WipeFile(name); });
    });
}

void BrowseRepair::wipeLeftovers(const QStringList &named)
{
    setOriginals(named);
    wipeScratchLeftovers();
    if (!QDir(workingFolder()).isEmpty()) runAside([] { WipeFolder().WipeFile(QStringLiteral("RepairedFiles")); });
}

void BrowseRepair::removeWorkingFolders()
{
    for (const char *folder : {"/HEIC_Repaired", "/Thumbnail Repaired", ""})
        QDir().rmdir(pApp->strTempDir + QLatin1String(folder));
}

void BrowseRepair::CloseProcess()
{
    close();
}

void BrowseRepair::closeEvent(QCloseEvent *event)
{
    if (!bCloseDialogOpen) {
        closeApp->setWarning(unsavedText());
        closeApp->exec();
        bCloseDialogOpen = true;
    }
    if (pApp->strCloseAnswer == QLatin1String("NoBtn")) {
        event->ignore();
        closeApp->close();
        bCloseDialogOpen = false;
        return;
    }
    if (pApp->strCloseAnswer != QLatin1String("YesBtn")) return;
    ++m_run;
    m_preview.cancel();
    // Nothing may be freed under a worker's hands, and no picture may be left behind by one that ends later.
    endWorker();
    m_afterRun.clear();
    emit leaving();
    hide(); // wiping may take a while
    if (!pApp->strTempDir.isEmpty()) {
        WipeFolder().WipeFile(pApp->strTempDirName);
        removeWorkingFolders();
    }
    pApp->nRepairOutputMode = 2;
    pApp->strTempDir.clear();
    resetRunFields();
    pApp->nResultCounter = 0;
    setFlag(pApp->bFileInProgress, false);
    event->accept();
}
