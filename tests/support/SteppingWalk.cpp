#include "support/SteppingWalk.h"

#include <QStringList>

#include <algorithm>

namespace {

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

bool isSegment(int word)
{
    if (word >= 0xFFE0 && word <= 0xFFEF) return true; // APP0 to APP15
    if (word >= 0xFFD0 && word <= 0xFFD7) return true; // RST0 to RST7
    switch (word) {
    case 0xFFC0:
    case 0xFFC1:
    case 0xFFC2:
    case 0xFFC3:
    case 0xFFC4:
    case 0xFFC5:
    case 0xFFC6:
    case 0xFFC7:
    case 0xFFC8:
    case 0xFFC9:
    case 0xFFCA:
    case 0xFFCB:
    case 0xFFCD:
    case 0xFFCE:
    case 0xFFCF:
    case 0xFFD9:
    case 0xFFDA:
    case 0xFFDB:
    case 0xFFDD:
    case 0xFFFE:
        return true;
    default:
        return false;
    }
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

/// Whether an image nested in a segment may begin with `word` followed by a segment of this length.
bool opensNested(int word, int length)
{
    switch (word) {
    case DQT:
        return length < 198;
    case DHT:
        return length < 419;
    case APP0:
        return length < 17;
    case SOF0:
        return length < 18;
    case SOS:
    case APP13:
        return length < 13;
    case APP1:
    case APP2:
    case APP14:
        return true;
    default:
        return false;
    }
}

/// What all walks share: reading, making nodes, and the parts of their loops that are alike.
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
    case APP1:
        searchSegment(node, at, at + length, node.nApp1Nested);
        break;
    case APP2:
        searchSegment(node, at, at + length, node.nApp2Nested);
        break;
    case APP13:
        searchSegment(node, at, at + length + 2, node.nApp13Nested);
        break;
    case SOI:
        if (r.bContainerWalk) {
            searchOne(node, at);
        } else if (secondImage) {
            searchToEnd(node, at);
        }
        break;
    case DQT:
        readQuantHeads(at, node.wLength);
        break;
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

/// Walk of a whole file.
class FileWalker : public Walker
{
public:
    explicit FileWalker(const QByteArray &bytes) : Walker(bytes, {}) {}

    int boundaryCount() const;
    void run();

private:
    void containerWalk();
    void plainWalk();
    qint64 step(qint64 at);
    qint64 atSoi(qint64 at);
    qint64 atScan(qint64 at);
    qint64 behindScan(qint64 at);
};

int FileWalker::boundaryCount() const
{
    int count = 0;
    bool inImage = false;
    for (qint64 at = 0; at < size; ++at) {
        if (wordAt(at) == SOI && !inImage) {
            if (!opensImage(wordAt(at + 2))) continue;
            ++count;
            inImage = true;
            at += 2;
        } else if (wordAt(at) == EOI && inImage) {
            ++count;
            inImage = false;
            at += 2;
        }
    }
    return count;
}

void FileWalker::run()
{
    const int count = boundaryCount();
    const bool wholeImage = wordAt(0) == SOI && wordAt(size - 2) == EOI;
    r.bContainerWalk = count >= 6 || (count >= 4 && !wholeImage);
    if (r.bContainerWalk) {
        containerWalk();
    } else {
        plainWalk();
    }
}

void FileWalker::containerWalk()
{
    for (qint64 at = 0; at < size; ++at) {
        r.bSteppedOverBytes = true;
        if (wordAt(at) != SOI || !opensImage(wordAt(at + 2))) continue;
        addNode(at);
        at += 2;
    }
}

void FileWalker::plainWalk()
{
    qint64 at = 0;
    while (at < size) at = step(at);
}

qint64 FileWalker::step(qint64 at)
{
    const int word = wordAt(at);
    if (word == SOI) return atSoi(at);
    if (!isSegment(word)) {
        r.bSteppedOverBytes = true;
        return at + 1;
    }
    if (word == DQT || word == DHT || isFrame(word)) return tableOrFrame(at, word);
    if (word == SOS && seenDqt && seenSof && seenDht) return atScan(at);
    if (word == EOI && at + 2 >= size) {
        addNode(at);
        return size;
    }
    if (word == EOI || word == SOS) {
        r.bSteppedOverBytes = true;
        return at + 2;
    }
    if (soiCount == 0) return size;
    addNode(at);
    return at + 2 + lengthAt(at);
}

qint64 FileWalker::atSoi(qint64 at)
{
    const int before = soiCount++;
    if (before == 0 && at == 0) {
        addNode(0);
        return 2;
    }
    if (before == 1) {
        secondImage = true;
        addNode(at);
        return size - 2;
    }
    for (qint64 end = at + 2; end <= size - 3; ++end) {
        if (wordAt(end) == EOI) return end + 2;
    }
    return at + 2;
}

qint64 FileWalker::atScan(qint64 at)
{
    addNode(at);
    r.nScanOffset = quint32(at);
    const qint64 data = at + 2 + lengthAt(at);
    for (qint64 q = data; q + 1 < size; ++q) {
        if (wordAt(q) == EOI) return behindScan(q);
        if (isFault(q)) r.faults.push_back(q - at);
    }
    return size;
}

qint64 FileWalker::behindScan(qint64 at)
{
    qint64 last = size - 2;
    while (at < size) {
        if (wordAt(at) != SOI) {
            at += 1;
            last = at - 2;
            continue;
        }
        r.bTrailingImages = true;
        secondImage = true;
        addNode(at);
        at += 2;
        last = at;
    }
    addNode(last);
    return size;
}

/// Walk of a working copy.
class CopyWalker : public Walker
{
public:
    CopyWalker(const QByteArray &bytes, const CopyWalk &setup) : Walker(bytes, setup.before), m_stays(setup.stays)
    {
        r.bContainerWalk = setup.container;
    }

    void run();

private:
    qint64 step(qint64 at);
    qint64 atSoi(qint64 at);
    qint64 atScan(qint64 at);

    int m_stays;
};

void CopyWalker::run()
{
    qint64 at = 0;
    while (at < size && m_stays >= 0) at = step(at);
}

qint64 CopyWalker::step(qint64 at)
{
    const int word = wordAt(at);
    if (word == SOI) return atSoi(at);
    if (!isSegment(word)) {
        r.bSteppedOverBytes = true;
        return at + 1;
    }
    if (word == DQT || word == DHT || isFrame(word)) return tableOrFrame(at, word);
    if (word == SOS && seenDqt && seenSof && seenDht) return atScan(at);
    if (word == SOS) {
        r.bSteppedOverBytes = true;
        return at + 2;
    }
    if (word == EOI) {
        addNode(at);
        return size;
    }
    if (soiCount == 0) return size;
    addNode(at);
    return at + 2 + lengthAt(at);
}

qint64 CopyWalker::atSoi(qint64 at)
{
    const int before = soiCount++;
    if (before == 0 && at == 0) {
        addNode(0);
        return 2;
    }
    if (before == 1) {
        secondImage = true;
        addNode(at);
        return size - 2;
    }
    if (before > 1) --m_stays;
    return at; // the first SOI, away from the start, is met again and is then the second one
}

qint64 CopyWalker::atScan(qint64 at)
{
    addNode(at);
    r.nScanOffset = quint32(at);
    for (qint64 q = at + 2 + lengthAt(at); q < size; ++q) {
        if (wordAt(q) == EOI && q == size - 2) {
            addNode(q);
            return size;
        }
        if (isFault(q)) r.faults.push_back(q - at);
    }
    return size;
}

WalkResult walkCopy(const QByteArray &copy, const CopyWalk &setup)
{
    CopyWalker walker(copy, setup);
    walker.run();
    return walker.r;
}

template<typename T>
void compare(QStringList &lines, const char *name, const T &actual, const T &expected)
{
    if (actual != expected) lines << QString("%1 is %2, not %3").arg(name).arg(actual).arg(expected);
}

QString hex(const QuantHead &head)
{
    return QByteArray(reinterpret_cast<const char *>(head.data()), int(head.size())).toHex(' ');
}

void compareNodes(QStringList &lines, const WalkResult &actual, const WalkResult &expected)
{
    const size_t count = std::max(actual.nodes.size(), expected.nodes.size());
    for (size_t i = 0; i < count && lines.isEmpty(); ++i) {
        const bool both = i < actual.nodes.size() && i < expected.nodes.size();
        if (both && actual.nodes[i] == expected.nodes[i]) continue;
        const auto text = [i](const WalkResult &r) {
            return i < r.nodes.size() ? describeNode(r.nodes[i]) : QString("missing");
        };
        lines << QString("node %1 is [%2], not [%3]").arg(i).arg(text(actual), text(expected));
    }
}

void compareFaults(QStringList &lines, const WalkResult &actual, const WalkResult &expected)
{
    const size_t count = std::min(actual.faults.size(), expected.faults.size());
    for (size_t i = 0; i < count; ++i) {
        if (actual.faults[i] == expected.faults[i]) continue;
        lines << QString("fault %1 is %2, not %3").arg(i).arg(actual.faults[i]).arg(expected.faults[i]);
        return;
    }
    compare(lines, "the number of faults", actual.faults.size(), expected.faults.size());
}

} // namespace

int steppingBoundaryCount(const QByteArray &file)
{
    return FileWalker(file).boundaryCount();
}

WalkResult steppingWalk(const QByteArray &file)
{
    FileWalker walker(file);
    walker.run();
    return walker.r;
}

WalkResult steppingTempWalk(const QByteArray &copy, const CopyWalk &setup)
{
    return walkCopy(copy, setup);
}

WalkResult steppingRawWalk(const QByteArray &copy, const CopyWalk &setup)
{
    CopyWalk fresh = setup;
    fresh.before.nDhtCount = 0;
    fresh.before.nDqt67Count = 0;
    return walkCopy(copy, fresh);
}

QString describeNode(const WalkNode &node)
{
    QString text = QString("%1 length %2 at %3").arg(node.wMarker, 4, 16, QChar('0')).arg(node.wLength).arg(node.nOffset);
    text += QString(", counts %1 %2 %3 %4 flag %5")
                .arg(node.nApp1Nested)
                .arg(node.nApp2Nested)
                .arg(node.nApp13Nested)
                .arg(node.nSoiNested)
                .arg(node.wSoiNestedFlag);
    for (size_t i = 0; i < node.nestedStart.size() && i < 8; ++i)
        text += QString(", nested %1+%2").arg(node.nestedStart[i]).arg(node.nestedLength[i]);
    if (node.nestedStart.size() > 8) text += QString(" and more, %1 in all").arg(node.nestedStart.size());
    return text;
}

QString describeDifference(const WalkResult &actual, const WalkResult &expected)
{
    QStringList lines;
    compare(lines, "bContainerWalk", actual.bContainerWalk, expected.bContainerWalk);
    compareNodes(lines, actual, expected);
    compareFaults(lines, actual, expected);
    compare(lines, "nScanOffset", actual.nScanOffset, expected.nScanOffset);
    compare(lines, "nGapAfterDqt1", actual.nGapAfterDqt1, expected.nGapAfterDqt1);
    compare(lines, "nGapAfterDqt2", actual.nGapAfterDqt2, expected.nGapAfterDqt2);
    compare(lines, "nGapAfterDqt3", actual.nGapAfterDqt3, expected.nGapAfterDqt3);
    compare(lines, "nDhtCount", actual.nDhtCount, expected.nDhtCount);
    compare(lines, "nDqt67Count", actual.nDqt67Count, expected.nDqt67Count);
    compare(lines, "aQuantHead1", hex(actual.aQuantHead1), hex(expected.aQuantHead1));
    compare(lines, "aQuantHead2", hex(actual.aQuantHead2), hex(expected.aQuantHead2));
    compare(lines, "aQuantHead3", hex(actual.aQuantHead3), hex(expected.aQuantHead3));
    compare(lines, "bTrailingImages", actual.bTrailingImages, expected.bTrailingImages);
    compare(lines, "bThumbFound", actual.bThumbFound, expected.bThumbFound);
    compare(lines, "bSteppedOverBytes", actual.bSteppedOverBytes, expected.bSteppedOverBytes);
    compare(lines, "nImageWidth", actual.nImageWidth, expected.nImageWidth);
    compare(lines, "nThirdQuantSelector", actual.nThirdQuantSelector, expected.nThirdQuantSelector);
    compare(lines, "nFirstSampling", actual.nFirstSampling, expected.nFirstSampling);
    compare(lines, "nNestedImages", actual.nNestedImages, expected.nNestedImages);
    return lines.isEmpty() ? QString() : lines.first();
}
