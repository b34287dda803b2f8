#include "support/EngineView.h"

#include "app/KesmiraApp.h"
#include "engine/FileWindow.h"
#include "engine/SegmentList.h"
#include "engine/jpg_repair.h"
#include "support/ByteSource.h"

#include <algorithm>

namespace {

WalkNode plainNode(const SegmentNode &node)
{
    WalkNode plain;
    plain.wMarker = node.wMarker;
    plain.wLength = node.wLength;
    plain.nOffset = node.nOffset;
    plain.nApp1Nested = node.nApp1Nested;
    plain.nApp2Nested = node.nApp2Nested;
    plain.nApp13Nested = node.nApp13Nested;
    plain.nSoiNested = node.nSoiNested;
    plain.wSoiNestedFlag = node.wSoiNestedFlag;
    int count = NestedTable<quint32>::kCapacity;
    while (count > 0 && node.aNestedStart[count - 1] == 0 && node.aNestedLength[count - 1] == 0) --count;
    for (int i = 0; i < count; ++i) {
        plain.nestedStart.push_back(node.aNestedStart[i]);
        plain.nestedLength.push_back(node.aNestedLength[i]);
    }
    return plain;
}

QuantHead plainHead(const quint8 (&head)[25])
{
    QuantHead plain;
    std::copy(std::begin(head), std::end(head), plain.begin());
    return plain;
}

WalkResult fieldsOfApp()
{
    WalkResult r;
    for (const tagScanFault *run = pApp->pScanFaultHead; run; run = run->pNext)
        run->forEach([&r](qint64 distance) { r.faults.push_back(distance); });
    r.nScanOffset = pApp->nScanOffset;
    r.nGapAfterDqt1 = pApp->nGapAfterDqt1;
    r.nGapAfterDqt2 = pApp->nGapAfterDqt2;
    r.nGapAfterDqt3 = pApp->nGapAfterDqt3;
    r.nDhtCount = pApp->nDhtCount;
    r.nDqt67Count = pApp->nDqt67Count;
    r.aQuantHead1 = plainHead(pApp->aQuantHead1);
    r.aQuantHead2 = plainHead(pApp->aQuantHead2);
    r.aQuantHead3 = plainHead(pApp->aQuantHead3);
    r.bContainerWalk = pApp->bContainerWalk;
    r.bTrailingImages = pApp->bTrailingImages;
    r.bThumbFound = pApp->bThumbFound;
    r.bSteppedOverBytes = pApp->bSteppedOverBytes;
    r.nImageWidth = pApp->nImageWidth;
    r.nThirdQuantSelector = pApp->nThirdQuantSelector;
    r.nFirstSampling = pApp->nFirstSampling;
    r.nNestedImages = pApp->nNestedImages;
    return r;
}

void walkWhole(BlockSource &source, int blockSize)
{
    FileWindow window(source, blockSize);
    pApp->pCurrentFile = &window;
    pApp->nFileSize = window.size();
    jpg_repair().TraverseExistingJpgFile(QString(), &window, 0);
    pApp->pCurrentFile = nullptr;
}

void walkWhole(const QByteArray &file, int blockSize)
{
    ByteSource source(file);
    walkWhole(source, blockSize);
}

using CopyWalkOperation = void (jpg_repair::*)(const QString &, FileWindow *, qint64);

void walkCopy(const QByteArray &copy, int blockSize, CopyWalkOperation walk)
{
    ByteSource source(copy);
    FileWindow window(source, blockSize);
    pApp->pCurrentFile = &window;
    pApp->nFileSize = window.size();
    jpg_repair engine;
    (engine.*walk)(QString(), &window, 0);
    pApp->pCurrentFile = nullptr;
}

} // namespace

void resetWalkState()
{
    pApp->pCurrentFile = nullptr;
    jpg_repair engine;
    engine.EmptyMemoryAllocation();
    engine.EmptyMemoryAllocationRaw();
    std::fill(std::begin(pApp->aQuantHead1), std::end(pApp->aQuantHead1), quint8(0));
    std::fill(std::begin(pApp->aQuantHead2), std::end(pApp->aQuantHead2), quint8(0));
    std::fill(std::begin(pApp->aQuantHead3), std::end(pApp->aQuantHead3), quint8(0));
    pApp->nDhtCount = 0;
    pApp->nDqt67Count = 0;
    pApp->nGapAfterDqt1 = 0;
    pApp->nGapAfterDqt2 = 0;
    pApp->nGapAfterDqt3 = 0;
    pApp->nFileSize = 0;
    pApp->nWalkFileSize = 0;
    pApp->nScanOffset = 0;
    pApp->nNestedImages = 0;
    pApp->nImageWidth = 0;
    pApp->nThirdQuantSelector = 0;
    pApp->nFirstSampling = 0;
    pApp->bContainerWalk = false;
    pApp->bUseOuterFileSize = false;
    pApp->bTrailingImages = false;
    pApp->bThumbFound = false;
    pApp->bSteppedOverBytes = false;
    pApp->bStopRepair = false;
    pApp->bRepairRunning = true;
}

WalkResult engineResult()
{
    WalkResult r = fieldsOfApp();
    for (const tagMainList *node = pApp->pMainListHead; node; node = node->pNext) r.nodes.push_back(plainNode(*node));
    return r;
}

WalkResult engineRawResult()
{
    WalkResult r = fieldsOfApp();
    for (const tagMainListRaw *node = pApp->pMainListRawHead; node; node = node->pNext)
        r.nodes.push_back(plainNode(*node));
    return r;
}

WalkResult engineWalk(BlockSource &source, int blockSize)
{
    resetWalkState();
    walkWhole(source, blockSize);
    const WalkResult r = engineResult();
    resetWalkState();
    return r;
}

WalkResult engineWalk(const QByteArray &file, int blockSize)
{
    ByteSource source(file);
    return engineWalk(source, blockSize);
}

WalkResult engineTempWalk(const QByteArray &copy, int blockSize, bool container, const QByteArray *before)
{
    resetWalkState();
    if (before) walkWhole(*before, blockSize);
    pApp->bContainerWalk = container;
    walkCopy(copy, blockSize, &jpg_repair::TraverseTempThumbFile);
    const WalkResult r = engineResult();
    resetWalkState();
    return r;
}

WalkResult engineRawWalk(const QByteArray &copy, int blockSize, bool container, const QByteArray *before)
{
    resetWalkState();
    pApp->bContainerWalk = container;
    if (before) walkCopy(*before, blockSize, &jpg_repair::TraverseTempThumbFileRaw);
    walkCopy(copy, blockSize, &jpg_repair::TraverseTempThumbFileRaw);
    const WalkResult r = engineRawResult();
    resetWalkState();
    return r;
}
