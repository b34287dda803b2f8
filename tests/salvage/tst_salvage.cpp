// Whole salvages: each kind of damage that one of its steps is for, and the choice between its picture and another's.

#include "Apart.h"
#include "Drawn.h"

#include "salvage/Salvage.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

using namespace salvage;
using namespace words;
using namespace drawn;

Q_DECLARE_METATYPE(JpegOptions)

namespace {

/// One with a preview that is larger than itself in an APP2, and its DHT hit.
QByteArray withLargePreview()
{
    JpegOptions options = kKnown;
    options.optimised = true;
    options.segments = {embeddingSegment(APP2, makeJpeg(drawPicture(360, 300, 4), {.quality = 90}))};
    return damaged(options).zero(upTo(DHT, 1), 2);
}

QByteArray exif(int width, int height)
{
    return segment(APP1,
                   QByteArray("Exif\0\0MM\0*\0\0\0\x08", 14) + bytes({0, 2, 0xA0, 2, 0, 3, 0, 0, 0, 1}) + word(width)
                       + word(0) + bytes({0xA0, 3, 0, 3, 0, 0, 0, 1}) + word(height) + word(0) + word(0) + word(0));
}

/// Codes that can't stand in entropy data, made of bytes that a bit more would make so.
QByteArray withCodes(int count)
{
    QByteArray file = jpeg(kKnown);
    const int data = file.lastIndexOf("\xFF\xDA") + 14;
    for (int at = data; at + 2 < file.size() && count > 0; ++at) {
        const int next = quint8(file[at + 1]);
        if (file[at] != '\xFE' || next == 0 || next == 0xFF || (next & 0xF8) == 0xD0 || next == 0xD9) continue;
        file[at] = '\xFF';
        --count;
    }
    if (count > 0) qFatal("the picture has too few such bytes");
    return file;
}

} // namespace

class TestSalvage : public QObject
{
    Q_OBJECT

private slots:
    void comesBackWhole_data();
    void comesBackWhole();
    void healthyPicturesStayAsTheyAre_data();
    void healthyPicturesStayAsTheyAre();
    void intervalsGoWhereTheyBelong();
    void rowsBehindAnErrorAreRealigned_data();
    void rowsBehindAnErrorAreRealigned();
    void whatIsCutOffStaysOff();
    void asItStands_data();
    void asItStands();
    void worthShowing_data();
    void worthShowing();
    void stopIsAnswered();
};

