// Where the bytes of a file under analysis come from: a file on a medium that may fail, or a part of one.
#pragma once

#include <QString>
#include <QtGlobal>

/// Delivers blocks of bytes by absolute offset.
class BlockSource
{
public:
    virtual ~BlockSource() = default;
    /// Bytes in all; fixed for the life of the source.
    virtual quint64 size() const = 0;
    /// Reads `count` bytes, all inside the size. False: the medium refused, and `to` holds nothing of use.
    virtual bool read(quint64 offset, char *to, qint64 count) = 0;
};

/// A file, opened for reading only and read by `pread`. Bytes that a shrinking file no longer has read as zeros.
class FileSource : public BlockSource
{
public:
    /// Opens `path`; isOpen() tells whether that worked. A folder or a device does not open.
    explicit FileSource(const QString &path);
    /// Takes over a descriptor that is open for reading, of a file of `size` bytes.
    FileSource(int descriptor, quint64 size) : m_fd(descriptor), m_size(size) {}
    ~FileSource() override;
    FileSource(const FileSource &) = delete;
    FileSource &operator=(const FileSource &) = delete;

    bool isOpen() const { return m_fd >= 0; }
    /// For whoever reads the file elsewhere; it stays this object's. -1 where it isn't open.
    int descriptor() const { return m_fd; }
    quint64 size() const override { return m_size; }
    bool read(quint64 offset, char *to, qint64 count) override;

private:
    int m_fd = -1;
    quint64 m_size = 0;
};
