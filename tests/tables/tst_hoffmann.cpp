// The look-up of DHT segments: lengths, keys and inner tables on libraries made here, then all rows of the program.
#include "tables/Hoffmann.h"
#include "tables/PlainTableSearch.h"
#include "tables/TableTexts.h"

#include <QtTest>

using namespace tabletest;

namespace {

// The first library had a row of this length, though no file's DHT of that length is looked up.
constexpr int kUnreachable = 194;

// Looks a segment up as the rebuild does: a copy of its first 32 bytes, and nothing behind them.
QByteArray lookUp(const QByteArray &segment)
{
    QByteArray head = segment.leftJustified(32, '\0', true);
    const int length = quint8(segment[2]) << 8 | quint8(segment[3]);
    unsigned char *const found = Hoffmann().Hoffmann_table(reinterpret_cast<unsigned char *>(head.data()), length);
    if (!found || found != pApp->aHuffmanResult) return {};
    return QByteArray(reinterpret_cast<const char *>(found), int(pApp->nHuffmanResultLength));
}

void fresh(quint32 dhtCount)
{
    *pApp = KesmiraApp();
    pApp->nDhtCount = dhtCount;
}

QByteArray flipped(QByteArray segment, int at, int bits = 0xFF)
{
    segment[at] = char(segment[at] ^ bits);
    return segment;
}

// The tail of an example AC table: for each run of zeros the sizes from `firstSize` to 10.
QByteArray symbolRuns(int firstRun, int lastRun, int firstSize)
{
    QByteArray symbols;
    for (int run = firstRun; run <= lastRun; ++run) {
        for (int size = firstSize; size <= 10; ++size) symbols += char(run << 4 | size);
    }
    return symbols;
}

// The example tables of ISO/IEC 10918-1, K.3 to K.6.
const QByteArray kDcSymbols = QByteArray::fromHex("000102030405060708090a0b");
const QByteArray kDc0 = huffman(0x00, "00010501010101010100", kDcSymbols);
const QByteArray kDc1 = huffman(0x01, "0003010101010101010101", kDcSymbols);
const QByteArray kAc0 =
    huffman(0x10, "0002010303020403050504040000017d",
            QByteArray::fromHex(
                "01020300041105122131410613516107227114328191a1082342b1c11552d1f02433627282090a161718191a25262728292a")
                + symbolRuns(3, 3, 4) + symbolRuns(4, 8, 3) + symbolRuns(9, 13, 2) + symbolRuns(14, 15, 1));
const QByteArray kAc1 =
    huffman(0x11, "00020102040403040705040400010277",
            QByteArray::fromHex("0001020311040521310612415107617113223281081442"
                                "91a1b1c109233352f0156272d10a162434e125f11718191a262728292a")
                + symbolRuns(3, 3, 5) + symbolRuns(4, 7, 3) + symbolRuns(8, 13, 2) + symbolRuns(14, 15, 2));

} // namespace

class TestHoffmann : public QObject
{
    Q_OBJECT

private slots:
    void lengthsThatAreLookedUp();
    void keyEndsWhereTold_data();
    void keyEndsWhereTold();
    void firstRowWins();
    void singleDhtComparesInnerTables_data();
    void singleDhtComparesInnerTables();
    void rowGoesOnAsZeros_data();
    void rowGoesOnAsZeros();
    void unknownTableLeavesLength_data();
    void unknownTableLeavesLength();
    void exampleTablesAreRestored_data();
    void exampleTablesAreRestored();
    void everyRowOfTheData();
};

