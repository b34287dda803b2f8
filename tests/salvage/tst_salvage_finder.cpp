// What is found in a damaged file: segments, scans, the picture that is missed, and the header that is made of them.

#include "Apart.h"

#include "salvage/search/Draft.h"
#include "salvage/structure/SegmentList.h"
#include "salvage/structure/Structure.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

using namespace salvage;
using namespace words;

Q_DECLARE_METATYPE(JpegOptions)

namespace {

const JpegOptions kOptions = {.quality = 90, .optimised = true, .restartMcus = 5};

QByteArray jpeg(const JpegOptions &options = kOptions, int width = 160, int variant = 0)
{
    return makeJpeg(drawPicture(width, width * 3 / 4, variant), options);
}

Damage damaged(const JpegOptions &options = kOptions)
{
    return Damage(jpeg(options));
}

/// Offset of the entropy data of a file's only SOS with its usual length.
size_t dataAt(const QByteArray &file)
{
    return size_t(file.lastIndexOf("\xFF\xDA") + 14);
}

Candidate mainOf(const QByteArray &file)
{
    Budget budget;
    const std::vector<Candidate> all = chooseScans(view(file), annexKOnly(), budget);
    return all.empty() ? Candidate() : all[0];
}

/// A TIFF directory's entries for the size, behind some bytes.
QByteArray exifSize(const QByteArray &width, const QByteArray &height)
{
    return segment(APP1, QByteArray("Exif\0\0", 6) + filler(20) + width + height + filler(12));
}

} // namespace

class TestSalvageFinder : public QObject
{
    Q_OBJECT

private slots:
    void healthySegmentsStandAsTheyAre();
    void gapsAreRead_data();
    void gapsAreRead();
    void segmentsOfAnEarlierPictureAreTold();
    void scansAreFound_data();
    void scansAreFound();
    void scansEndAtStructure_data();
    void scansEndAtStructure();
    void mainPictureIsChosen_data();
    void mainPictureIsChosen();
    void headersAreMended_data();
    void headersAreMended();
    void readsExifSizes_data();
    void readsExifSizes();
};

void TestSalvageFinder::healthySegmentsStandAsTheyAre()
{
    JpegOptions options = kOptions;
    options.segments = {exifSegment(makeJpeg(drawPicture(16, 16))), commentSegment("text")};
    const QByteArray file = jpeg(options);
    std::vector<SegmentPlace> places = segmentPlaces(file);
    places.pop_back(); // EOI
    const size_t scan = size_t(places.back().offset);
    places.pop_back();
    const std::vector<Segment> walked = walkSegments(view(file), 0, scan);
    const std::vector<Segment> gathered = gatherSegments(view(file), 0, scan, annexKOnly());
    QCOMPARE(walked.size(), places.size());
    QCOMPARE(gathered.size(), places.size());
    for (size_t i = 0; i < places.size(); ++i) {
        QCOMPARE(walked[i].marker, places[i].marker & 0xFF);
        QCOMPARE(walked[i].begin, size_t(places[i].offset));
        QCOMPARE(int(walked[i].end - walked[i].begin), places[i].length + 2);
        QVERIFY(walked[i].strong && gathered[i].strong && gathered[i].ofMain);
        QCOMPARE(gathered[i].marker, walked[i].marker);
    }
}

