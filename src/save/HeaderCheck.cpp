// SaveFile: can the segments on a chain give an image?

#include "app/StopFlag.h"
#include "engine/Markers.h"
#include "save/SaveFile.h"

namespace {

/// What the check has met so far; kept when it starts over behind something that doesn't belong.
struct Seen
{
    bool dqt = false;
    bool sof = false;
    bool dht = false;
    bool sos = false;

    bool tables() const { return dqt && sof && dht; }
    bool all() const { return tables() && sos; }
};

bool isHeaderSegment(quint16 marker)
{
    return jpeg::isFrameHeader(marker) || marker == jpeg::DHT || marker == jpeg::DRI || marker == jpeg::COM
        || marker == jpeg::DQT;
}

/// The third component's table number tells how many single tables a frame needs.
bool singleTablesFitFrame()
{
    return pApp->nThirdQuantSelector > 2 || pApp->nDqt67Count == quint32(pApp->nThirdQuantSelector) + 1;
}

/// False where the segment makes the whole header unusable.
bool noteHeaderSegment(const SegmentNode &node, Seen &seen)
{
    switch (node.wMarker) {
    case jpeg::SOF0:
        pApp->bSof0Seen = true;
        seen.sof = true;
        break;
    case jpeg::SOF1:
        pApp->bSof1Seen = true;
        seen.sof = true;
        break;
    case jpeg::SOF2:
        pApp->bSof2Seen = true;
        seen.sof = true;
        break;
    case jpeg::DHT:
        pApp->bDhtSeen = true;
        seen.dht = true;
        break;
    case jpeg::DQT:
        pApp->bDqtSeenInSequence = true;
        seen.dqt = true;
        if (node.wLength == 67 && !singleTablesFitFrame()) return false;
        break;
    default: break;
    }
    return node.wMarker == jpeg::COM || node.wLength != 0;
}

void reportMissing(const Seen &seen)
{
    // Only the main image's header is of interest to a person; a stream has none, and its check looks at an empty chain.
    if (pApp->nSavePhase != 2 || pApp->bContainerWalk) return;
    QStringList &missing = pApp->report.missingSegments;
    missing.clear();
    if (!seen.dqt) missing << QStringLiteral("DQT");
    if (!seen.dht) missing << QStringLiteral("DHT");
    if (!seen.sof) missing << QStringLiteral("SOF");
    if (!seen.sos) missing << QStringLiteral("SOS");
}

template<typename Node>
bool sequenceHolds(const Node *node, Seen &seen)
{
    bool soiPassed = false;
    while (node) {
        if (!soiPassed) {
            pApp->bSoiFirst = soiPassed = node->wMarker == jpeg::SOI;
            if (soiPassed) node = node->pNext;
        }
        while (node && jpeg::isAppSegment(node->wMarker)) node = node->pNext;
        while (node && isHeaderSegment(node->wMarker)) {
            if (!noteHeaderSegment(*node, seen)) return false;
            node = node->pNext;
        }
        if (node && seen.tables() && node->wMarker == jpeg::SOS) {
            pApp->bSosSeen = true;
            seen.sos = true;
            node = node->pNext;
        }
        if (seen.sos) {
            while (node && node->wMarker != jpeg::EOI) node = node->pNext;
            pApp->bEoiSeen = node != nullptr; // not needed: a lost end is written anew
            break;
        }
        if (node) node = node->pNext;
    }
    return seen.all();
}

} // namespace

const tagMainList *SaveFile::startNode(unsigned int skipMode) const
{
    if (pApp->bTrailingImages || skipMode != 1) return pApp->pMainListHead;
    bool soi = false;
    bool sos = false;
    for (const tagMainList *node = pApp->pMainListHead; node; node = node->pNext) {
        // The main image has no end of its own: what is wanted begins here all the same.
        if (node == m_nestedFirst) return node;
        if (!soi)
            soi = node->wMarker == jpeg::SOI;
        else if (!sos)
            sos = node->wMarker == jpeg::SOS;
        else if (node->wMarker == jpeg::EOI)
            return node->pNext;
    }
    return nullptr;
}

template<typename Node>
bool SaveFile::checkSequence(const Node *node)
{
    Seen seen;
    const bool holds = sequenceHolds(node, seen);
    reportMissing(seen);
    return holds;
}

bool SaveFile::CheckMarkerSequence(unsigned int skipMode)
{
    return checkSequence(startNode(skipMode));
}

bool SaveFile::CheckMarkerSequence_Raw(unsigned int)
{
    return checkSequence<tagMainListRaw>(pApp->pMainListRawHead);
}
