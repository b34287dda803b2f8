#include "save/Destination.h"

#include "app/KesmiraApp.h"
#include "app/Originals.h"
#include "app/WorkingRoot.h"
#include "engine/OutputRows.h"
#include "save/CameraData.h"
#include "save/FileCopy.h"
#include "save/SaveFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>

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

/// One save on its way.
struct Saving
{
    QString base; ///< the run folder at the destination, with a trailing "/"
    ConflictPrompt &prompt;
    QSet<QString> written{}; ///< paths of what this save has written, in lower case: a card may know no other
};

struct Target
{
    QString path;  ///< "" if the output is skipped, the save was called off or its new name can't be one
    QString error; ///< of the last of these
    bool replaces = false;
    bool sparesOriginal = false; ///< another name than the one asked for, as an original has that
};

/// Settles where an output goes. A typed name that is taken too is asked about in its turn. Neither a file that the run
/// was given nor one that this save has written is ever replaced: the output gets the next free name.
Target settleTarget(const QString &wanted, const Saving &saving)
{
    Target target{wanted, {}};
    const auto isTaken = [&target] { return QFileInfo::exists(target.path) || QFileInfo(target.path).isSymLink(); };
    while (pApp->bFolderOverwrite && isTaken()) {
        target.path = SaveFile().CheckForFile_FolderNAME(target.path, saving.prompt);
        if (target.path.isEmpty()) return target;
        if (!isFileName(pApp->strConflictName)) {
            target.error = say(QT_TRANSLATE_NOOP("Saving", "'%1' can't be a file's name")).arg(pApp->strConflictName);
            target.path.clear();
            return target;
        }
        target.replaces = pApp->bOverwriteAll || pApp->bOverwriteOnce;
        if (!pApp->bRenameOnce) break;
    }
    if (!isTaken()) return target;
    target.sparesOriginal = isOriginal(target.path);
    if (!target.replaces || target.sparesOriginal || saving.written.contains(target.path.toLower())) {
        target.path = freePathBeside(target.path);
        target.replaces = false;
    }
    return target;
}

/// Permissions for the copy of an output: those of the file that it was made from, so that what was private stays so.
mode_t modeOfCopy(const QString &name)
{
    constexpr mode_t kOwn = 0600;
    constexpr mode_t kAll = 0666;
    struct stat info = {};
    const QString source = sourceOfOutput(name);
    if (source.isEmpty() || ::stat(QFile::encodeName(source).constData(), &info) != 0) return kAll;
    return (info.st_mode & kAll) | kOwn;
}

/// Another run may take a name between the look at it and the copy; then the next one is tried.
int copyTo(Target &target, const CopySource &copy, const QString &wanted, const Saving &saving)
{
    int error = EEXIST;
    for (int tries = 0; error == EEXIST && !target.path.isEmpty() && tries < 1000; ++tries) {
        if (tries > 0) target = settleTarget(wanted, saving);
        if (target.path.isEmpty()) break;
        error = target.replaces ? replaceByCopy(copy, target.path) : copyToNewFile(copy, target.path);
    }
    return error;
}

SavedRow saveOne(const QString &name, Saving &saving, const QString &cameraSource)
{
    SavedRow row;
    row.name = name;
    pApp->strConflictName = name;
    const QString wanted = saving.base + destinationPlace(name);
    const QString source = outputPath(name);
    ++pApp->nSavedCount;
    if (source.isEmpty() || QFileInfo(source).size() == 0) {
        row.error = source.isEmpty()
            ? say(QT_TRANSLATE_NOOP("Saving", "the repaired file is gone from the working folder"))
            : say(QT_TRANSLATE_NOOP("Saving", "the repaired file is empty"));
        return row;
    }
    const InsertedBytes data = cameraSource.isEmpty() ? InsertedBytes() : cameraDataOfFiles(source, cameraSource);
    const CopySource copy{source, data, modeOfCopy(name)};
    Target target = settleTarget(wanted, saving);
    const int error = copyTo(target, copy, wanted, saving);
    row.error = target.error;
    if (pApp->bSaveCancelled)
        row.error = say(QT_TRANSLATE_NOOP("Saving", "the question about it was closed without an answer"));
    if (!row.error.isEmpty()) return row;
    if (target.path.isEmpty()) {
        row.result = isCopy(copy, wanted) ? SaveResult::Identical : SaveResult::Skipped;
        return row;
    }
    row.error = copyProblem(target.path, error);
    if (!row.error.isEmpty()) return row;
    saving.written.insert(target.path.toLower());
    row.result = SaveResult::Saved;
    row.target = target.path;
    row.sparesOriginal = target.sparesOriginal;
    row.cameraData = !data.bytes.isEmpty();
    return row;
}

/// Makes the new names last. What a failing medium may lose has not been saved.
void syncFolders(SaveOutcome &outcome)
{
    QHash<QString, int> errors;
    for (SavedRow &row : outcome.rows) {
        if (row.result != SaveResult::Saved) continue;
        const QString folder = row.target.left(row.target.lastIndexOf('/'));
        if (!errors.contains(folder)) errors.insert(folder, syncFolder(folder));
        if (errors[folder] == 0) continue;
        row.result = SaveResult::Failed;
        row.error = copyProblem(row.target, errors[folder]);
    }
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
    for (const char *below : {"", "Thumbnail Repaired", "HEIC_Repaired"}) removeLeftParts(base + below);
    Saving saving{base, prompt};
    for (const QString &name : names) {
        if (!pApp->bSaveCancelled)
            outcome.rows.append(saveOne(name, saving, cameraSources.value(name)));
        else
            outcome.rows.append(
                {name, SaveResult::Failed, {}, say(QT_TRANSLATE_NOOP("Saving", "the save was called off before it"))});
    }
    syncFolders(outcome);
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