void TestSalvageFinder::gapsAreRead_data()
{
    QTest::addColumn<QByteArray>("file");
    const auto row = [](const char *name, const Damage &damage) { QTest::newRow(name) << damage.bytes(); };
    row("DQT, marker", damaged().zero(upTo(DQT), 2));
    row("DQT, marker and length", damaged().zero(upTo(DQT, 1), 4));
    row("DQT called APP1", damaged().put(upTo(DQT), word(APP1)));
    row("DHT, second byte of the marker", damaged().zero(upTo(DHT, 1) + 1, 1));
    row("DHT, marker and length", damaged().zero(upTo(DHT, 1), 4));
    row("DHT, length too long", damaged().put(at(DHT, 0), word(60)));
    row("DHT, length beyond the file", damaged().put(at(DHT, 2), word(0xFFF0)));
    row("SOF, marker and length", damaged().zero(upTo(SOF0), 4));
    row("DRI, marker", damaged().zero(upTo(DRI), 1));
    row("junk between segments", damaged().insert(upTo(SOF0), junk(70)).insert(upTo(DHT, 1), junk(31, 5)));
    row("two heads in a row", damaged().zero(upTo(DHT, 0), 4).zero(upTo(DHT, 1), 4));
    row("heads of DQT, SOF and DHT", damaged().zero(upTo(DQT, 1), 4).zero(upTo(SOF0), 4).zero(upTo(DHT, 0), 4));
    row("every head", [] {
        Damage damage = damaged();
        for (int i = 0; i < 2; ++i) damage.zero(upTo(DQT, i), 2);
        for (int i = 0; i < 4; ++i) damage.zero(upTo(DHT, i), 2);
        return damage.zero(upTo(SOF0), 2);
    }());
    row("start cut off inside APP0", damaged().dropHead(upTo(APP0) + 6));
}

void TestSalvageFinder::gapsAreRead()
{
    QFETCH(QByteArray, file);
    const QByteArray whole = jpeg();
    const std::vector<Segment> found = gatherSegments(view(file), 0, dataAt(file) - 14, annexKOnly());
    for (const SegmentPlace &place : segmentPlaces(whole)) {
        if (place.marker != DQT && place.marker != DHT && place.marker != SOF0 && place.marker != DRI) continue;
        const QByteArray body = whole.mid(int(place.offset) + 4, place.length - 2);
        const bool stands = std::any_of(found.begin(), found.end(), [&](const Segment &segment) {
            return segment.marker == (place.marker & 0xFF) && toBytes(segment.body).contains(body);
        });
        QVERIFY2(stands, qPrintable(QStringLiteral("%1 at %2").arg(place.marker, 0, 16).arg(place.offset)));
    }
}

void TestSalvageFinder::segmentsOfAnEarlierPictureAreTold()
{
    const QByteArray first = makeJpeg(drawPicture(16, 16), {.quality = 30});
    const QByteArray file = first + jpeg();
    for (const Segment &segment : gatherSegments(view(file), 0, dataAt(file) - 14, annexKOnly()))
        QCOMPARE(segment.ofMain, segment.begin >= size_t(first.size()));
}

void TestSalvageFinder::scansAreFound_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("marked");
    const auto row = [](const char *name, const Damage &damage, bool marked) {
        QTest::newRow(name) << damage.bytes() << marked;
    };
    row("healthy", damaged(), true);
    row("marker zeroed", damaged().zero(upTo(SOS), 2), false);
    row("marker of another segment", damaged().put(upTo(SOS), word(DHT)), false);
    row("length and count wrong", damaged().put(at(SOS), word(0x3312)).put(at(SOS) + 2, "\x09"), true);
    row("head and an id gone", damaged().zero(upTo(SOS), 3).put(at(SOS) + 5, "\x77"), false);
    row("all of it cut out", damaged().remove(upTo(SOS), 14), false);
    row("head zeroed up to the tables", damaged().zero(fromStart(0), 300).zero(upTo(SOS), 2), false);
}

void TestSalvageFinder::scansAreFound()
{
    QFETCH(QByteArray, file);
    const QByteArray whole = jpeg();
    const Candidate found = mainOf(file);
    QTEST(found.scan.marked, "marked");
    QCOMPARE(found.scan.end, size_t(file.size() - 2)); // EOI stays out
    QCOMPARE(file.size() - int(found.scan.start), whole.size() - int(dataAt(whole)));
    QCOMPARE(found.chain.scans, 1);
}

