// SaveFile: the images of a container stream, one after the other and without a limit on their number.

#include "app/StopFlag.h"
#include "engine/Guards.h"
#include "engine/Markers.h"
#include "engine/jpg_repair.h"
#include "save/SaveFile.h"
#include "save/ScratchFile.h"
#include "save/SkipFlags.h"

#include <QDir>
#include <QScopeGuard>

int SaveFile::SaveFile_new_raw()
{
    setStates(true);
    const bool cancelled = flagRaised(pApp->bSaveCancelled);
    if (pApp->bThumbOnlyMode) {
        if (!pApp->bThumbFound)
            recordAbsentThumbnail(QLatin1String("     ") + tr("(Thumbnail Absent)"));
        else if (!cancelled)
            writeStreamImages();
        return finish();
    }
    if (cancelled) return finish();
    pApp->nSavePhase = 2;
    const bool holds = CheckMarkerSequence_Raw(0);
    if (holds) {
        pApp->strRepairedPath = pApp->strTempDir + pApp->strFileName;
        pApp->strReportName += pApp->strFileName;
    }
    if (!writeMain(holds, QLatin1String("     ") + tr("(Invalid File)"))) return finish();
    pApp->nSavePhase = 1;
    if (pApp->bThumbFound && pApp->nRepairOutputMode == 2 && !skippingThisFile() && !writeStreamImages())
        return finish();
    pApp->nSavePhase = 0;
    return finish();
}

/// False if a skip was asked for.
bool SaveFile::writeStreamImages()
{
    jpg_repair engine;
    nOutputIndex = 1;
    for (int index = 0; nImagesToWrite >= 1 && !stopRequested(); ++index, ++nOutputIndex, --nImagesToWrite) {
        if (!writeStreamImage(engine, index)) return false;
        if (m_streamBytes > guards::kStreamCarveFactor * pApp->nWalkFileSize) break;
        if (m_streamRefusals >= guards::kStreamRefusals) break;
    }
    return true;
}

bool SaveFile::writeStreamImage(jpg_repair &engine, int index)
{
    pApp->strThumb1Name = nestedName(nOutputIndex);
    if (pApp->bThumbOnlyMode) {
        pApp->strThumb1Path = pApp->strTempDir + pApp->strThumb1Name;
    } else {
        pApp->strThumbFolder = pApp->strTempDir + QLatin1String("Thumbnail Repaired//");
        pApp->strThumb1Path = pApp->strThumbFolder + pApp->strThumb1Name;
        QDir().mkdir(pApp->strThumbFolder);
    }
    const bool filled = fillWorkingCopy([&](FILE *out) { ReadForSave_thumb_Raw(out, index); });
    if (skipping()) return false;
    if (!filled) {
        engine.EmptyMemoryAllocationRaw();
        return true;
    }
    if (pApp->nThumbPass == 1) {
        pApp->nThumbPass = 2;
        FileWindow copy(pApp->strTempCopyPath);
        if (copy.isOpen()) {
            pApp->pCurrentFile = &copy;
            const auto leave = qScopeGuard([] { pApp->pCurrentFile = nullptr; });
            pApp->nTempCopySize = pApp->nFileSize = engine.GetFileSize(&copy);
            engine.TraverseTempThumbFileRaw(pApp->strTempCopyPath, &copy, 0);
        }
    }
    CheckMarkerSequence_Raw(0);
    const Output output = nestedOutput(pApp->strThumb1Name, pApp->strThumb1Path);
    const bool decodes = buildAndCopy(output, [this](FILE *out) { SaveStart_newFormatRaw(out); });
    m_streamRefusals = decodes ? 0 : m_streamRefusals + 1;
    engine.EmptyMemoryAllocationRaw();
    return true;
}

/// The first usable SOI node at or behind node `index`. Asked for ascending places, the chain is walked once in all.
const tagMainList *SaveFile::streamNode(int index)
{
    const auto usable = [this](const tagMainList &node) {
        return node.wMarker == jpeg::SOI && node.aNestedLength[0] >= 1 && node.aNestedStart[0] != 0 && nSoiImages >= 1
            && node.wSoiNestedFlag == 1;
    };
    if (index <= m_streamAsked) {
        m_streamNode = pApp->pMainListHead;
        m_streamIndex = 0;
    }
    m_streamAsked = index;
    while (m_streamNode && (m_streamIndex < index || !usable(*m_streamNode))) {
        m_streamNode = m_streamNode->pNext;
        ++m_streamIndex;
    }
    return m_streamNode;
}

void SaveFile::ReadForSave_thumb_Raw(FILE *out, int index)
{
    pApp->bUseOuterFileSize = false;
    FileWindow in(pApp->strCurrentPath);
    quint64 position = 0;
    if (const tagMainList *node = streamNode(index)) {
        --nSoiImages;
        const quint32 start = node->aNestedStart[0];
        position = start - 1;
        if (in.isOpen()) blockCopy(in, start, node->aNestedLength[0], out);
        m_streamBytes += quint64(node->aNestedLength[0]);
    } else {
        m_streamBytes += pApp->nWalkFileSize; // the first image's end is looked for, and may be the file's
    }
    if (!in.isOpen()) return;

    // The image's own SOI goes on the raw chain with its place in the stream, up to the first end behind it.
    jpg_repair engine;
    pApp->pCurrentFile = &in;
    const auto leave = qScopeGuard([] { pApp->pCurrentFile = nullptr; });
    pApp->bUseOuterFileSize = true;
    const quint64 end = pApp->nWalkFileSize;
    bool open = false;
    if (position < end) pApp->bSteppedOverBytes = true;
    for (quint64 at = in.nextFF(position, end); at < end && !stopRequested();) {
        const quint16 word = in.wordAt(at);
        if (word == jpeg::SOI && !open && jpeg::isImageOpener(in.wordAt(at + 2))) {
            quint8 head[jpg_repair::kHeadBytes];
            engine.ReadDataFromCurrentOffset(&in, qint64(at), head, sizeof head);
            engine.AddListRaw(&pApp->pMainListRawHead, &pApp->pMainListRawTail, head, &in, qint64(at));
            open = true;
            at += 2;
        } else if (word == jpeg::EOI && open) {
            break;
        }
        at = in.nextFF(at + 1, end);
    }
    pApp->bUseOuterFileSize = false;
}
