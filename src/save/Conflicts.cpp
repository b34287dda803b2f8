// Names that are taken at the destination: what to ask, and what the answers leave in pApp.
#include "save/SaveFile.h"

#include "app/KesmiraApp.h"
#include "engine/OutputNames.h"
#include "save/ConflictPrompt.h"
#include "save/FileCopy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString copyName(quint32 number, const QString &name)
{
    return QStringLiteral("Copy(%1)_%2").arg(number).arg(name);
}

bool isTaken(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// A name beside the file at `path`, whose kind decides on the folder, whatever the new name looks like.
QString beside(const QString &path, const QString &name)
{
    return path.left(path.lastIndexOf('/') + 1) + name;
}

/// A free name for the run folder; its numbers begin anew for every question, and the plain name is never proposed.
QString folderProposal()
{
    for (quint32 number = 1;; ++number) {
        const QString candidate = copyName(number, pApp->strDestFolderName);
        if (!isTaken(pApp->strDestRoot + "//" + candidate)) return candidate;
    }
}

QString fileProposal(const QString &path, const QString &name)
{
    QString candidate = name;
    for (quint32 number = 1; isTaken(beside(path, candidate)); ++number) candidate = copyName(number, name);
    return candidate;
}

void askAboutFolder(ConflictPrompt &prompt)
{
    pApp->bFolderRename = false;
    pApp->bSaveCancelled = false;
    const QString proposal = folderProposal();
    switch (prompt.folderExists(pApp->strDestFolderName, proposal)) {
    case FolderAnswer::Rename:
        pApp->bFolderRename = true;
        pApp->strDestFolderName = proposal;
        break;
    case FolderAnswer::Overwrite:
        pApp->bFolderRename = false;
        pApp->bFolderOverwrite = true;
        break;
    case FolderAnswer::Cancel:
    case FolderAnswer::Closed: pApp->bSaveCancelled = true; break;
    }
}

void askAboutFile(const QString &path, ConflictPrompt &prompt)
{
    // Answers for one file end where the next question begins.
    pApp->bOverwriteOnce = false;
    pApp->bRenameOnce = false;
    pApp->bSkipCurrentFile = false;
    QString newName = fileProposal(path, pApp->strConflictName);
    switch (prompt.fileExists(pApp->strConflictName, newName)) {
    case FileAnswer::Overwrite: pApp->bOverwriteOnce = true; break;
    case FileAnswer::Rename:
        pApp->strRenameTo = newName;
        pApp->bRenameOnce = true;
        break;
    case FileAnswer::Skip: pApp->bSkipCurrentFile = true; break;
    case FileAnswer::OverwriteAll: pApp->bOverwriteAll = true; break;
    case FileAnswer::RenameAll: pApp->bRenameAll = true; break;
    case FileAnswer::SkipAll:
        pApp->bSkipAllFiles = true;
        pApp->bSkipCurrentFile = true;
        break;
    case FileAnswer::Closed: pApp->bSaveCancelled = true; break;
    }
}

/// The next free name of the running number that all saves of the program share.
void takeNextCopyName(const QString &path)
{
    QString candidate = pApp->strConflictName;
    for (QString test = path; isTaken(test); test = beside(path, candidate)) {
        candidate = copyName(++pApp->nCopyCounter, pApp->strConflictName);
    }
    pApp->strConflictName = candidate;
}

} // namespace

QString freePathBeside(const QString &path)
{
    return beside(path, fileProposal(path, path.mid(path.lastIndexOf('/') + 1)));
}

bool SaveFile::SaveTree(const QString &folder, ConflictPrompt &prompt)
{
    if (!QFileInfo(folder).isDir()) {
        QDir().mkdir(folder);
        return true;
    }
    askAboutFolder(prompt);
    if (!pApp->bSaveCancelled) {
        pApp->strDestPath = pApp->strDestRoot + "//" + pApp->strDestFolderName + "//";
        QDir().mkdir(pApp->strDestPath);
    }
    return true;
}

QString SaveFile::CheckForFile_FolderNAME(const QString &path, ConflictPrompt &prompt)
{
    if (!isTaken(path)) return path;
    if (!pApp->bOverwriteAll && !pApp->bRenameAll && !pApp->bSkipAllFiles) askAboutFile(path, prompt);

    if (pApp->bSkipAllFiles || pApp->bSkipCurrentFile || pApp->bSaveCancelled) return {};
    if (pApp->bRenameOnce) {
        pApp->strConflictName = pApp->strRenameTo;
        return beside(path, pApp->strConflictName);
    }
    if (pApp->bOverwriteOnce || pApp->bOverwriteAll) return beside(path, pApp->strConflictName);
    if (!pApp->bRenameAll) return path;
    takeNextCopyName(path);
    return beside(path, pApp->strConflictName);
}
