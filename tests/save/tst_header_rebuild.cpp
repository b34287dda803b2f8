// The bytes of a rebuilt JPEG, spelled out from the segments of its source; and the check that says whether there is
// enough to rebuild.
#include "app/KesmiraApp.h"
#include "engine/SegmentList.h"
#include "save/SaveFile.h"
#include "save/SaveRoom.h"
#include "support/Damage.h"
#include "support/Grammar.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"
#include "tables/TableLibrary.h"
#include "tables/TableTexts.h"

#include <QtTest>

using namespace words;

namespace {

// The library of these tests: three tables that make a pair row and a triple row, a pair row with a length field that
// isn't its own, and Huffman rows of one table and of four.
const QByteArray kA = tabletest::values("02020203020304020204", 0x0A);
const QByteArray kB = tabletest::values("02030303030307040407", 0x0B);
const QByteArray kC = tabletest::values("02030303030308050508", 0x0C);
const QByteArray kOdd = tabletest::values("03010102030405", 0x0D);
const QByteArray kPair = tabletest::dqt({kA, kB});
const QByteArray kTriple = tabletest::dqt({kA, kB, kC});
const QByteArray kOddPair = tabletest::dqt({kOdd, kB}, 0x43);
const QByteArray kOneHuffman = tabletest::dhtOfLength(31);
const QByteArray kFourHuffman = tabletest::dhtOfLength(418);

const TableLibrary &ownTables()
{
    using namespace tabletest;
    static const TableLibrary tables =
        library(huffmanRecord(kOneHuffman) + huffmanRecord(kFourHuffman),
                quantizationRecord("standard_02", 1, kPair) + quantizationRecord("standard_02", 1, kTriple)
                    + quantizationRecord("standard_3_4_5", 1, kOddPair));
    return tables;
}

// A table that kept its first 25 values.
QByteArray brokenTail(const QByteArray &values)
{
    return values.left(25) + filler(39);
}

QByteArray single(int number, const QByteArray &values)
{
    return segment(DQT, bytes({number}) + values);
}

QByteArray several(const QVector<QByteArray> &tables)
{
    QByteArray all;
    for (int i = 0; i < tables.size(); ++i) all += bytes({i}) + tables[i];
    return segment(DQT, all);
}

QByteArray withByte(QByteArray bytes, int at, int value)
{
    bytes[at] = char(value);
    return bytes;
}

// Frame of a picture whose tables of every length are known to nobody.
const QByteArray kDht = segment(DHT, 33);
const QByteArray kTables = dqt({10}, 0) + dqt({30}, 1);
const QByteArray kHead = kTables + sof() + kDht;

QByteArray jpeg(const QByteArray &inside)
{
    return word(SOI) + inside + word(EOI);
}

QByteArray rebuilt(SaveRoom &room, const QByteArray &source)
{
    room.walk(room.addSource("a.jpg", source));
    return room.written([](FILE *out) { SaveFile().SaveStart_newFormat(out, 0); });
}

// Puts nodes on the main chain by name, lengths behind a colon, without a file.
void chain(const QString &names)
{
    static const QHash<QString, int> markers = {{"SOI", SOI},   {"EOI", EOI},   {"APP1", APP1}, {"COM", COM},
                                                {"DQT", DQT},   {"DHT", DHT},   {"DRI", DRI},   {"SOS", SOS},
                                                {"SOF0", SOF0}, {"SOF1", SOF1}, {"SOF2", SOF2}, {"SOF9", SOF9}};
    for (const QString &name : names.split(' ', Qt::SkipEmptyParts)) {
        auto *node = new tagMainList;
        const QStringList parts = name.split(':');
        node->wMarker = quint16(markers.value(parts[0]));
        node->wLength = parts.size() > 1 ? quint16(parts[1].toInt()) : quint16(20);
        if (pApp->pMainListHead)
            pApp->pMainListTail->pNext = node;
        else
            pApp->pMainListHead = node;
        pApp->pMainListTail = node;
    }
}

} // namespace

class TestHeaderRebuild : public QObject
{
    Q_OBJECT

private slots:
    void init() { pApp->nSavePhase = 0; }