void TestSalvageFinder::scansEndAtStructure_data()
{
    QTest::addColumn<QByteArray>("code"); // in the middle of the data
    QTest::addColumn<bool>("ends");
    QTest::newRow("EOI by chance") << bytes({0xFF, 0xD9}) << false;
    QTest::newRow("DHT by chance") << bytes({0xFF, 0xC4, 0x31, 0x55}) << false;
    QTest::newRow("SOS by chance") << bytes({0xFF, 0xDA, 0x00, 0x0C, 0x99}) << false;
    QTest::newRow("SOI by chance") << bytes({0xFF, 0xD8, 0x37}) << false;
    QTest::newRow("a code that is nobody's") << bytes({0xFF, 0x3C}) << false;
    QTest::newRow("DHT") << segment(DHT, dhtBody(0x10, KnownTables::standard(0x10))) << true;
    QTest::newRow("SOS") << sos() << true;
    QTest::newRow("frame") << sof() << true;
    QTest::newRow("SOI of another picture") << word(SOI) + segment(APP0, 16) << true;
    QTest::newRow("EOI before another picture") << word(EOI) + word(SOI) + segment(APP0, 16) << true;
    QTest::newRow("EOI before zeros") << word(EOI) + QByteArray(70, '\0') << true;
    QTest::newRow("Exif") << segment(APP1, QByteArray("Exif\0\0MM", 8) + filler(40)) << true;
}

void TestSalvageFinder::scansEndAtStructure()
{
    QFETCH(QByteArray, code);
    QFETCH(bool, ends);
    const QByteArray data = filler(500) + code + filler(700);
    QCOMPARE(scanEnd(view(data), 3), size_t(ends ? 500 : data.size()));
}

void TestSalvageFinder::mainPictureIsChosen_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<qint64>("start"); // of its data
    const JpegOptions plain = {.quality = 90};
    const QByteArray thumbnail = jpeg(plain, 64, 1);
    const auto row = [](const char *name, const QByteArray &file, qint64 start) {
        QTest::newRow(name) << file << start;
    };
    const auto last = [](const QByteArray &file) { return qint64(dataAt(file)); };
    JpegOptions nested = plain;
    nested.segments = {exifSegment(thumbnail)};
    QByteArray file = jpeg(nested);
    row("Exif's thumbnail in front", file, last(file));
    file = Damage(file).zero(fromStart(0), 60);
    row("Exif's thumbnail, its APP1 gone", file, last(file));
    nested.segments = {embeddingSegment(APP2, jpeg({.quality = 95}, 128, 2))};
    file = jpeg(nested, 96);
    row("a preview larger than the picture", file, last(file));
    nested.segments = {exifSegment(thumbnail), embeddingSegment(APP13, thumbnail)};
    file = jpeg(nested);
    file = Damage(file).cutAt(upTo(SOS));
    row("nothing but nested ones", file, qint64(file.indexOf("\xFF\xDA") + 14));
    file = jpeg(plain) + jpeg(plain, 176, 2) + jpeg(plain, 200, 3);
    row("three in a row", file, qint64(file.indexOf("\xFF\xDA") + 14));
    file = junk(90) + thumbnail.mid(30) + jpeg(plain, 320);
    row("a small one, damaged, in front of a large one", file, last(file));
    file = jpeg(plain, 32) + jpeg(plain, 320);
    row("a small one, whole, in front of a large one", file, qint64(file.indexOf("\xFF\xDA") + 14));
}

void TestSalvageFinder::mainPictureIsChosen()
{
    QFETCH(QByteArray, file);
    QFETCH(qint64, start);
    QCOMPARE(qint64(mainOf(file).scan.start), start);
    Budget budget;
    QVERIFY(chooseScans(view(file), annexKOnly(), budget).size() <= 3);
}

void TestSalvageFinder::headersAreMended_data()
{
    QTest::addColumn<JpegOptions>("options");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("step"); // that has to be named, -1 for none at all
    const auto row = [](const char *name, const Damage &damage, int step, const JpegOptions &options = kOptions) {
        QTest::newRow(name) << options << damage.bytes() << step;
    };
    const int frame = int(Step::FrameMended);
    const int scan = int(Step::ScanFound);
    const JpegOptions progressive = {.quality = 90, .progressive = true};
    row("healthy", damaged(), -1);
    row("healthy, progressive", damaged(progressive), -1, progressive);
    row("twelve bits", damaged().put(at(SOF0) + 2, "\x0C"), frame);
    row("ids of the frame", damaged().put(at(SOF0) + 8, "\x71").put(at(SOF0) + 14, "\x44"), frame);
    row("sampling of the second", damaged().put(at(SOF0) + 12, "\x90"), frame);
    row("spectral range", damaged().put(at(SOS) + 9, "\x05\x06\x11"), frame);
    row("ids of the scan", damaged().put(at(SOS) + 3, "\x05").put(at(SOS) + 5, "\x06"), frame);
    row("frame called SOF2", damaged().put(upTo(SOF0), word(SOF2)), -2);
    row("progressive called SOF0", damaged(progressive).zero(upTo(SOF2), 2), -2, progressive);
    row("no scan header", damaged().remove(upTo(SOS), 14), scan);
    row("table selectors of the scan", damaged().put(at(SOS) + 4, "\x33"), frame);
}

