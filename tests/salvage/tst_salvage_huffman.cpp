// Huffman tables of a damaged header: what is read out of a DHT, what is doubted, and what is found in its place.

#include "Apart.h"

#include "salvage/tables/Huffman.h"
#include "support/Grammar.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"

#include <QTest>

using namespace salvage;

namespace {

using Edits = std::vector<std::pair<size_t, int>>; // places, and what stands there instead

HuffmanTable edited(HuffmanTable table, const Edits &edits)
{
    for (const auto &[place, symbol] : edits) table.symbols.at(place) = quint8(symbol);
    return table;
}

/// A table of one length: sixteen bits for all symbols.
HuffmanTable flatTable(const std::vector<quint8> &symbols)
{
    HuffmanTable table;
    table.counts[15] = quint8(symbols.size());
    table.symbols = symbols;
    return table;
}

const Apart &ownTables()
{
    static const Apart apart = takeApart(makeJpeg(drawPicture(320, 240), {.quality = 92, .optimised = true}));
    return apart;
}

} // namespace

Q_DECLARE_METATYPE(Edits)
Q_DECLARE_METATYPE(std::vector<quint8>)

class TestSalvageHuffman : public QObject
{
    Q_OBJECT

private slots:
    void cutsBodies_data();
    void cutsBodies();
    void readsGaps_data();
    void readsGaps();
    void doubtsSymbols_data();
    void doubtsSymbols();
    void limitsValues_data();
    void limitsValues();
    void searchesSymbols_data();
    void searchesSymbols();
    void knownTablesAreNotSearched();
};

void TestSalvageHuffman::cutsBodies_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QByteArray>("keys"); // of the tables that are read
    QTest::addColumn<QByteArray>("states");
    QTest::addColumn<int>("gapAt"); // -1 for none
    QTest::addColumn<int>("gapLength");
    const std::array<HuffmanKey, 4> order = {0x00, 0x10, 0x01, 0x11};
    std::vector<QByteArray> parts;
    for (const HuffmanKey key : order) parts.push_back(dhtBody(key, KnownTables::standard(key)));
    const QByteArray whole = parts[0] + parts[1] + parts[2] + parts[3];
    const QByteArray all = bytes({0x00, 0x10, 0x01, 0x11});
    QTest::newRow("four sound ones") << whole << all << bytes({0, 0, 0, 0}) << -1 << 0;
    QByteArray spoilt = whole;
    spoilt[parts[0].size() + 17 + 40] = char(0x0F);
    QTest::newRow("a symbol that can't be") << spoilt << all << bytes({0, 1, 0, 0}) << -1 << 0;
    spoilt = whole;
    spoilt[parts[0].size() + 8] = char(0x70);
    QTest::newRow("a count too high in the second")
        << spoilt << bytes({0x00, 0x01, 0x11}) << bytes({0, 0, 0}) << parts[0].size() << parts[1].size();
    spoilt = whole;
    spoilt[whole.size() - 178] = char(0x77);
    QTest::newRow("a count too high in the last")
        << spoilt << bytes({0x00, 0x10, 0x01}) << bytes({0, 0, 0}) << whole.size() - parts[3].size() << parts[3].size();
    QTest::newRow("rubbish alone") << junk(60) << QByteArray() << QByteArray() << 0 << 60;
}

void TestSalvageHuffman::cutsBodies()
{
    QFETCH(QByteArray, body);
    QFETCH(int, gapAt);
    QFETCH(int, gapLength);
    const DhtReading reading = readDht(view(body), false);
    QByteArray keys;
    QByteArray states;
    for (const ReadTable &each : reading.tables) {
        keys.append(char(each.key));
        states.append(char(each.state == TableState::Sound ? 0 : each.state == TableState::DoubtfulSymbols ? 1 : 2));
        if (each.state == TableState::Sound) QVERIFY(each.table == KnownTables::standard(each.key));
    }
    QTEST(keys, "keys");
    QTEST(states, "states");
    QCOMPARE(int(reading.gaps.size()), gapAt < 0 ? 0 : 1);
    if (gapAt < 0) return;
    QCOMPARE(int(reading.gaps[0].data() - view(body).data()), gapAt);
    QCOMPARE(int(reading.gaps[0].size()), gapLength);
}

