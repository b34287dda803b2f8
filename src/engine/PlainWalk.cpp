#include "engine/PlainWalk.h"

#include "app/StopFlag.h"
#include "engine/Guards.h"
#include "engine/Markers.h"
#include "engine/NestedSearch.h"

#include <algorithm>

PlainWalk::PlainWalk(jpg_repair &engine, FileWindow &file, WalkKind kind, const ScanMap &map)
    : m_engine(engine), m_file(file), m_kind(kind), m_map(map), m_size(pApp->nFileSize), m_end(m_size)
{
}

void PlainWalk::run(quint64 start)
{
    for (quint64 at = start; at < m_end && !stopRequested();) at = step(at);
}

quint64 PlainWalk::steppedOver(quint64 at, quint64 next)
{
    pApp->bSteppedOverBytes = true;
    if (wholeFile()) pApp->report.bytesSteppedOver += qint64(next - at);
    return next;
}

quint16 PlainWalk::add(quint64 at)
{
    quint8 head[jpg_repair::kHeadBytes];
    m_engine.ReadDataFromCurrentOffset(&m_file, qint64(at), head, sizeof head);
    if (m_kind == WalkKind::StreamCopy)
        m_engine.AddListRaw(&pApp->pMainListRawHead, &pApp->pMainListRawTail, head, &m_file, qint64(at));
    else
        m_engine.AddList(&pApp->pMainListHead, &pApp->pMainListTail, head, &m_file, qint64(at));
    return quint16(head[2] << 8 | head[3]);
}

quint64 PlainWalk::step(quint64 at)
{
    const quint64 marker = m_file.nextFF(at, m_size);
    if (marker > at) return steppedOver(at, marker);

    const quint16 word = m_file.wordAt(at);
    switch (word) {
    case jpeg::SOI: return soi(at);
    case jpeg::DQT:
        m_engine.bDqtSeen = true;
        ++m_dqtCount;
        m_seenDqt = true;
        return segment(at);
    case jpeg::DHT: return dht(at);
    case jpeg::SOF0:
    case jpeg::SOF1:
    case jpeg::SOF2: m_seenSof = true; return segment(at);
    case jpeg::SOS: return m_seenDqt && m_seenSof && m_seenDht ? scan(at) : steppedOver(at, at + 2);
    case jpeg::EOI: return endOfImage(at);
    default: return jpeg::isSegmentMarker(word) ? otherSegment(at) : steppedOver(at, at + 1);
    }
}

quint64 PlainWalk::soi(quint64 at)
{
    const int met = m_soiCount++;
    if (met == 0 && at == 0) {
        add(at);
        return 2;
    }
    if (met == 1 && at != 0) {
        // All between here and the last two bytes is left to the search that the node begins.
        m_engine.bSecondImage = true;
        add(at);
        return m_size - 2;
    }
    if (!wholeFile()) {
        // A first SOI that isn't at 0 is met once more, as the second. A third one would be met for ever.
        return met == 0 ? at : m_end;
    }
    // A stray image in front of the first real segments is passed as a whole, unless its end is the file's own.
    const quint64 last = m_size < 2 ? 0 : m_size - 2;
    for (quint64 eoi = m_file.nextFF(at + 2, last); eoi < last && !stopRequested(); eoi = m_file.nextFF(eoi + 1, last))
        if (m_file.wordAt(eoi) == jpeg::EOI) {
            pApp->report.bytesSteppedOver += qint64(eoi + 2 - at);
            return eoi + 2;
        }
    pApp->report.bytesSteppedOver += 2;
    return at + 2;
}

quint64 PlainWalk::dht(quint64 at)
{
    // All four tables in one segment take 418 bytes; a longer one is no DHT of an encoder.
    const bool usable = m_file.wordAt(at + 2) < 419;
    m_engine.bDhtUsable = usable;
    if (usable) m_seenDht = true;
    return segment(at);
}

quint64 PlainWalk::segment(quint64 at)
{
    quint64 end = at;
    if (m_engine.bDhtUsable || m_engine.bDqtSeen)
        end += add(at);
    else if (wholeFile())
        pApp->report.bytesSteppedOver += 2;
    countGap(end + 2);
    return end + 2;
}

void PlainWalk::countGap(quint64 from)
{
    if (from >= m_size || stopRequested()) return;
    quint64 at = m_file.nextFF(from, m_size);
    while (at < m_size && !jpeg::isSegmentMarker(m_file.wordAt(at)) && !stopRequested())
        at = m_file.nextFF(at + 1, m_size);
    if (!m_seenDqt) return;
    quint16 *const gaps[] = {&pApp->nGapAfterDqt1, &pApp->nGapAfterDqt2, &pApp->nGapAfterDqt3};
    if (m_dqtCount >= 1 && m_dqtCount <= 3) *gaps[m_dqtCount - 1] = quint16(*gaps[m_dqtCount - 1] + (at - from));
}

quint64 PlainWalk::endOfImage(quint64 at)
{
    if (wholeFile() && at + 2 < m_size) return steppedOver(at, at + 2);
    add(at);
    return m_end;
}

quint64 PlainWalk::otherSegment(quint64 at)
{
    // Without an SOI only tables and frames are trusted; anything else says that this is no JPEG's beginning.
    if (m_soiCount == 0) return m_end;
    return at + 2 + add(at);
}

quint64 PlainWalk::scan(quint64 at)
{
    const quint64 data = at + 2 + add(at);
    pApp->nScanOffset = quint32(at);
    if (data >= m_size || stopRequested()) return data;

    const quint64 lastEnd = m_size - 2; // in a working copy only the file's own last word ends the scan
    for (quint64 q = m_map.next(m_file, data, m_size); q < m_size && !stopRequested();
         q = m_map.next(m_file, q + 1, m_size)) {
        const quint16 word = m_file.wordAt(q);
        if (word == jpeg::EOI) {
            if (wholeFile()) return behindScan(q);
            if (q == lastEnd) {
                add(q);
                return m_end;
            }
        } else if (!jpeg::isLegalInScan(word)) {
            addFault(q);
        }
    }
    return m_end;
}

void PlainWalk::addFault(quint64 at)
{
    const qint64 distance = qint64(at) - qint64(pApp->nScanOffset);
    if (pApp->pScanFaultHead && pApp->pScanFaultTail->add(distance)) return;
    auto *fault = new tagScanFault(distance);
    if (pApp->pScanFaultHead)
        pApp->pScanFaultTail->pNext = fault;
    else
        pApp->pScanFaultHead = fault;
    pApp->pScanFaultTail = fault;
}

quint64 PlainWalk::behindScan(quint64 eoi)
{
    // Every SOI behind the picture gets a node; one search serves them all.
    TrailingImages trailing(m_file, m_size, guards::kTrailingImages);
    m_engine.m_trailing = &trailing;
    bool lastWasSoi = false;
    for (quint64 at = m_map.next(m_file, eoi, m_size); at < m_size && !stopRequested();) {
        const bool isSoi = m_file.wordAt(at) == jpeg::SOI;
        lastWasSoi = isSoi && at + 2 >= m_size;
        if (isSoi) {
            pApp->bTrailingImages = true;
            m_engine.bSecondImage = true;
            add(at);
        }
        at = m_map.next(m_file, at + (isSoi ? 2 : 1), m_size);
    }
    m_engine.m_trailing = nullptr;
    // Normally this is the file's own EOI; where other bytes follow, the node stands for whatever word ends the file.
    const quint64 last = lastWasSoi ? m_size : m_size - 2;
    add(last);
    return m_end;
}
