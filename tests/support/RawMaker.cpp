#include "support/RawMaker.h"

#include "support/Grammar.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"
#include "support/RawFile.h"

namespace {

constexpr int kFirst = 0x400; // place of the first picture
constexpr quint32 kMake = 0x300;

struct Pictures
{
    QByteArray first;
    QByteArray second;
    int secondAt;
};

/// An entry of text at kMake.
TiffEntry make(const RawFile &, const QByteArray &text)
{
    return {0x010F, kMake, 2, quint32(text.size() + 1)};
}

TiffEntry startOf(int at)
{
    return {0x0201, quint32(at)};
}

TiffEntry lengthOf(const QByteArray &picture)
{
    return {0x0202, quint32(picture.size())};
}

/// JPEG compression, as the directory of a thumbnail has it.
TiffEntry jpegCompression(const RawFile &file)
{
    return {0x0103, file.isBig() ? 6u << 16 : 6u, 3};
}

RawFile begun(bool big, const QByteArray &maker, const QByteArray &magic = {}, int base = 0)
{
    RawFile file(big, kFirst);
    file.header(base).put(base + int(kMake), maker + '\0');
    if (!magic.isEmpty()) file.put(0, magic);
    return file;
}

RawFile &withPictures(RawFile &file, const Pictures &p)
{
    return file.put(kFirst, p.first).put(p.secondAt, p.second + filler(64));
}

QByteArray orderName(bool big)
{
    return big ? " MM" : " II";
}

RawSample cr2(const Pictures &p)
{
    RawFile file = begun(false, "Canon");
    file.header(0, 16).put(8, QByteArray("CR\2\0\0\0\0\0", 8));
    file.directory(16, {make(file, "Canon")}, 0x200);
    file.directory(0x200, {startOf(kFirst), lengthOf(p.first)});
    withPictures(file, p);
    return {"CR2", "CR2", file, {p.first}, {0x20A}, "ThumbnailImage"};
}

RawSample nrw(const Pictures &p)
{
    RawFile file = begun(false, "NIKON");
    file.directory(8, {make(file, "NIKON"), {0x014A, 0x280, 4, 2}, startOf(kFirst), lengthOf(p.first)});
    file.dword(0x280, 0x200).dword(0x284, 0x240);
    file.directory(0x200, {jpegCompression(file), startOf(p.secondAt), lengthOf(p.second)});
    file.directory(0x240, {jpegCompression(file)});
    withPictures(file, p);
    return {"NRW", "NRW", file, {p.first, p.second}, {42, 0x216}, "ThumbnailImage JpgFromRaw"};
}

/// Sony's: a picture in the first directory and in the second.
RawSample sony(const Pictures &p, const char *suffix)
{
    RawFile file = begun(false, "SONY");
    file.directory(8, {make(file, "SONY"), startOf(kFirst), lengthOf(p.first)}, 0x200);
    file.directory(0x200, {jpegCompression(file), startOf(p.secondAt), lengthOf(p.second)});
    withPictures(file, p);
    return {suffix, suffix, file, {p.first, p.second}, {30, 0x216}, "PreviewImage ThumbnailImage"};
}

/// One picture in the second directory, whose offset and all others count from `base`.
RawSample secondDirectory(const Pictures &p, const char *suffix, bool big, const QByteArray &maker,
                          const QByteArray &magic, int base)
{
    RawFile file = begun(big, maker, magic, base);
    file.directory(base + 8, {make(file, maker)}, 0x200);
    file.directory(base + 0x200, {jpegCompression(file), startOf(kFirst - base), lengthOf(p.first)});
    withPictures(file, p);
    return {suffix + orderName(big), suffix, file, {p.first}, {base + 0x216}, {}};
}

RawSample srf(const Pictures &p)
{
    RawSample sample = secondDirectory(p, "SRF", false, "SONY", {}, 0);
    sample.readBy = "ThumbnailImage";
    return sample;
}

RawSample orf(const Pictures &p)
{
    RawSample sample = secondDirectory(p, "ORF", false, "OLYMPUS", "IIRO", 0);
    sample.readBy = "ThumbnailImage";
    return sample;
}

/// Exif and a maker note at 0x100 and 0x140; the first directory is as long as the longest one that its size limits.
RawFile withNote(const Pictures &p, bool big, const QByteArray &maker, const QByteArray &note)
{
    RawFile file = begun(big, maker);
    file.directory(8, {make(file, maker), {0x0132, 0x320, 2, 4}, {0x8769, 0x100}});
    file.put(0x320, QByteArray("now\0", 4));
    file.directory(0x100, {{0x927C, 0x140, 7, 0x40}});
    file.put(0x140, note);
    return withPictures(file, p);
}

RawSample nef(const Pictures &p, bool big)
{
    RawFile file = withNote(p, big, "NIKON CORPORATION", QByteArray("Nikon\0\2\x10\0\0", 10));
    constexpr int tiff = 0x14A;
    file.header(tiff).directory(tiff + 8, {{0x0011, 0x40}});
    file.directory(tiff + 0x40, {jpegCompression(file), startOf(kFirst - tiff), lengthOf(p.first)});
    return {"NEF" + orderName(big), "NEF", file, {p.first}, {tiff + 0x40 + 2 + 12 + 8}, "PreviewImage"};
}

RawSample erf(const Pictures &p, bool big)
{
    RawFile file = withNote(p, big, "SEIKO EPSON CORP.", QByteArray("EPSON\0\1\0", 8));
    file.directory(0x148, {{0x0280, kFirst - 1, 7, quint32(p.first.size())}});
    return {"ERF" + orderName(big), "ERF", file, {p.first}, {0x152}, {}};
}

RawSample pef(const Pictures &p, bool big)
{
    RawFile file = withNote(p, big, "PENTAX", QByteArray("AOC\0", 4) + (big ? "MM" : "II"));
    file.directory(8, {make(file, "PENTAX"), {0x0132, 0x320, 2, 4}, {0x8769, 0x100}}, 0x200);
    file.directory(0x146, {{0x0001, 0, 3}, {0x0002, 0, 3, 2}, {0x0003, quint32(p.first.size())}, {0x0004, kFirst}});
    file.directory(0x200, {jpegCompression(file), startOf(p.secondAt), lengthOf(p.second)});
    // The forms that are looked at are those of big-endian notes.
    file.put(0x160, bytes({0, 3}));
    file.dword(0x168, quint32(p.first.size())).dword(0x174, kFirst);
    return {"PEF" + orderName(big), "PEF",          file,
            {p.first, p.second},    {0x174, 0x216}, big ? "PreviewImage ThumbnailImage" : ""};
}

/// The private data that a converter makes of a maker note: its name, the note's own byte order and place, the note.
RawSample dng(const Pictures &p, bool big)
{
    constexpr int data = 0x100;
    constexpr int tiff = data + 30;
    const quint32 length = quint32(kFirst + p.first.size() - data);
    RawFile file = begun(big, "NIKON");
    file.directory(8, {make(file, "NIKON"), {0xC612, 0x01, 1, 4}, {0xC634, data, 1, length}});
    file.put(data, QByteArray("Adobe\0MakN", 10)).put(data + 10, RawFile(true).dword(0, length - 14));
    file.put(data + 14, big ? "MM" : "II").put(data + 16, RawFile(true).dword(0, data + 20));
    file.put(data + 20, QByteArray("Nikon\0\2\x10\0\0", 10));
    file.header(tiff).directory(tiff + 8, {{0x0011, 0x40}});
    file.directory(tiff + 0x40, {jpegCompression(file), startOf(kFirst - tiff), lengthOf(p.first)});
    withPictures(file, p);
    return {"DNG" + orderName(big), "DNG", file, {p.first}, {tiff + 0x56}, "PreviewImage"};
}

RawSample tiff(const Pictures &p, bool big)
{
    RawFile file = begun(big, "Scanner");
    const QByteArray resource =
        QByteArray("8BIM\x04\x0C\0\0", 8) + bytes({0, 0}) + word(p.first.size() + 28) + QByteArray(28, '\0') + p.first;
    file.header(0, 0x200);
    file.directory(0x200, {make(file, "Scanner"), {0x8649, kFirst - 40, 1, quint32(resource.size())}});
    file.put(kFirst - 40, resource);
    return {"TIFF" + orderName(big), "TIFF", file, {p.first}, {}, "PhotoshopThumbnail"};
}

RawSample crw(const Pictures &p)
{
    RawFile file(false);
    file.put(0, "II").dword(2, 26).put(6, "HEAPCCDR").dword(14, 0x00010002).put(18, QByteArray(8, '\0'));
    withPictures(file, p);
    const int directory = file.size();
    file.word(directory, 1).word(directory + 2, 0x2007).dword(directory + 4, quint32(p.first.size()));
    file.dword(directory + 8, kFirst - 26).dword(directory + 12, quint32(directory) - 26);
    return {"CRW", "CRW", file, {p.first}, {directory + 8}, "JpgFromRaw"};
}

RawSample mrw(const Pictures &p, bool big)
{
    constexpr int base = 0x30;
    RawFile file = begun(big, "MINOLTA", {}, base);
    file.put(0, QByteArray(big ? "\0MRM" : "\0MRI", 4));
    file.directory(base + 8, {make(file, "MINOLTA"), {0x8769, 0x100}});
    file.directory(base + 0x100, {{0x927C, 0x140, 7, 0x40}});
    file.directory(base + 0x140, {{0x0088, kFirst - base - 1}, {0x0089, quint32(p.first.size())}});
    withPictures(file, p);
    return {"MRW" + orderName(big), "MRW", file, {p.first}, {base + 0x14A}, {}};
}

} // namespace

