#include "support/SteppingWalker.h"

using namespace stepping;

namespace {

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