void TestSalvageHuffman::readsGaps_data()
{
    QTest::addColumn<bool>("known"); // Annex K's, else the picture's own
    QTest::addColumn<int>("key");
    QTest::addColumn<Edits>("edits"); // of the body
    QTest::addColumn<int>("origin");
    const int library = int(TableOrigin::Known);
    const int own = int(TableOrigin::CountsMended);
    QTest::newRow("known, a count wrong") << true << 0x10 << Edits{{4, 9}} << library;
    QTest::newRow("known, five counts and the key wrong")
        << true << 0x11 << Edits{{0, 0x37}, {2, 9}, {3, 9}, {4, 9}, {8, 0}, {9, 99}} << library;
    QTest::newRow("known, a count and thirty symbols wrong") << true << 0x10 << [] {
        Edits edits{{4, 9}};
        for (size_t i = 0; i < 30; ++i) edits.emplace_back(60 + i, 0xFF);
        return edits;
    }() << library;
    QTest::newRow("own AC, a count wrong") << false << 0x10 << Edits{{4, 77}} << own;
    QTest::newRow("own AC, a count and the key wrong") << false << 0x10 << Edits{{0, 0x99}, {9, 0}} << own;
    QTest::newRow("own DC, a count wrong") << false << 0x00 << Edits{{3, 60}} << own;
    QTest::newRow("own DC, called AC") << false << 0x00 << Edits{{0, 0x10}} << own;
}

void TestSalvageHuffman::readsGaps()
{
    QFETCH(bool, known);
    QFETCH(int, key);
    QFETCH(Edits, edits);
    const auto wanted = HuffmanKey(key);
    const HuffmanTable &table = known ? KnownTables::standard(wanted) : ownTables().header.huffman.at(wanted);
    QByteArray gap = dhtBody(key, table);
    for (const auto &[place, byte] : edits) gap[int(place)] = char(byte);
    const std::vector<KeyedOption> readings = readingsOf(view(gap), annexKOnly());
    const auto found = std::find_if(readings.begin(), readings.end(),
                                    [&](const KeyedOption &each) { return each.option.table == table; });
    QVERIFY(found != readings.end());
    QTEST(int(found->option.origin), "origin");
    QCOMPARE(tableClass(found->key), tableClass(wanted));
    if (known) QVERIFY(found == readings.begin());
    QVERIFY(readingsOf(view(gap.left(17)), annexKOnly()).empty());
}

void TestSalvageHuffman::doubtsSymbols_data()
{
    QTest::addColumn<std::vector<quint8>>("symbols"); // one length, AC
    QTest::addColumn<QByteArray>("doubtful");         // 1 for each that is
    QTest::addColumn<bool>("ascending");
    using Symbols = std::vector<quint8>;
    QTest::newRow("ascending") << Symbols{1, 2, 3, 4, 5} << QByteArray("00000") << true;
    QTest::newRow("one out of order") << Symbols{1, 2, 0x61, 4, 5} << QByteArray("00100") << true;
    QTest::newRow("one that can't be") << Symbols{1, 2, 0x0B, 0x14, 0x15} << QByteArray("00100") << true;
    QTest::newRow("one twice, out of order") << Symbols{1, 2, 3, 2, 5, 6} << QByteArray("000100") << true;
    QTest::newRow("one twice, side by side") << Symbols{1, 2, 2, 4, 5} << QByteArray("01100") << true;
    QTest::newRow("two that changed places") << Symbols{1, 3, 2, 4, 5} << QByteArray("01100") << true;
    Symbols falling;
    for (int i = 9; i > 0; --i)
        for (int size = 9; size > 0; --size) falling.push_back(quint8(i << 4 | size));
    falling[3] = 0x0F;
    falling[7] = falling[20];
    QByteArray marks(81, '0');
    marks[3] = marks[7] = marks[20] = '1';
    QTest::newRow("another order") << falling << marks << false;
}

void TestSalvageHuffman::doubtsSymbols()
{
    QFETCH(std::vector<quint8>, symbols);
    const Doubt doubt = doubtIn(0x10, flatTable(symbols), false);
    QByteArray marks;
    for (const bool each : doubt.doubtful) marks.append(each ? '1' : '0');
    QTEST(marks, "doubtful");
    QTEST(doubt.ascending, "ascending");
    QCOMPARE(doubt.any(), marks.contains('1'));
}