namespace {

/// RAF and RW2 hold a whole JPEG, and the thumbnail is that of its Exif.
RawSample insideJpeg(const Pictures &p, const char *suffix, bool big)
{
    constexpr int base = 0x78;
    const bool raf = qstrcmp(suffix, "RAF") == 0;
    RawSample sample = secondDirectory(p, suffix, big, raf ? "FUJIFILM" : "Panasonic",
                                       raf ? "FUJIFILMCCD-RAW 0201FF383501" : "", base);
    const int jpeg = base - 12;
    const int end = kFirst + p.first.size();
    RawFile file(raf);
    file.put(0, sample.file).put(jpeg, bytes({0xFF, 0xD8, 0xFF, 0xE1})).put(jpeg + 4, word(end - jpeg - 4));
    file.put(jpeg + 6, QByteArray("Exif\0\0", 6)).put(end, bytes({0xFF, 0xD9}));
    const quint32 length = quint32(end + 2 - jpeg);
    if (raf) file.dword(0x54, quint32(jpeg)).dword(0x58, length);
    if (!raf) file.header().word(2, 0x55).directory(8, {{0x002E, quint32(jpeg), 7, length}});
    sample.file = file;
    sample.readBy = "ThumbnailImage";
    return sample;
}

} // namespace

std::vector<RawSample> makeRawSamples(const QByteArray &picture, const QByteArray &thumbnail)
{
    const Pictures p{picture, thumbnail, kFirst + picture.size() + 64};
    std::vector<RawSample> all{cr2(p), nrw(p), sony(p, "ARW"), sony(p, "SR2"), srf(p), orf(p), crw(p)};
    for (const bool big : {false, true}) {
        for (RawSample (*maker)(const Pictures &, bool) : {nef, pef, dng, erf, tiff, mrw}) all.push_back(maker(p, big));
        for (const char *suffix : {"RAF", "RW2"}) all.push_back(insideJpeg(p, suffix, big));
    }
    return all;
}

QByteArray rawPicture()
{
    static const QByteArray picture = makeJpeg(drawPicture(96, 64), {.jfif = false});
    return picture;
}

QByteArray rawThumbnail()
{
    static const QByteArray picture = makeJpeg(drawPicture(32, 24, 1), {.jfif = false});
    return picture;
}

const std::vector<RawSample> &rawSamples()
{
    static const std::vector<RawSample> all = makeRawSamples(rawPicture(), rawThumbnail());
    return all;
}
