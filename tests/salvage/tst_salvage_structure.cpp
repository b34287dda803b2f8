// What bodies of segments look like by themselves, and the tables that are known.

#include "Apart.h"

#include "salvage/structure/Structure.h"
#include "support/Grammar.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"

#include <QTest>

#include <bit>

using namespace salvage;
using namespace words;

Q_DECLARE_METATYPE(salvage::HuffmanTable)
Q_DECLARE_METATYPE(salvage::QuantTable)

namespace {

constexpr std::array<HuffmanKey, 4> kKeys = {0x00, 0x10, 0x01, 0x11};

HuffmanTable withSymbol(HuffmanKey key, size_t place, quint8 symbol)
{
    HuffmanTable table = KnownTables::standard(key);
    table.symbols.at(place) = symbol;
    return table;
}

/// Bodies of all segments of a marker in a healthy picture.
std::vector<QByteArray> bodiesOf(int marker, const JpegOptions &options = {}, bool grey = false)
{
    const QByteArray jpeg = makeJpeg(grey ? drawGreyPicture(48, 32) : drawPicture(48, 32), options);
    std::vector<QByteArray> bodies;
    for (const SegmentPlace &place : segmentPlaces(jpeg))
        if (place.marker == marker) bodies.push_back(jpeg.mid(int(place.offset) + 4, place.length - 2));
    return bodies;
}

QByteArray with(QByteArray body, int at, int value)
{
    body[at] = char(value);
    return body;
}

} // namespace

class TestSalvageStructure : public QObject
{
    Q_OBJECT

private slots:
    void countsOfCodes_data();
    void countsOfCodes();
    void tableStates_data();
    void tableStates();
    void oneCountIsMended();
    void roughValuesStandOut_data();
    void roughValuesStandOut();
    void encodersTablesAreSmooth();
    void scores_data();
    void scores();
    void knownTablesAreTheEncoders();
    void knownSetsAreSoundAndOnce();
};

void TestSalvageStructure::countsOfCodes_data()
{
    QTest::addColumn<QByteArray>("counts"); // the rest is 0
    QTest::addColumn<quint32>("sum");
    QTest::addColumn<bool>("one");
    QTest::newRow("one code of one bit") << bytes({1}) << 32768U << true;
    QTest::newRow("both codes of one bit") << bytes({2}) << 65536U << false;
    QTest::newRow("more codes than there are") << bytes({3}) << 98304U << false;
    QTest::newRow("K.3, luminance DC") << bytes({0, 1, 5, 1, 1, 1, 1, 1, 1}) << 65536U - 128 << true;
    QTest::newRow("two of nine bits left") << bytes({0, 1, 5, 1, 1, 1, 1, 0, 2}) << 65536U - 256 << false;
    QTest::newRow("sixteen lengths") << QByteArray(16, 1) << 65535U << true;
}

void TestSalvageStructure::countsOfCodes()
{
    QFETCH(QByteArray, counts);
    Counts all{};
    std::copy(counts.begin(), counts.end(), all.begin());
    QTEST(kraftSum(all), "sum");
    QTEST(leavesOneCode(all), "one");
}

void TestSalvageStructure::tableStates_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<HuffmanTable>("table");
    QTest::addColumn<bool>("progressive");
    QTest::addColumn<int>("state");
    const auto row = [](const char *name, int key, const HuffmanTable &table, TableState state, bool progressive) {
        QTest::newRow(name) << key << table << progressive << int(state);
    };
    using S = TableState;
    for (const HuffmanKey key : kKeys)
        row(qPrintable(QStringLiteral("Annex K, %1").arg(key)), key, KnownTables::standard(key), S::Sound, false);
    row("DC of 12 bits", 0x00, withSymbol(0x00, 11, 12), S::DoubtfulSymbols, false);
    row("AC of 11 bits", 0x10, withSymbol(0x10, 5, 0x1B), S::DoubtfulSymbols, false);
    row("end-of-band run", 0x10, withSymbol(0x10, 5, 0x20), S::DoubtfulSymbols, false);
    row("end-of-band run, progressive", 0x10, withSymbol(0x10, 5, 0x20), S::Sound, true);
    row("a symbol twice", 0x11, withSymbol(0x11, 5, KnownTables::standard(0x11).symbols[9]), S::DoubtfulSymbols, false);
    row("no symbol", 0x00, {}, S::DoubtfulCounts, false);
    row("more codes than there are", 0x00, {{3}, {0, 1, 2}}, S::DoubtfulCounts, false);
    row("no code left", 0x00, {{1, 2}, {0, 1, 2}}, S::DoubtfulCounts, false);
    row("two symbols of one bit", 0x00, {{2}, {0, 1}}, S::Sound, false);
    row("a quarter of the codes used", 0x00, {{0, 1}, {0}}, S::DoubtfulCounts, false);
}

