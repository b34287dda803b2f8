// TIFF-based formats of both byte orders whose picture hangs in the maker note: NEF, PEF, DNG, ERF.

#include "engine/raw/RawFormats.h"

namespace {

constexpr quint16 kExif = 0x8769;
constexpr quint16 kMakerNote = 0x927C;
constexpr quint16 kPreview = 0x0011;
constexpr auto kBoth = TagForms::Both;

/// Sets the byte order and reads the first directory's count, which is believed to stand at 8 whatever the header says.
/// 0 if it can't be walked.
quint16 firstCount(RawFields &fields)
{
    // Whatever isn't the one header counts as the other; nothing is refused.
    fields.setBigEndian(!fields.holdsTiffHeader(0, false));
    const quint16 count = fields.word(8);
    return RawFields::isWalkable(count) ? count : 0;
}

/// Offset of the maker note; nothing where a directory on the way can't be walked. With `bytes` other than 0 the Exif
/// directory is walked so far, else as far as it goes.
std::optional<quint32> makerNote(RawFields &fields, quint16 firstCount, quint32 bytes)
{
    const quint32 exif = fields.valueOf(10, RawFields::directoryBytes(firstCount), kExif, kBoth);
    const quint16 count = fields.word(exif);
    if (!RawFields::isWalkable(count)) return {};
    return fields.valueOf(quint64(exif) + 2, bytes ? bytes : RawFields::directoryBytes(count), kMakerNote, kBoth);
}

/// The preview in a maker note that has a TIFF structure of its own at `base`. Its walks go on for as long as the file's
/// first directory is, the preview's own included.
RawImages nikonPreview(RawFields &fields, quint32 base, quint32 bytes, bool goesOn)
{
    if (!RawFields::isWalkable(fields.word(quint64(base) + 8))) return {};
    const quint32 preview = fields.valueOf(quint64(base) + 10, bytes, kPreview, kBoth) + base;
    if (!RawFields::isWalkable(fields.word(preview))) return {};
    return {fields.pair(quint64(preview) + 2, bytes, {.forms = kBoth, .goesOn = goesOn, .base = base}), {}};
}

} // namespace

RawImages followNef(RawFields &fields)
{
    const quint16 count = firstCount(fields);
    if (count == 0) return {};
    const quint32 bytes = RawFields::directoryBytes(count);
    const auto note = makerNote(fields, count, bytes);
    if (!note || !fields.holds(*note, "Nikon")) return {};
    return nikonPreview(fields, *note + 10, bytes, true);
}

RawImages followDng(RawFields &fields)
{
    constexpr quint32 kReach = 50; // of the search for the maker note's own header in the converter's data
    const quint16 count = firstCount(fields);
    if (count == 0) return {};
    const quint32 bytes = RawFields::directoryBytes(count);
    const auto entry = fields.find(10, bytes, 0xC634, kBoth);
    if (!entry) return {};
    const quint32 data = fields.dword(*entry + 8);
    const auto base = fields.findTiffHeader(data, data + kReach);
    return base ? nikonPreview(fields, *base, bytes, false) : RawImages();
}

RawImages followErf(RawFields &fields)
{
    const quint16 count = firstCount(fields);
    if (count == 0) return {};
    const quint32 bytes = RawFields::directoryBytes(count);
    const auto note = makerNote(fields, count, bytes);
    if (!note || !fields.holds(*note, "EPSON\0\1\0")) return {};
    if (!RawFields::isWalkable(fields.word(quint64(*note) + 8))) return {};
    const auto entry = fields.find(quint64(*note) + 10, bytes, 0x0280, kBoth);
    if (!entry) return {};
    // The picture is the value of this one entry: its count is the picture's length.
    const quint32 length = fields.dword(*entry + 4);
    return {{fields.dword(*entry + 8) + 1, length}, {}};
}

namespace {

/// Pentax: the note's entries aren't walked, two places in it are tested.
RawImage pentaxPreview(RawFields &fields, quint32 note)
{
    RawImage image;
    if (!fields.holds(note, "AOC\0")) return image;
    quint32 base = note + 32;
    if (fields.holds(base, "\0\3")) {
        image.length = fields.dword(quint64(note) + 40);
        base = note + 52;
        image.start = fields.dword(base);
    }
    if (fields.holds(base + 12, "\0\3")) {
        image.length = fields.dword(quint64(base) + 20);
        image.start = fields.dword(quint64(base) + 32);
    }
    return image;
}

} // namespace

RawImages followPef(RawFields &fields)
{
    const quint16 first = firstCount(fields);
    if (first == 0) return {};
    RawImages images;
    if (const auto note = makerNote(fields, first, 0)) images.first = pentaxPreview(fields, *note);

    const quint32 next = fields.dword(8 + RawFields::directoryBytes(first));
    if (next + 4 >= fields.size()) return images;
    const quint16 count = fields.word(next);
    if (!RawFields::isWalkable(count)) return images;
    images.second = fields.pair(quint64(next) + 2, RawFields::directoryBytes(count), {.forms = kBoth, .goesOn = true});
    return images;
}
