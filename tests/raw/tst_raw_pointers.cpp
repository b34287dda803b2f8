// Where each format's pointers lead: its limits, its guards and its odd turns, in files made for one of them each.

#include "app/StopFlag.h"
#include "engine/raw/RawFormats.h"
#include "support/ByteSource.h"
#include "support/Grammar.h"
#include "support/RawFile.h"
#include "support/RawMaker.h"
#include "support/SteppingCarve.h"

#include <QTest>
#include <QtEndian>

namespace {

using Entries = std::vector<TiffEntry>;

const TiffEntry kOther{0x0110, 7};
const TiffEntry kStart{0x0201, 0x400};
const TiffEntry kLength{0x0202, 77};
const QString kFound = "1024+77 0+0";
const QString kBlocked = "1024+0 0+0"; // a start without a length
const QString kNone = "0+0 0+0";

/// The entries behind `count` others.
Entries behind(int count, const Entries &entries)
{
    Entries all(size_t(count), kOther);
    all.insert(all.end(), entries.begin(), entries.end());
    return all;
}

TiffEntry swapped(TiffEntry entry)
{
    entry.tag = qbswap(quint16(entry.tag));
    return entry;
}

RawFile begun(bool big = false, int size = 0x900)
{
    return RawFile(big, size).header();
}

RawFile cr2(const Entries &entries, int claimed = -1, int size = 0x900)
{
    RawFile file = begun(false, size).put(8, QByteArray("CR\2\0", 4)).directory(16, {kOther}, 0x100);
    return file.directory(0x100, entries, 0, claimed);
}

/// A second directory at 0x100, counted from a header at `base`.
RawFile second(const Entries &entries, int claimed = -1, bool big = false, int base = 0)
{
    RawFile file = RawFile(big, 0x900).header(base).directory(base + 8, behind(2, {}), 0x100);
    return file.directory(base + 0x100, entries, 0, claimed);
}

RawFile orf(const Entries &entries, int claimed = -1)
{
    return second(entries, claimed).put(0, "IIRO");
}

/// The first directory has three entries, Exif stands at 0x80, the note at 0x300.
RawFile noted(bool big, const QByteArray &note, int exifBehind = 0, int exifClaimed = -1)
{
    RawFile file = begun(big).directory(8, behind(2, {{0x8769, 0x80}}), 0x200).put(0x300, note);
    return file.directory(0x80, behind(exifBehind, {{0x927C, 0x300}}), 0, exifClaimed);
}

RawFile nef(bool big, const Entries &entries, int claimed = -1, int noteBehind = 0)
{
    RawFile file = noted(big, "Nikon");
    return file.directory(0x312, behind(noteBehind, {{0x0011, 0x100}})).directory(0x40A, entries, 0, claimed);
}

RawFile dng(int header, const Entries &entries, quint32 data = 0x80)
{
    RawFile file = begun().directory(8, behind(2, {{0xC634, data}}));
    return file.header(header).directory(header + 8, {{0x0011, 0x100}}).directory(header + 0x100, entries);
}

RawFile mrw(const Entries &entries, int claimed = -1, bool big = false)
{
    RawFile file = RawFile(big, 0x900).header(0x30).directory(0x38, {{0x8769, 0x80}});
    return file.directory(0xB0, behind(5, {{0x927C, 0x100}})).directory(0x130, entries, 0, claimed);
}

RawFile crw(int index, int claimed)
{
    RawFile file(false, 0x300);
    file.put(0, QByteArray("II\x1A\0", 4)).word(0x100, quint32(claimed)).dword(0x2FC, 0x100 - 26);
    return file.word(0x102 + 10 * index, 0x2007).dword(0x104 + 10 * index, 77).dword(0x108 + 10 * index, 0x400 - 26);
}

RawFile tiff(int tag, const QByteArray &resource, const QByteArray &tail = {})
{
    RawFile file = begun().header(0, 0x40).directory(0x40, {{tag, 0x100}});
    file.put(0x80, QByteArray("8BIM\x04\x09", 6)).put(0x200, resource);
    return file.picture(0x228, 30).put(0x300, tail);
}

} // namespace

