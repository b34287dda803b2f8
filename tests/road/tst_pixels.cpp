// Damage of each kind on healthy pictures of each kind: what comes out must show the healthy picture, pixel by pixel,
// wherever the damage left enough to know it.

#include "Road.h"

#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

#include <functional>

using namespace words;

using Verb = std::function<QByteArray(const QByteArray &)>;
Q_DECLARE_METATYPE(Verb)

namespace {

// Recognition keys on a table's first bytes, from the length field: up to 22 of a DHT, the first 25 values of a DQT.
constexpr int kBehindDhtKey = 22;
constexpr int kHeadValues = 25;
constexpr int kTableBytes = 65;

std::vector<SegmentPlace> segmentsOf(const QByteArray &jpeg, int marker)
{
    std::vector<SegmentPlace> found;
    for (const SegmentPlace &place : segmentPlaces(jpeg)) {
        if (place.marker == SOS) break; // what lies between the scans of a progressive picture is copied with them
        if (place.marker == marker) found.push_back(place);
    }
    return found;
}

/// Everything behind the key of each Huffman table's segment. In a segment of all tables the counts of the further ones
/// are part of the key, so there only symbols go.
QByteArray withoutSymbols(const QByteArray &jpeg, char value)
{
    QByteArray out = jpeg;
    for (const SegmentPlace &place : segmentsOf(jpeg, DHT)) {
        const int begin = int(place.offset) + 4;
        const int end = int(place.offset) + 2 + place.length;
        for (int table = begin; table < end;) {
            int symbols = 0;
            for (int i = 1; i <= 16; ++i) symbols += quint8(jpeg[table + i]);
            for (int at = table + 17; at < table + 17 + symbols; ++at)
                if (at >= int(place.offset) + 2 + kBehindDhtKey) out[at] = value;
            table += 17 + symbols;
        }
    }
    return out;
}

QByteArray withoutQuantTails(const QByteArray &jpeg, char value)
{
    QByteArray out = jpeg;
    for (const SegmentPlace &place : segmentsOf(jpeg, DQT))
        for (int table = int(place.offset) + 4; table < place.offset + 2 + place.length; table += kTableBytes)
            for (int i = 1 + kHeadValues; i < kTableBytes; ++i) out[table + i] = value;
    return out;
}

/// Behind the SOI a camera's file has much that no picture needs.
QByteArray withBaggage(const QByteArray &jpeg)
{
    return jpeg.left(2) + segment(APP3, 300) + commentSegment(filler(90)) + segment(0xFFEF, 40) + jpeg.mid(2);
}

struct Kind
{
    const char *name;
    JpegOptions options;
    bool grey = false;
};

const std::vector<Kind> &kinds()
{
    static const std::vector<Kind> all = {
        {"baseline", {}},
        {"4:2:2", {.sampling = 422}},
        {"4:4:4", {.quality = 92, .sampling = 444}},
        {"low quality", {.quality = 60}},
        {"high quality", {.quality = 97}},
        {"progressive", {.progressive = true}},
        {"progressive, one DQT", {.quality = 75, .progressive = true, .oneDqt = true}},
        {"restarts", {.restartMcus = 5}},
        {"grey", {.quality = 80}, true},
        {"grey, one DHT", {.quality = 80, .oneDht = true}, true},
        {"grey, restarts", {.restartMcus = 7}, true},
        {"three tables", {.quantTables = 3}},
        {"three tables, one DQT", {.quality = 90, .quantTables = 3, .oneDqt = true}},
        {"one DHT", {.oneDht = true}},
        {"pair", {.oneDqt = true}},
        {"pair, one DHT", {.quality = 70, .oneDqt = true, .oneDht = true}},
        {"no APP0", {.jfif = false}},
        {"no APP0, triple, one DHT", {.quality = 65, .quantTables = 3, .oneDqt = true, .oneDht = true, .jfif = false}},
    };
    return all;
}

QByteArray healthyOf(const Kind &kind, int variant = 0)
{
    return makeJpeg(kind.grey ? drawGreyPicture(104, 72, variant) : drawPicture(104, 72, variant), kind.options);
}

/// How the picture comes out. The second way needs a segment that leads to the tables, or all tables in one.
enum class Way { Main, Second, SecondIfLed };

struct NamedVerb
{
    const char *name;
    Verb apply;
    Way way = Way::Main;
    bool takesSymbols = false;
    bool takesSoi = false;
};

QByteArray intoComment(const QByteArray &jpeg)
{
    return Damage(withBaggage(jpeg)).dropHead(upTo(COM) + 20).insert(upTo(DQT), segment(APP2, 40));
}

std::vector<NamedVerb> tableVerbs()
{
    return {
        {"symbols zeroed", [](const QByteArray &j) { return withoutSymbols(j, 0); }, Way::Main, true},
        {"symbols overwritten", [](const QByteArray &j) { return withoutSymbols(j, 0x33); }, Way::Main, true},
        {"quantization tails zeroed", [](const QByteArray &j) { return withoutQuantTails(j, 0); }},
        {"quantization tails overwritten", [](const QByteArray &j) { return withoutQuantTails(j, char(0xE1)); }},
        {"all tables", [](const QByteArray &j) { return withoutQuantTails(withoutSymbols(j, 0), 1); }, Way::Main, true},
        {"all tables, junk in front",
         [](const QByteArray &j) { return junk(77) + withoutQuantTails(withoutSymbols(j, 9), 0); }, Way::Main, true},
        {"all tables, junk behind",
         [](const QByteArray &j) { return withoutQuantTails(withoutSymbols(j, 9), 0) + junk(77); }, Way::Main, true},
    };
}

std::vector<NamedVerb> otherVerbs()
{
    return {
        {"healthy", [](const QByteArray &j) { return j; }},
        {"healthy, with baggage", withBaggage},
        {"junk in front", [](const QByteArray &j) { return junk(300) + j; }},
        {"one byte in front", [](const QByteArray &j) { return junk(1) + j; }},
        // A picture in front of the file's end is passed over as a stray one.
        {"junk in front and behind", [](const QByteArray &j) { return junk(77) + j + junk(78); }, Way::Second},
        {"SOI overwritten", [](const QByteArray &j) { return Damage(j).zero(fromStart(0), 2).bytes(); },
         Way::SecondIfLed, false, true},
        {"head lost up to the tables", [](const QByteArray &j) { return Damage(j).dropHead(upTo(DQT)).bytes(); },
         Way::Main, false, true},
        {"head lost inside a comment", intoComment, Way::Second},
        {"zeros behind", [](const QByteArray &j) { return j + QByteArray(500, '\0'); }},
        {"junk behind", [](const QByteArray &j) { return j + junk(501); }},
        {"text that ends like a picture", [](const QByteArray &j) { return j + filler(9) + word(EOI); }},
        {"EOI overwritten",
         [](const QByteArray &j) {
             return Damage(j).put(fromEnd(2), bytes({0x11, 0x22})).bytes();
         }},
        {"stray bytes between the segments",
         [](const QByteArray &j) {
             return Damage(j).insert(upTo(DQT), filler(5)).insert(upTo(SOS), filler(7)).bytes();
         }},
        {"unknown segment overwritten",
         [](const QByteArray &j) { return Damage(withBaggage(j)).fill(at(APP3) + 2, 290, char(0xFF)).bytes(); }},
    };
}

/// "" where the rules leave no way to the picture.
QString resultOf(const Kind &kind, const NamedVerb &verb)
{
    const bool led = kind.options.jfif;
    // Tables that were made for one picture are in no library.
    if (verb.takesSymbols && kind.options.progressive) return {};
    // Without an SOI only tables and frames are trusted, and a restart interval ends the walk.
    if (verb.takesSoi && kind.options.restartMcus > 0 && !(verb.way == Way::SecondIfLed && led)) return {};
    if (verb.way == Way::Main) return "a.jpg";
    if (verb.way == Way::SecondIfLed) return led ? "/a.jpg" : "a.jpg";
    const bool oneSegment = kind.options.oneDqt || kind.grey;
    return led || oneSegment || QByteArray(verb.name).startsWith("head lost") ? "/a.jpg" : "";
}

/// Entropy data of restart interval `index`, from 0: its first byte and how many there are.
std::pair<int, int> restartInterval(const QByteArray &jpeg, int index)
{
    int begin = int(Damage(jpeg).offsetOf(inScan(0)));
    for (int at = begin;; ++at) {
        const int code = quint8(jpeg[at + 1]);
        if (quint8(jpeg[at]) != 0xFF || code < 0xD0 || code > 0xD9) continue;
        if (index-- == 0) return {begin, at - begin};
        begin = at + 2;
    }
}

} // namespace

