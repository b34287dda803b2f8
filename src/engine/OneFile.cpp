#include "engine/OneFile.h"

#include "app/Originals.h"
#include "app/StopFlag.h"
#include "app/WorkingRoot.h"
#include "engine/Judge.h"
#include "engine/MediumFaults.h"
#include "engine/OutputRows.h"
#include "engine/SourceJudge.h"
#include "engine/Wholeness.h"
#include "engine/heic/HeicRoad.h"
#include "engine/jpg_repair.h"
#include "save/SaveFile.h"
#include "save/ScratchFile.h"
#include "save/ScratchFolder.h"
#include "save/WipeFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <new>

namespace {

/// Offsets are kept in 32 bits, and the bytes of a scan in 31.
constexpr qint64 kFileLimit = qint64(1) << 32;
constexpr qint64 kScanLimit = qint64(1) << 31;

bool isJpeg(const QString &suffix)
{
    return suffix.compare(QLatin1String("JPG"), Qt::CaseInsensitive) == 0
        || suffix.compare(QLatin1String("JPEG"), Qt::CaseInsensitive) == 0;
}

void forgetRecords()
{
    while (pApp->pRepairedHead) {
        pApp->pRepairedNext = pApp->pRepairedHead->pNextResult;
        delete pApp->pRepairedHead;
        pApp->pRepairedHead = pApp->pRepairedNext;
    }
    pApp->pRepairedNext = nullptr;
}

void takeUp(const QString &path, FileOutcome &outcome)
{
    addOriginal(path);
    watchMedium(path);
    outcome.source = path;
    outcome.suffix = QFileInfo(path).suffix();
    pApp->strCurrentPath = path;
    pApp->strFileSuffix = outcome.suffix;
    pApp->lstResultNames.clear();
    pApp->report = RepairReport();
    pApp->strFileName = workingName(path);
}

bool workingFolderUsable()
{
    const QFileInfo folder(pApp->strTempDir);
    return folder.isDir() && folder.isWritable();
}

/// What a person should be told where nothing came out.
RepairReason reasonFor(const QString &path)
{
    const RepairReport &report = pApp->report;
    if (stopRequested()) return RepairReason::Stopped;
    if (!pApp->lstResultNames.isEmpty())
        return report.reason == RepairReason::DiskFull || report.reason == RepairReason::SampleUnfit
            ? report.reason
            : RepairReason::None;
    if (report.reason != RepairReason::None) return report.reason;
    // What vanishes while it is in use must not be taken for a picture that doesn't decode.
    if (!QFileInfo::exists(path)) return RepairReason::Unreadable;
    if (!workingFolderUsable()) return RepairReason::DiskFull;
    if (!isJpeg(QFileInfo(path).suffix())) return RepairReason::NoPreview;
    if (QFileInfo(path).size() >= kScanLimit) return RepairReason::TooLarge;
    if (report.headerBroken) return RepairReason::HeaderLost;
    return report.decoderRefused ? RepairReason::DecoderRefused : RepairReason::HeaderLost;
}

/// Copies that were cut to another length than the file that the judge has seen.
void judgeTheRest()
{
    for (OutputReport &output : pApp->report.outputs) {
        if (output.size.isValid() || isHeicName(output.name) || stopRequested()) continue;
        const Verdict verdict = judgeJpeg(output.path);
        output.size = verdict.size;
        output.icon = verdict.icon;
        output.wholeness = wholenessOf(output.path, verdict);
    }
}

/// Where a raw file's pictures lie is known, and so what of each was refused; of the others all of the file counts.
void countRefused(const QString &path)
{
    pApp->report.unreadableBytes = qint64(refusedBytes());
    const auto size = quint64(QFileInfo(path).size());
    for (OutputReport &output : pApp->report.outputs) {
        const bool raw = output.way == RepairWay::Pointers || output.way == RepairWay::Carve;
        if (!raw && !isThumbnailName(output.name)) lessen(output.wholeness, refusedBytes(), size);
    }
}

void conclude(FileOutcome &outcome)
{
    judgeTheRest();
    countRefused(outcome.source);
    pApp->report.reason = reasonFor(outcome.source);
    judgeSource(outcome.source, pApp->lstResultNames.isEmpty(), pApp->report);
    outcome.results = pApp->lstResultNames;
    outcome.report = pApp->report;
    if (stopRequested()) outcome.statusCode = QLatin1String(status::Stopped);
}

/// Puts a result in the place of what stands under the source's own name.
void moveTo(const QString &name, FileOutcome &outcome)
{
    OutputReport &output = outcome.report.outputs.first();
    const QString target = QFileInfo(output.path).path() + QLatin1Char('/') + name;
    if (std::rename(QFile::encodeName(output.path).constData(), QFile::encodeName(target).constData()) != 0) return;
    output.name = name;
    output.path = target;
    outcome.results = QStringList{name};
}

/// A file that needs more memory than there is costs itself and not the run. What it has left half done is let go.
void giveUp(FileOutcome &outcome)
{
    wipeScratchFolder();
    for (const QString &name : qAsConst(pApp->lstResultNames)) dropFile(outputPath(name));
    pApp->lstResultNames.clear();
    jpg_repair().abandon();
    outcome.statusCode = QLatin1String(stopRequested() ? status::Stopped : status::Invalid);
    outcome.report = RepairReport();
    outcome.report.reason = stopRequested() ? RepairReason::Stopped : RepairReason::TooLarge;
}

void repairTakenUpWithSample(const QString &samplePath, const QString &path, FileOutcome &outcome)
{
    pApp->strSamplePath = samplePath;
    if (!isHeicName(path)) {
        jpg_repair().ScanRefFile(samplePath, path);
    } else if (QFileInfo(path).size() >= kFileLimit) {
        pApp->report.reason = RepairReason::TooLarge;
    } else {
        jpg_repair engine;
        repairHeicWithSample(engine, samplePath, path);
    }
    conclude(outcome);
    RepairReason &reason = outcome.report.reason;
    if (reason == RepairReason::HeaderLost || reason == RepairReason::DecoderRefused)
        reason = RepairReason::SampleUnfit;
}

FileOutcome repairWithSample(const QString &samplePath, const QString &path)
{
    FileOutcome outcome;
    outcome.statusCode = QLatin1String(status::Invalid);
    try {
        addOriginal(samplePath);
        takeUp(path, outcome);
        repairTakenUpWithSample(samplePath, path, outcome);
    } catch (const std::bad_alloc &) {
        giveUp(outcome);
    }
    return outcome;
}

void repairTakenUp(const QString &path, FileOutcome &outcome)
{
    const qint64 size = QFileInfo(path).size();
    const bool known = repairableSuffixes().contains(outcome.suffix.toUpper());
    if (!known)
        pApp->report.reason = RepairReason::OtherFormat;
    else if (size >= kFileLimit)
        pApp->report.reason = RepairReason::TooLarge;

    if (known && size < kFileLimit && !stopRequested()) {
        jpg_repair engine;
        const bool heic = isHeicName(path);
        if (heic)
            outcome.statusCode = repairHeic(engine, path);
        else
            engine.repairing(path);
        if (!heic && !stopRequested() && pApp->nInvalidCount == 1 && isJpeg(outcome.suffix)
            && !engine.reRepairing(path))
            outcome.statusCode = QLatin1String(status::Invalid);
    }
    pApp->nInvalidCount = 0;
    conclude(outcome);
}

} // namespace

