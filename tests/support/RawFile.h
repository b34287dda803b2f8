// Containers byte by byte: fields, directories and pictures at places that the caller picks.
#pragma once

#include <QByteArray>

#include <vector>

/// An entry of a TIFF directory. The value is stored as it is read back: a number of 32 bits in the file's byte order.
struct TiffEntry
{
    int tag;
    quint32 value;
    int type = 4; ///< LONG; a SHORT's value belongs in the upper half in big-endian files
    quint32 count = 1;
};

/// Grows as things are put into it. What nothing is put on is 33, which is no tag, no count and no marker.
class RawFile
{
public:
    explicit RawFile(bool bigEndian = false, int size = 0) : m_big(bigEndian), m_bytes(size, 0x33) {}

    RawFile &put(int at, const QByteArray &bytes);
    RawFile &word(int at, quint32 value);
    RawFile &dword(int at, quint32 value);
    /// "II" or "MM", 42, and the offset of the first directory.
    RawFile &header(int at = 0, quint32 first = 8);
    /// The count (or another one that is claimed), the entries, and the offset of the next directory.
    RawFile &directory(int at, const std::vector<TiffEntry> &entries, quint32 next = 0, int claimed = -1);
    /// A picture as carves and confirmations see one: FF D8 FF DB, filler, FF D9; `length` bytes in all.
    RawFile &picture(int at, int length);
    RawFile &cut(int size);

    bool isBig() const { return m_big; }
    int size() const { return m_bytes.size(); }
    QByteArray bytes() const { return m_bytes; }
    operator QByteArray() const { return m_bytes; }

private:
    RawFile &number(int at, quint32 value, int bytes);
    bool m_big;
    QByteArray m_bytes;
};