class TestRawPointers : public QObject
{
    Q_OBJECT

private slots:
    void walks_data();
    void walks();
    void confirmation_data();
    void confirmation();
    void madeFiles_data();
    void madeFiles();
    void stop();
};

static void row(const char *suffix, const char *name, const QByteArray &file, const QString &expected)
{
    QTest::addRow("%s: %s", suffix, name) << QString(suffix) << file << expected;
}

static void littleRows()
{
    const Entries pair{kStart, kLength};
    row("CR2", "54 entries", cr2(behind(52, pair)), kFound);
    row("CR2", "55 entries", cr2(behind(53, pair)), kNone);
    row("CR2", "no entries", cr2(pair, 0), kNone);
    row("CR2", "behind the last entry", cr2(behind(3, pair), 3), kFound);
    row("CR2", "one further", cr2(behind(4, pair), 3), kNone);
    row("CR2", "the first pair wins", cr2({kStart, kLength, {0x0201, 5}, {0x0202, 6}}), kFound);
    row("CR2", "tag of the other order", cr2({swapped(kStart), kLength}), kNone);
    row("CR2", "leaves an entry out", cr2({{0x0201, 5}, kOther, kStart, kLength}), kFound);
    row("CR2", "the one left out is not seen", cr2({kStart, {0x0201, 5}, kLength}), kBlocked);
    row("CR2", "other signature", RawFile(cr2(pair)).put(8, "CR"), kFound);
    row("CR2", "no signature", RawFile(cr2(pair)).put(8, "CX"), kNone);
    row("CR2", "long first directory",
        RawFile(cr2({}, 0, 0x8000)).word(16, 1000).dword(16 + 12002, 0x100).directory(0x100, pair), kFound);
    // Left out at the file's end, the count stands for the offset and the tag for the start.
    row("CR2", "offset not read", RawFile(cr2({}, 0, 0x600)).word(16, 0x180).directory(0x180, pair), kFound);
    row("CR2", "start not read", RawFile(cr2({kStart})).cut(0x102 + 20), "513+0 0+0");
    row("CR2", "start read", RawFile(cr2({kStart})).cut(0x102 + 21), kBlocked);

    const TiffEntry subs{0x014A, 0x300};
    const auto nrw = [&](const Entries &first, const Entries &sub, int claimed = -1) {
        return begun().directory(8, first).dword(0x300, 0x340).directory(0x340, sub, 0, claimed);
    };
    row("NRW", "both", nrw(behind(1, {subs, kStart, kLength}), {{0x0201, 9}, kOther, {0x0201, 50}, {0x0202, 60}}),
        "1024+77 50+60");
    row("NRW", "picture in front", nrw({kStart, kLength, subs}, {{0x0201, 50}, {0x0202, 60}}), "0+0 50+60");
    row("NRW", "no sub-directories", nrw(pair, {{0x0201, 50}, {0x0202, 60}}), kNone);
    row("NRW", "sub-directories at 0", nrw({{0x014A, 0}, kStart, kLength}, {}), kFound);
    row("NRW", "ends at the first start", nrw({subs, kStart, kOther, {0x0201, 5}, {0x0202, 6}}, {}, 0), kBlocked);
    row("NRW", "sub-directory of 77", nrw({subs, kStart, kLength}, behind(75, {{0x0201, 50}, {0x0202, 60}})), kFound);
    row("NRW", "sub-directory of 76", nrw({subs, kStart, kLength}, behind(74, {{0x0201, 50}, {0x0202, 60}})),
        "1024+77 50+60");
    row("NRW", "first directory of 77", nrw({subs, kStart, kLength}, {}).word(8, 77), kNone);

    for (const char *sony : {"ARW", "SR2"}) {
        const bool arw = sony[0] == 'A';
        const auto both = [&](const Entries &first, const Entries &next, int claimed = -1) {
            return begun().directory(8, first, 0x300).directory(0x300, next, 0, claimed);
        };
        row(sony, "both", both(pair, {{0x0201, 9}, kOther, {0x0201, 50}, {0x0202, 60}}), "1024+77 50+60");
        row(sony, "start without a length", both({{0x0201, 9}, kOther, kStart, kLength}, {}, 0),
            arw ? "9+0 0+0" : kFound);
        row(sony, "second of 77 entries", both(pair, {{0x0201, 50}, {0x0202, 60}}, 77), kFound);
        row(sony, "second behind its last entry", both(pair, behind(2, {{0x0201, 50}, {0x0202, 60}}), 2),
            "1024+77 50+60");
        row(sony, "first of 77 entries", both(behind(75, pair), {}), kNone);
        row(sony, "no second", RawFile(begun()).directory(8, pair), kFound);
        row(sony, "header leads elsewhere", RawFile(both(pair, {}, 0)).dword(4, 9), arw ? kNone : kFound);
        // At the file's end the last field, the length, stands for the second directory's offset; or it isn't tested.
        row(sony, "offset not read",
            RawFile(both({kStart, {0x0202, 0x300}}, {{0x0201, 50}, {0x0202, 60}}).word(8, 76)).cut(914 + 4),
            arw ? "1024+768 50+60" : "1024+768 0+0");
    }
    row("SRF", "second directory", second({{0x0201, 9}, kOther, kStart, kLength}), kFound);
    row("SRF", "of 77 entries", second(pair, 77), kNone);
    row("SRF", "long first directory",
        RawFile(second({}, 0)).word(8, 100).dword(8 + 1202, 0x200).directory(0x200, pair), kFound);
    row("SRF", "header leads elsewhere", RawFile(second(pair)).dword(4, 9), kNone);
    row("SRF", "first directory alone", RawFile(second({}, 0)).directory(8, pair), kNone);
    row("ORF", "second directory", orf(pair), kFound);
    row("ORF", "as long as the first", orf(behind(2, pair), 9), kFound);
    row("ORF", "longer than the first", orf(behind(3, pair), 9), kNone);
    row("ORF", "ends at the first start", orf({kStart, kOther, {0x0201, 5}, kLength}), kBlocked);
    row("ORF", "TIFF signature", second(pair), kNone);
    row("ORF", "length not read", RawFile(orf(pair)).cut(0x102 + 24), "1024+514 0+0");
    row("ORF", "length read", RawFile(orf(pair)).cut(0x102 + 25), kFound);
}

