// The walk from segment to segment of one JPEG, by its marker words: what all three walks of an image share.
#pragma once

#include "engine/ScanMap.h"
#include "engine/jpg_repair.h"

/// What is walked: a whole file, a working copy of one nested image, or a working copy cut out of a container stream.
enum class WalkKind { WholeFile, WorkingCopy, StreamCopy };

/// One walk. Gives exactly what looking at each position would give, but hops from FF to FF.
class PlainWalk
{
public:
    PlainWalk(jpg_repair &engine, FileWindow &file, WalkKind kind, const ScanMap &map);
    /// Walks from `start` to the end of the file or to a stop, adding nodes and faults to the chains of `pApp`.
    void run(quint64 start);

private:
    quint64 step(quint64 at);
    quint64 soi(quint64 at);
    quint64 dht(quint64 at);
    quint64 segment(quint64 at);
    quint64 endOfImage(quint64 at);
    quint64 otherSegment(quint64 at);
    quint64 scan(quint64 at);
    quint64 behindScan(quint64 eoi);
    void countGap(quint64 from);
    void addFault(quint64 at);
    quint64 steppedOver(quint64 at, quint64 next);
    quint16 add(quint64 at);
    bool wholeFile() const { return m_kind == WalkKind::WholeFile; }

    jpg_repair &m_engine;
    FileWindow &m_file;
    WalkKind m_kind;
    const ScanMap &m_map;
    quint64 m_size;
    quint64 m_end; // where the walk ends; any place from here on ends it

    int m_soiCount = 0;
    int m_dqtCount = 0;
    bool m_seenDqt = false;
    bool m_seenDht = false;
    bool m_seenSof = false;
};