void TestSalvage::comesBackWhole_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("healthy");
    QTest::addColumn<int>("step"); // that must have been taken, -1 where the header was only read
    QTest::addColumn<int>("certainty");
    const auto row = [](const char *name, const QByteArray &file, const JpegOptions &options, int step,
                        Certainty certainty) {
        QTest::newRow(name) << file << jpeg(options) << step << int(certainty);
    };
    const auto of = [](Step step) { return int(step); };
    constexpr Certainty exact = Certainty::Exact;
    constexpr Certainty likely = Certainty::Likely;
    row("scan: marker lost", damaged(kOwn).zero(upTo(SOS), 2), kOwn, of(Step::ScanFound), exact);
    row("scan: header lost", damaged(kOwn).remove(upTo(SOS), 14), kOwn, of(Step::ScanFound), exact);
    row("scan: progressive, length wrong", damaged(kProgressive).put(at(SOS), word(700)), kProgressive,
        of(Step::ScanFound), exact);
    row("nested: a larger preview", withLargePreview(), kOwn, -1, exact);
    row("segments: all heads lost", damaged(kOwn).zero(upTo(DQT), 4).zero(upTo(DQT, 1), 4).zero(upTo(SOF0), 4), kOwn,
        -1, exact);
    row("segments: a DQT called APP1", damaged(kOwn).put(upTo(DQT, 1), word(APP1)), kOwn, -1, exact);
    row("segments: junk between them", damaged(kOwn).insert(upTo(DHT, 2), junk(99)), kOwn, -1, exact);
    row("segments: start cut off", damaged(kOwn).dropHead(upTo(APP0) + 9), kOwn, -1, exact);
    row("frame: precision, ids and sampling",
        damaged(kOwn).put(at(SOF0) + 2, "\x19").put(at(SOF0) + 8, "\x55").zero(at(SOF0) + 12, 1), kOwn,
        of(Step::FrameMended), likely);
    row("tables: known one with symbols hit", damaged(kKnown).fill(at(DHT, 1) + 60, 30, '\x0F'), kKnown,
        of(Step::TablesKnown), exact);
    row("tables: known one lost", damaged(kKnown).remove(upTo(DHT, 1), 183), kKnown, of(Step::TablesKnown), exact);
    row("tables: known one, half of its counts hit", damaged(kKnown).fill(at(DHT, 1) + 5, 9, '\x21'), kKnown,
        of(Step::TablesKnown), exact);
    row("tables: own one with a count hit", damaged(kOwn).put(at(DHT, 1) + 6, "\x55"), kOwn, of(Step::CountsMended),
        exact);
    row("decoding: another interval", damaged(kRestarts).put(at(DRI) + 2, word(31)), kRestarts, of(Step::IntervalFound),
        exact);
    row("decoding: interval lost", damaged(kRestarts).remove(upTo(DRI), 6), kRestarts, of(Step::IntervalFound), exact);
    row("decoding: another sampling", damaged(kOwn).put(at(SOF0) + 9, "\x21"), kOwn, of(Step::FrameMended), exact);
    row("symbols: two of a table's own", damaged(kOwn).put(at(DHT, 1) + 24, "\xFF").put(at(DHT, 1) + 27, "\xFB"), kOwn,
        of(Step::SymbolsSearched), likely);
    row("size: no frame", damaged(kOwn).remove(upTo(SOF0), 19), kOwn, of(Step::SizeFound), Certainty::Guess);
    row("size: height 0", damaged(kOwn).zero(at(SOF0) + 3, 2), kOwn, of(Step::SizeFound), Certainty::Guess);
    JpegOptions withExif = kOwn;
    withExif.segments = {exif(320, 240)};
    row("size: wrong in the frame, Exif has it", damaged(withExif).put(at(SOF0) + 5, word(2000)), withExif,
        of(Step::SizeFound), exact);
    row("quantization: first values", damaged(kKnown).put(at(DQT) + 3, "\x90\x90\x90"), kKnown, of(Step::Quantization),
        likely);
    row("quantization: tail of both", damaged(kKnown).put(at(DQT) + 40, junk(20)).put(at(DQT, 1) + 36, junk(20, 2)),
        kKnown, of(Step::Quantization), likely);
    row("quantization: one lost", damaged(kKnown).remove(upTo(DQT, 1), 69), kKnown, of(Step::Quantization), likely);
    row("quantization: progressive", damaged(kProgressive).put(at(DQT) + 3, "\x90\x90\x90"), kProgressive,
        of(Step::Quantization), likely);
    row("codes in the data", withCodes(5), kKnown, of(Step::CodesMended), likely);
    row("scan marker, a count and DQT at once",
        damaged(kOwn).zero(upTo(SOS), 2).put(at(DHT, 1) + 6, "\x55").put(at(DQT) + 3, "\x90\x90\x90"), kOwn,
        of(Step::CountsMended), likely);
}

void TestSalvage::comesBackWhole()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, healthy);
    QFETCH(int, step);
    const QImage wanted = shown(healthy);
    Budget budget;
    QVERIFY2(!readAsItStands(view(file), annexKOnly(), budget).clean(), "the damage does nothing");
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(QSize(found->width, found->height), wanted.size());
    QCOMPARE(largestDifference(shown(found->file), wanted), 0);
    QVERIFY(step < 0 || std::find(found->steps.begin(), found->steps.end(), Step(step)) != found->steps.end());
    QVERIFY(std::is_sorted(found->steps.begin(), found->steps.end()));
    QTEST(int(found->certainty), "certainty");
    QVERIFY(found->perfect);
    QVERIFY(!found->realigned);
    QVERIFY(readAsItStands(view(found->file), annexKOnly(), budget).clean());
    QVERIFY(salvage::worthShowing(*found, {}, view(file), annexKOnly(), budget));
}

