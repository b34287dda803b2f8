// The only reader of files under analysis, and the only place where an offset meets a file's size.
#pragma once

#include "engine/BlockSource.h"

#include <QString>

#include <algorithm>
#include <memory>
#include <vector>

/// A window of bounded size over a source. Reads go by absolute offset; past the end, and where the medium refuses,
/// they give zeros: the whole page of 4,096 bytes that was refused. Memory does not grow with the file, and no result
/// depends on the block size.
class FileWindow
{
public:
    static constexpr int kBlockSize = 256 * 1024;

    /// The source must outlive the window.
    explicit FileWindow(BlockSource &source, int blockSize = kBlockSize);
    /// Opens a file of its own; isOpen() tells whether that worked.
    explicit FileWindow(const QString &path, int blockSize = kBlockSize);

    bool isOpen() const { return m_source != nullptr; }
    quint64 size() const { return m_size; }

    quint8 byteAt(quint64 offset)
    {
        if (offset - m_start < m_filled) return m_block[size_t(offset - m_start)];
        return byteOutside(offset);
    }
    /// The two bytes at `offset` as one number in file order, so FF D8 reads as 0xFFD8.
    quint16 wordAt(quint64 offset)
    {
        // The offset in front of 0 wraps to the last one there is, which has no next.
        return quint16(byteAt(offset) << 8 | byteAt(std::max(offset, offset + 1)));
    }
    /// Fills `to` with `count` bytes from `offset`.
    void read(quint64 offset, void *to, qint64 count);
    /// Offset of the next FF in [from, end), or `end` where there is none or a stop was asked for.
    quint64 nextFF(quint64 from, quint64 end) { return nextByte(0xFF, from, end); }
    /// The same for any byte; with `stops` false a stop doesn't end the search.
    quint64 nextByte(quint8 value, quint64 from, quint64 end, bool stops = true);
    /// Offset of the last FF in [begin, from], or `begin` - 1 (wrapping) where there is none or a stop was asked for.
    quint64 previousFF(quint64 from, quint64 begin);

private:
    quint8 byteOutside(quint64 offset);
    void load(quint64 offset, bool backwards = false);
    void loadByPages();

    std::unique_ptr<BlockSource> m_own;
    BlockSource *m_source = nullptr;
    quint64 m_size = 0;
    quint64 m_start = 0;    // offset of the block in hand
    quint64 m_filled = 0;   // bytes in it
    bool m_watched = false; // what is refused is noted, see MediumFaults.h
    int m_blockSize;
    std::vector<quint8> m_block;
};
