// The fields of a raw container, read by absolute offset, and the walks over its directories.
#pragma once

#include "engine/FileWindow.h"

#include <optional>

/// A picture stored in a raw file: file offset and bytes; both 0 where none was found.
struct RawImage
{
    quint32 start = 0;
    quint32 length = 0;
    bool operator==(const RawImage &) const = default;
};

struct RawImages
{
    RawImage first;
    RawImage second;
    bool operator==(const RawImages &) const = default;
};

/// Tags that a walk takes: as they stand in a little-endian file, or with their two bytes exchanged as well.
enum class TagForms { Plain, Both };

/// How the entry of a picture's start is looked for. The entry of its length has to be the next one.
struct PairWalk
{
    TagForms forms = TagForms::Plain;
    bool goesOn = false; ///< behind a start without a length, leaving out one more entry; else the first start ends it
    bool guardsStart = false; ///< the start is read only where it lies inside the file
    bool guardsLength = false;
    quint32 base = 0; ///< added to the start
    quint16 startTag = 0x0201;
    quint16 lengthTag = 0x0202;
};

/// Every field goes through one scratch value of four bytes, which is what damaged files bring to light: a read that is
/// left out leaves there what the read before gave. Offsets and sums are numbers of 32 bits and run over as such.
class RawFields
{
public:
    explicit RawFields(FileWindow &file) : m_file(file) {}

    FileWindow &file() { return m_file; }
    quint32 size() const { return quint32(m_file.size()); }
    /// Byte order of what word() and dword() give; tags are never swapped.
    void setBigEndian(bool bigEndian) { m_bigEndian = bigEndian; }

    /// True if these very bytes stand at `at`.
    template<size_t N>
    bool holds(quint32 at, const char (&text)[N])
    {
        return holds(at, text, int(N - 1));
    }
    /// True if a TIFF header of this byte order, with its first directory right behind it, stands at `at`.
    bool holdsTiffHeader(quint32 at, bool bigEndian);
    /// Offset of the first TIFF header of either order, whose byte order is then set. Nothing where there is none, or
    /// where a stop was asked for.
    std::optional<quint32> findTiffHeader(quint32 from, quint32 end);

    quint16 word(quint64 at);
    quint32 dword(quint64 at);
    /// Reads if `inside`, else gives once more what the last read left.
    quint16 wordIf(bool inside, quint64 at);
    quint32 dwordIf(bool inside, quint64 at);
    /// Reads at `at` if `inside`, else right behind the last field read.
    quint16 wordAtOrNext(bool inside, quint64 at) { return word(inside ? at : m_next); }
    quint32 dwordAtOrNext(bool inside, quint64 at) { return dword(inside ? at : m_next); }
    /// Offset behind the last field read.
    quint64 next() const { return m_next; }

    /// Offset of the first entry with this tag among those that begin in the `bytes` behind `first`.
    std::optional<quint64> find(quint64 first, quint64 bytes, quint16 tag, TagForms forms);
    /// The value of that entry, 0 where there is none.
    quint32 valueOf(quint64 first, quint64 bytes, quint16 tag, TagForms forms);
    /// The picture whose start and length stand in two entries behind each other. A start without a length is kept.
    RawImage pair(quint64 first, quint64 bytes, const PairWalk &walk);

    static constexpr quint32 kEntry = 12;
    /// Bytes of a directory with `count` entries, without the offset of the next one. As a walk's length it is two bytes
    /// more than the entries take, so that the place behind the last one is looked at too.
    static quint32 directoryBytes(quint16 count) { return count * kEntry + 2; }
    /// False for a number of entries that no directory worth walking has.
    static bool isWalkable(quint16 count, quint16 most = 76) { return count >= 1 && count <= most; }

private:
    bool holds(quint32 at, const char *text, int count);
    void read(quint64 at, int count);
    quint16 tag(quint64 at);
    static bool matches(quint16 tag, quint16 wanted, TagForms forms);

    FileWindow &m_file;
    bool m_bigEndian = false;
    quint8 m_scratch[4] = {};
    quint64 m_next = 0;
};
