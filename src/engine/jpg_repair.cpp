// jpg_repair: the frame around the analyses of one file.

#include "engine/jpg_repair.h"

#include "app/KesmiraApp.h"
#include "save/SaveFile.h"

#include <QDebug>
#include <QFileInfo>

#include <memory>

namespace {

template<typename Node>
void freeChain(Node *&head, Node *&next)
{
    while (head) {
        next = head->pNext;
        delete head;
        head = next;
    }
    next = nullptr;
}

void freeMainChains()
{
    freeChain(pApp->pMainListHead, pApp->pMainListNext);
    freeChain(pApp->pScanFaultHead, pApp->pScanFaultNext);
}

bool isJpegSuffix(const QString &suffix)
{
    const QString upper = suffix.toUpper();
    return upper == QLatin1String("JPG") || upper == QLatin1String("JPEG");
}

bool isHeicSuffix(const QString &suffix)
{
    const QString upper = suffix.toUpper();
    return upper == QLatin1String("HEIC") || upper == QLatin1String("HEIF");
}

} // namespace

jpg_repair::jpg_repair() = default;

jpg_repair::~jpg_repair()
{
    closeHeicFiles();
}

void jpg_repair::repairing(const QString &)
{
    freeMainChains();
    pApp->bTrailingImages = false;
    if (pApp->bWorkOnTempCopy)
        repairWorkingCopy();
    else
        repairUserFile();
    cleanUp();
}

void jpg_repair::repairUserFile()
{
    auto file = std::make_unique<FileWindow>(pApp->strCurrentPath);
    if (!file->isOpen()) {
        qDebug("error");
        pApp->report.reason = RepairReason::Unreadable;
        return;
    }
    pApp->pCurrentFile = file.release();
    pApp->nFileSize = GetFileSize(pApp->pCurrentFile);
    if (pApp->nFileSize == 0) pApp->report.reason = RepairReason::Empty;
    pApp->strFileSuffix = QFileInfo(pApp->strCurrentPath).suffix();
    analyse(false);
}

void jpg_repair::repairWorkingCopy()
{
    // The suffix stays that of the user's file: it decides how the copy's bytes are read.
    auto file = std::make_unique<FileWindow>(pApp->strTempCopyPath);
    if (!file->isOpen()) return;
    pApp->pCurrentFile = file.release();
    pApp->nFileSize = GetFileSize(pApp->pCurrentFile);
    analyse(true);
}

void jpg_repair::analyse(bool workingCopy)
{
    if (isHeicSuffix(pApp->strFileSuffix)) {
        Heic(pApp->strCurrentPath); // a rewrite is the caller's next step
        return;
    }
    if (!isJpegSuffix(pApp->strFileSuffix)) {
        if (!scanRaw(workingCopy)) pApp->report.reason = RepairReason::OtherFormat;
        return;
    }
    TraverseExistingJpgFile(pApp->strCurrentPath, pApp->pCurrentFile, 0);
    closeCurrentFile();
    SaveFile save;
    connect(&save, &SaveFile::showMsg, this, &jpg_repair::jpgSlot);
    save.Save();
}

void jpg_repair::closeCurrentFile()
{
    delete pApp->pCurrentFile;
    pApp->pCurrentFile = nullptr;
}

void jpg_repair::cleanUp()
{
    EmptyMemoryAllocation();
    pApp->bThumbFound = false;
    pApp->bWorkOnTempCopy = false;
    for (QString *text : {&pApp->strFileName, &pApp->strCurrentPath, &pApp->strReportName, &pApp->strRepairedPath,
                          &pApp->strThumb1Path, &pApp->strThumb1Name, &pApp->strTempCopyPath})
        text->clear();
}

void jpg_repair::abandon()
{
    closeHeicFiles();
    EmptyMemoryAllocationRaw();
    cleanUp();
    pApp->nThumbPass = 0;
    pApp->nSavePhase = 0;
    pApp->nInvalidCount = 0;
    pApp->bUseOuterFileSize = false;
}

void jpg_repair::jpgSlot(const QString &message)
{
    emit JpgSlotCall(message);
}

quint64 jpg_repair::GetFileSize(FileWindow *file)
{
    return file->size();
}

bool jpg_repair::ReadDataFromCurrentOffset(FileWindow *file, qint64 offset, quint8 *buffer, quint32 size)
{
    file->read(quint64(offset), buffer, size);
    return true;
}

void jpg_repair::EmptyMemoryAllocation()
{
    freeMainChains();
    closeCurrentFile();
    pApp->bQuantNotFound = true;
    // A head counts as present by its first value alone; the third one is left, as a new file's tables overwrite it.
    pApp->aQuantHead1[0] = 0;
    pApp->aQuantHead2[0] = 0;
    pApp->nHuffmanResultLength = 0;
    pApp->nDhtCount = 0;
    pApp->nDhtPart2 = 0;
    pApp->nDhtPart3 = 0;
    pApp->nDhtPart4 = 0;
    pApp->nDqtLength = 0;
    pApp->nDqtIndex = 0;
    pApp->nDqt67Count = 0;
    for (bool *flag : {&pApp->bSteppedOverBytes, &pApp->bSoiFirst, &pApp->bEoiSeen, &pApp->bSof0Seen, &pApp->bSof1Seen,
                       &pApp->bSof2Seen, &pApp->bDhtSeen, &pApp->bDqtSeenInSequence, &pApp->bSosSeen,
                       &pApp->bQuantPairPatched, &pApp->bQuantTriplePatched})
        *flag = false;
    pApp->nGapAfterDqt1 = 0;
    pApp->nGapAfterDqt2 = 0;
    pApp->nGapAfterDqt3 = 0;
}

void jpg_repair::EmptyMemoryAllocationRaw()
{
    freeChain(pApp->pMainListRawHead, pApp->pMainListRawNext);
}
