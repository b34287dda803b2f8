// Saving the checked rows to a folder of the user's.
#include "app/KesmiraApp.h"
#include "desktop/FileChooser.h"
#include "desktop/platform/Platform.h"
#include "dialogs/DialogPrompt.h"
#include "dialogs/MessageBox.h"
#include "dialogs/SavingFinishDlg.h"
#include "save/Destination.h"
#include "window/BrowseRepair.h"
#include "window/MyTreeWidget.h"
#include "window/ui_BrowseRepairObj.h"

#include <QApplication>

void BrowseRepair::SaveImage()
{
    const QString folder = fileChooser().chooseFolder(this, tr("Select Folder"), QStringLiteral("/root"));
    if (folder.isEmpty()) return;
    const quint64 run = m_run;
    // A stopped worker may be in its last decode; the fields of saving are its own until it has left.
    afterRun([this, folder, run] {
        if (run == m_run) saveTo(folder);
    });
}

void BrowseRepair::saveTo(const QString &folder)
{
    const QString refusal = platform().destinationRefusal(folder);
    if (!refusal.isEmpty()) {
        showRefusal(refusal);
        return;
    }
    beginSave(folder);
    if (!CheckSizeOnDisk()) return;
    CopyFileNew();
    if (pApp->nSavedCount == 0) return;
    SavingFinishDlg(this, folder + '/' + pApp->strDestFolderName).exec();
}

void BrowseRepair::showRefusal(const QString &text)
{
    pMessageBox->setPicture(QStringLiteral(":/res/info.png"));
    pMessageBox->setText(text);
    pMessageBox->exec();
}

bool BrowseRepair::CheckSizeOnDisk()
{
    DialogPrompt prompt(this);
    return settleRunFolder(prompt);
}

void BrowseRepair::CopyFileNew()
{
    DirCopy(pApp->strTempDir);
}

bool BrowseRepair::DirCopy(const QString &)
{
    QStringList names;
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it)
        if ((*it)->checkState(column::Name) == Qt::Checked && !(*it)->isHidden()) names << (*it)->text(column::Name);

    QApplication::setOverrideCursor(Qt::BusyCursor);
    DialogPrompt prompt(this);
    const SaveOutcome outcome = copyOutputs(names, prompt);
    QApplication::restoreOverrideCursor();
    if (!outcome.error.isEmpty()) {
        showRefusal(readOnlyDestinationText()); // the folder has vanished; the rows keep their marks
        return true;
    }

    // Rows that were hidden lose their mark too, though they were not copied.
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it)
        if ((*it)->checkState(column::Name) == Qt::Checked) (*it)->setCheckState(column::Name, Qt::Unchecked);
    ui->checkBox1_2->setCheckState(Qt::Unchecked);
    ui->SaveRepairBtn_2->setEnabled(false);
    ui->SaveRepairBtn_2->show();
    return true;
}
