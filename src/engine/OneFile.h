// The road of one source file, for whoever drives a run: the window's worker and the batch program alike.
#pragma once

#include "engine/OutputNames.h"
#include "engine/RepairReport.h"

#include <QString>
#include <QStringList>

/// Status codes of a source row, as the results list holds them.
namespace status {
constexpr auto Unreached = "";
constexpr auto Stopped = "1";
constexpr auto Invalid = "2";
constexpr auto Sample = "3";
constexpr auto Output = "4";
constexpr auto Repaired = "5";
constexpr auto StoppedSample = "6";
constexpr auto Queued = "7";
} // namespace status

struct FileOutcome
{
    QString source;      ///< path as it was given
    QString suffix;      ///< its suffix as it stands in the name
    QString statusCode;  ///< Unreached, Stopped or Invalid: what the engine said before any row was made
    QStringList results; ///< `lstResultNames` as the engine left it
    RepairReport report;
};

/// Makes the working folder of a run below the working root, wipes what an earlier run left there, and resets the run
/// fields of `pApp`. `sources`, in their order, and `sample` are the run's originals, which nothing touches, wherever they
/// lie; what isn't named here becomes one when it is taken up. False if a folder can't be made or used.
bool beginRun(const QStringList &sources = {}, const QString &sample = {});

/// Suffixes, in upper case, that repairOneFile knows a way for.
const QStringList &repairableSuffixes();
/// True for a suffix, in any case, that repairOneFile takes for camera raw.
bool isRawSuffix(const QString &suffix);

/// Takes one file through dispatch, rebuild and the second way. Needs beginRun() before the first file of a run.
/// Leaves `lstResultNames` and `report` of `pApp` as they are handed back here. Never throws, never writes the source.
FileOutcome repairOneFile(const QString &path);

/// The name of a sample's result in the working folder.
enum class SampleName {
    Told,    ///< the source's working name, whatever stands there
    Further, ///< the next free one with the prefix "Copy(n)_", beside the picture that has the working name
    Better,  ///< the working name, once the result stands: a stop leaves what was there
};

/// Repairs a file with a healthy sample; `statusCode` is Invalid: a row of the output is what lifts it. A HEIC that comes
/// out as tiles alone is no result that gets a further name.
FileOutcome repairOneFileWithSample(const QString &samplePath, const QString &path, SampleName name = SampleName::Told);
