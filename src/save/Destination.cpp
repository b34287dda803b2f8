#include "save/Destination.h"

#include "app/KesmiraApp.h"
#include "app/WorkingRoot.h"
#include "engine/OutputRows.h"
#include "save/CameraData.h"
#include "save/FileCopy.h"
#include "save/SaveFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>

namespace {

const QLatin1String kThumbnailFolder("Thumbnail Repaired/");
const QLatin1String kHeicFolder("HEIC_Repaired/");

QString say(const char *text)
{
    return QCoreApplication::translate("Saving", text);
}

/// The path without links, also where its last parts don't exist yet.
QString resolvedPath(const QString &path)
{
    QString existing = QDir(path).absolutePath();
    QString rest;
    while (!QFileInfo::exists(existing) && existing != "/") {
        const int slash = existing.lastIndexOf('/');
        rest.prepend(existing.mid(slash));
        existing = slash > 0 ? existing.left(slash) : QStringLiteral("/");
    }
    const QString resolved = QFileInfo(existing).canonicalFilePath();
    return resolved == "/" && !rest.isEmpty() ? rest : resolved + rest;
}

/// Makes the folders of the layout and returns the one of the main images, with a trailing "/".
QString makeLayout(const QString &workDir)
{
    const QString leaf = QDir(workDir).dirName();
    const QString base = (pApp->strSaveFolder == "/" ? QString() : pApp->strSaveFolder) + '/' + leaf + '/';
    if (pApp->bFolderRename) {
        pApp->strDestPath = pApp->strSaveFolder;
        QDir().mkdir(pApp->strDestPath);
        QDir().mkdir(base);
    }
    if (QFileInfo(workDir + kHeicFolder).isDir()) QDir().mkdir(base + kHeicFolder);
    QDir().mkdir(base + kThumbnailFolder);
    return base;
}

/// False for a text that a person may type as a new name but that would lead to another folder or to none.
bool isFileName(const QString &name)
{
    return !name.isEmpty() && name != "." && name != ".." && !name.contains('/') && !name.contains(QChar(0));
}

/// The path to write an output to, "" if it is skipped, the save was called off or its new name can't be one (then with
/// `error`). A typed name that is taken too is asked about in its turn.
QString settleTarget(const QString &target, ConflictPrompt &prompt, QString &error)
{
    QString settled = target;
    const auto isTaken = [&settled] { return QFileInfo::exists(settled) || QFileInfo(settled).isSymLink(); };
    while (pApp->bFolderOverwrite && isTaken()) {
        settled = SaveFile().CheckForFile_FolderNAME(settled, prompt);
        if (settled.isEmpty()) return {};
        if (!isFileName(pApp->strConflictName)) {
            error = say(QT_TRANSLATE_NOOP("Saving", "'%1' can't be a file's name")).arg(pApp->strConflictName);
            return {};
        }
        if (!pApp->bRenameOnce) break;
    }
    return settled;
}

SavedRow saveOne(const QString &name, const QString &base, ConflictPrompt &prompt, const QString &cameraSource)
{
    SavedRow row;
    row.name = name;
    pApp->strConflictName = name;
    const QString place = destinationPlace(name);
    const QString source = outputPath(name);
    const QString target = settleTarget(base + place, prompt, row.error);
    ++pApp->nSavedCount;
    if (pApp->bSaveCancelled)
        row.error = say(QT_TRANSLATE_NOOP("Saving", "the question about it was closed without an answer"));
    if (!row.error.isEmpty()) return row;
    const InsertedBytes data = cameraSource.isEmpty() ? InsertedBytes() : cameraDataOfFiles(source, cameraSource);
    if (target.isEmpty()) {
        const bool same = isCopy(source, base + place, data);
        row.result = same ? SaveResult::Identical : SaveResult::Skipped;
        return row;
    }
    if (source.isEmpty()) {
        row.error = say(QT_TRANSLATE_NOOP("Saving", "the repaired file is gone from the working folder"));
        return row;
    }
    const bool replaces = pApp->bOverwriteAll || pApp->bOverwriteOnce;
    row.error = replaces ? replaceByCopy(source, target, data) : copyToNewFile(source, target, data);
    if (!row.error.isEmpty()) return row;
    row.result = SaveResult::Saved;
    row.target = target;
    row.cameraData = !data.bytes.isEmpty();
    return row;
}

bool isJpegName(const QString &name)
{
    const QString suffix = QFileInfo(name).suffix().toUpper();
    return suffix == QLatin1String("JPG") || suffix == QLatin1String("JPEG");
}

/// Why there is no folder at `path`, which was to be made just now.
QString missingFolderProblem(const QString &path)
{
    int error = ENOENT;
    if (::mkdir(QFile::encodeName(path).constData(), 0777) != 0) error = errno;
    const QString reason =
        error == EEXIST ? say(QT_TRANSLATE_NOOP("Saving", "a file has its name")) : writeProblem(error);
    return say(QT_TRANSLATE_NOOP("Saving", "the folder '%1' can't be made: %2")).arg(path, reason);
}

} // namespace

