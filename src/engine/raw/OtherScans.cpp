// TIFF with a Photoshop thumbnail, and CRW, which is a CIFF heap.

#include "app/StopFlag.h"
#include "engine/raw/RawFormats.h"

namespace {

/// Offset of the first thumbnail resource at or behind `from`; the file's size where there is none.
quint64 findThumbnailResource(RawFields &fields, quint32 from)
{
    FileWindow &file = fields.file();
    const quint64 size = file.size();
    for (quint64 at = from; at < size && !stopRequested(); ++at) {
        at = file.nextByte('8', at, size);
        if (at >= size || file.byteAt(at + 1) != 'B') continue;
        if (fields.holds(quint32(at), "8BIM\x04\x09") || fields.holds(quint32(at), "8BIM\x04\x0C")) return at;
    }
    return size;
}

/// Offset behind the last FF D9 of the file that begins at or behind `from`; 0 where there is none.
quint64 behindLastEnd(FileWindow &file, quint64 from)
{
    for (quint64 at = file.size() - 1; at + 1 > from && !stopRequested(); --at) {
        at = file.previousFF(at, from);
        if (at + 1 <= from) break;
        if (file.byteAt(at + 1) == 0xD9) return at + 2;
    }
    return 0;
}

} // namespace

RawImages followTiff(RawFields &fields)
{
    fields.setBigEndian(!fields.holds(0, "II*\0"));
    const quint32 directory = fields.dword(4);
    const quint16 count = fields.word(directory);
    if (!RawFields::isWalkable(count)) return {};
    const quint64 first = quint64(directory) + 2;
    const quint32 bytes = RawFields::directoryBytes(count);
    const auto exif = fields.find(first, bytes, 0x8769, TagForms::Both);
    const auto resources = fields.find(first, bytes, 0x8649, TagForms::Both);
    quint32 from = 0;
    if (exif || resources) from = fields.dword(std::min(exif.value_or(~0ull), resources.value_or(~0ull)) + 8);

    const quint64 resource = findThumbnailResource(fields, from);
    const quint64 start = resource + 40;
    if (resource >= fields.size() || fields.file().wordAt(start) != 0xFFD8) return {};
    // Nothing tells where the thumbnail ends, so it takes all up to the last end of a picture along.
    const quint64 end = behindLastEnd(fields.file(), start);
    return {{quint32(start), end ? quint32(end - start) : 0}, {}};
}

RawImages followCrw(RawFields &fields)
{
    constexpr quint32 kHeap = 26;
    constexpr quint32 kCiffEntry = 10;
    if (!fields.holds(0, "II\x1A\0")) return {};
    const quint32 directory = fields.dword(quint64(fields.size()) - 4) + kHeap;
    const quint16 count = fields.word(directory);
    if (!RawFields::isWalkable(count)) return {};
    // Entries have 10 bytes, but room is left for 12: the walk runs on behind the last one.
    const quint64 end = quint64(directory) + 4 + count * RawFields::kEntry;
    for (quint64 at = quint64(directory) + 2; at < end && !stopRequested(); at += kCiffEntry) {
        if (fields.word(at) != 0x2007) continue;
        const quint32 length = fields.dword(at + 2);
        return {{fields.dword(at + 6) + kHeap, length}, {}};
    }
    return {};
}
