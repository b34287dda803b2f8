// Saving the checked rows to a folder of the user's.
#include "app/KesmiraApp.h"
#include "desktop/FileChooser.h"
#include "desktop/platform/Platform.h"
#include "dialogs/CloseApplicationDlg.h"
#include "dialogs/DialogPrompt.h"
#include "dialogs/MessageBox.h"
#include "dialogs/SavingFinishDlg.h"
#include "engine/OneFile.h"
#include "save/Destination.h"
#include "window/BrowseRepair.h"
#include "window/Globals.h"
#include "window/MyTreeWidget.h"
#include "window/SaveReport.h"
#include "window/ui_BrowseRepairObj.h"

#include <QApplication>
#include <QSet>

namespace {

/// On the name of an output row: it lies at a destination by now.
constexpr int kSavedRole = Qt::UserRole + 1;

} // namespace

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
    CheckSizeOnDisk();
    if (pApp->bSaveCancelled || pApp->bSkipCurrentFile) return;
    CopyFileNew();
    if (pApp->nSavedCount == 0) return;
    SavingFinishDlg(this, folder + '/' + pApp->strDestFolderName, m_savingReport).exec();
}

QString BrowseRepair::unsavedText() const
{
    QSet<QString> unsaved; // by name: a second try replaces what the first one gave
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it)
        if ((*it)->parent() && !(*it)->data(column::Name, kSavedRole).toBool())
            unsaved.insert((*it)->text(column::Name));
    return unsaved.isEmpty() ? QString()
                             : tr("Results that have not been saved and would be lost: %1").arg(unsaved.size());
}

bool BrowseRepair::mayLeaveUnsaved()
{
    const QString warning = unsavedText();
    if (warning.isEmpty()) return true;
    closeApp->setWarning(warning);
    return closeApp->exec() == QDialog::Accepted;
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
    settleRunFolder(prompt);
    return true;
}

void BrowseRepair::CopyFileNew()
{
    DirCopy(pApp->strTempDir);
}

bool BrowseRepair::DirCopy(const QString &workDir)
{
    QStringList names;
    QList<QTreeWidgetItem *> items;
    CameraSources cameraSources;
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        if ((*it)->checkState(column::Name) != Qt::Checked || (*it)->isHidden()) continue;
        const QString name = (*it)->text(column::Name);
        names << name;
        items << *it;
        const QString source = (*it)->parent() ? (*it)->parent()->text(column::Path) : QString();
        if (takesCameraData(name, source)) cameraSources.insert(name, source);
    }

    QApplication::setOverrideCursor(Qt::BusyCursor);
    DialogPrompt prompt(this);
    const SaveOutcome outcome =
        copyOutputs(workDir, names, prompt, pApp->bCameraData ? cameraSources : CameraSources());
    QApplication::restoreOverrideCursor();
    if (!outcome.error.isEmpty()) {
        showRefusal(outcome.error); // nothing was copied, and the rows keep their marks
        return true;
    }
    m_savingReport = savingReport(outcome, cameraSources);
    markSaved(outcome.rows, items);
    return true;
}

void BrowseRepair::markSaved(const QVector<SavedRow> &rows, const QList<QTreeWidgetItem *> &items)
{
    // Rows that were hidden lose their mark too, though they were not copied; those that failed keep it.
    QSet<QTreeWidgetItem *> failed;
    for (int i = 0; i < rows.size(); ++i) {
        const bool isThere = rows[i].result == SaveResult::Saved || rows[i].result == SaveResult::Identical;
        if (isThere) items[i]->setData(column::Name, kSavedRole, true);
        if (rows[i].result == SaveResult::Failed) failed.insert(items[i]);
    }
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it)
        if ((*it)->checkState(column::Name) == Qt::Checked && !failed.contains(*it))
            (*it)->setCheckState(column::Name, Qt::Unchecked);
    ui->checkBox1_2->setCheckState(failed.isEmpty() ? Qt::Unchecked : Qt::PartiallyChecked);
    ui->SaveRepairBtn_2->setEnabled(!failed.isEmpty());
    ui->SaveRepairBtn_2->show();
}