static void noteRows()
{
    const Entries pair{{0x0201, 0x400 - 0x30A}, kLength};
    for (const bool big : {false, true}) {
        row("NEF", big ? "big" : "little", nef(big, pair), kFound);
        row("NEF", big ? "big, swapped tags" : "little, swapped tags", nef(big, {swapped(pair[0]), swapped(pair[1])}),
            kFound);
    }
    row("NEF", "leaves an entry out", nef(true, {{0x0201, 5}, kOther, pair[0], kLength}), kFound);
    row("NEF", "start alone", nef(true, {pair[0], kOther}), kBlocked);
    row("NEF", "header leads elsewhere", RawFile(nef(false, pair)).dword(4, 9), kNone);
    row("NEF", "big, header leads elsewhere", RawFile(nef(true, pair)).dword(4, 99), kFound);
    row("NEF", "no note", RawFile(nef(false, pair)).put(0x300, "nikon"), kNone);
    // All walks are as long as the first directory is.
    row("NEF", "note's place behind the limit", nef(false, pair, -1, 4), kNone);
    row("NEF", "note's place at the limit", nef(false, pair, -1, 3), kFound);
    row("NEF", "preview behind the limit", nef(false, behind(4, pair)), kNone);
    row("NEF", "preview at the limit", nef(false, behind(3, pair), 1), kFound);
    const auto longExif = [&](int others) {
        return RawFile(nef(false, pair)).directory(0x80, behind(others, {{0x927C, 0x300}}));
    };
    row("NEF", "Exif at the limit", longExif(3), kFound);
    row("NEF", "Exif behind the limit", longExif(4), kNone);
    for (const int place : {8, 0x80, 0x312, 0x40A})
        for (const int count : {0, 77, 65535})
            row("NEF", qPrintable(QString("count of %1 at %2").arg(count).arg(place)),
                RawFile(nef(false, pair)).word(place, quint32(count)), kNone);
    row("NEF", "counts of 76", RawFile(nef(false, pair)).word(0x80, 76).word(0x312, 76).word(0x40A, 76), kFound);

    const auto inner = [](int header) { return Entries{{0x0201, quint32(0x400 - header)}, kLength}; };
    row("DNG", "header at once", dng(0x80, inner(0x80)), kFound);
    row("DNG", "header at the end of the reach", dng(0x80 + 49, inner(0x80 + 49)), kFound);
    row("DNG", "header behind the reach", dng(0x80 + 50, inner(0x80 + 50)), kNone);
    row("DNG", "ends at the first start", dng(0x80, {inner(0x80)[0], kOther, {0x0201, 5}, kLength}), kBlocked);
    row("DNG", "as long as the first directory", dng(0x80, behind(3, inner(0x80))), kFound);
    row("DNG", "longer than it", dng(0x80, behind(4, inner(0x80))), kNone);
    row("DNG", "no private data", RawFile(dng(0x80, inner(0x80))).word(8 + 2 + 24, 0xC635), kNone);
    // The file's own header is as good as another; its directory then is the inner one.
    row("DNG", "private data at 0",
        RawFile(begun()).directory(8, {{0xC634, 0}, {0x0011, 0x100}}).directory(0x100, {kStart, kLength}), kFound);
    const QByteArray bigInside = RawFile(true, 0x900)
                                     .put(0, begun().bytes().left(8))
                                     .header(0x80)
                                     .directory(0x88, {{0x0011, 0x100}})
                                     .directory(0x180, inner(0x80));
    row("DNG", "the inner header's byte order",
        RawFile(false).put(0, bigInside).directory(8, {kOther, kOther, {0xC634, 0x80}}), kFound);

    const auto erf = [](const QByteArray &text, const Entries &entries, int exifBehind = 0) {
        return noted(true, text, exifBehind).directory(0x308, entries);
    };
    const QByteArray epson("EPSON\0\1\0", 8);
    const TiffEntry whole{0x0280, 0x3FF, 7, 77};
    row("ERF", "the count is the length", erf(epson, {whole}), kFound);
    row("ERF", "swapped tag", erf(epson, {swapped(whole)}), kFound);
    row("ERF", "at the limit", erf(epson, behind(3, {whole})), kFound);
    row("ERF", "behind the limit", erf(epson, behind(4, {whole})), kNone);
    row("ERF", "Exif behind the limit", erf(epson, {whole}, 4), kNone);
    row("ERF", "other version", erf(QByteArray("EPSON\0\1\1", 8), {whole}), kNone);

    const QByteArray aoc("AOC\0", 4);
    const auto pef = [&](const QByteArray &note, int exifBehind = 0, int claimed = -1) {
        return noted(true, note, exifBehind, claimed)
            .dword(8 + 38, 0x200)
            .directory(0x200, {{0x0201, 9}, kOther, {0x0201, 50}, {0x0202, 60}});
    };
    const QByteArray mark = bytes({0, 3});
    row("PEF", "at the first place", pef(aoc).put(0x320, mark).dword(0x328, 77).dword(0x334, 0x400), "1024+77 50+60");
    row("PEF", "at the place behind it",
        pef(aoc).put(0x320, mark).dword(0x328, 7).dword(0x334, 7).put(0x340, mark).dword(0x348, 77).dword(0x354, 0x400),
        "1024+77 50+60");
    row("PEF", "at the second place alone", pef(aoc).put(0x32C, mark).dword(0x334, 77).dword(0x340, 0x400),
        "1024+77 50+60");
    row("PEF", "form 03 00", pef(aoc).put(0x320, bytes({3, 0})).dword(0x328, 77).dword(0x334, 0x400), "0+0 50+60");
    row("PEF", "other note", pef("AOCX").put(0x320, mark).dword(0x328, 77).dword(0x334, 0x400), "0+0 50+60");
    row("PEF", "Exif count of 77", pef(aoc, 0, 77).put(0x320, mark).dword(0x328, 77).dword(0x334, 0x400), "0+0 50+60");
    row("PEF", "long Exif", pef(aoc, 9).put(0x320, mark).dword(0x328, 77).dword(0x334, 0x400), "1024+77 50+60");
    row("PEF", "second of 77 entries", RawFile(pef(aoc)).word(0x200, 77), kNone);
    row("PEF", "second at the file's end", RawFile(pef(aoc)).dword(8 + 38, 0x8FC), kNone);
}

