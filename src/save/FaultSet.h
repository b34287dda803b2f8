// Where the scans of a stream's images had illegal codes: each distance once, however many images had one there.
#pragma once

#include <QtGlobal>

#include <bitset>
#include <map>

/// Distances in bytes from the SOS marker. Grows with the distinct ones alone, so that a stream of many damaged images
/// costs no more time for the last of them than for the first.
class FaultSet
{
public:
    /// Moves the codes of the fault chain of `pApp` into the set; the chain is empty afterwards.
    void takeChain();
    void clear() { m_chunks.clear(); }
    qint64 count() const;
    /// Calls `visit` for each distance under `end`, in ascending order.
    template<typename Visit>
    void forEach(qint64 end, Visit visit) const
    {
        for (const auto &[chunk, codes] : m_chunks) {
            const qint64 begin = chunk * kChunk;
            if (begin >= end) return;
            for (int i = 0; i < kChunk && begin + i < end; ++i)
                if (codes[size_t(i)]) visit(begin + i);
        }
    }
    /// The largest distance, -1 if there is none.
    qint64 last() const;

private:
    static constexpr int kChunk = 4096;
    std::map<qint64, std::bitset<kChunk>> m_chunks;
};
