#include "dialogs/DialogPrompt.h"

#include "dialogs/AlreadyExistFileDlg.h"
#include "dialogs/FolderExist.h"

#include <QGuiApplication>

namespace {

void execWithArrow(QDialog &dialog)
{
    const bool busy = QGuiApplication::overrideCursor() != nullptr;
    if (busy) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    dialog.exec();
    if (busy) QGuiApplication::restoreOverrideCursor();
}

} // namespace

FolderAnswer DialogPrompt::folderExists(const QString &name, const QString &proposal)
{
    FolderExist dialog(m_parent);
    dialog.Init(name, proposal);
    execWithArrow(dialog);
    return dialog.answer();
}

FileAnswer DialogPrompt::fileExists(const QString &name, QString &newName)
{
    AlreadyExistFileDlg dialog(m_parent);
    dialog.InitStart(name, newName);
    execWithArrow(dialog);
    newName = dialog.newName();
    return dialog.answer();
}