bool beginRun(const QStringList &sources, const QString &sample)
{
    setOriginals(sample.isEmpty() ? sources : sources + QStringList(sample));
    for (bool *flag : {&pApp->bRepairRunning, &pApp->bOverwriteOnce, &pApp->bRenameOnce, &pApp->bStopRepair,
                       &pApp->bSkipCurrentFile, &pApp->bOverwriteAll, &pApp->bRenameAll, &pApp->bSkipAllFiles,
                       &pApp->bSaveCancelled, &pApp->bFolderRename, &pApp->bFileInProgress, &pApp->bFileListActive})
        setFlag(*flag, false);
    pApp->nResultCounter = 0;
    pApp->nFileSize = 0;
    pApp->nInvalidCount = 0;
    pApp->nRepairOutputMode = 2;

    pApp->strTempDirName = QStringLiteral("RepairedFiles");
    pApp->strTempDir = workingFolder();
    QDir().mkdir(pApp->strTempDir);
    WipeFolder().WipeFile(QStringLiteral("RepairedFiles"));
    // The folder's name has a blank, so this finds nothing; the call above has been through it already.
    WipeFolder().WipeFile(QStringLiteral("RepairedFiles/Thumbnail_Repaired/"));
    forgetRecords();
    // Within a run a CR3 may list those of an earlier one again; those of an earlier run have just been wiped.
    for (QString *name : {&pApp->strCr3FullName, &pApp->strCr3PreviewName, &pApp->strCr3ThumbName}) name->clear();
    reserveNames(sources);
    setFlag(pApp->bRepairRunning, true);
    startJudge(); // it is up by the time that the first file has been read
    return makeScratchFolder() && workingFolderUsable();
}

const QStringList &repairableSuffixes()
{
    // "TIF" is taken in, but no analysis knows it.
    static const QStringList suffixes = QStringLiteral("JPG JPEG NRW CR2 ARW DNG ERF MRW NEF ORF PEF RW2 SR2 SRF RAF "
                                                       "TIFF TIF CRW CR3 HEIC")
                                            .split(QLatin1Char(' '));
    return suffixes;
}

bool isRawSuffix(const QString &suffix)
{
    return !isJpeg(suffix) && repairableSuffixes().contains(suffix.toUpper());
}

FileOutcome repairOneFile(const QString &path)
{
    FileOutcome outcome;
    outcome.statusCode = QLatin1String(status::Unreached);
    try {
        takeUp(path, outcome);
        repairTakenUp(path, outcome);
    } catch (const std::bad_alloc &) {
        giveUp(outcome);
    }
    return outcome;
}

FileOutcome repairOneFileWithSample(const QString &samplePath, const QString &path, SampleName name)
{
    if (name == SampleName::Told) return repairWithSample(samplePath, path);
    FurtherName further(path);
    FileOutcome outcome = repairWithSample(samplePath, path);
    const bool gaveNothing = outcome.results.isEmpty() || outcome.statusCode == QLatin1String(status::Stopped);
    if (gaveNothing || (name == SampleName::Further && outcome.report.tilesAlone)) {
        // What was written lies under a name that the next try takes again.
        outcome.results.clear();
        outcome.report.outputs.clear();
    } else if (name == SampleName::Better) {
        moveTo(further.told(), outcome);
    } else {
        further.keep();
    }
    return outcome;
}