class TestPixels : public QObject
{
    Q_OBJECT

private slots:
    void damaged_data();
    void damaged();
    void optimisedTablesAreKept();
    void illegalCodesStayInTheirInterval_data();
    void illegalCodesStayInTheirInterval();
    void lostTail();
    void thumbnails_data();
    void thumbnails();
    void streams_data();
    void streams();
};

void TestPixels::damaged_data()
{
    QTest::addColumn<QByteArray>("healthyFile");
    QTest::addColumn<Verb>("verb");
    QTest::addColumn<QString>("result");
    for (const Kind &kind : kinds())
        for (const auto &verbs : {tableVerbs(), otherVerbs()})
            for (const NamedVerb &verb : verbs) {
                const QString result = resultOf(kind, verb);
                if (result.isEmpty()) continue;
                QTest::addRow("%s: %s", kind.name, verb.name) << healthyOf(kind) << verb.apply << result;
            }
}

void TestPixels::damaged()
{
    QFETCH(QByteArray, healthyFile);
    QFETCH(Verb, verb);
    QFETCH(QString, result);
    const Run run;
    const QByteArray file = verb(healthyFile);
    const FileOutcome outcome = run.repair("a.jpg", file);
    QCOMPARE(outcome.results, QStringList(result));
    const QImage expected = decoded(healthyFile);
    QVERIFY(!expected.isNull());
    QCOMPARE(decoded(run.output("a.jpg")), expected);
    QVERIFY2(outcome.report.decoderWarning.isEmpty() || file.size() > healthyFile.size() || !file.endsWith(word(EOI)),
             qPrintable(outcome.report.decoderWarning));
    const OutputRows rows = makeRows(outcome);
    QCOMPARE(rows.rows.size(), 1);
    QCOMPARE(rows.rows[0].resolution, QString("72x104"));
}