static void innerRows()
{
    for (const bool big : {false, true}) {
        const Entries pair{{0x0201, 0x400 - 0x20}, kLength};
        const auto inner = [&](const Entries &entries, int claimed = -1) {
            return second(entries, claimed, big, 0x20);
        };
        const QByteArray tag = big ? bytes({2, 1}) : bytes({1, 2});
        row("RW2", big ? "big" : "little", inner(pair), kFound);
        row("RW2", big ? "big, at the limit" : "little, at the limit", inner(behind(2, pair), 9), kFound);
        row("RW2", big ? "big, behind it" : "little, behind it", inner(behind(3, pair), 9), kNone);
        row("RW2", big ? "big, swapped tag" : "little, swapped tag", inner({swapped(pair[0]), kLength}), kFound);
        row("RAF", big ? "big" : "little", inner(pair), kFound);
        row("RAF", big ? "big, at any byte" : "little, at any byte",
            RawFile(inner({kOther}, 1))
                .put(0x777, tag)
                .dword(0x777 + 8, 0x400 - 0x20)
                .put(0x777 + 12, bytes({2, 2}))
                .dword(0x777 + 20, 77),
            kFound);
        row("RAF", big ? "big, length not read" : "little, length not read", RawFile(inner(pair)).cut(0x122 + 24),
            big ? "1024+33685504 0+0" : "1024+514 0+0");
        row("RAF", big ? "big, start alone" : "little, start alone", inner({pair[0], kOther, pair[0], kLength}),
            kBlocked);
        row("RAF", big ? "big, no tag" : "little, no tag", inner({kOther}), kNone);
        row("RAF", big ? "big, of 77 entries" : "little, of 77 entries", inner(pair, 77), kNone);
    }
    const Entries pair{kStart, kLength};
    row("RW2", "start alone", second({kStart, kOther, kStart, kLength}), kBlocked);
    row("RW2", "of 77 entries", second(pair, 77), kNone);
    row("RW2", "no header", RawFile(second(pair)).put(0, "XX"), kNone);
    // Places outside of the file aren't gone to: what stands behind the last field is read instead.
    row("RW2", "offset outside", RawFile(second({}, 0)).word(8, 1000).dword(10, 0x100).directory(0x100, pair), kFound);
    row("RW2", "directory outside", RawFile(second({}, 0)).dword(8 + 26, 0xFFFFFF).directory(8 + 30, pair), kFound);
    row("RAF", "no first directory", RawFile(second({}, 0)).word(8, 0).word(10, 0).directory(0, pair, 0, 1).header(),
        kNone);
    row("RAF", "first directory as long as the file", RawFile(second({}, 0)).dword(8, 0xFFFF).directory(12, pair),
        kFound);

    const Entries thumbnail{{0x0088, 0x400 - 0x31}, {0x0089, 77}};
    row("MRW", "one byte behind", mrw(thumbnail), kFound);
    row("MRW", "big", mrw(thumbnail, -1, true), kFound);
    row("MRW", "swapped tags", mrw({swapped(thumbnail[0]), swapped(thumbnail[1])}), kFound);
    row("MRW", "leaves an entry out", mrw({{0x0088, 5}, kOther, thumbnail[0], thumbnail[1]}), kFound);
    row("MRW", "behind the last entry", mrw(behind(4, thumbnail), 4), kFound);
    row("MRW", "one further", mrw(behind(5, thumbnail), 4), kNone);
    for (const int place : {0x38, 0xB0, 0x130})
        row("MRW", qPrintable(QString("count of 77 at %1").arg(place)), RawFile(mrw(thumbnail)).word(place, 77), kNone);
}

