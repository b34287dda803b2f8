// Copies chosen outputs of a run from the working folder to a folder of the user's, under the fixed layout of a run folder.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

class ConflictPrompt;

enum class SaveResult {
    Saved,
    Skipped,
    Identical, ///< skipped, as the file that stands there has the same bytes
    Failed,
};

/// What became of one output.
struct SavedRow
{
    QString name;
    SaveResult result = SaveResult::Failed;
    QString target{};            ///< where it was written; empty unless that was tried to its end
    QString error{};             ///< one line; empty unless failed
    bool cameraData = false;     ///< the camera's data were put into the copy
    bool sparesOriginal = false; ///< saved under another name, as a file that the run was given has the one wanted
};

/// Output's name -> the damaged file whose camera data its saved copy gets; see save/CameraData.h.
using CameraSources = QHash<QString, QString>;

struct SaveOutcome
{
    QString error;          ///< one line why nothing could be saved, else empty
    bool cancelled = false; ///< a question was answered with Cancel, or closed; what stood behind it has failed
    QString folder;         ///< the folder that holds the results' layout, without trailing "/"
    QVector<SavedRow> rows; ///< in the order of the names
};

/// True if an output of this name may get the camera's data of the file `sourcePath`: both are JPEGs by their names, and
/// it is no thumbnail. What a raw file holds keeps its own, and a HEIC isn't touched.
bool takesCameraData(const QString &name, const QString &sourcePath);

/// "" if results may be saved below `folder`, else one line why not. A folder that doesn't exist yet may.
QString destinationProblem(const QString &folder);

/// Saves the outputs `names` of the current run below `folder`, an existing one: FOLDER/RepairedFiles/ for main images,
/// and below that "Thumbnail Repaired/" and "HEIC_Repaired/". Asks `prompt` where the run folder exists, and, once that
/// was answered with Overwrite, for each file that exists. A copy comes whole or not at all, never takes the place of a
/// file that the run was given, and has the permissions of the file that it was made from. Takes the three steps below.
SaveOutcome saveOutputs(const QString &folder, const QStringList &names, ConflictPrompt &prompt,
                        const CameraSources &cameraSources = {});

/// First step: takes the destination over and resets the answers to conflicts and `nSavedCount` of `pApp`.
void beginSave(const QString &folder);
/// Second: makes the run folder, or asks about one that exists. False if the user has cancelled.
bool settleRunFolder(ConflictPrompt &prompt);
/// Third: copies out of the working folder `workDir`, which ends in "/". Leaves the answers in `pApp`; `nSavedCount` counts every row that was handled, skipped ones too.
SaveOutcome copyOutputs(const QString &workDir, const QStringList &names, ConflictPrompt &prompt,
                        const CameraSources &cameraSources = {});