void TestHoffmann::lengthsThatAreLookedUp()
{
    // Lengths of the first library's rows but for the one that can't be reached, and two that no row had.
    const QVector<int> reachable = {25,  26,  27,  28,  29,  30,  31,  32,  34,  35,  37,  38,  40,  41,  42,
                                    43,  45,  46,  47,  48,  49,  50,  51,  53,  54,  55,  56,  57,  58,  60,
                                    61,  62,  63,  64,  65,  69,  70,  71,  73,  74,  75,  76,  78,  79,  82,
                                    84,  87,  94,  105, 152, 156, 158, 162, 163, 165, 166, 167, 169, 173, 175,
                                    176, 181, 186, 188, 190, 191, 195, 192, 197, 202, 206, 210, 212, 216, 217,
                                    221, 234, 238, 239, 244, 246, 248, 251, 252, 257, 259, 295, 319, 418};
    QByteArray text;
    for (int length = 19; length <= 418; ++length) text += huffmanRecord(dhtOfLength(length));
    const TableLibrary made = library(text, {});
    const ScopedTables scope(made);
    for (const quint32 dhtCount : {1, 2}) {
        for (int length = 19; length <= 418; ++length) {
            fresh(dhtCount);
            const QByteArray segment = dhtOfLength(length);
            plainsearch::setInnerTables(segment);
            const bool expected = reachable.contains(length);
            QVERIFY2(lookUp(segment) == (expected ? segment : QByteArray()), qPrintable(QString::number(length)));
        }
    }
    for (const int length : {-1, 0, 18, 419, 65535, 418 + 65536}) {
        fresh(1);
        pApp->nHuffmanResultLength = 5;
        QByteArray head = dhtOfLength(418);
        QVERIFY(!Hoffmann().Hoffmann_table(reinterpret_cast<unsigned char *>(head.data()), length));
        QCOMPARE(pApp->nHuffmanResultLength, quint64(0));
    }
}

void TestHoffmann::keyEndsWhereTold_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<quint32>("dhtCount");
    QTest::addColumn<int>("key");
    struct Case
    {
        int length;
        int inSingleDht;
        int inSeveral;
    };
    constexpr Case cases[] = {{25, 27, 27},  {26, 28, 28},  {27, 29, 29},  {28, 29, 29},  {29, 29, 29},  {30, 25, 25},
                              {31, 24, 24},  {32, 25, 25},  {34, 21, 21},  {50, 21, 21},  {51, 21, 21},  {70, 21, 21},
                              {71, 21, 21},  {105, 21, 21}, {152, 21, 21}, {156, 21, 21}, {173, 21, 21}, {181, 24, 24},
                              {195, 21, 21}, {210, 21, 21}, {212, 21, 24}, {239, 21, 21}, {319, 21, 21}, {418, 21, 21}};
    for (const Case &each : cases) {
        QTest::addRow("%d, single", each.length) << each.length << quint32(1) << each.inSingleDht;
        QTest::addRow("%d, several", each.length) << each.length << quint32(2) << each.inSeveral;
    }
    QTest::newRow("212, none counted") << 212 << quint32(0) << 24;
}

void TestHoffmann::keyEndsWhereTold()
{
    QFETCH(int, length);
    QFETCH(quint32, dhtCount);
    QFETCH(int, key);
    const QByteArray row = dhtOfLength(length);
    const TableLibrary made = library(huffmanRecord(row), {});
    const ScopedTables scope(made);
    fresh(dhtCount);
    plainsearch::setInnerTables(row);
    QByteArray damaged = row;
    for (int at = 0; at < row.size(); ++at) {
        if (at == 2 || at == 3) continue; // the length field decides where to look; it has its own test
        QVERIFY2((lookUp(flipped(row, at)) == row) == (at >= key), qPrintable(QString::number(at)));
        if (at >= key) damaged[at] = 0;
    }
    QCOMPARE(lookUp(damaged), row);
}

void TestHoffmann::firstRowWins()
{
    const QByteArray first = dht(huffman(0x01, "000003", "abc") + huffman(0, "01", "d") + huffman(0, "", {}));
    const QByteArray sameKey = dht(huffman(0x01, "000003", "xyz") + huffman(0, "01", "d") + huffman(0, "", {}));
    const QByteArray otherClass = dht(huffman(0x11, "000003", "xyz") + huffman(0, "01", "d") + huffman(0, "", {}));
    QCOMPARE(first.size(), 59); // length 57: 21 bytes decide
    const TableLibrary made = library(huffmanRecord(first) + huffmanRecord(sameKey) + huffmanRecord(otherClass), {});
    const ScopedTables scope(made);
    fresh(3);
    QCOMPARE(lookUp(sameKey), first);
    QCOMPARE(lookUp(otherClass), otherClass);
    QCOMPARE(lookUp(flipped(first, 4, 0x30)), QByteArray());
}