void TestSalvage::healthyPicturesStayAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("file");
    JpegOptions withApps = kOwn;
    withApps.segments = {exifSegment(makeJpeg(drawPicture(32, 24, 1))), commentSegment("a comment")};
    QTest::newRow("known tables") << jpeg(kKnown);
    QTest::newRow("own tables, Exif, a comment") << jpeg(withApps);
    QTest::newRow("progressive") << jpeg(kProgressive);
    QTest::newRow("restarts") << jpeg(kRestarts);
    QTest::newRow("three DQT") << jpeg({.quality = 70, .quantTables = 3});
    QTest::newRow("grey") << makeJpeg(drawGreyPicture(201, 155), kKnown);
    QImage page(200, 150, QImage::Format_RGB32);
    page.fill(Qt::white);
    QTest::newRow("a white page, MCUs of less than a byte") << makeJpeg(page, {.optimised = true, .sampling = 444});
    QTest::newRow("no JFIF, bytes behind EOI") << jpeg({.jfif = false, .trailing = QByteArray(300, '\0')});
}

void TestSalvage::healthyPicturesStayAsTheyAre()
{
    QFETCH(QByteArray, file);
    Budget budget;
    QVERIFY(readAsItStands(view(file), annexKOnly(), budget).clean());
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(shown(found->file), shown(file));
    QVERIFY(found->steps.empty());
    QCOMPARE(int(found->certainty), int(Certainty::Exact));
    for (const SegmentPlace &place : segmentPlaces(file)) {
        if ((place.marker & 0xFFF0) != 0xFFE0 && place.marker != COM) continue;
        QVERIFY(found->file.contains(file.mid(int(place.offset), place.length + 2)));
    }
    QVERIFY(!salvage::worthShowing(*found, view(file), view(file), annexKOnly(), budget));
}

void TestSalvage::intervalsGoWhereTheyBelong()
{
    // One interval, a row of MCUs, is gone with its marker; another is all ones.
    const QByteArray whole = jpeg(kRestarts);
    QByteArray file = whole;
    const auto mark = [&](int n) {
        return file.indexOf(QByteArray("\xFF") + char(0xD0 + n), file.lastIndexOf("\xFF\xDA"));
    };
    file.remove(mark(3), mark(4) - mark(3)); // the fifth row
    const int from = mark(6) + 2;            // the eighth
    file.replace(from, mark(7) - from, QByteArray("\xFF\0", 2).repeated(10));
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QVERIFY(std::count(found->steps.begin(), found->steps.end(), Step::Resynchronised));
    QCOMPARE(int(found->certainty), int(Certainty::Guess));
    const QImage wanted = shown(whole);
    const QImage made = shown(found->file);
    QCOMPARE(made.size(), wanted.size());
    for (const auto &[top, bottom] : {std::pair(0, 62), {82, 110}, {130, 240}}) { // chroma is drawn a little beyond
        const QRect rows(0, top, 320, bottom - top);
        QCOMPARE(largestDifference(made.copy(rows), wanted.copy(rows)), 0);
    }
    QVERIFY(meanDifference(made, wanted) < 4);
}

void TestSalvage::rowsBehindAnErrorAreRealigned_data()
{
    QTest::addColumn<JpegOptions>("options");
    QTest::addColumn<int>("bytes"); // that are lost in the middle of the data
    QTest::newRow("4:4:4, a few MCUs") << JpegOptions{.quality = 88, .sampling = 444} << 60;
    QTest::newRow("4:2:0") << kKnown << 300;
    QTest::newRow("4:2:0, own tables") << kOwn << 150;
}

void TestSalvage::rowsBehindAnErrorAreRealigned()
{
    QFETCH(JpegOptions, options);
    QFETCH(int, bytes);
    const QByteArray whole = jpeg(options);
    const int data = whole.lastIndexOf("\xFF\xDA") + 14;
    const QByteArray file = Damage(whole).remove(inScan((whole.size() - data) / 2), bytes);
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QVERIFY(found->realigned);
    QVERIFY(std::count(found->steps.begin(), found->steps.end(), Step::Realigned));
    QCOMPARE(int(found->certainty), int(Certainty::Guess));
    const double before = meanDifference(shown(file), shown(whole));
    const double after = meanDifference(shown(found->file), shown(whole));
    QVERIFY2(before > 4 && after < before / 2, qPrintable(QStringLiteral("%1 %2").arg(before).arg(after)));
    const QRect top(0, 0, 320, 64);
    QCOMPARE(largestDifference(shown(found->file).copy(top), shown(whole).copy(top)), 0);
}