void TestSalvageStructure::tableStates()
{
    QFETCH(int, key);
    QFETCH(HuffmanTable, table);
    QFETCH(bool, progressive);
    QTEST(int(stateOf(HuffmanKey(key), table, progressive)), "state");
}

void TestSalvageStructure::oneCountIsMended()
{
    int alone = 0;
    for (const HuffmanKey key : kKeys) {
        const HuffmanTable &table = KnownTables::standard(key);
        const int symbols = int(table.symbols.size());
        QVERIFY(mendedCounts(table.counts, symbols).empty());
        for (size_t i = 0; i < 16; ++i) {
            Counts spoilt = table.counts;
            spoilt[i] = quint8(spoilt[i] + 3);
            const std::vector<Counts> mended = mendedCounts(spoilt, symbols);
            QVERIFY(std::find(mended.begin(), mended.end(), table.counts) != mended.end());
            for (const Counts &each : mended) {
                QCOMPARE(symbolCount(each), symbols);
                QVERIFY(leavesOneCode(each));
            }
            if (mended.size() == 1) ++alone;
            spoilt[(i + 5) % 16] = quint8(spoilt[(i + 5) % 16] + 1);
            for (const Counts &each : mendedCounts(spoilt, symbols)) QVERIFY(each != table.counts);
        }
    }
    QVERIFY(alone >= 60); // of 64
}

void TestSalvageStructure::roughValuesStandOut_data()
{
    QTest::addColumn<QuantTable>("table");
    QTest::addColumn<quint64>("rough");
    QuantTable flat{};
    flat.fill(10);
    QTest::newRow("flat") << flat << quint64(0);
    const auto row = [](const char *name, quint16 all, size_t place, quint16 value, quint64 rough) {
        QuantTable table{};
        table.fill(all);
        table[place] = value;
        QTest::newRow(name) << table << rough;
    };
    row("three times its neighbours", 10, 30, 28, 0);
    row("four and a half times", 10, 30, 45, quint64(1) << 30);
    row("a fifth, last", 100, 63, 20, quint64(1) << 63);
    row("a fifth, first", 100, 0, 20, 1);
    row("zero among ones", 1, 7, 0, quint64(1) << 7);
    QuantTable high = flat;
    std::fill_n(high.begin(), 4, quint16(180)); // most don't stand out from their neighbours
    QTest::newRow("the first four, alike") << high << quint64(0xF);
    for (size_t i = 20; i < 44; ++i) flat[i] = i % 2 ? 6 : 16; // none far off the middle, each a wide step
    QTest::newRow("a stretch of wide steps") << flat << (quint64(1) << 44) - (quint64(1) << 20);
}

void TestSalvageStructure::roughValuesStandOut()
{
    QFETCH(QuantTable, table);
    QTEST(roughValues(table), "rough");
}

void TestSalvageStructure::encodersTablesAreSmooth()
{
    int rough = 0;
    for (int quality = 5; quality <= 100; ++quality)
        for (const bool chroma : {false, true})
            if (std::popcount(roughValues(KnownTables::scaled(chroma, quality))) >= 3) ++rough;
    QVERIFY2(rough <= 4, qPrintable(QString::number(rough))); // of 192: about 2 %
}

