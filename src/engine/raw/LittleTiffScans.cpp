// TIFF-based formats that are little-endian only: CR2, NRW, ARW, SR2, SRF, ORF.

#include "engine/raw/RawFormats.h"

namespace {

bool holdsHeader(RawFields &fields)
{
    return fields.holdsTiffHeader(0, false);
}

/// The picture of the directory at `offset`.
RawImage pairOf(RawFields &fields, quint32 offset)
{
    const quint16 count = fields.word(offset);
    if (!RawFields::isWalkable(count)) return {};
    return fields.pair(quint64(offset) + 2, RawFields::directoryBytes(count), {.goesOn = true});
}

} // namespace

RawImages followCr2(RawFields &fields)
{
    if (!fields.holds(0, "II*\0") || !fields.holds(8, "CR\2\0")) return {};
    const quint32 bytes = RawFields::directoryBytes(fields.word(16));
    const quint32 next = fields.dwordIf(bytes + 20 < fields.size(), 16 + bytes);
    const quint16 count = fields.wordIf(next + 4 < fields.size(), next);
    if (!RawFields::isWalkable(count, 54)) return {};
    return {fields.pair(quint64(next) + 2, RawFields::directoryBytes(count), {.goesOn = true, .guardsStart = true}),
            {}};
}

RawImages followNrw(RawFields &fields)
{
    if (!holdsHeader(fields)) return {};
    const quint16 count = fields.word(8);
    if (!RawFields::isWalkable(count)) return {};
    const quint64 end = 10 + RawFields::directoryBytes(count);
    // One walk looks for both: the list of sub-directories has to stand in front of the picture's entries.
    const auto entry = fields.find(10, end - 10, 0x014A, TagForms::Plain);
    if (!entry) return {};
    const quint32 list = fields.dword(*entry + 8);
    const quint64 from = *entry + RawFields::kEntry;
    RawImages images;
    if (from < end) images.first = fields.pair(from, end - from, {});
    if (list != 0) images.second = pairOf(fields, fields.dword(list));
    return images;
}

namespace {

/// Sony's two: the picture of the first directory, and that of the second.
RawImages followBothDirectories(RawFields &fields, bool goesOn, bool guardsPointer)
{
    const quint16 count = fields.word(8);
    if (!RawFields::isWalkable(count)) return {};
    const quint32 bytes = count < fields.size() ? RawFields::directoryBytes(count) : 0;
    RawImages images;
    images.first = fields.pair(10, bytes, {.goesOn = goesOn});
    const quint32 next = fields.dwordIf(!guardsPointer || bytes + 4 < fields.size(), 8 + bytes);
    if (next != 0) images.second = pairOf(fields, next);
    return images;
}

} // namespace

RawImages followArw(RawFields &fields)
{
    return holdsHeader(fields) ? followBothDirectories(fields, false, true) : RawImages();
}

RawImages followSr2(RawFields &fields)
{
    return fields.holds(0, "II*\0") ? followBothDirectories(fields, true, false) : RawImages();
}

RawImages followSrf(RawFields &fields)
{
    if (!holdsHeader(fields)) return {};
    const quint32 next = fields.dword(8 + RawFields::directoryBytes(fields.word(8)));
    return {next != 0 ? pairOf(fields, next) : RawImage(), {}};
}

RawImages followOrf(RawFields &fields)
{
    if (!fields.holds(0, "IIRO")) return {};
    const quint32 bytes = RawFields::directoryBytes(fields.word(8));
    const quint32 next = fields.dword(8 + bytes);
    if (!RawFields::isWalkable(fields.word(next))) return {};
    // The second directory is walked as far as the first one is long.
    return {fields.pair(quint64(next) + 2, bytes, {.guardsLength = true}), {}};
}
