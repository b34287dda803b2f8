// Sources of bytes for tests: a plain array, and a medium that refuses some of its ranges.
#pragma once

#include "engine/BlockSource.h"

#include <QByteArray>

#include <cstring>
#include <utility>
#include <vector>

/// Delivers the bytes of an array, which it shares.
class ByteSource : public BlockSource
{
public:
    explicit ByteSource(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    quint64 size() const override { return quint64(m_bytes.size()); }
    bool read(quint64 offset, char *to, qint64 count) override
    {
        if (offset > size() || quint64(count) > size() - offset) qFatal("ByteSource: read outside the source");
        if (count > 0) std::memcpy(to, m_bytes.constData() + offset, size_t(count));
        ++m_reads;
        m_bytesRead += count;
        return true;
    }

    int reads() const { return m_reads; }
    qint64 bytesRead() const { return m_bytesRead; }

private:
    QByteArray m_bytes;
    int m_reads = 0;
    qint64 m_bytesRead = 0;
};

/// Refuses every read that touches one of its bad ranges, as a failing medium does, and leaves rubbish in the buffer.
class RefusingSource : public ByteSource
{
public:
    struct Range
    {
        quint64 begin;
        quint64 end; ///< first byte that can be read again
    };

    RefusingSource(const QByteArray &bytes, std::vector<Range> bad) : ByteSource(bytes), m_bad(std::move(bad)) {}

    bool read(quint64 offset, char *to, qint64 count) override
    {
        for (const Range &bad : m_bad) {
            if (offset >= bad.end || offset + quint64(count) <= bad.begin) continue;
            std::memset(to, 0xFF, size_t(count));
            ++m_refusals;
            return false;
        }
        return ByteSource::read(offset, to, count);
    }

    int refusals() const { return m_refusals; }

private:
    std::vector<Range> m_bad;
    int m_refusals = 0;
};