void TestSalvageStructure::scores_data()
{
    QTest::addColumn<int>("marker");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    const auto row = [](const char *name, int marker, const QByteArray &body, double low, double high) {
        QTest::newRow(name) << marker << body << low << high;
    };
    const QByteArray scan = bodiesOf(SOS)[0];
    row("SOS of three", SOS, scan, 1, 1);
    row("SOS of one", SOS, bodiesOf(SOS, {}, true)[0], 1, 1);
    int n = 0;
    for (const QByteArray &each : bodiesOf(SOS, {.progressive = true}))
        row(qPrintable(QStringLiteral("SOS, progressive scan %1").arg(n++)), SOS, each, 1, 1);
    row("SOS, an id twice", SOS, with(scan, 3, scan[1]), 0.5, 0.99);
    row("SOS, counts four", SOS, with(scan, 0, 4), 0.5, 0.99);
    row("SOS, a byte short", SOS, scan.chopped(1), 0, 0);
    const QByteArray frame = bodiesOf(SOF0)[0];
    row("SOF of three", SOF0, frame, 1, 1);
    row("SOF of one", SOF0, bodiesOf(SOF0, {}, true)[0], 1, 1);
    row("SOF, no width", SOF0, with(with(frame, 3, 0), 4, 0), 0.5, 0.99);
    row("SOF, sampling 3x3", SOF0, with(frame, 7, 0x33), 0.5, 0.99);
    row("SOF, a byte more", SOF0, frame + 'x', 0, 0);
    row("DQT of one", DQT, bodiesOf(DQT, {.quality = 40})[0], 0.97, 1);
    row("DQT of two", DQT, bodiesOf(DQT, {.quality = 95, .oneDqt = true})[0], 0.97, 1);
    row("DQT, random", DQT, junk(65), 0, 0.7);
    row("DQT, text", DQT, QByteArray("Copyright and all other rights by whoever took it in 1999, sold?!").left(65), 0,
        0.75);
    row("DQT, a byte short", DQT, bodiesOf(DQT)[0].chopped(1), 0, 0);
    const QByteArray tables = bodiesOf(DHT, {.oneDht = true})[0];
    row("DHT of four", DHT, tables, 1, 1);
    row("DHT of its own", DHT, bodiesOf(DHT, {.optimised = true})[1], 1, 1);
    const QByteArray own = bodiesOf(DHT, {.optimised = true})[1];
    row("DHT of its own, a count wrong", DHT, with(own, 4, own[4] + 2), 0.6, 0.9);
    const QByteArray example = dhtBody(0x10, KnownTables::standard(0x10));
    row("DHT known, counts gone", DHT, with(with(example, 3, 200), 4, 99), 0.6, 0.9);
    row("DHT, random", DHT, junk(179), 0, 0);
}

void TestSalvageStructure::scores()
{
    QFETCH(int, marker);
    QFETCH(QByteArray, body);
    QFETCH(double, low);
    QFETCH(double, high);
    const ByteView bytes = view(body);
    const double score = marker == SOS ? sosScore(bytes)
        : marker == SOF0               ? sofScore(bytes)
        : marker == DQT                ? dqtScore(bytes)
                                       : dhtScore(bytes, annexKOnly());
    QVERIFY2(score >= low && score <= high, qPrintable(QString::number(score)));
}

void TestSalvageStructure::knownTablesAreTheEncoders()
{
    for (const int quality : {1, 12, 49, 50, 77, 85, 99, 100}) {
        const Apart apart = takeApart(makeJpeg(drawPicture(48, 32), {.quality = quality}));
        QVERIFY(KnownTables::scaled(false, quality) == apart.header.quant.at(0));
        QVERIFY(KnownTables::scaled(true, quality) == apart.header.quant.at(1));
        // Low qualities end in one table of 255 that stands in several sets.
        const auto &places = annexKOnly().placesOf(apart.header.quant.at(1));
        QVERIFY(std::any_of(places.begin(), places.end(), [&](const auto &place) {
            return place.second == 1 && annexKOnly().quantSets()[place.first][0] == apart.header.quant.at(0);
        }));
        for (const HuffmanKey key : kKeys) {
            QVERIFY(KnownTables::standard(key) == apart.header.huffman.at(key));
            QVERIFY(annexKOnly().isKnown(apart.header.huffman.at(key)));
        }
    }
    const Apart own = takeApart(makeJpeg(drawPicture(48, 32), {.optimised = true}));
    QVERIFY(!annexKOnly().isKnown(own.header.huffman.at(0x10)));
    QVERIFY(KnownTables::standard(0x13) == KnownTables::standard(0x11));
}

void TestSalvageStructure::knownSetsAreSoundAndOnce()
{
    const QByteArray quant = dqt({3, 150}, 0);
    const QByteArray holed = dqt({0}, 0);
    const Apart own = takeApart(makeJpeg(drawPicture(48, 32), {.optimised = true}));
    const QByteArray huffman = segment(DHT, dhtBody(0x10, own.header.huffman.at(0x10)));
    HuffmanTable full{{1, 2}, {0, 1, 2}};
    const KnownTables known({huffman, huffman, segment(DHT, dhtBody(0, full))}, {quant, holed, quant});
    QCOMPARE(known.huffman().size(), annexKOnly().huffman().size() + 1);
    QVERIFY(known.isKnown(own.header.huffman.at(0x10)));
    QVERIFY(!known.isKnown(full));
    QCOMPARE(known.quantSets().size(), annexKOnly().quantSets().size() + 1);
    QuantTable second{};
    std::copy_n(view(quant).begin() + 4 + 65 + 1, 64, second.begin());
    QVERIFY(known.placesOf(second) == (std::vector<std::pair<size_t, size_t>>{{0, 1}}));
    QVERIFY(!annexKOnly().isKnown(second));
}

QTEST_GUILESS_MAIN(TestSalvageStructure)
#include "tst_salvage_structure.moc"