static void otherRows()
{
    row("CRW", "one entry", crw(0, 1), kFound);
    row("CRW", "room of 12 bytes an entry", crw(6, 5), kFound);
    row("CRW", "behind it", crw(7, 5), kNone);
    row("CRW", "of 77 entries", crw(0, 77), kNone);
    row("CRW", "other signature", RawFile(crw(0, 1)).word(2, 42), kNone);
    row("CRW", "swapped tag", RawFile(crw(0, 1)).word(0x102, 0x0720), kNone);
    RawFile atHead = RawFile(crw(0, 1)).dword(0x2FC, 0);
    atHead.word(26, 1).word(28, 0x2007).dword(30, 77).dword(34, 0x400 - 26);
    row("CRW", "directory at 0", atHead, kFound);

    const QByteArray resource("8BIM\x04\x09", 6);
    row("TIFF", "resource 1033", tiff(0x8649, resource), "552+30 0+0");
    row("TIFF", "resource 1036, by Exif", tiff(0x8769, QByteArray("8BIM\x04\x0C", 6)), "552+30 0+0");
    row("TIFF", "the last end", tiff(0x8649, resource, filler(9) + bytes({0xFF, 0xD9}) + filler(9)), "552+227 0+0");
    row("TIFF", "other resource", tiff(0x8649, QByteArray("8BIM\x04\x0B", 6)), kNone);
    row("TIFF", "from the file's start", tiff(0x8648, resource).picture(0x80 + 40, 9), "168+414 0+0");
    row("TIFF", "the first tag", RawFile(tiff(0x8649, resource)).directory(0x40, {{0x8769, 0x100}, {0x8649, 0x500}}),
        "552+30 0+0");
    row("TIFF", "no picture there", RawFile(tiff(0x8649, resource)).put(0x228, "XX"), kNone);
    row("TIFF", "no end", RawFile(tiff(0x8649, resource)).put(0x228 + 28, "XX"), "552+0 0+0");
    row("TIFF", "count of 77", RawFile(tiff(0x8649, resource)).word(0x40, 77), kNone);
    row("TIFF", "behind the last entry",
        RawFile(tiff(0x8648, resource)).directory(0x40, behind(2, {{0x8649, 0x100}}), 0, 2), "552+30 0+0");
}

