#include "engine/FileWindow.h"

#include "app/StopFlag.h"
#include "engine/MediumFaults.h"

#include <algorithm>
#include <cstring>

namespace {

// The unit in which a failing medium is believed: a page, which is also the sector of today's disks. A page that it
// refuses reads as zeros as a whole, whatever block touches it, so that no result depends on where blocks begin.
constexpr quint64 kPage = 4096;

// More than any walk reads behind a place that it looks at.
constexpr quint64 kHeadReach = 128;

constexpr quint64 pageBegin(quint64 offset)
{
    return offset / kPage * kPage;
}

} // namespace

FileWindow::FileWindow(BlockSource &source, int blockSize)
    : m_source(&source), m_size(source.size()), m_blockSize(std::max(1, blockSize))
{
}

FileWindow::FileWindow(const QString &path, int blockSize) : m_blockSize(std::max(1, blockSize))
{
    auto file = std::make_unique<FileSource>(path);
    if (!file->isOpen()) return;
    m_size = file->size();
    m_source = file.get();
    m_own = std::move(file);
    m_watched = isWatched(path);
}

quint8 FileWindow::byteOutside(quint64 offset)
{
    if (offset >= m_size) return 0;
    // Just in front of the block in hand someone is walking backwards.
    load(offset, m_filled > 0 && offset < m_start && m_start - offset <= quint64(m_blockSize));
    return m_block[size_t(offset - m_start)];
}

void FileWindow::load(quint64 offset, bool backwards)
{
    if (m_block.empty()) m_block.resize(size_t(std::min<quint64>(quint64(m_blockSize), m_size)));
    const quint64 blockBytes = m_block.size();
    m_start = offset;
    if (backwards) {
        // The head of a segment at `offset` stays in reach, or every look ahead of a backward walk would load twice.
        const quint64 ahead = std::clamp<quint64>(blockBytes / 2, 1, kHeadReach);
        m_start = offset + ahead > blockBytes ? offset + ahead - blockBytes : 0;
    }
    if (blockBytes >= kPage) // whole pages, which can be asked for in one go
        m_start = pageBegin(backwards ? std::min(m_start + kPage - 1, offset) : offset);
    if (blockBytes == m_size) m_start = 0;
    m_filled = std::min(blockBytes, m_size - m_start);

    const quint64 end = m_start + m_filled;
    const bool wholePages = m_start % kPage == 0 && (end % kPage == 0 || end == m_size);
    if (wholePages && m_source->read(m_start, reinterpret_cast<char *>(m_block.data()), qint64(m_filled))) return;
    loadByPages();
}

void FileWindow::loadByPages()
{
    char page[kPage];
    const quint64 end = m_start + m_filled;
    for (quint64 at = m_start; at < end;) {
        const quint64 begin = pageBegin(at);
        const quint64 next = std::min(begin + kPage, end);
        const quint64 count = std::min(kPage, m_size - begin);
        if (!m_source->read(begin, page, qint64(count))) {
            std::memset(page, 0, sizeof page);
            if (m_watched) noteRefused(begin, count);
        }
        std::memcpy(m_block.data() + (at - m_start), page + (at - begin), size_t(next - at));
        at = next;
    }
}

void FileWindow::read(quint64 offset, void *to, qint64 count)
{
    auto *out = static_cast<char *>(to);
    while (count > 0) {
        if (offset >= m_size) {
            std::memset(out, 0, size_t(count));
            return;
        }
        if (offset - m_start >= m_filled) load(offset);
        const quint64 inBlock = offset - m_start;
        const auto part = qint64(std::min<quint64>(m_filled - inBlock, quint64(count)));
        std::memcpy(out, m_block.data() + inBlock, size_t(part));
        out += part;
        offset += quint64(part);
        count -= part;
    }
}

quint64 FileWindow::nextByte(quint8 value, quint64 from, quint64 end, bool stops)
{
    const quint64 last = std::min(end, m_size);
    while (from < last) {
        if (from - m_start >= m_filled) {
            if (stops && stopRequested()) return end;
            load(from);
        }
        const quint64 inBlock = from - m_start;
        const quint64 part = std::min(m_filled - inBlock, last - from);
        const quint8 *begin = m_block.data() + inBlock;
        if (const void *hit = std::memchr(begin, value, size_t(part)))
            return from + quint64(static_cast<const quint8 *>(hit) - begin);
        from += part;
    }
    return end;
}

quint64 FileWindow::previousFF(quint64 from, quint64 begin)
{
    if (m_size == 0) return begin - 1;
    quint64 behind = std::min(from, m_size - 1) + 1;
    while (behind > begin) {
        const quint64 last = behind - 1;
        if (last - m_start >= m_filled) {
            if (stopRequested()) return begin - 1;
            load(last, true);
        }
        const quint64 first = std::max(begin, m_start);
        const quint8 *bytes = m_block.data() + (first - m_start);
        if (const void *hit = memrchr(bytes, 0xFF, size_t(behind - first)))
            return first + quint64(static_cast<const quint8 *>(hit) - bytes);
        behind = first;
    }
    return begin - 1;
}