void TestHoffmann::singleDhtComparesInnerTables_data()
{
    QTest::addColumn<quint32>("dhtCount");
    QTest::addColumn<int>("damagedTable");
    QTest::addColumn<int>("row"); // that comes out, or -1
    QTest::newRow("sound, single") << quint32(1) << -1 << 1;
    QTest::newRow("sound, several") << quint32(2) << -1 << 0;
    QTest::newRow("second table's counts, single") << quint32(1) << 1 << -1;
    QTest::newRow("third table's counts, single") << quint32(1) << 2 << -1;
    QTest::newRow("fourth table's counts, single") << quint32(1) << 3 << -1;
    QTest::newRow("second table's counts, several") << quint32(2) << 1 << 0;
}

void TestHoffmann::singleDhtComparesInnerTables()
{
    QFETCH(quint32, dhtCount);
    QFETCH(int, damagedTable);
    QFETCH(int, row);
    // Two sets of length 152 that begin alike and differ in the counts of the fourth table alone.
    const QByteArray start =
        huffman(0x00, "000002", "ab") + huffman(0x10, "0000000004", "cdef") + huffman(0x01, "000003", "ghi");
    const QByteArray rows[] = {dht(start + huffman(0x11, "000000000000000000004900", QByteArray(73, 'j'))),
                               dht(start + huffman(0x11, "000000000000000000000049", QByteArray(73, 'k')))};
    QCOMPARE(rows[0].size(), 154);
    const TableLibrary made = library(huffmanRecord(rows[0]) + huffmanRecord(rows[1]), {});
    const ScopedTables scope(made);
    fresh(dhtCount);
    plainsearch::setInnerTables(rows[1]);
    quint8 *const heads[] = {nullptr, pApp->aDhtHead2, pApp->aDhtHead3, pApp->aDhtHead4};
    if (damagedTable > 0) heads[damagedTable][16] ^= 1;
    QCOMPARE(lookUp(rows[1]), row < 0 ? QByteArray() : rows[row]);
}

void TestHoffmann::rowGoesOnAsZeros_data()
{
    QTest::addColumn<quint64>("offset"); // of the fourth table, behind the end of a row of two
    QTest::addColumn<int>("lastCount");
    QTest::addColumn<bool>("found");
    QTest::newRow("at the end, zeros") << quint64(212) << 0 << true;
    QTest::newRow("at the end, a count") << quint64(212) << 1 << false;
    QTest::newRow("far behind, zeros") << quint64(4000000000) << 0 << true;
    QTest::newRow("far behind, a count") << quint64(4000000000) << 1 << false;
    QTest::newRow("across the end, symbol in front") << quint64(211) << 0 << false;
}

void TestHoffmann::rowGoesOnAsZeros()
{
    QFETCH(quint64, offset);
    QFETCH(int, lastCount);
    QFETCH(bool, found);
    const QByteArray row = dht(kDc0 + kAc0);
    QCOMPARE(row.size(), 212);
    const TableLibrary made = library(huffmanRecord(row), {});
    const ScopedTables scope(made);
    fresh(1);
    plainsearch::setInnerTables(row);
    QCOMPARE(lookUp(row), row);
    pApp->nDhtPart4 = quint32(offset);
    pApp->aDhtHead4[16] = quint8(lastCount);
    QCOMPARE(lookUp(row), found ? row : QByteArray());
    pApp->nDhtPart2 = ~quint64(0); // adding to it would wrap to the row's start
    std::fill_n(pApp->aDhtHead2, 17, quint8(0));
    QCOMPARE(lookUp(row), found ? row : QByteArray());
}

void TestHoffmann::unknownTableLeavesLength_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<quint32>("dhtCount");
    QTest::addColumn<quint64>("left");
    QTest::newRow("no group, single") << 33 << quint32(1) << quint64(0);
    QTest::newRow("194, single") << kUnreachable << quint32(1) << quint64(0);
    QTest::newRow("short, single") << 31 << quint32(1) << quint64(0);
    QTest::newRow("AC alone, single") << 181 << quint32(1) << quint64(0);
    QTest::newRow("set, single") << 418 << quint32(1) << quint64(77);
    QTest::newRow("length without rows, single") << 246 << quint32(1) << quint64(77);
    QTest::newRow("set, several") << 418 << quint32(2) << quint64(0);
    QTest::newRow("set, none counted") << 152 << quint32(0) << quint64(0);
}

