// SaveFile: carving a nested image into the working copy, copying a rebuilt image to its place, recording it.

#include "app/KesmiraApp.h"
#include "engine/FileWindow.h"
#include "engine/Markers.h"
#include "save/SaveFile.h"
#include "save/ScratchFile.h"

#include <QFileInfo>

void SaveFile::ReadForSave_thumb(FILE *out, int index)
{
    // Each call uses one source up, so the same index reaches another node the next time.
    const auto take = [](qint32 &left) { return left > 0 ? (--left, true) : false; };
    quint32 start = 0;
    qint32 length = 0;
    for (const tagMainList *node = pApp->pMainListHead; node; node = node->pNext) {
        start = node->aNestedStart[index];
        length = node->aNestedLength[index];
        const bool whole = length >= 1 && start != 0;
        const quint16 marker = node->wMarker;
        if ((marker == jpeg::APP1 && whole && take(nApp1Images)) || (marker == jpeg::APP2 && whole && take(nApp2Images))
            || (marker == jpeg::APP13 && take(nApp13Images))
            || (marker == jpeg::SOI && whole && node->wSoiNestedFlag == 1 && take(nSoiImages)))
            break;
        start = 0;
    }
    if (length == 0 || start < 1) return;
    FileWindow in(pApp->strCurrentPath); // always the user's file, never the working copy
    m_lost = !in.isOpen();
    if (m_lost) pApp->report.reason = RepairReason::Unreadable; // it has vanished
    if (in.isOpen()) blockCopy(in, start, length, out);
}

void SaveFile::SaveExactCopy_new(FILE *out)
{
    // As long as the working copy was: a rebuilt image is shorter by the metadata that it lost, and a decoder stops at
    // its end anyway.
    FileWindow in(pApp->strBuiltPath);
    m_lost = !in.isOpen();
    if (in.isOpen() && pApp->nTempCopySize > 0) blockCopy(in, 0, qint64(pApp->nTempCopySize), out);
}

void SaveFile::SaveExactCopy_new_org(FILE *out)
{
    FileWindow in(pApp->strBuiltPath);
    m_lost = !in.isOpen();
    if (in.isOpen()) blockCopy(in, 0, qint64(in.size()), out);
}

void SaveFile::AddRepairedFileList(RepairedFileList **head, RepairedFileList **tail, const QString &path,
                                   const QString &name, unsigned int number, unsigned short outputsDone,
                                   unsigned short outputIndex, unsigned short state, bool nested)
{
    pListWalk = pListNew = pListLast = nullptr;
    if (*head) {
        pListLast = *tail;
        if (pListLast->pNextResult) return;
    }
    if (!QFileInfo::exists(path)) return; // a failure has no file, and so leaves no record
    pListNew = new RepairedFileList;
    pListNew->strPath = path;
    pListNew->strName = name;
    pApp->lstResultNames.append(name);
    pListNew->nResultNumber = number;
    pListNew->wOutputsDone = outputsDone;
    pListNew->wOutputIndex = outputIndex;
    pListNew->wState = state;
    pListNew->bNested = nested;
    if (pListLast)
        pListLast->pNextResult = pListNew;
    else
        *head = pListNew;
    *tail = pListNew;
}
