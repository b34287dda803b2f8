// jpg_repair: from the head of a segment to its node on the chain.

#include "app/StopFlag.h"
#include "engine/Guards.h"
#include "engine/Markers.h"
#include "engine/NestedSearch.h"
#include "engine/jpg_repair.h"

#include <cstring>

namespace {

// Zeros for every node, see SegmentNode::pSegmentData.
const quint8 kEmptyData[jpg_repair::kHeadBytes] = {};

quint16 wordIn(const quint8 *bytes)
{
    return quint16(bytes[0] << 8 | bytes[1]);
}

// Places in a DQT segment of the first 25 values of its first, second and third table, from the marker.
constexpr int kHeadAt[] = {5, 70, 135};

} // namespace

const quint8 *SegmentNode::emptyData()
{
    return kEmptyData;
}

bool tagScanFault::add(qint64 distance)
{
    // Few enough for the next node to begin soon where a long run follows.
    constexpr size_t kGaps = 4096;
    const qint64 gap = distance - m_last;
    if (gap <= 0) return false; // another image's scan
    if (m_gaps.empty() && (m_run == 1 || gap == m_stride)) {
        m_stride = gap;
        ++m_run;
    } else {
        if (gap > 0xFFFF || m_gaps.size() == kGaps) return false;
        m_gaps.push_back(quint16(gap));
    }
    m_last = distance;
    return true;
}

void jpg_repair::AddList(tagMainList **head, tagMainList **tail, const quint8 *segmentHead, FileWindow *, qint64 offset)
{
    if (*head && !flagRaised(pApp->bRepairRunning)) return;
    append(head, tail, segmentHead, offset);
}

void jpg_repair::AddListRaw(tagMainListRaw **head, tagMainListRaw **tail, const quint8 *segmentHead, FileWindow *,
                            qint64 offset)
{
    if (pApp->bUseOuterFileSize) pApp->nFileSize = pApp->nWalkFileSize;
    append(head, tail, segmentHead, offset);
}

template<typename Node>
void jpg_repair::append(Node **head, Node **tail, const quint8 *segmentHead, qint64 offset)
{
    if (*head && (*tail)->pNext) return;
    if (m_nodes >= guards::kChainNodes) return;
    ++m_nodes;
    auto *node = new Node;
    fillNode(*node, segmentHead, quint64(offset), *head == nullptr);
    if (*head)
        (*tail)->pNext = node;
    else
        *head = node;
    *tail = node;
}

void jpg_repair::fillNode(SegmentNode &node, const quint8 *segmentHead, quint64 offset, bool isHead)
{
    const quint16 length = wordIn(segmentHead + 2);
    const bool severalImages = pApp->bContainerWalk || bSecondImage;
    node.wMarker = wordIn(segmentHead);
    node.nOffset = qint64(offset) + 2;
    node.wLength = offset < pApp->nFileSize && length < pApp->nFileSize - offset ? length : 0;

    const bool plainEnd = node.wMarker == jpeg::SOI || node.wMarker == jpeg::EOI;
    if (plainEnd && !severalImages) {
        node.wLength = 0;
        ++pApp->nNestedImages;
    } else if (node.wMarker == jpeg::EOI && !isHead) {
        node.wLength = 0;
    } else if (node.wMarker == jpeg::APP1) {
        searchMetadata(node, offset, offset + length, &SegmentNode::nApp1Nested);
    } else if (node.wMarker == jpeg::APP2) {
        searchMetadata(node, offset, offset + length, &SegmentNode::nApp2Nested);
    } else if (node.wMarker == jpeg::APP13) {
        searchMetadata(node, offset, offset + length + 2, &SegmentNode::nApp13Nested);
    } else if (node.wMarker == jpeg::SOI && !pApp->bContainerWalk) {
        searchBehindPicture(node, offset);
    } else if (node.wMarker == jpeg::SOI) {
        searchStream(node, offset);
    } else {
        if (jpeg::isFrameHeader(node.wMarker)) noteFrame(offset, isHead);
        if (node.wMarker == jpeg::DQT) noteQuantHeads(node, offset);
        if (node.wMarker == jpeg::DHT && bDhtUsable) ++pApp->nDhtCount;
    }
}

void jpg_repair::searchMetadata(SegmentNode &node, quint64 offset, quint64 last, quint16 SegmentNode::*count)
{
    const NestedImages found = imagesInSegment(*pApp->pCurrentFile, offset, last);
    if (found.empty()) return;
    node.*count = found.marks();
    node.aNestedStart.setFirst(found.starts.front());
    node.aNestedLength.setFirst(found.lengths.front());
    if (found.starts.size() > 1) {
        node.aNestedStart.setFurther(std::make_shared<NestedTable<quint32>::Values>(found.starts), 1);
        node.aNestedLength.setFurther(std::make_shared<NestedTable<qint32>::Values>(found.lengths), 1);
    }
    noteImages(int(found.starts.size()), found.lengths.front() > 0);
}

void jpg_repair::searchBehindPicture(SegmentNode &node, quint64 offset)
{
    TrailingImages own(*pApp->pCurrentFile, pApp->nFileSize, NestedTable<quint32>::kCapacity);
    bool closed = false;
    const int starts = (m_trailing ? *m_trailing : own).record(node, offset, closed);
    noteImages(starts, closed);
}

void jpg_repair::searchStream(SegmentNode &node, quint64 offset)
{
    bool closed = false;
    const int starts = m_stream ? m_stream->record(node, offset, closed)
                                : recordStreamImage(*pApp->pCurrentFile, pApp->nFileSize, node, offset, closed);
    noteImages(starts, closed);
}

void jpg_repair::noteImages(int starts, bool closed)
{
    pApp->nNestedImages += quint32(starts);
    if (closed) pApp->bThumbFound = true;
}

void jpg_repair::noteFrame(quint64 offset, bool isHead)
{
    // Frame header, ITU-T T.81 B.2.2: length, precision, height, width, count, then id, sampling and table of each of
    // three components. With fewer components the bytes of what follows stand there and are taken as they are.
    quint8 frame[17];
    ReadDataFromCurrentOffset(pApp->pCurrentFile, qint64(offset) + 2, frame, sizeof frame);
    pApp->nImageWidth = wordIn(frame + 5);
    pApp->nThirdQuantSelector = frame[16];
    if (isHead) pApp->nFirstSampling = frame[9];
}

void jpg_repair::noteQuantHeads(const SegmentNode &node, quint64 offset)
{
    quint8 *const heads[] = {pApp->aQuantHead1, pApp->aQuantHead2, pApp->aQuantHead3};
    constexpr size_t kBytes = sizeof pApp->aQuantHead1;
    quint8 segment[160];
    ReadDataFromCurrentOffset(pApp->pCurrentFile, qint64(offset), segment, sizeof segment);
    if (node.wLength == 67) {
        const quint32 index = pApp->nDqt67Count++;
        if (index < 3) std::memcpy(heads[index], segment + kHeadAt[0], kBytes);
    } else if (node.wLength == 132 || node.wLength == 197) {
        const int tables = node.wLength == 132 ? 2 : 3;
        for (int i = 0; i < tables; ++i) std::memcpy(heads[i], segment + kHeadAt[i], kBytes);
    }
}