void TestPixels::optimisedTablesAreKept()
{
    // Tables that no library knows stay as they are; damaged, they can't be told.
    for (const bool progressive : {false, true}) {
        const QByteArray file = makeJpeg(drawPicture(104, 72, 4), {.progressive = progressive, .optimised = true});
        const Run run;
        const FileOutcome outcome = run.repair("a.jpg", file);
        QCOMPARE(outcome.report.dhtReplaced, 0);
        QCOMPARE(decoded(run.output("a.jpg")), decoded(file));
    }
}

void TestPixels::illegalCodesStayInTheirInterval_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::newRow("FF 01") << bytes({0xFF, 0x01});
    QTest::newRow("FF F3, FF 7E") << bytes({0xFF, 0xF3, 0xFF, 0x7E});
    QTest::newRow("FF FF FF FF 01") << bytes({0xFF, 0xFF, 0xFF, 0xFF, 0x01});
    QTest::newRow("an SOI") << word(SOI);
}

void TestPixels::illegalCodesStayInTheirInterval()
{
    QFETCH(QByteArray, code);
    // One row of blocks to an interval and no subsampling, so that rows don't smooth into each other.
    constexpr int kBlock = 8;
    const QByteArray healthyFile = makeJpeg(drawPicture(104, 72), {.restartMcus = 104 / kBlock, .sampling = 444});
    const QImage expected = decoded(healthyFile);
    for (const int row : {0, 3, 8}) {
        const auto [begin, count] = restartInterval(healthyFile, row);
        QVERIFY(count > 20);
        QByteArray file = healthyFile;
        file.replace(begin + count / 2, code.size(), code);
        const Run run;
        const FileOutcome outcome = run.repair("a.jpg", file);
        QCOMPARE(outcome.results, QStringList("a.jpg"));
        QCOMPARE(outcome.report.codesNeutralised, qint64(code.count(char(0xFF))));
        const QImage repaired = decoded(run.output("a.jpg"));
        QCOMPARE(repaired.size(), expected.size());
        for (int y = 0; y < expected.height(); ++y) {
            if (y / kBlock == row) continue;
            QVERIFY2(repaired.copy(0, y, repaired.width(), 1) == expected.copy(0, y, expected.width(), 1),
                     qPrintable(QString("line %1, damage in row %2").arg(y).arg(row)));
        }
    }
}

void TestPixels::lostTail()
{
    const QByteArray healthyFile = makeJpeg(drawPicture(104, 72), {.restartMcus = 13, .sampling = 444});
    const auto [begin, count] = restartInterval(healthyFile, 5);
    const Run run;
    // The last two bytes give way to the EOI.
    const FileOutcome outcome = run.repair("a.jpg", healthyFile.left(begin + count + 2 + 2));
    QCOMPARE(outcome.results, QStringList("a.jpg"));
    const QImage repaired = decoded(run.output("a.jpg"));
    QCOMPARE(repaired.copy(0, 0, 104, 48), decoded(healthyFile).copy(0, 0, 104, 48));
}

