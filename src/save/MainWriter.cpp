// SaveFile: the road of one image from the chain to the working folder, and the writer of an ordinary JPEG.

#include "engine/Wholeness.h"
#include "save/SaveFile.h"
#include "save/ScratchFile.h"
#include "save/ScratchFolder.h"
#include "save/SkipFlags.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

void SaveFile::setStates(bool nestedWriter)
{
    wResultState = nestedWriter ? 1 : 0;
    bFromNestedWriter = nestedWriter;
    wStateFailed = 101;
    wStateInvalid = 102;
    wStateThumbAbsent = 103;
    wStateThumbCorrupt = 104;
}

int SaveFile::finish()
{
    wipeScratchFolder();
    pApp->nThumbPass = 0;
    return 1;
}

int SaveFile::SaveFile_new()
{
    setStates(false);
    if (stopRequested()) return 0;
    const bool cancelled = flagRaised(pApp->bSaveCancelled);
    if (pApp->bThumbOnlyMode) {
        if (!pApp->bThumbFound)
            recordAbsentThumbnail(QStringLiteral("    (Thumbnail Absent)"));
        else if (!cancelled)
            writeNestedImages();
        return finish();
    }
    if (cancelled) return finish();

    pApp->nSavePhase = 2;
    if (!writeMain(CheckMarkerSequence(0), QStringLiteral("    (Invalid File)"))) return finish();
    pApp->nSavePhase = 1;
    const bool wanted = pApp->bThumbFound && pApp->nRepairOutputMode == 2 && !skippingThisFile();
    if (wanted && !writeNestedImages()) return finish();
    pApp->nSavePhase = 0;
    return finish();
}

/// False if a skip was asked for and nothing more is to be done for this file.
bool SaveFile::writeMain(bool sequenceHolds, const QString &invalidMark)
{
    if (pApp->nThumbPass != 0) return true;
    if (skipping()) return false;
    if (sequenceHolds) {
        const Output output = mainOutput();
        buildAndCopy(output, [this](FILE *out) {
            bFromNestedWriter ? SaveStart_newFormatRaw(out) : SaveStart_newFormat(out, 0);
        });
        return true;
    }
    pApp->report.headerBroken = true;
    if (!pApp->strFileName.isEmpty()) ++pApp->nInvalidCount;
    recordFailure(tr("Invalid File"), wStateInvalid, pApp->strRepairedPath, pApp->strFileName + invalidMark);
    pApp->nHuffmanResultLength = 0;
    return true;
}

SaveFile::Output SaveFile::mainOutput() const
{
    Output output;
    output.scratch = scratchFolder() + QLatin1Char('/') + pApp->strFileName;
    output.path = pApp->strRepairedPath;
    output.name = pApp->strFileName;
    output.way = RepairWay::Main;
    output.wholeCopy = !bFromNestedWriter;
    output.failureText = tr("Important marker missing. File can't repaire.");
    output.failureState = wStateFailed;
    return output;
}

/// Closes `file`; false, and it is gone, if anything got lost on the way: its head could pass for all of it.
bool SaveFile::closeWhole(FILE *file, const QString &path)
{
    if (closeFile(file) && !m_lost) return true;
    if (pApp->report.reason == RepairReason::None) pApp->report.reason = RepairReason::DiskFull;
    if (file) dropFile(path);
    return false;
}

bool SaveFile::buildScratch(const Output &output, const std::function<void(FILE *)> &write)
{
    QDir().mkdir(scratchFolder());
    pApp->strBuiltPath = output.scratch;
    m_lost = false;
    FileGuard scratch = guarded(createFile(output.scratch));
    if (scratch && !skippingThisFile()) write(scratch.get());
    return closeWhole(scratch.release(), output.scratch);
}

/// Copies what was built to its place in the working folder.
bool SaveFile::keepCopy(const Output &output)
{
    m_lost = false;
    FileGuard copy = guarded(createOutput(output.path));
    const bool wanted = !skippingThisFile();
    if (copy && wanted) output.wholeCopy ? SaveExactCopy_new_org(copy.get()) : SaveExactCopy_new(copy.get());
    return closeWhole(copy.release(), output.path) && wanted;
}

/// True if the rebuilt image decodes.
bool SaveFile::buildAndCopy(const Output &output, const std::function<void(FILE *)> &write)
{
    // No told wipe comes soon: a stream of thousands would fill the disk twice over.
    const auto wipe = qScopeGuard([&output] { dropFile(output.scratch); });
    const bool built = buildScratch(output, write);
    const Verdict verdict = built ? judgeJpeg(output.scratch) : Verdict();
    if (pApp->report.decoderWarning.isEmpty()) pApp->report.decoderWarning = verdict.warning();
    if (!verdict.decodes) {
        if (built && !verdict.stopped) pApp->report.decoderRefused = true;
        if (!skipping())
            recordFailure(output.failureText, output.failureState, output.path, output.name + output.failureMark);
        return false;
    }
    if (!keepCopy(output)) return true;
    ++pApp->nResultCounter;
    ++nOutputsDone;
    if (!record(output.path, output.name)) return true;
    // The judge has seen these very bytes, unless the copy was cut to another length.
    const bool judged = output.wholeCopy || qint64(pApp->nTempCopySize) >= QFileInfo(output.scratch).size();
    pApp->report.outputs.append({output.name, output.path, output.way, judged ? verdict.size : QSize(),
                                 judged ? verdict.icon : QImage(),
                                 judged ? wholenessOf(output.scratch, verdict) : Wholeness()});
    return true;
}

void SaveFile::recordFailure(const QString &text, quint16 state, const QString &path, const QString &name)
{
    pApp->strStatusText = text;
    wResultState = state;
    ++pApp->nResultCounter;
    ++nOutputsDone;
    record(path, name);
}

void SaveFile::recordAbsentThumbnail(const QString &mark)
{
    if (skippingThisFile()) return;
    if (!pApp->strFileName.isEmpty()) ++pApp->nThumbAbsentCount;
    recordFailure(tr("No Thumbnail found"), wStateThumbAbsent, pApp->strRepairedPath, pApp->strFileName + mark);
}

bool SaveFile::record(const QString &path, const QString &name)
{
    const int before = pApp->lstResultNames.size();
    AddRepairedFileList(&pApp->pRepairedHead, &pApp->pRepairedTail, path, name, pApp->nResultCounter,
                        quint16(nOutputsDone), quint16(nOutputIndex), wResultState, bFromNestedWriter);
    return pApp->lstResultNames.size() > before;
}
