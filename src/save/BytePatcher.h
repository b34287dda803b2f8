// Sets single bytes of a file that has just been written to zero, many at a time.
#pragma once

#include <QtGlobal>

#include <cstdio>
#include <vector>

/// Works on the file in blocks, so that millions of bytes in ascending order cost one pass over it. The position of the
/// stream is undefined afterwards. Nothing is sure to be written before finish().
class BytePatcher
{
public:
    explicit BytePatcher(FILE *file);
    BytePatcher(const BytePatcher &) = delete;
    BytePatcher &operator=(const BytePatcher &) = delete;

    /// Bytes that the file had at first.
    qint64 size() const { return m_size; }
    /// Zeroes one byte. A place behind the file's end stretches the file with zeros up to and including it.
    void zero(qint64 offset);
    /// Writes what is left. False, with a full disk noted in the report of `pApp`, if any of it could not be written.
    bool finish();

private:
    void moveTo(qint64 block);
    void flush();

    static constexpr qint64 kBlock = 64 * 1024;
    int m_fd;
    qint64 m_size = 0;
    qint64 m_end = 0; // what the file must reach
    qint64 m_start = -kBlock;
    bool m_dirty = false;
    bool m_lost = false;
    std::vector<char> m_block;
};
