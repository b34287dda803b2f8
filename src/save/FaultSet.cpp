#include "save/FaultSet.h"

#include "app/KesmiraApp.h"
#include "engine/SegmentList.h"

void FaultSet::takeChain()
{
    while (tagScanFault *run = pApp->pScanFaultHead) {
        run->forEach([this](qint64 distance) {
            if (distance >= 0) m_chunks[distance / kChunk].set(size_t(distance % kChunk));
        });
        pApp->pScanFaultHead = run->pNext;
        delete run;
    }
    pApp->pScanFaultTail = nullptr;
}

qint64 FaultSet::count() const
{
    qint64 codes = 0;
    for (const auto &[chunk, set] : m_chunks) codes += qint64(set.count());
    return codes;
}

qint64 FaultSet::last() const
{
    if (m_chunks.empty()) return -1;
    const auto &[chunk, codes] = *m_chunks.rbegin();
    int i = kChunk - 1;
    while (!codes[size_t(i)]) --i;
    return chunk * kChunk + i;
}
