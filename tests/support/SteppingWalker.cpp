#include "support/SteppingWalker.h"

#include <algorithm>

namespace stepping {

bool isSegment(int word)
{
    if (word >= 0xFFE0 && word <= 0xFFEF) return true; // APP0 to APP15
    if (word >= 0xFFD0 && word <= 0xFFD7) return true; // RST0 to RST7
    static const int others[] = {0xFFC0, 0xFFC1, 0xFFC2, 0xFFC3, 0xFFC4, 0xFFC5, 0xFFC6, 0xFFC7, 0xFFC8, 0xFFC9,
                                 0xFFCA, 0xFFCB, 0xFFCD, 0xFFCE, 0xFFCF, 0xFFD9, 0xFFDA, 0xFFDB, 0xFFDD, 0xFFFE};
    return std::find(std::begin(others), std::end(others), word) != std::end(others);
}

bool opensImage(int word)
{
    static const int openers[] = {DQT, DHT, APP0, APP1, APP2, APP3, SOF0, SOS, APP13, APP14};
    return std::find(std::begin(openers), std::end(openers), word) != std::end(openers);
}

bool isFrame(int word)
{
    return word == SOF0 || word == SOF1 || word == SOF2;
}

namespace {

/// Whether an image nested in a segment may begin with `word` followed by a segment of this length.
bool opensNested(int word, int length)
{
    switch (word) {
    case DQT: return length < 198;
    case DHT: return length < 419;
    case APP0: return length < 17;
    case SOF0: return length < 18;
    case SOS:
    case APP13: return length < 13;
    case APP1:
    case APP2:
    case APP14: return true;
    default: return false;
    }
}

} // namespace

void Walker::addNode(qint64 at)
{
    const int marker = wordAt(at);
    const bool plain = !r.bContainerWalk && !secondImage;
    WalkNode node;
    node.wMarker = quint16(marker);
    node.nOffset = at + 2;
    if (lengthAt(at) < size - at) node.wLength = quint16(lengthAt(at));
    if (marker == EOI && !r.nodes.empty()) node.wLength = 0;
    if ((marker == EOI || marker == SOI) && plain) node.wLength = 0;
    if ((marker == EOI || marker == SOI) && plain) ++r.nNestedImages;
    addAtMarker(at, node);
    // An image open at offset 0 leaves nothing but zeros in the tables.
    while (!node.nestedStart.empty() && node.nestedStart.back() == 0 && node.nestedLength.back() == 0) {
        node.nestedStart.pop_back();
        node.nestedLength.pop_back();
    }
    r.nodes.push_back(node);
}

void Walker::addAtMarker(qint64 at, WalkNode &node)
{
    const int length = lengthAt(at);
    switch (node.wMarker) {
    case APP1: searchSegment(node, at, at + length, node.nApp1Nested); break;
    case APP2: searchSegment(node, at, at + length, node.nApp2Nested); break;
    case APP13: searchSegment(node, at, at + length + 2, node.nApp13Nested); break;
    case SOI:
        if (r.bContainerWalk) {
            searchOne(node, at);
        } else if (secondImage) {
            searchToEnd(node, at);
        }
        break;
    case DQT: readQuantHeads(at, node.wLength); break;
    case DHT:
        if (dhtUsable) ++r.nDhtCount;
        break;
    default:
        if (isFrame(node.wMarker)) readFrame(at);
    }
}

void Walker::open(WalkNode &node, qint64 at)
{
    ++r.nNestedImages;
    node.nestedStart.push_back(quint32(at));
    node.nestedLength.push_back(0);
}

void Walker::close(WalkNode &node, qint64 at)
{
    node.nestedLength.back() = qint32(at + 2 - node.nestedStart.back());
    if (node.nestedLength.back() > 0) r.bThumbFound = true;
}

void Walker::searchSegment(WalkNode &node, qint64 from, qint64 last, quint16 &count)
{
    bool isOpen = false;
    qint64 at = from;
    while (at <= last) {
        if (!isOpen && node.nestedStart.size() == 1024) return;
        if (wordAt(at) == SOI && !isOpen) {
            if (opensNested(wordAt(at + 2), wordAt(at + 4))) {
                open(node, at);
                ++count;
                isOpen = true;
            }
            at += 2;
        } else if (wordAt(at) == EOI && isOpen) {
            close(node, at);
            ++count;
            isOpen = false;
            at += 1;
        } else {
            at += 1;
        }
    }
}

void Walker::searchToEnd(WalkNode &node, qint64 from)
{
    bool isOpen = false;
    qint64 at = from;
    while (at <= size) {
        if (!isOpen && node.nestedStart.size() == 1024) return;
        if (wordAt(at) == SOI && !isOpen) {
            if (opensImage(wordAt(at + 2))) {
                open(node, at);
                ++node.nSoiNested;
                node.wSoiNestedFlag = 1;
                isOpen = true;
            }
            at += 2;
        } else if (wordAt(at) == EOI && isOpen) {
            close(node, at);
            ++node.nSoiNested;
            isOpen = false;
            at += 1;
        } else {
            at += 1;
        }
    }
}

void Walker::searchOne(WalkNode &node, qint64 from)
{
    bool isOpen = false;
    qint64 at = from;
    while (at <= size) {
        const int word = wordAt(at);
        if (word == SOI && !isOpen) {
            if (opensImage(wordAt(at + 2))) {
                open(node, at);
                ++node.nSoiNested;
                node.wSoiNestedFlag = 1;
                isOpen = true;
            }
            at += 2;
        } else if (word == EOI && isOpen) {
            close(node, at);
            ++node.nSoiNested;
            return;
        } else if (word == APP1 || word == APP2 || word == APP13) {
            at += lengthAt(at) + 2;
        } else {
            at += 1;
        }
    }
}

void Walker::readFrame(qint64 at)
{
    const qint64 header = at + 2;
    r.nImageWidth = quint16(wordAt(header + 5));
    r.nThirdQuantSelector = quint8(byteAt(header + 16));
    if (r.nodes.empty()) r.nFirstSampling = quint8(byteAt(header + 9));
}

QuantHead Walker::headAt(qint64 at) const
{
    QuantHead head;
    for (int i = 0; i < 25; ++i) head[size_t(i)] = quint8(byteAt(at + i));
    return head;
}

void Walker::readQuantHeads(qint64 at, int length)
{
    if (length == 67) {
        ++r.nDqt67Count;
        if (r.nDqt67Count == 1) r.aQuantHead1 = headAt(at + 5);
        if (r.nDqt67Count == 2) r.aQuantHead2 = headAt(at + 5);
        if (r.nDqt67Count == 3) r.aQuantHead3 = headAt(at + 5);
    }
    if (length == 132 || length == 197) {
        r.aQuantHead1 = headAt(at + 5);
        r.aQuantHead2 = headAt(at + 70);
    }
    if (length == 197) r.aQuantHead3 = headAt(at + 135);
}

/// DQT, DHT and frame header: the offset at which the walk goes on.
qint64 Walker::tableOrFrame(qint64 at, int word)
{
    const int length = lengthAt(at);
    if (word == DQT) {
        dqtSeen = true;
        seenDqt = true;
        ++dqtCount;
    } else if (word == DHT) {
        dhtUsable = length < 419;
        if (dhtUsable) seenDht = true;
    } else {
        seenSof = true;
    }

    qint64 next = at + 2;
    if (dhtUsable || dqtSeen) {
        addNode(at);
        next = at + length + 2;
    }
    countGap(next);
    return next;
}

void Walker::countGap(qint64 from)
{
    for (qint64 at = from; at < size; ++at) {
        if (isSegment(wordAt(at))) return;
        if (!seenDqt) continue;
        if (dqtCount == 1) ++r.nGapAfterDqt1;
        if (dqtCount == 2) ++r.nGapAfterDqt2;
        if (dqtCount == 3) ++r.nGapAfterDqt3;
    }
}

bool Walker::isFault(qint64 at) const
{
    return byteAt(at) == 0xFF && byteAt(at + 1) != 0 && !isSegment(wordAt(at));
}

} // namespace stepping
