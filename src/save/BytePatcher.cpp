#include "save/BytePatcher.h"

#include "app/KesmiraApp.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

BytePatcher::BytePatcher(FILE *file) : m_fd(::fileno(file))
{
    std::fflush(file);
    struct stat info = {};
    if (::fstat(m_fd, &info) == 0) m_size = m_end = info.st_size;
}

bool BytePatcher::finish()
{
    flush();
    // Behind the old end there is nothing but zeros, so a hole will do: it takes no room however far it reaches.
    if (m_end > m_size && ::ftruncate(m_fd, off_t(m_end)) != 0) m_lost = true;
    if (m_lost) pApp->report.reason = RepairReason::DiskFull;
    return !m_lost;
}

void BytePatcher::zero(qint64 offset)
{
    if (offset < 0) return;
    if (offset >= m_size) {
        m_end = std::max(m_end, offset + 1);
        return;
    }
    if (offset < m_start || offset >= m_start + kBlock) moveTo(offset / kBlock * kBlock);
    const auto at = size_t(offset - m_start);
    if (at >= m_block.size()) return; // the block could not be read
    m_block[at] = 0;
    m_dirty = true;
}

void BytePatcher::moveTo(qint64 block)
{
    flush();
    m_start = block;
    m_block.assign(size_t(std::min(kBlock, m_size - block)), 0);
    if (::pread(m_fd, m_block.data(), m_block.size(), off_t(block)) >= 0) return;
    m_lost = true;
    m_block.clear();
}

void BytePatcher::flush()
{
    const auto size = qint64(m_block.size());
    for (qint64 done = 0; m_dirty && done < size;) {
        const ssize_t put = ::pwrite(m_fd, m_block.data() + done, size_t(size - done), off_t(m_start + done));
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) {
            m_lost = true;
            break;
        }
        done += put;
    }
    m_dirty = false;
}
