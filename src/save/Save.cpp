// SaveFile: what a walked JPEG will give, and under which names.

#include "app/StopFlag.h"
#include "engine/Markers.h"
#include "engine/OutputNames.h"
#include "save/SaveFile.h"

#include <QDir>

namespace {

/// Appends to a 32-bit sum that a hostile chain may run over.
void addMarks(qint32 &sum, quint16 marks)
{
    sum = qint32(quint32(sum) + marks);
}

} // namespace

SaveFile::SaveFile() = default;

void SaveFile::forgetFile()
{
    pListWalk = pListNew = pListLast = nullptr;
    for (qint32 *count : {&nApp1Marks, &nApp13Marks, &nApp2Marks, &nSoiMarks, &nApp1Images, &nApp13Images, &nApp2Images,
                          &nSoiImages, &nOutputsDone, &nOutputIndex, &nImagesToWrite})
        *count = 0;
    for (quint16 *state : {&wResultState, &wStateFailed, &wStateInvalid, &wStateThumbAbsent, &wStateThumbCorrupt})
        *state = 0;
    bFromNestedWriter = false;
    m_nestedFirst = nullptr;
    m_streamAsked = INT_MAX;
    m_streamBytes = 0;
    m_streamRefusals = 0;
    m_streamFaults.clear();
}

void SaveFile::Save()
{
    pApp->bSaveDone = false;
    forgetFile();
    pApp->nNestedTotalA = 0;
    pApp->bSavedThumbOnly = false;
    pApp->bSavedMain = false;
    if (stopRequested()) {
        pApp->bSaveDone = true;
        return;
    }
    countMarks();
    if (nApp1Images == 0 && nApp2Images == 0 && nApp13Images == 0 && pApp->bContainerWalk) {
        if (chooseStreamBranch()) SaveFile_new_raw();
        pApp->bSaveDone = true;
        return;
    }
    nImagesToWrite = qMin(nImagesToWrite, 2);
    nameOutputs();
    SaveFile_new();
    pApp->bSaveDone = true;
}

void SaveFile::countMarks()
{
    for (const tagMainList *node = pApp->pMainListHead; node; node = node->pNext) {
        switch (node->wMarker) {
        case jpeg::APP1:
            pApp->bHasApp1Images = true;
            addMarks(nApp1Marks, node->nApp1Nested);
            break;
        case jpeg::APP2:
            pApp->bHasApp2Images = true;
            addMarks(nApp2Marks, node->nApp2Nested);
            break;
        case jpeg::APP13:
            pApp->bHasApp13Images = true;
            addMarks(nApp13Marks, node->nApp13Nested);
            break;
        case jpeg::SOI:
            if (node->wSoiNestedFlag != 1) break;
            pApp->bHasSoiImages = true;
            addMarks(nSoiMarks, node->nSoiNested);
            break;
        default: break;
        }
    }
    // Each image counts at both of its ends; of one left open only half is there, and two halves make one here.
    nApp1Images = nApp1Marks / 2;
    nApp2Images = nApp2Marks / 2;
    nApp13Images = nApp13Marks / 2;
    nSoiImages = nSoiMarks / 2;
    qint32 all = nApp1Marks;
    for (const qint32 marks : {nApp2Marks, nApp13Marks, nSoiMarks}) all = qint32(quint32(all) + quint32(marks));
    nImagesToWrite = all / 2;
    pApp->nNestedTotalB = quint32(nImagesToWrite);
}

bool SaveFile::chooseStreamBranch()
{
    pApp->bNestedOnlyFile = true;
    pApp->nNestedTotalA = quint32(nImagesToWrite);
    const bool cancelled = flagRaised(pApp->bSaveCancelled);
    if (pApp->bThumbOnlyMode) {
        pApp->bSavedThumbOnly = true;
        return true;
    }
    if (cancelled) return false;
    pApp->bSavedMain = true;
    return true;
}

QString SaveFile::nestedName(int number, const QString &front) const
{
    // Only these two spellings count as the long extension; any other name loses four characters, whatever they are.
    const QString &name = pApp->strFileName;
    const QString tail = name.right(3);
    const bool isLong = tail == QLatin1String("PEG") || tail == QLatin1String("peg");
    const QString told = name.chopped(qMin(name.size(), isLong ? 5 : 4)) + QStringLiteral("_[T%1]").arg(number)
        + QLatin1String(isLong ? ".jpeg" : ".jpg");
    return outputName(pApp->strCurrentPath, told, front);
}

void SaveFile::nameOutputs()
{
    const bool cancelled = flagRaised(pApp->bSaveCancelled);
    const bool twoImages = nImagesToWrite == 2;
    if (pApp->bThumbOnlyMode && pApp->bThumbFound && !cancelled) {
        pApp->bSavedThumbOnly = true;
        nOutputIndex = 1;
        pApp->strThumb1Name = nestedName(1);
        pApp->strThumb1Path = pApp->strTempDir + pApp->strThumb1Name;
        if (!twoImages) return;
        ++nOutputIndex;
        pApp->strThumb2Name = nestedName(2);
        pApp->strThumb2Path = pApp->strTempDir + pApp->strThumb2Name;
        return;
    }
    if (pApp->bThumbOnlyMode)
        pApp->bSavedThumbOnly = true;
    else
        pApp->bSavedMain = true;
    if (!pApp->bThumbOnlyMode && !cancelled) {
        nOutputIndex = 1;
        if (pApp->nRepairOutputMode == 2 && pApp->bThumbFound) {
            nOutputIndex = 2;
            pApp->strThumb1Name = nestedName(1);
            pApp->strThumb1Path = pApp->strTempDir + QLatin1String("Thumbnail Repaired/") + pApp->strThumb1Name;
            if (twoImages) {
                nOutputIndex = 3;
                // No separator: the second thumbnail lies in the working folder itself, under a name that begins so.
                const QLatin1String front("Thumbnail Repaired");
                pApp->strThumb2Name = nestedName(2, front);
                pApp->strThumb2Path = pApp->strTempDir + front + pApp->strThumb2Name;
            }
            pApp->strThumbFolder = pApp->strTempDir + QLatin1String("/Thumbnail Repaired/");
            QDir().mkdir(pApp->strThumbFolder);
        }
    }
    pApp->strRepairedPath = pApp->strTempDir + pApp->strFileName;
    pApp->strReportName += pApp->strFileName;
}
