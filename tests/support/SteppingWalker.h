// What the slow walks share: reading, making nodes, and what is alike in their loops. Tests include
// SteppingWalk.h.
#pragma once

#include "support/SteppingWalk.h"

namespace stepping {

enum Word {
    SOF0 = 0xFFC0,
    SOF1 = 0xFFC1,
    SOF2 = 0xFFC2,
    DHT = 0xFFC4,
    SOI = 0xFFD8,
    EOI = 0xFFD9,
    SOS = 0xFFDA,
    DQT = 0xFFDB,
    APP0 = 0xFFE0,
    APP1 = 0xFFE1,
    APP2 = 0xFFE2,
    APP3 = 0xFFE3,
    APP13 = 0xFFED,
    APP14 = 0xFFEE
};

/// Markers that open or are a segment.
bool isSegment(int word);
/// Words that must follow an SOI for it to begin an image.
bool opensImage(int word);
bool isFrame(int word);

class Walker
{
public:
    Walker(const QByteArray &bytes, const WalkResult &before) : r(before), m_bytes(bytes), size(bytes.size()) {}

    WalkResult r;

protected:
    int byteAt(qint64 at) const { return at >= 0 && at < size ? quint8(m_bytes[int(at)]) : 0; }
    int wordAt(qint64 at) const { return byteAt(at) * 256 + byteAt(at + 1); }
    int lengthAt(qint64 at) const { return wordAt(at + 2); }

    void addNode(qint64 at);
    void addAtMarker(qint64 at, WalkNode &node);
    void searchSegment(WalkNode &node, qint64 from, qint64 last, quint16 &count);
    void searchToEnd(WalkNode &node, qint64 from);
    void searchOne(WalkNode &node, qint64 from);
    void open(WalkNode &node, qint64 at);
    void close(WalkNode &node, qint64 at);
    void readFrame(qint64 at);
    void readQuantHeads(qint64 at, int length);
    QuantHead headAt(qint64 at) const;

    qint64 tableOrFrame(qint64 at, int word);
    void countGap(qint64 from);
    bool isFault(qint64 at) const;

    const QByteArray &m_bytes;
    const qint64 size;
    int soiCount = 0;
    int dqtCount = 0;
    bool seenDqt = false;
    bool seenDht = false;
    bool seenSof = false;
    bool dhtUsable = false;
    bool dqtSeen = false;
    bool secondImage = false;
};

} // namespace stepping