void TestSalvage::whatIsCutOffStaysOff()
{
    const QByteArray whole = jpeg(kKnown);
    const QByteArray file = Damage(whole).put(upTo(DHT), "\x21\x43").cutAt(fromEnd(whole.size() / 3));
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(QSize(found->width, found->height), QSize(320, 240));
    QVERIFY(!found->perfect);
    QVERIFY(int(found->certainty) < int(Certainty::Exact));
    QVERIFY(found->share > 0.4 && found->share < 0.9);
    const QRect top(0, 0, 320, 90);
    QCOMPARE(largestDifference(shown(found->file).copy(top), shown(whole).copy(top)), 0);
}

void TestSalvage::asItStands_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<bool>("errors");
    QTest::addColumn<bool>("rough");
    const auto row = [](const char *name, const QByteArray &file, bool readable, bool errors, bool rough) {
        QTest::newRow(name) << file << readable << errors << rough;
    };
    row("healthy", jpeg(kKnown), true, false, false);
    row("healthy, progressive", jpeg(kProgressive), true, false, false);
    row("end cut off", damaged(kKnown).cutAt(fromEnd(900)), true, true, false);
    row("bytes left over", damaged(kKnown).insert(fromEnd(2), filler(30)), true, true, false);
    row("first values of a DQT", damaged(kKnown).put(at(DQT) + 3, "\x90\x90\x90"), true, false, true);
    row("a DQT lost", damaged(kKnown).remove(upTo(DQT, 1), 69), false, false, false);
    row("no frame", damaged(kKnown).remove(upTo(SOF0), 19), false, false, false);
}

void TestSalvage::asItStands()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, readable);
    QFETCH(bool, errors);
    QFETCH(bool, rough);
    Budget budget;
    const Reading reading = readAsItStands(view(file), annexKOnly(), budget);
    QCOMPARE(reading.readable, readable);
    QCOMPARE(reading.errors > 0, errors);
    QCOMPARE(reading.roughTables, rough);
    QCOMPARE(reading.clean(), readable && !errors && !rough);
    if (readable) QCOMPARE(QSize(reading.width, reading.height), QSize(320, 240));
    if (readable && !errors) QCOMPARE(reading.share, 1.0);
}

void TestSalvage::worthShowing_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("told");
    QTest::addColumn<bool>("worth");
    const auto row = [](const char *name, const QByteArray &source, const QByteArray &told, bool worth) {
        QTest::newRow(name) << source << told << worth;
    };
    const QByteArray whole = jpeg(kOwn);
    const QByteArray counts = damaged(kOwn).put(at(DHT, 1) + 6, "\x55");
    const QByteArray cut = damaged(kOwn).cutAt(fromEnd(whole.size() / 2));
    row("nothing beside it", counts, {}, true);
    row("the same picture", counts, whole, false);
    row("the same, half of it missing", counts, cut, true);
    row("a thumbnail", counts, makeJpeg(drawPicture(80, 60)), true);
    const QByteArray first = damaged(kKnown).put(at(DQT) + 3, "\x90\x90\x90");
    row("a clean one with rough tables", first, first, true);
    JpegOptions oneDqt = kKnown;
    oneDqt.oneDqt = true;
    row("the same, its tables mended too", first, jpeg(oneDqt), false);
    row("the source itself", whole, whole, false);
    // What was realigned only stands beside pictures with errors.
    const QByteArray lost = damaged(kKnown).remove(inScan(5000), 60);
    row("realigned, beside a clean one", lost, jpeg(kKnown), false);
    row("realigned, beside the same damage", lost, lost, true);
}

void TestSalvage::worthShowing()
{
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, told);
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(source), annexKOnly(), budget);
    QVERIFY(found);
    QTEST(salvage::worthShowing(*found, view(told), view(source), annexKOnly(), budget), "worth");
}

void TestSalvage::stopIsAnswered()
{
    int asked = 0;
    Budget budget([&asked] { return ++asked > 2; });
    const QByteArray file = damaged(kOwn).fill(at(DHT, 1) + 19, 6, '\xFF');
    QVERIFY(!salvage::salvage(view(file), annexKOnly(), budget));
    QVERIFY(budget.elapsed() < 1000);
}

QTEST_GUILESS_MAIN(TestSalvage)
#include "tst_salvage.moc"