bool takesCameraData(const QString &name, const QString &sourcePath)
{
    return isJpegName(name) && isJpegName(sourcePath) && !isThumbnailName(name);
}

QString destinationProblem(const QString &folder)
{
    const QFileInfo info(folder);
    if (info.exists() && !info.isDir())
        return say(QT_TRANSLATE_NOOP("Saving", "the destination '%1' is not a folder")).arg(folder);
    // The next run wipes what lies there.
    const QString root = resolvedPath(workingRoot());
    const QString resolved = resolvedPath(folder);
    if (resolved == root || resolved.startsWith(root == "/" ? root : root + '/')) {
        return say(QT_TRANSLATE_NOOP("Saving", "the destination '%1' lies inside the program's working folder"))
            .arg(folder);
    }
    return {};
}

void beginSave(const QString &folder)
{
    pApp->strSaveFolder = folder;
    pApp->strDestRoot = folder;
    pApp->nSavedCount = 0;
    for (bool *flag :
         {&pApp->bOverwriteOnce, &pApp->bRenameOnce, &pApp->bSkipCurrentFile, &pApp->bOverwriteAll, &pApp->bRenameAll,
          &pApp->bSkipAllFiles, &pApp->bSaveCancelled, &pApp->bFolderRename, &pApp->bFolderOverwrite}) {
        *flag = false;
    }
}

bool settleRunFolder(ConflictPrompt &prompt)
{
    pApp->strDestFolderName = pApp->strTempDirName;
    pApp->strDestPath = pApp->strDestRoot + '/' + pApp->strDestFolderName + '/';
    SaveFile().SaveTree(pApp->strDestPath, prompt);
    pApp->nFileSize = 0;
    if (pApp->bSaveCancelled || pApp->bSkipCurrentFile) return false;
    if (pApp->bFolderRename) pApp->strSaveFolder += '/' + pApp->strDestFolderName;
    return true;
}

SaveOutcome copyOutputs(const QString &workDir, const QStringList &names, ConflictPrompt &prompt,
                        const CameraSources &cameraSources)
{
    SaveOutcome outcome;
    const QString base = makeLayout(workDir);
    outcome.folder = base.left(base.size() - 1);
    if (!QFileInfo(base).isDir()) {
        outcome.error = missingFolderProblem(outcome.folder);
        return outcome;
    }
    for (const QString &name : names) {
        if (!pApp->bSaveCancelled)
            outcome.rows.append(saveOne(name, base, prompt, cameraSources.value(name)));
        else
            outcome.rows.append({name,
                                 SaveResult::Failed,
                                 {},
                                 say(QT_TRANSLATE_NOOP("Saving", "the save was called off before it")),
                                 false});
    }
    pApp->bFolderOverwrite = false;
    outcome.cancelled = pApp->bSaveCancelled;
    return outcome;
}

SaveOutcome saveOutputs(const QString &folder, const QStringList &names, ConflictPrompt &prompt,
                        const CameraSources &cameraSources)
{
    SaveOutcome outcome;
    beginSave(folder);
    if (folder.isEmpty()) {
        outcome.cancelled = true;
        return outcome;
    }
    outcome.error = destinationProblem(folder);
    if (!outcome.error.isEmpty()) return outcome;
    if (!settleRunFolder(prompt)) {
        outcome.cancelled = true;
        return outcome;
    }
    return copyOutputs(pApp->strTempDir, names, prompt, cameraSources);
}
