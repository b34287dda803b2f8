// Formats whose TIFF structure lies somewhere inside: RW2, RAF, MRW. Offsets count from its header.

#include "app/StopFlag.h"
#include "engine/raw/RawFormats.h"

#include <QtEndian>

namespace {

constexpr quint16 kStart = 0x0201;
constexpr auto kBoth = TagForms::Both;

/// Reads the count of the second directory, to which the first one leads; the fields then stand behind it. 0 if it can't
/// be walked. A place outside of the file is not gone to, and what stands behind the last field is read in its stead.
quint16 secondCount(RawFields &fields, quint32 base, quint32 bytes)
{
    const quint32 size = fields.size();
    const quint32 next = fields.dwordAtOrNext(bytes + 12 + base < size, base + bytes + 8);
    const quint16 count = fields.wordAtOrNext(next + 4 + base < size, base + next);
    return RawFields::isWalkable(count) ? count : 0;
}

/// Offset of the first start's tag at or behind `from`, at whatever byte it stands.
std::optional<quint64> searchStart(FileWindow &file, quint64 from)
{
    for (quint64 at = from; at < file.size() && !stopRequested(); ++at) {
        const quint16 word = file.wordAt(at);
        if (word == kStart || word == qbswap(kStart)) return at;
    }
    return {};
}

} // namespace

RawImages followRw2(RawFields &fields)
{
    const auto base = fields.findTiffHeader(0, fields.size());
    if (!base) return {};
    const quint32 bytes = RawFields::directoryBytes(fields.word(quint64(*base) + 8));
    if (secondCount(fields, *base, bytes) == 0) return {};
    // As far as the first directory is long.
    return {fields.pair(fields.next(), bytes, {.forms = kBoth, .base = *base}), {}};
}

RawImages followRaf(RawFields &fields)
{
    const quint32 size = fields.size();
    const auto base = fields.findTiffHeader(0, size);
    if (!base || *base + 4 >= size) return {};
    const quint16 first = fields.word(quint64(*base) + 8);
    const quint32 bytes = first == 0 || first >= size ? 0 : RawFields::directoryBytes(first);
    if (secondCount(fields, *base, bytes) == 0) return {};
    const auto entry = searchStart(fields.file(), fields.next());
    if (!entry) return {};
    RawImage image;
    image.start = fields.dword(*entry + 8) + *base;
    // The tag reads the same in both byte orders. Where the length isn't read the tag stands for it.
    if (fields.word(*entry + 12) == 0x0202) image.length = fields.dwordIf(*entry + 24 < size, *entry + 20);
    return {image, {}};
}

RawImages followMrw(RawFields &fields)
{
    const auto header = fields.findTiffHeader(0, fields.size());
    if (!header) return {};
    const quint64 base = *header;
    const quint16 count = fields.word(base + 8);
    if (!RawFields::isWalkable(count)) return {};
    // Near the file's end the limit is counted from 0, and the walk has no place to go.
    const quint64 limit = (base + 14 < fields.size() ? base + 10 : 0) + RawFields::directoryBytes(count);
    const quint32 exif =
        limit > base + 10 ? fields.valueOf(base + 10, limit - base - 10, 0x8769, kBoth) + *header : *header;
    const quint16 exifCount = fields.word(exif);
    if (!RawFields::isWalkable(exifCount)) return {};
    const quint32 note =
        fields.valueOf(quint64(exif) + 2, RawFields::directoryBytes(exifCount), 0x927C, kBoth) + *header;
    const quint16 noteCount = fields.word(note);
    if (!RawFields::isWalkable(noteCount)) return {};
    // The picture is expected one byte behind the place that its pointer names.
    return {fields.pair(quint64(note) + 2, RawFields::directoryBytes(noteCount),
                        {.forms = kBoth, .goesOn = true, .base = *header + 1, .startTag = 0x0088, .lengthTag = 0x0089}),
            {}};
}