void TestRawPointers::walks_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected"); // before anything is confirmed
    littleRows();
    noteRows();
    innerRows();
    otherRows();
}

void TestRawPointers::walks()
{
    QFETCH(QString, suffix);
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    for (const int block : {1, 3, 4096}) {
        ByteSource source(file);
        FileWindow window(source, block);
        RawFields fields(window);
        QCOMPARE(describe(rawFormat(suffix)->follow(fields)), expected);
    }
}

void TestRawPointers::confirmation_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("carved");
    const Entries first{kStart, kLength};
    const auto arw = [&](const Entries &one, const Entries &two) {
        return begun().directory(8, one, 0x300).directory(0x300, two).picture(0x600, 40).picture(0x700, 50);
    };
    const Entries good{{0x0201, 0x600}, {0x0202, 40}};
    const Entries bad{{0x0201, 0x601}, {0x0202, 40}};
    const QString byCarve = "1536+40 1792+306";
    QTest::newRow("both") << QByteArray(arw(good, good)) << "1536+40 1536+40" << false;
    QTest::newRow("the first leads elsewhere") << QByteArray(arw(bad, good)) << "0+0 1536+40" << false;
    QTest::newRow("the second leads elsewhere") << QByteArray(arw(good, bad)) << "1536+40 0+0" << false;
    QTest::newRow("both lead elsewhere") << QByteArray(arw(bad, bad)) << byCarve << true;
    QTest::newRow("a start without a length blocks the carve")
        << QByteArray(arw({good[0]}, {})) << "1536+0 0+0" << false;
    for (const quint32 start : {0x930u, 0x931u, 0x932u, 0xFFFFFFFFu, 8u})
        QTest::addRow("start at %u", start) << QByteArray(arw({{0x0201, start}, {0x0202, 40}}, bad)) << byCarve << true;
}