void TestPixels::thumbnails_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("names"); // as the list holds them
    QTest::addColumn<QList<QByteArray>>("pictures");
    const auto small = [](int variant, JpegOptions options = {.oneDqt = true}) {
        return makeJpeg(drawPicture(40, 24, variant), options);
    };
    const QByteArray a = small(1);
    const QByteArray b = makeJpeg(drawPicture(64, 48, 2), {.quality = 75, .oneDqt = true});
    const auto holding = [](const std::vector<QByteArray> &segments, JpegOptions options = {}) {
        options.jfif = false;
        options.segments = segments;
        return makeJpeg(drawPicture(104, 72), options);
    };
    const QStringList one{"a.jpg", "a_[T1].jpg"};
    const QStringList two{"a.jpg", "a_[T1].jpg", "a_[T2].jpg"};
    const QByteArray exif = holding({exifSegment(a)});
    using Pictures = QList<QByteArray>;
    QTest::newRow("Exif") << exif << one << Pictures{exif, a};
    QTest::newRow("Exif, main image of a pair")
        << holding({exifSegment(a)}, {.oneDqt = true}) << one << Pictures{exif, a};
    QTest::newRow("Exif and preview") << holding({exifSegment(a), embeddingSegment(APP2, b)}) << two
                                      << Pictures{exif, a, b};
    QTest::newRow("two in one APP1") << holding({segment(APP1, filler(9) + a + filler(3) + b)}) << two
                                     << Pictures{exif, a, b};
    QTest::newRow("APP13") << holding({embeddingSegment(APP13, b)}) << one << Pictures{exif, b};
    QTest::newRow("main header lost") << Damage(exif).zero(upTo(SOF0), 19).bytes() << QStringList{"a_[T1].jpg"}
                                      << Pictures{a};
    QTest::newRow("both main tables lost")
        << Damage(exif).zero(upTo(DQT), 69).zero(upTo(DQT, 1), 69).bytes() << QStringList{"a_[T1].jpg"} << Pictures{a};
    QTest::newRow("main symbols lost") << withoutSymbols(exif, 0) << one << Pictures{exif, a};
    // The thumbnail's own tables are damaged.
    const QByteArray hurt = withoutQuantTails(withoutSymbols(a, 0), 0);
    QTest::newRow("thumbnail's tables damaged") << holding({exifSegment(hurt)}) << one << Pictures{exif, a};
    QTest::newRow("all tables damaged") << withoutQuantTails(
        withoutSymbols(holding({exifSegment(hurt)}, {.oneDqt = true}), 0), 0)
                                        << one << Pictures{exif, a};
    QTest::newRow("grey thumbnail") << holding({exifSegment(makeJpeg(drawGreyPicture(40, 24, 1), {}))},
                                               {.oneDqt = true})
                                    << one << Pictures{exif, makeJpeg(drawGreyPicture(40, 24, 1), {})};
    // Laid out so that no more than four boundaries are counted; with six the file would be a stream of images.
    QTest::newRow("more than two") << holding({segment(APP1, a + b + filler(5) + a)}) << two << Pictures{exif, a, b};
    // The search for the end of a picture that isn't the file's beginning stops at the thumbnail's.
    QTest::newRow("junk in front") << junk(100) + exif << QStringList{"a.jpg"} << Pictures{exif};
}

void TestPixels::thumbnails()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, names);
    QFETCH(QList<QByteArray>, pictures);
    const Run run;
    const FileOutcome outcome = run.repair("a.jpg", file);
    QCOMPARE(outcome.results, names);
    for (int i = 0; i < names.size(); ++i) {
        const QImage image = decodedFile(outputPath(names[i]));
        QCOMPARE(image.size(), decoded(pictures[i]).size());
        QVERIFY2(image == decoded(pictures[i]), qPrintable(names[i]));
    }
}

void TestPixels::streams_data()
{
    QTest::addColumn<QByteArray>("gap");
    QTest::addColumn<QByteArray>("behind");
    QTest::newRow("zeros between") << QByteArray(64, '\0') << QByteArray();
    QTest::newRow("junk between and behind") << junk(33) << junk(50);
    QTest::newRow("a byte between") << bytes({0}) << QByteArray();
}

void TestPixels::streams()
{
    QFETCH(QByteArray, gap);
    QFETCH(QByteArray, behind);
    QList<QByteArray> pictures;
    for (const Kind &kind : kinds())
        if (kind.options.oneDqt || kind.grey) pictures << healthyOf(kind, pictures.size());
    QByteArray file;
    for (const QByteArray &picture : qAsConst(pictures)) file += picture + gap;
    const Run run;
    const FileOutcome outcome = run.repair("a.jpg", file + behind);
    // The one at the file's very start is never cut out: the next one stands for it, and it comes the second way.
    QCOMPARE(outcome.results.size(), pictures.size() + 1);
    for (int i = 0; i < pictures.size(); ++i) {
        QCOMPARE(outcome.results[i], QString("a_[T%1].jpg").arg(i + 1));
        QCOMPARE(decodedFile(outputPath(outcome.results[i])), decoded(pictures[qMax(i, 1)]));
    }
    QCOMPARE(outcome.results.last(), QString("/a.jpg"));
    QCOMPARE(decoded(run.output("a.jpg")), decoded(pictures[0]));
}

QTEST_GUILESS_MAIN(TestPixels)
#include "tst_pixels.moc"
