// Saving the checked rows to a folder of the user's.
#include "app/KesmiraApp.h"
#include "desktop/FileChooser.h"
#include "desktop/platform/Platform.h"
#include "dialogs/DialogPrompt.h"
#include "dialogs/MessageBox.h"
#include "dialogs/SavingFinishDlg.h"
#include "engine/OneFile.h"
#include "save/Destination.h"
#include "window/BrowseRepair.h"
#include "window/MyTreeWidget.h"
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
    if (!CheckSizeOnDisk()) return;
    CopyFileNew();
    if (pApp->nSavedCount == 0) return;
    SavingFinishDlg(this, folder + '/' + pApp->strDestFolderName, m_shortfall).exec();
}

/// What a save left undone, for a person; "" where every file was written.
static QString shortfallText(const SaveOutcome &outcome)
{
    constexpr int kMostLines = 8;
    QStringList lines;
    int saved = 0;
    for (const SavedRow &row : outcome.rows) {
        if (row.result == SaveResult::Saved) ++saved;
        if (row.result == SaveResult::Skipped) lines << BrowseRepair::tr("%1: skipped").arg(row.name);
        if (row.result == SaveResult::Failed) lines << row.name + QLatin1String(": ") + row.error;
    }
    if (lines.isEmpty()) return {};
    const int more = lines.size() - kMostLines;
    if (more > 0) lines = lines.mid(0, kMostLines) << QStringLiteral("... (+%1)").arg(more);
    lines.prepend(BrowseRepair::tr("%1 of %2 files were saved.").arg(saved).arg(outcome.rows.size()));
    return lines.join('\n');
}

QString BrowseRepair::unsavedText() const
{
    int unsaved = 0;
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it)
        if ((*it)->text(column::Status) == QLatin1String(status::Output)
            && !(*it)->data(column::Name, kSavedRole).toBool())
            ++unsaved;
    return unsaved == 0 ? QString() : tr("Results that have not been saved and would be lost: %1").arg(unsaved);
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
    QList<QTreeWidgetItem *> items;
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        if ((*it)->checkState(column::Name) != Qt::Checked || (*it)->isHidden()) continue;
        names << (*it)->text(column::Name);
        items << *it;
    }

    QApplication::setOverrideCursor(Qt::BusyCursor);
    DialogPrompt prompt(this);
    const SaveOutcome outcome = copyOutputs(names, prompt);
    QApplication::restoreOverrideCursor();
    if (!outcome.error.isEmpty()) {
        showRefusal(readOnlyDestinationText()); // the folder has vanished; the rows keep their marks
        return true;
    }

    // Rows that were hidden lose their mark too, though they were not copied; those that failed keep it.
    QSet<QTreeWidgetItem *> failed;
    for (int i = 0; i < outcome.rows.size(); ++i) {
        if (outcome.rows[i].result == SaveResult::Saved) items[i]->setData(column::Name, kSavedRole, true);
        if (outcome.rows[i].result == SaveResult::Failed) failed.insert(items[i]);
    }
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it)
        if ((*it)->checkState(column::Name) == Qt::Checked && !failed.contains(*it))
            (*it)->setCheckState(column::Name, Qt::Unchecked);
    m_shortfall = shortfallText(outcome);
    ui->checkBox1_2->setCheckState(failed.isEmpty() ? Qt::Unchecked : Qt::PartiallyChecked);
    ui->SaveRepairBtn_2->setEnabled(!failed.isEmpty());
    ui->SaveRepairBtn_2->show();
    return true;
}