void TestHoffmann::unknownTableLeavesLength()
{
    QFETCH(int, length);
    QFETCH(quint32, dhtCount);
    QFETCH(quint64, left);
    const TableLibrary empty;
    const ScopedTables scope(empty);
    fresh(dhtCount);
    pApp->nHuffmanResultLength = 77;
    QCOMPARE(lookUp(dhtOfLength(length)), QByteArray());
    QCOMPARE(pApp->nHuffmanResultLength, left);
}

void TestHoffmann::exampleTablesAreRestored_data()
{
    QTest::addColumn<QByteArray>("segment");
    QTest::newRow("DC 0, AC 0, DC 1, AC 1") << dht(kDc0 + kAc0 + kDc1 + kAc1);
    QTest::newRow("DC 1, AC 1, DC 0, AC 0") << dht(kDc1 + kAc1 + kDc0 + kAc0);
    QTest::newRow("DC 0, DC 1, AC 0, AC 1") << dht(kDc0 + kDc1 + kAc0 + kAc1);
    QTest::newRow("DC 0") << dht(kDc0);
    QTest::newRow("DC 1") << dht(kDc1);
    QTest::newRow("AC 0") << dht(kAc0);
    QTest::newRow("AC 1") << dht(kAc1);
}

void TestHoffmann::exampleTablesAreRestored()
{
    QFETCH(QByteArray, segment);
    const int keyed = segment.size() == 420 ? 21 : 24;
    fresh(segment.size() == 420 ? 1 : 4);
    plainsearch::setInnerTables(segment);
    QCOMPARE(lookUp(segment), segment);
    QCOMPARE(lookUp(segment.left(keyed) + QByteArray(segment.size() - keyed, '\xFF')), segment);
    QCOMPARE(lookUp(flipped(segment, 9, 0x40)), QByteArray());
    QCOMPARE(pApp->nHuffmanResultLength, quint64(pApp->nDhtCount == 1 ? 420 : 0));
}

void TestHoffmann::everyRowOfTheData()
{
    const QVector<plainsearch::Row> rows = plainsearch::rowsOf(builtInText("huffman.txt"));
    QVERIFY(rows.size() > 20);
    const auto same = [&rows](const QByteArray &segment) {
        plainsearch::setInnerTables(segment);
        return lookUp(segment) == plainsearch::findHuffman(rows, segment);
    };
    for (const plainsearch::Row &row : rows) {
        const QByteArray name = row.segment.left(32).toHex();
        const int length = row.segment.size() - 2;
        for (const quint32 dhtCount : {1, 2}) {
            const int key = plainsearch::keyBytes(length, dhtCount == 1);
            fresh(dhtCount);
            plainsearch::setInnerTables(row.segment);
            // A reachable row is found, by itself or by one in front of it that no file can be told from.
            QVERIFY2(key == 0 || lookUp(row.segment).left(key) == row.segment.left(key), name);
            QVERIFY2(same(row.segment), name);
            QByteArray symbolsLost = row.segment;
            for (int at = std::max(key, 21); at < symbolsLost.size(); ++at) symbolsLost[at] = '\0';
            QVERIFY2(same(symbolsLost), name);
            for (int at = 0; at < std::min(32, row.segment.size()); ++at)
                QVERIFY2(same(flipped(row.segment, at, 1)), name);
            QVERIFY2(same(flipped(row.segment, 4, 0x10)), name);
            QVERIFY2(same(row.segment.left(4) + QByteArray(length - 2, '\0')), name);
            QVERIFY2(same(QByteArray(length + 2, '\0')), name);
            QVERIFY2(lookUp(QByteArray(length + 2, '\0')).isEmpty(), name);
        }
    }
}

QTEST_APPLESS_MAIN(TestHoffmann)
#include "tst_hoffmann.moc"