    void segments_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QByteArray>("expected");
        const QByteArray scan = sos() + filler(3000);
        const QByteArray metadata = segment(APP0, 16) + exifSegment(nestedImage(APP0, 16, 900))
            + commentSegment("hello") + segment(APP2, 40) + segment(APP14, 14);

        QTest::newRow("metadata goes, tables and scan stay") << jpeg(metadata + kHead + scan) << jpeg(kHead + scan);
        QTest::newRow("bytes between segments go")
            << jpeg(dqt({10}) + filler(7) + dqt({30}, 1) + sof() + filler(2000) + kDht + scan)
            << jpeg(kTables + sof() + kDht + scan);
        QTest::newRow("lengths of whole blocks")
            << jpeg(kHead + sos() + filler(2048 - 14)) << jpeg(kHead + sos() + filler(2048 - 14));
        QTest::newRow("restart interval") << jpeg(kTables + sof() + segment(DRI, bytes({0, 4})) + kDht + scan)
                                          << jpeg(kTables + sof() + segment(DRI, bytes({0, 4})) + kDht + scan);
        QTest::newRow("tables behind the first scan are part of it")
            << jpeg(kTables + sof(SOF2) + kDht + scan + kDht + commentSegment("kept") + sos() + filler(99))
            << jpeg(kTables + sof(SOF2) + kDht + scan + kDht + commentSegment("kept") + sos() + filler(99));
        QTest::newRow("a frame of another kind isn't written")
            << jpeg(kTables + sof(SOF9) + sof(SOF0) + kDht + scan) << jpeg(kTables + sof(SOF0) + kDht + scan);
        QTest::newRow("a lost end costs two bytes")
            << word(SOI) + kHead + sos() + filler(500) << jpeg(kHead + sos() + filler(498));
        QTest::newRow("bytes behind the end belong to the scan, but for two")
            << jpeg(kHead + scan) + filler(100) << jpeg(kHead + scan + word(EOI) + filler(98));
        QTest::newRow("a DHT word at the file's end is written as a word")
            << jpeg(kHead + scan) + filler(10) + word(DHT) << jpeg(kHead + scan + word(EOI) + filler(10) + word(DHT));
        for (const int marker : {int(DQT), int(DHT), int(SOF0), int(DRI)})
            QTest::addRow("%04x with a length past the end is two bytes", marker)
                << word(SOI) + kHead + declared(marker, 400, filler(20)) << jpeg(kHead + word(marker));
        QTest::newRow("a scan header alone") << jpeg(kHead + sos()) << jpeg(kHead + sos());
    }
    void segments()
    {
        QFETCH(QByteArray, source);
        QFETCH(QByteArray, expected);
        const ScopedTables none(noTables());
        SaveRoom room;
        QCOMPARE(rebuilt(room, source).toHex(' '), expected.toHex(' '));
    }

    // Tables, frames and intervals go through a buffer of 1,024 bytes of which only the remainder is written.
    void longSegments_data()
    {
        QTest::addColumn<int>("marker");
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("written");
        QTest::newRow("DQT is copied whole") << int(DQT) << 1300 << 1302;
        QTest::newRow("DQT of one block") << int(DQT) << 1022 << 1024;
        QTest::newRow("DHT of 1,023 bytes") << int(DHT) << 1021 << 1023;
        QTest::newRow("DHT of 1,024 bytes") << int(DHT) << 1022 << 0;
        QTest::newRow("DHT of 1,025 bytes") << int(DHT) << 1023 << 1;
        QTest::newRow("frame of 1,102 bytes") << int(SOF1) << 1100 << 78;
        QTest::newRow("interval of 3,000 bytes") << int(DRI) << 2998 << 952;
    }
    void longSegments()
    {
        QFETCH(int, marker);
        QFETCH(int, length);
        QFETCH(int, written);
        const ScopedTables none(noTables());
        SaveRoom room;
        const QByteArray item = segment(marker, length);
        const QByteArray scan = sos() + filler(30);
        QCOMPARE(rebuilt(room, jpeg(kHead + item + scan)).toHex(' '),
                 jpeg(kHead + item.left(written) + scan).toHex(' '));
    }

    void libraryTables_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<int>("dqtReplaced");
        QTest::addColumn<int>("dhtReplaced");
        const QByteArray a = brokenTail(kA), b = brokenTail(kB), c = brokenTail(kC);
        const QByteArray strange = tabletest::values("55", 0x56);
        const QByteArray rest = sof(SOF0, 320, 1) + kDht;
        const auto row = [&rest](const char *name, const QByteArray &in, const QByteArray &out, int replaced) {
            QTest::newRow(name) << in + rest << out + rest << replaced << 0;
        };
        row("single tables are numbered as they come", single(5, a) + single(6, b), single(0, kA) + single(1, kB), 2);
        row("a table of the library is no repair", single(0, kA) + single(1, kB), single(0, kA) + single(1, kB), 0);
        row("a head matches the second table of a row", single(0, b), single(0, kB), 1);
        row("three single tables", single(7, a) + single(7, b) + single(7, c),
            single(0, kA) + single(1, kB) + single(2, kC), 3);
        row("an unknown table keeps its number and takes none", single(0, a) + single(9, strange) + single(3, c),
            single(0, kA) + single(9, strange) + single(1, kC), 2);
        row("16-bit precision is lost with the number", single(0x10, a), single(0, kA), 1);
        row("a pair", several({a, b}), kPair, 1);
        row("a triple", several({a, b, c}), kTriple, 1);
        row("a pair row's own length field", several({brokenTail(kOdd), b}), kOddPair, 1);
        row("an unknown pair", several({strange, strange}), several({strange, strange}), 0);
        row("a DQT of another length", segment(DQT, 50) + single(0, a), segment(DQT, 50) + single(0, kA), 1);
        row("the fourth to be replaced is left out", several({a, b}) + several({a, b, c}) + single(0, a) + single(1, b),
            kPair + kTriple + single(2, kA), 3);
        row("a fourth single table isn't looked up", single(0, a) + single(1, b) + single(2, c) + single(3, a),
            single(0, kA) + single(1, kB) + single(2, kC) + single(3, a), 3);

        const QByteArray front = single(0, kA) + sof();
        const auto dht = [&front](const char *name, const QByteArray &in, const QByteArray &out, int replaced) {
            QTest::newRow(name) << front + in << front + out << 0 << replaced;
        };
        const QByteArray brokenOne = kOneHuffman.left(24) + filler(9);
        const QByteArray brokenFour = kFourHuffman.left(22) + filler(80) + kFourHuffman.mid(102, 305) + filler(13);
        // Behind the first table, 21 bytes of head and 87 symbols, each further one takes 17 + 87.
        const int third = 21 + 87 + 17 + 87;
        dht("symbols of a DHT", brokenOne, kOneHuffman, 1);
        dht("counts of a DHT", withByte(brokenOne, 10, 1), withByte(brokenOne, 10, 1), 0);
        dht("four tables in one", brokenFour, kFourHuffman, 1);
        dht("a count of the third of four", withByte(brokenFour, third + 3, 1), withByte(brokenFour, third + 3, 1), 0);
        dht("the same with a second DHT", withByte(brokenFour, third + 3, 1) + brokenOne, kFourHuffman + kOneHuffman,
            2);
    }
    void libraryTables()
    {
        QFETCH(QByteArray, source);
        QFETCH(QByteArray, expected);
        const QByteArray scan = sos() + filler(60);
        const ScopedTables tables(ownTables());
        SaveRoom room;
        QCOMPARE(rebuilt(room, jpeg(source + scan)).toHex(' '), jpeg(expected + scan).toHex(' '));
        QTEST(pApp->report.dqtReplaced, "dqtReplaced");
        QTEST(pApp->report.dhtReplaced, "dhtReplaced");
        QCOMPARE(pApp->bQuantNotFound, true);
    }

    // Where the second to fourth table begin follows from the file's own counts; what lies behind the segment is zeros.
    void innerTables_data()
    {
        QTest::addColumn<QByteArray>("dht");
        QTest::addColumn<int>("second");
        QTest::addColumn<int>("third");
        QTest::addColumn<int>("fourth");
        QTest::newRow("healthy") << kFourHuffman << 108 << 212 << 316;
        // The third table then seems to begin nine bytes late, and nine of its symbols, 19 each, count as counts.
        QTest::newRow("a count too high") << withByte(kFourHuffman, 108 + 1, 9) << 108 << 221 << 221 + 17 + 9 * 19;
        QTest::newRow("behind the segment") << withByte(withByte(kFourHuffman, 5, 255), 6, 255) << 618 << 635 << 652;
        QTest::newRow("one table") << kOneHuffman << 33 << 50 << 67;
    }
    void innerTables()
    {
        QFETCH(QByteArray, dht);
        QFETCH(int, second);
        QFETCH(int, third);
        QFETCH(int, fourth);
        const ScopedTables tables(ownTables());
        SaveRoom room;
        rebuilt(room, jpeg(single(0, kA) + sof() + dht + sos() + filler(9)));
        QCOMPARE(int(pApp->nDhtPart2), second);
        QCOMPARE(int(pApp->nDhtPart3), third);
        QCOMPARE(int(pApp->nDhtPart4), fourth);
        const auto head = [](const quint8 *bytes) { return QByteArray(reinterpret_cast<const char *>(bytes), 17); };
        const QByteArray padded = dht.leftJustified(1024, '\0');
        QCOMPARE(head(pApp->aDhtHead2), padded.mid(second, 17));
        QCOMPARE(head(pApp->aDhtHead3), padded.mid(third, 17));
        QCOMPARE(head(pApp->aDhtHead4), padded.mid(fourth, 17));
    }

    void scanCodes_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<int>("codes");
        const QByteArray f = filler(20);
        const auto row = [&f](const char *name, const char *in, const char *out, int codes) {
            QTest::newRow(name) << f + QByteArray::fromHex(in) + f << f + QByteArray::fromHex(out) + f << codes;
        };
        row("an unknown code", "FF4A", "004A", 1);
        row("an SOI", "FFD8FFE0", "00D8FFE0", 1);
        row("a run of FF", "FFFFFFFF01", "0000000001", 4);
        row("FF in front of a stuffed one", "FFFF00", "00FF00", 1);
        row("stuffing and restarts", "FF00FFD0FFD7FF00", "FF00FFD0FFD7FF00", 0);
        row("markers of segments pass", "FFC4FFDAFFDBFFEEFFFE", "FFC4FFDAFFDBFFEEFFFE", 0);
        row("markers outside the set don't", "FFCCFFDCFFDEFFF0FF01", "00CC00DC00DE00F00001", 5);
        QTest::newRow("far apart") << f + "\xFF\x01" + filler(70000) + "\xFF\x02" + f
                                   << f + QByteArray("\0\x01", 2) + filler(70000) + QByteArray("\0\x02", 2) + f << 2;
        QTest::newRow("the scan's first bytes") << QByteArray("\xFF\x01") + f << QByteArray("\0\x01", 2) + f << 1;
    }
    void scanCodes()
    {
        QFETCH(QByteArray, source);
        QFETCH(QByteArray, expected);
        const ScopedTables none(noTables());
        SaveRoom room;
        pApp->nSavePhase = 2;
        QCOMPARE(rebuilt(room, jpeg(kHead + sos() + source)), jpeg(kHead + sos() + expected));
        QTEST(int(pApp->report.codesNeutralised), "codes");
    }

    // Without an end the last two bytes aren't copied, so a code there meets the new EOI.
    void codeInTheNewEnd()
    {
        const ScopedTables none(noTables());
        SaveRoom room;
        QCOMPARE(rebuilt(room, word(SOI) + kHead + sos() + filler(50) + "\xFF\x4A"),
                 word(SOI) + kHead + sos() + filler(50) + bytes({0x00, 0xD9}));
    }

    void codesBehindTheOutput_data()
    {
        QTest::addColumn<QVector<int>>("distances");
        QTest::newRow("one byte on") << QVector<int>{int(sos().size()) + 12};
        QTest::newRow("in the end marker and behind") << QVector<int>{int(sos().size()) + 11, 5000};
        QTest::newRow("blocks away, in no order") << QVector<int>{300000, 20, 70000};
    }
    void codesBehindTheOutput()
    {
        QFETCH(QVector<int>, distances);
        const ScopedTables none(noTables());
        SaveRoom room;
        room.walk(room.addSource("a.jpg", jpeg(kHead + sos() + filler(10))));
        QByteArray expected = jpeg(kHead + sos() + filler(10));
        for (const int distance : distances) {
            auto *fault = new tagScanFault{distance};
            if (pApp->pScanFaultHead)
                pApp->pScanFaultTail->pNext = fault;
            else
                pApp->pScanFaultHead = fault;
            pApp->pScanFaultTail = fault;
            const int place = 2 + kHead.size() + distance;
            if (place >= expected.size()) expected.append(place + 1 - expected.size(), '\0');
            expected[place] = '\0';
        }
        QCOMPARE(room.written([](FILE *out) { SaveFile().SaveStart_newFormat(out, 0); }), expected);
    }

    // A file that shrinks between the walk and the rebuild. A segment reads zeros; a scan repeats what the copy's buffer
    // still holds.
    void sourceShrinks_data()
    {
        QTest::addColumn<int>("left");
        const int scanAt = 2 + kHead.size();
        QTest::newRow("in the frame") << 2 + kTables.size() + 9;
        QTest::newRow("in front of the scan") << scanAt;
        QTest::newRow("in the odd remainder") << scanAt + 100;
        QTest::newRow("at a block's edge") << scanAt + 14 + 3000 - 2048;
        QTest::newRow("in a block") << scanAt + 14 + 3000 - 700;
        QTest::newRow("by one byte") << scanAt + 14 + 3000 - 1;
    }
    void sourceShrinks()
    {
        QFETCH(int, left);
        const ScopedTables none(noTables());
        SaveRoom room;
        const QByteArray scan = sos() + junk(3000);
        const QByteArray whole = jpeg(kHead + scan);
        const QString path = room.addSource("a.jpg", whole);
        room.walk(path);
        QVERIFY(QFile::resize(path, left));

        const QByteArray kept = whole.left(left);
        const QByteArray segments = kept.mid(2, kHead.size()).leftJustified(kHead.size(), '\0');
        const QByteArray expected = jpeg(segments + blockwise(kept.mid(2 + kHead.size()), scan.size()));
        QCOMPARE(room.written([](FILE *out) { SaveFile().SaveStart_newFormat(out, 0); }), expected);
    }

    void sourceIsGone()
    {
        SaveRoom room;
        const QString path = room.addSource("a.jpg", miniJpeg());
        room.walk(path);
        QVERIFY(QFile::remove(path));
        QCOMPARE(room.written([](FILE *out) { SaveFile().SaveStart_newFormat(out, 0); }), word(SOI) + word(EOI));
    }

    void encodedPictures_data()
    {
        QTest::addColumn<QByteArray>("source");
        JpegOptions options;
        options.segments = {exifSegment(healthyJpeg()), commentSegment("a comment")};
        QTest::newRow("baseline") << healthyJpeg(options);
        options.progressive = true;
        QTest::newRow("progressive") << healthyJpeg(options);
        options.progressive = false;
        options.restartMcus = 2;
        options.oneDht = options.oneDqt = true;
        QTest::newRow("restarts, tables in one segment") << healthyJpeg(options);
        QTest::newRow("grey") << makeJpeg(drawGreyPicture(33, 17), options);
    }
    void encodedPictures()
    {
        QFETCH(QByteArray, source);
        const ScopedTables none(noTables());
        SaveRoom room;
        QCOMPARE(rebuilt(room, source), bareJpeg(source));
    }

    void check_data()
    {
        QTest::addColumn<QString>("nodes");
        QTest::addColumn<bool>("holds");
        QTest::addColumn<QString>("missing");
        const auto row = [](const char *nodes, bool holds, const char *missing = "") {
            QTest::newRow(nodes) << nodes << holds << missing;
        };
        row("SOI DQT SOF0 DHT SOS EOI", true);
        row("SOI APP1 DHT DQT COM SOF2 DRI SOS", true);
        row("DQT SOF1 DHT SOS", true);
        row("SOI SOF0 DHT DQT APP1 DHT SOS", true);
        row("SOI SOI DQT SOF0 DHT SOS", true);
        row("DQT SOI SOF0 SOI DHT SOS EOI", true);
        row("SOI DQT SOF9 SOF0 EOI DHT SOS", true);
        row("SOI DQT DHT SOS EOI", false, "SOF SOS");
        row("SOI DQT SOF0 SOS EOI", false, "DHT SOS");
        row("SOI SOF0 DHT SOS EOI", false, "DQT SOS");
        row("SOI DQT SOF0 DHT EOI", false, "SOS");
        row("SOI DQT SOF9 DHT SOS EOI", false, "SOF SOS");
        row("SOS DQT SOF0 DHT", false, "SOS");
        row("", false, "DQT DHT SOF SOS");
        row("SOI DQT SOF0 DHT DRI:0 SOS", false, "SOS");
        row("SOI DQT SOF0:0 DHT SOS", false, "DHT SOS");
        row("SOI DQT SOF0 DHT:0 SOS", false, "SOS");
        row("SOI DQT:0 SOF0 DHT SOS", false, "DHT SOF SOS");
        row("SOI COM:0 DQT SOF0 DHT SOS:0", true);
        row("SOI DQT SOF0 DHT SOS EOI DQT:0", true);
    }
    void check()
    {
        QFETCH(QString, nodes);
        QFETCH(QString, missing);
        SaveRoom room;
        pApp->nSavePhase = 2;
        chain(nodes);
        QTEST(SaveFile().CheckMarkerSequence(0), "holds");
        QCOMPARE(pApp->report.missingSegments.join(' '), missing);
        QCOMPARE(pApp->bSosSeen, !missing.contains("SOS"));
        QCOMPARE(pApp->bEoiSeen, pApp->bSosSeen && nodes.contains("EOI") && !nodes.contains("EOI DHT"));
    }

    // How many tables of their own a frame asks for, against how many there are.
    void tableCount_data()
    {
        QTest::addColumn<int>("selector");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("holds");
        for (int selector = 0; selector <= 4; ++selector)
            for (int count = 1; count <= 5; ++count)
                QTest::addRow("table %d of %d", selector, count)
                    << selector << count << (selector > 2 || count == selector + 1);
    }
    void tableCount()
    {
        QFETCH(int, selector);
        QFETCH(int, count);
        QFETCH(bool, holds);
        SaveRoom room;
        pApp->nThirdQuantSelector = quint8(selector);
        pApp->nDqt67Count = quint32(count);
        chain("SOI DQT:67 SOF0 DHT SOS EOI");
        QCOMPARE(SaveFile().CheckMarkerSequence(0), holds);
        resetChain();
        chain("SOI DQT:132 SOF0 DHT SOS EOI"); // several tables in one segment are never counted
        QCOMPARE(SaveFile().CheckMarkerSequence(0), true);
    }

    void behindTheFirstImage_data()
    {
        QTest::addColumn<QString>("nodes");
        QTest::addColumn<bool>("trailing");
        QTest::addColumn<bool>("holds");
        QTest::newRow("nothing there") << "SOI DQT SOF0 DHT SOS EOI" << false << false;
        QTest::newRow("an image") << "SOI SOS EOI SOI DQT SOF0 DHT SOS" << false << true;
        QTest::newRow("half an image") << "SOI DQT SOF0 DHT SOS EOI SOI DQT SOF0" << false << false;
        QTest::newRow("no end") << "SOI DQT SOF0 DHT SOS" << false << false;
        QTest::newRow("an end in front of the scan") << "SOI EOI DQT SOF0 DHT SOS" << false << false;
        QTest::newRow("a scan in front of the start") << "SOS SOI EOI DQT SOF0 DHT SOS EOI COM" << false << false;
        QTest::newRow("images behind the scan: nothing is skipped") << "SOI DQT SOF0 DHT SOS EOI" << true << true;
    }
    void behindTheFirstImage()
    {
        QFETCH(QString, nodes);
        QFETCH(bool, trailing);
        SaveRoom room;
        pApp->bTrailingImages = trailing;
        chain(nodes);
        QTEST(SaveFile().CheckMarkerSequence(1), "holds");
    }

    void nothingBehindTheFirstImage()
    {
        SaveRoom room;
        room.walk(room.addSource("a.jpg", miniJpeg()));
        QCOMPARE(room.written([](FILE *out) { SaveFile().SaveStart_newFormat(out, 1); }), word(SOI) + word(EOI));
    }

private:
    static void resetChain()
    {
        while (tagMainList *node = pApp->pMainListHead) {
            pApp->pMainListHead = node->pNext;
            delete node;
        }
    }
};

QTEST_GUILESS_MAIN(TestHeaderRebuild)
#include "tst_header_rebuild.moc"