void TestSalvageHuffman::limitsValues_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<std::vector<quint8>>("symbols");
    QTest::addColumn<QByteArray>("fixed");
    QTest::addColumn<int>("place");
    QTest::addColumn<std::vector<quint8>>("values");
    using Values = std::vector<quint8>;
    QTest::newRow("between its neighbours")
        << 0x10 << Values{1, 2, 0x61, 4, 5} << QByteArray("11011") << 2 << Values{3};
    QTest::newRow("no end-of-band in a baseline scan")
        << 0x10 << Values{0xE9, 0x61, 0xF2} << QByteArray("101") << 1 << Values{0xEA, 0xF0, 0xF1};
    QTest::newRow("DC, last") << 0x00 << Values{7, 8, 0xC0} << QByteArray("110") << 2 << Values{9, 10, 11};
    QTest::newRow("nothing free") << 0x10 << Values{3, 0x61, 4} << QByteArray("101") << 1 << Values{};
}

void TestSalvageHuffman::limitsValues()
{
    QFETCH(int, key);
    QFETCH(std::vector<quint8>, symbols);
    QFETCH(QByteArray, fixed);
    QFETCH(int, place);
    const HuffmanTable table = flatTable(symbols);
    Doubt doubt = doubtIn(HuffmanKey(key), table, false);
    doubt.ascending = true;
    std::vector<bool> stands;
    for (const char each : fixed) stands.push_back(each == '1');
    QTEST(valuesFor(HuffmanKey(key), table, size_t(place), doubt, stands, false), "values");
}

void TestSalvageHuffman::searchesSymbols_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Edits>("edits"); // of symbols
    QTest::newRow("one that can't be") << 0x10 << Edits{{3, 0xFF}};
    QTest::newRow("the first") << 0x10 << Edits{{0, 0xB0}};
    QTest::newRow("one that stands twice") << 0x10 << Edits{{2, 0x00}};
    QTest::newRow("three in the luminance") << 0x10 << Edits{{1, 0xFF}, {6, 0x9F}, {9, 0x80}};
    QTest::newRow("one of DC") << 0x00 << Edits{{2, 0xEE}};
}

void TestSalvageHuffman::searchesSymbols()
{
    QFETCH(int, key);
    QFETCH(Edits, edits);
    const Apart &apart = ownTables();
    Header header = apart.header;
    HuffmanTable &table = header.huffman.at(HuffmanKey(key));
    table = edited(table, edits);
    Budget budget;
    QVERIFY(!decode(header, view(apart.data), budget).perfect);
    const std::optional<Header> found = searchSymbols(header, view(apart.data), annexKOnly(), budget);
    QVERIFY(found);
    for (const auto &[place, symbol] : edits)
        QCOMPARE(found->huffman.at(HuffmanKey(key)).symbols[place],
                 apart.header.huffman.at(HuffmanKey(key)).symbols[place]);
    QVERIFY(decode(*found, view(apart.data), budget).perfect);
    QVERIFY(budget.elapsed() < Budget::kMilliseconds);
}

void TestSalvageHuffman::knownTablesAreNotSearched()
{
    Budget budget;
    QVERIFY(!searchSymbols(ownTables().header, view(ownTables().data), annexKOnly(), budget)); // nothing is doubtful
    const Apart apart = takeApart(makeJpeg(drawPicture(48, 32)));
    QVERIFY(!searchSymbols(apart.header, view(apart.data), annexKOnly(), budget)); // though Annex K's don't ascend
    QCOMPARE(budget.decodes(), 0);
    // Where the time is up before it begins, nothing is tried, but the table can be written.
    Header header = ownTables().header;
    header.huffman[0x10].symbols[3] = 0xFF;
    Budget none({}, 0);
    const std::optional<Header> found = searchSymbols(header, view(ownTables().data), annexKOnly(), none);
    QVERIFY(found);
    QCOMPARE(int(stateOf(0x10, found->huffman.at(0x10), false)), int(TableState::Sound));
    QVERIFY(none.decodes() <= 2);
}

QTEST_GUILESS_MAIN(TestSalvageHuffman)
#include "tst_salvage_huffman.moc"