void TestSalvageFinder::headersAreMended()
{
    QFETCH(JpegOptions, options);
    QFETCH(QByteArray, file);
    QFETCH(int, step);
    const Header wanted = takeApart(jpeg(options)).header;
    const Draft draft = draftHeader(view(file), mainOf(file), annexKOnly());
    const Header &made = draft.header;
    QVERIFY(draft.hasFrame);
    QCOMPARE(int(made.frame), int(wanted.frame));
    QCOMPARE(made.width, wanted.width);
    QCOMPARE(made.height, wanted.height);
    QCOMPARE(made.components.size(), wanted.components.size());
    QCOMPARE(made.scan.size(), wanted.scan.size());
    for (size_t i = 0; i < wanted.components.size(); ++i) {
        QCOMPARE(made.components[i].h * 16 + made.components[i].v,
                 wanted.components[i].h * 16 + wanted.components[i].v);
        QCOMPARE(made.components[i].id, made.scan[i].id);
        QCOMPARE(made.scan[i].tables, wanted.scan[i].tables);
    }
    QVERIFY(made.spectral == wanted.spectral);
    QCOMPARE(made.restartInterval, wanted.restartInterval);
    QVERIFY(draft.quant == wanted.quant);
    for (const auto &[key, table] : wanted.huffman)
        if (!draft.progressive || draft.options.count(key)) QVERIFY(draft.options.at(key).front().table == table);
    if (step == -1) QVERIFY(draft.steps.empty());
    if (step >= 0) QVERIFY(draft.steps.count(Step(step)));
}

void TestSalvageFinder::readsExifSizes_data()
{
    QTest::addColumn<QByteArray>("app");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    const QByteArray wide = bytes({0xA0, 2, 0, 3, 0, 0, 0, 1, 0x0F, 0xA0, 0, 0}); // 4000, big-endian SHORT
    const QByteArray high = bytes({0xA0, 3, 0, 4, 0, 0, 0, 1, 0, 0, 0x0B, 0xB8}); // 3000, LONG
    QTest::newRow("big-endian") << exifSize(wide, high) << 4000 << 3000;
    QTest::newRow("little-endian") << exifSize(bytes({2, 0xA0, 3, 0, 1, 0, 0, 0, 0xA0, 0x0F, 0, 0}),
                                               bytes({3, 0xA0, 4, 0, 1, 0, 0, 0, 0xB8, 0x0B, 0, 0}))
                                   << 4000 << 3000;
    QTest::newRow("height first") << exifSize(high, wide) << 0 << 0;
    QTest::newRow("one alone") << exifSize(wide, filler(12)) << 0 << 0;
    QTest::newRow("larger than a frame can be")
        << exifSize(bytes({0xA0, 2, 0, 4, 0, 0, 0, 1, 0, 2, 0, 1}), high) << 0 << 0;
    QTest::newRow("no width") << exifSize(bytes({0xA0, 2, 0, 4, 0, 0, 0, 1, 0, 0, 0, 0}), high) << 0 << 0;
}

void TestSalvageFinder::readsExifSizes()
{
    QFETCH(QByteArray, app);
    QFETCH(int, width);
    QFETCH(int, height);
    const QByteArray file = word(SOI) + app + app + jpeg().mid(2);
    std::vector<PictureSize> sizes;
    if (width) sizes.push_back({quint16(width), quint16(height)});
    QVERIFY(exifSizes(view(file)) == sizes);
}

QTEST_GUILESS_MAIN(TestSalvageFinder)
#include "tst_salvage_finder.moc"