void TestRawPointers::confirmation()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    QFETCH(bool, carved);
    ByteSource source(file);
    FileWindow window(source);
    RepairWay way = RepairWay::Main;
    QCOMPARE(describe(findRawImages(window, *rawFormat("arw"), way)), expected);
    QCOMPARE(way == RepairWay::Carve, carved);
}

void TestRawPointers::madeFiles_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < rawSamples().size(); ++i) QTest::newRow(rawSamples()[i].name) << int(i);
}

void TestRawPointers::madeFiles()
{
    QFETCH(int, index);
    const RawSample &sample = rawSamples()[size_t(index)];
    const auto found = [&](const QByteArray &file, RepairWay expectedWay) {
        ByteSource source(file);
        FileWindow window(source);
        RepairWay way = RepairWay::Main;
        const RawImages images = findRawImages(window, *rawFormat(sample.suffix), way);
        return way == expectedWay ? images : RawImages();
    };
    const RawImages images = found(sample.file, RepairWay::Pointers);
    QCOMPARE(sample.file.mid(int(images.first.start), int(images.first.length)), sample.pictures[0]);
    if (sample.pictures.size() > 1)
        QCOMPARE(sample.file.mid(int(images.second.start), int(images.second.length)), sample.pictures[1]);

    const QByteArray headless = QByteArray(1024, '\0') + sample.file.mid(1024);
    QCOMPARE(found(headless, RepairWay::Carve), steppingCarve(headless, sample.suffix));
    for (const quint32 wrong : {0u, 7u, quint32(sample.file.size()) - 1, quint32(sample.file.size()), 0xFFFFFFFFu}) {
        QByteArray file = sample.file;
        for (const int place : sample.pointers)
            file.replace(place, 4, RawFile(sample.name.endsWith("MM")).dword(0, wrong));
        if (!sample.pointers.empty()) QCOMPARE(found(file, RepairWay::Carve), steppingCarve(file, sample.suffix));
    }
}

void TestRawPointers::stop()
{
    for (const RawSample &sample : rawSamples()) {
        ByteSource source(sample.file);
        FileWindow window(source);
        RepairWay way = RepairWay::Main;
        setFlag(pApp->bStopRepair, true);
        const RawImages images = findRawImages(window, *rawFormat(sample.suffix), way);
        setFlag(pApp->bStopRepair, false);
        QVERIFY2(images == RawImages(), sample.name);
    }
}

QTEST_GUILESS_MAIN(TestRawPointers)
#include "tst_raw_pointers.moc"
