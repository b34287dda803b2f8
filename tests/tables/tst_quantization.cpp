// The completion of quantization tables: heads, families, the order of the search, then all rows of the program.
#include "tables/PlainTableSearch.h"
#include "tables/Quantization.h"
#include "tables/QuantizationFamilies.h"
#include "tables/TableTexts.h"

#include <QtTest>

using namespace tabletest;

namespace {

using Head = quint8[25];

QByteArray bytes(const Head &head)
{
    return QByteArray(reinterpret_cast<const char *>(head), sizeof(Head));
}

void set(Head &head, const QByteArray &values)
{
    std::copy_n(values.leftJustified(25, '\0').constData(), 25, head);
}

// A request with whole heads; the caller changes what its case is about.
void request(quint32 form, const QByteArray &one, const QByteArray &two = {}, const QByteArray &three = {})
{
    *pApp = KesmiraApp();
    pApp->nDqtLength = form;
    set(pApp->aQuantHead1, one);
    set(pApp->aQuantHead2, two);
    set(pApp->aQuantHead3, three);
}

// What came out, "" for nothing; and whether pointer and flag say the same.
QByteArray complete()
{
    const quint8 *const result = Quantization().Quantization_table();
    if ((result == nullptr) != pApp->bQuantNotFound) return "flag and pointer disagree";
    if (!result) return {};
    const quint8 *const expected = pApp->nDqtLength == 67 ? pApp->aQuantOne
        : pApp->nDqtLength == 132                         ? pApp->aQuantPair
                                                          : pApp->aQuantTriple;
    if (result != expected) return "wrong buffer";
    return QByteArray(reinterpret_cast<const char *>(result), int(pApp->nDqtLength) + 2);
}

// One letter for a head: '-' has lost its first value, 'D' is what stands in for a triple, others are 25 of a value.
QByteArray headOf(char letter)
{
    if (letter == '-') return '\0' + QByteArray(24, 'x');
    if (letter == 'D') return QByteArray::fromHex("04010101010102010101020202020305030303030306040503");
    return QByteArray(25, letter == '1' ? '\x01' : letter);
}

// Rows by name. Where a head is damaged in a case, its first values still say which row it came from.
const QByteArray kA = values("0102030405", 9);
const QByteArray kB = values("0102030406", 9);
const QVector<QPair<QByteArray, QByteArray>> kRows = {
    {"P0", dqt({kA, values("0111", 22)})},
    {"P1", dqt({kB, values("0112", 22)})},
    {"P2", dqt({kB, values("0113", 23)})},
    {"T0", dqt({values("0105", 7), values("0106", 8), values("0107", 9)})},
    {"T1", dqt({values("0105", 7), values("0106", 8), values("0108", 9)})},
    {"Q4", dqt({values("0401", 5), values("05", 5)}, 67)},
    {"Q5", dqt({values("0501", 6), values("0502", 6)})},
    {"E", dqt({values("0e01", 2), values("0e02", 3), values("0e03", 4)})},
};

QByteArray rowOf(const QByteArray &name)
{
    for (const auto &row : kRows) {
        if (row.first == name) return row.second;
    }
    return {};
}

QByteArray headOf(const char *row, int table)
{
    return rowOf(row).mid(5 + 65 * table, 25);
}

TableLibrary smallLibrary()
{
    QByteArray text;
    for (const auto &row : kRows) {
        const char first = row.first[0];
        const QByteArray family = first == 'Q' ? "standard_3_4_5"
            : first == 'E'                     ? "standard_15_21_50_others"
                                               : "standard";
        // Against the order of the lines, so that only the positions can decide.
        text.prepend(quantizationRecord(family, row.first.size() > 1 ? row.first[1] : 0, row.second));
    }
    return library({}, text);
}

} // namespace

class TestQuantization : public QObject
{
    Q_OBJECT

private slots:
    void headsAreCompleted_data();
    void headsAreCompleted();
    void firstValueChoosesFamily();
    void longestCommonStartWins_data();
    void longestCommonStartWins();
    void resultInHandIsLeft();
    void familySearchSetsFlag();
    void scaledExampleTablesAreKnown();
    void everyRowOfTheData_data();
    void everyRowOfTheData();
};

void TestQuantization::headsAreCompleted_data()
{
    QTest::addColumn<quint32>("form");
    QTest::addColumn<quint32>("count67");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto add = [](quint32 form, quint32 count67, const char *before, const char *after) {
        QTest::addRow("%u, %u tables, %s", form, count67, before)
            << form << count67 << QByteArray(before) << QByteArray(after);
    };
    for (const auto &[form, count67] : {std::pair(67u, 3u), std::pair(197u, 0u)}) {
        add(form, count67, "abc", "abc");
        add(form, count67, "-bc", "bbc");
        add(form, count67, "--c", "ccc");
        add(form, count67, "a-c", "aac");
        add(form, count67, "ab-", "abb");
        add(form, count67, "a--", "aaa");
        add(form, count67, "-b-", "bbb");
        add(form, count67, "---", "DDD");
    }
    for (const auto &[form, count67] : {std::pair(67u, 2u), std::pair(132u, 0u)}) {
        add(form, count67, "ab-", "ab-");
        add(form, count67, "-b-", "bb-");
        add(form, count67, "a--", "aa-");
        add(form, count67, "---", "11-");
        add(form, count67, "--c", "11c");
    }
    add(67, 1, "-b-", "-b-");
    add(67, 4, "-bc", "-bc");
    add(133, 2, "a--", "a--");
}

void TestQuantization::headsAreCompleted()
{
    QFETCH(quint32, form);
    QFETCH(quint32, count67);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const TableLibrary empty;
    const ScopedTables scope(empty);
    request(form, headOf(before[0]), headOf(before[1]), headOf(before[2]));
    pApp->nDqt67Count = count67;
    for (int call = 0; call < 2; ++call) QCOMPARE(complete(), QByteArray()); // the second finds nothing left to fill
    QCOMPARE(bytes(pApp->aQuantHead1), headOf(after[0]));
    QCOMPARE(bytes(pApp->aQuantHead2), headOf(after[1]));
    QCOMPARE(bytes(pApp->aQuantHead3), headOf(after[2]));
    QCOMPARE(pApp->bQuantPairPatched, form == 132 && before != after);
    QCOMPARE(pApp->bQuantTriplePatched, form == 197 && before != after);
}

void TestQuantization::firstValueChoosesFamily()
{
    // Every family has a row for every first value; its second value tells the family.
    const QByteArray families[] = {"standard", "standard_02", "standard_3_4_5", "standard_6_8_9_10_12",
                                   "standard_15_21_50_others"};
    QByteArray text;
    for (int family = 0; family < 5; ++family) {
        for (int first = 0; first < 256; ++first) {
            const QByteArray start = QByteArray(1, char(first)).toHex() + '0' + QByteArray::number(family + 1);
            text += quantizationRecord(families[family], first, dqt({values(start, 1), values(start, 1)}));
        }
    }
    const TableLibrary made = library({}, text);
    const ScopedTables scope(made);
    const QMap<int, QVector<int>> served = {{1, {1}},
                                            {2, {2}},
                                            {3, {3, 4, 5}},
                                            {4, {6, 7, 8, 9, 16, 18}},
                                            {5, {10, 11, 12, 13, 20, 21, 27, 32, 33, 43, 50, 80}}};
    for (int first = 1; first < 256; ++first) {
        request(132, QByteArray(1, char(first)), QByteArray(1, char(first)));
        int expected = 0;
        for (auto each = served.begin(); each != served.end(); ++each) {
            if (each.value().contains(first)) expected = each.key();
        }
        const QByteArray found = complete();
        QVERIFY2((found.isEmpty() ? 0 : int(found[6])) == expected, qPrintable(QString::number(first)));
        QVERIFY(found.isEmpty() || quint8(found[5]) == first);
    }
}

void TestQuantization::longestCommonStartWins_data()
{
    QTest::addColumn<quint32>("form");
    QTest::addColumn<quint32>("index");
    QTest::addColumn<QByteArray>("one");
    QTest::addColumn<QByteArray>("two");
    QTest::addColumn<QByteArray>("three");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray none;
    const QByteArray other("\x01\xEE", 2); // shares one value with every row of first value 1

    const auto pair = [&none](const char *name, const QByteArray &one, const QByteArray &two, const char *row) {
        QTest::newRow(name) << quint32(132) << quint32(0) << one << two << none << rowOf(row);
    };
    pair("pair, whole", headOf("P1", 0), headOf("P1", 1), "P1");
    pair("pair, the second table decides", headOf("P2", 0), headOf("P2", 1), "P2");
    pair("pair, no row has both: the weaker table counts", headOf("P0", 0), headOf("P2", 1), "P2");
    pair("pair, equal starts: the first", QByteArray("\x01\x02\x03\x04\x07"), other, "P0");
    pair("pair, the second head copied", headOf("P0", 0), none, "P0");
    pair("pair, the first head copied", none, headOf("P2", 1), "P2");
    pair("pair, odd length field", headOf("Q4", 0), headOf("Q4", 1), "Q4");
    pair("pair, a triple would agree", headOf("T0", 0), headOf("T0", 1), "P0");
    pair("pair, first value of triples alone", headOf("E", 0), headOf("E", 1), "");
    pair("pair, a row begins with another first value", QByteArray("\x04\x01"), headOf("Q5", 1), "Q4");
    pair("pair, first value 3 without rows", QByteArray("\x03\x01"), headOf("Q5", 1), "");

    const auto triple = [](const char *name, const QByteArray &one, const QByteArray &two, const QByteArray &three,
                           const char *row) {
        QTest::newRow(name) << quint32(197) << quint32(0) << one << two << three << rowOf(row);
    };
    triple("triple, whole", headOf("T1", 0), headOf("T1", 1), headOf("T1", 2), "T1");
    triple("triple, equal starts: the first", headOf("T1", 0), other, headOf("T1", 2), "T0");
    triple("triple, copied from the third", none, none, headOf("T1", 2), "T1");
    triple("triple, the second head copied", headOf("T1", 0), none, headOf("T1", 2), "T0");
    triple("triple, a pair would agree", headOf("Q5", 0), headOf("Q5", 1), headOf("Q5", 1), "");

    const auto single = [](const char *name, quint32 index, const QByteArray &one, const QByteArray &head,
                           const char *row, int table) {
        QTest::newRow(name) << quint32(67) << index << one << (index == 1 ? head : QByteArray())
                            << (index == 2 ? head : QByteArray()) << rowOf(row).mid(65 * table, 69);
    };
    single("single, first table", 0, headOf("P1", 0), {}, "P1", 0);
    single("single, first of the file is second of a row", 0, headOf("P2", 1), {}, "P2", 1);
    single("single, second table", 1, headOf("P1", 0), headOf("P2", 1), "P2", 1);
    single("single, second of the file is first of a row", 1, headOf("P1", 0), headOf("P0", 0), "P0", 0);
    single("single, in a triple only", 0, headOf("T1", 1), {}, "T0", 1);
    single("single, third of a triple", 1, headOf("P1", 0), headOf("T1", 2), "T1", 2);
    single("single, one value in common: a pair's first table", 0, other, {}, "P0", 0);
    single("single, a triple has more in common", 0, QByteArray("\x01\x06\xEE"), {}, "T0", 1);
    single("third table comes from triples alone", 2, headOf("P1", 0), headOf("P0", 0), "T0", 0);
    single("third table, whole", 2, headOf("P1", 0), headOf("T1", 2), "T1", 2);
    single("third table, family of pairs", 2, headOf("Q4", 0), headOf("Q4", 1), "", 0);
    single("fourth table", 3, headOf("P1", 0), {}, "", 0);
    single("rows of the first head's value alone", 1, headOf("Q4", 0), headOf("Q5", 0), "Q4", 1);
    single("first value 14", 0, headOf("E", 0), {}, "", 0);
    QTest::newRow("no known form") << quint32(133) << quint32(0) << headOf("P0", 0) << headOf("P0", 1) << none << none;
}

void TestQuantization::longestCommonStartWins()
{
    QFETCH(quint32, form);
    QFETCH(quint32, index);
    QFETCH(QByteArray, one);
    QFETCH(QByteArray, two);
    QFETCH(QByteArray, three);
    QFETCH(QByteArray, expected);
    const TableLibrary made = smallLibrary();
    const ScopedTables scope(made);
    request(form, one, two, three);
    pApp->nDqtIndex = index;
    QCOMPARE(complete().toHex(), expected.toHex());
}

void TestQuantization::resultInHandIsLeft()
{
    const TableLibrary made = smallLibrary();
    const ScopedTables scope(made);
    request(132, headOf("P1", 0), {});
    pApp->bQuantNotFound = false;
    QVERIFY(!Quantization().Quantization_table());
    QVERIFY(!pApp->bQuantNotFound);
    QVERIFY(pApp->bQuantPairPatched); // the heads are completed all the same
    QCOMPARE(int(pApp->aQuantPair[0]), 0);
}

void TestQuantization::familySearchSetsFlag()
{
    const TableLibrary made = smallLibrary();
    const ScopedTables scope(made);
    request(67, headOf("P0", 0).replace(20, 1, "x"));
    Quantization_StandardTables family;
    for (const int count : {21, 25, 0, -1, 26, 1 << 20}) {
        pApp->bQuantNotFound = false;
        QVERIFY2(!family.standardQ_table(count), qPrintable(QString::number(count)));
        QVERIFY(pApp->bQuantNotFound);
    }
    QCOMPARE(family.standardQ_table(20), &pApp->aQuantOne[0]);
    QVERIFY(!pApp->bQuantNotFound);
}

void TestQuantization::scaledExampleTablesAreKnown()
{
    // The example tables of ISO/IEC 10918-1, K.1 and K.2, in zig-zag order.
    const QByteArray base[] = {
        QByteArray::fromHex("100b0c0e0c0a100e0d0e1211101318281a181616183123251d283a333d3c3933383740485c4e"
                            "404457453738506d51575f626768673e4d71797064785c656763"),
        QByteArray::fromHex("1112121815182f1a1a2f634238426363636363636363636363636363636363636363636363636363"
                            "636363636363636363636363636363636363636363636363")};
    int known = 0;
    for (int quality = 1; quality <= 100; ++quality) {
        const int percent = quality < 50 ? 5000 / quality : 200 - 2 * quality;
        QByteArray scaled[] = {base[0], base[1]};
        for (QByteArray &table : scaled) {
            for (char &value : table) value = char(qBound(1, (quint8(value) * percent + 50) / 100, 255));
        }
        if (plainsearch::familyOf(quint8(scaled[0][0])).isEmpty()) continue;
        request(132, scaled[0], scaled[1]);
        const QByteArray found = complete();
        QVERIFY2(found.mid(5, 25) == scaled[0].left(25) && found.mid(70, 25) == scaled[1].left(25),
                 qPrintable(QString::number(quality)));
        known += found == dqt({scaled[0], scaled[1]});
    }
    QVERIFY2(known >= 50, qPrintable(QString::number(known)));
}

void TestQuantization::everyRowOfTheData_data()
{
    QTest::addColumn<QByteArray>("family");
    for (const char *family :
         {"standard", "standard_02", "standard_3_4_5", "standard_6_8_9_10_12", "standard_15_21_50_others"})
        QTest::newRow(family) << QByteArray(family);
}

void TestQuantization::everyRowOfTheData()
{
    QFETCH(QByteArray, family);
    static const QVector<plainsearch::Row> rows = plainsearch::rowsOf(builtInText("quantization.txt"));
    int number = 0;
    for (const plainsearch::Row &row : rows) {
        if (row.family != family) continue;
        ++number;
        const QByteArray name = row.segment.left(30).toHex();
        const bool reachable = plainsearch::familyOf(quint8(row.segment[5])) == family;
        const QByteArray heads[] = {row.values(0).left(25), row.values(1).left(25),
                                    row.pair ? QByteArray() : row.values(2).left(25)};
        // Whole heads; one byte damaged, another one from row to row; a table all zeros; each table by itself.
        for (int damage = -1; damage <= row.tables(); ++damage) {
            request(row.pair ? 132 : 197, heads[0], heads[1], heads[2]);
            Head *const parts[] = {&pApp->aQuantHead1, &pApp->aQuantHead2, &pApp->aQuantHead3};
            if (damage == row.tables())
                (*parts[number % row.tables()])[1 + number % 24] ^= 0x15;
            else if (damage >= 0)
                set(*parts[damage], {});
            const QByteArray found = complete();
            QVERIFY2(found == plainsearch::findQuantization(rows), name);
            // A row with whole heads is found, by itself or by one in front of it that no file can be told from.
            if (damage >= 0) continue;
            for (int table = 0; reachable && table < row.tables(); ++table)
                QVERIFY2(found.mid(5 + 65 * table, 25) == heads[table], name);
        }
        for (quint32 index = 0; index < 3; ++index) {
            const QByteArray &wanted = heads[int(index) % row.tables()];
            request(67, heads[0], index == 1 ? wanted : QByteArray(), index == 2 ? wanted : QByteArray());
            pApp->nDqtIndex = index;
            const QByteArray found = complete();
            QVERIFY2(found == plainsearch::findQuantization(rows), name);
            QVERIFY2(!reachable || (index == 2 && row.pair) || found.mid(5, 25) == wanted, name);
        }
    }
    QVERIFY(number > 10);
}

QTEST_APPLESS_MAIN(TestQuantization)
#include "tst_quantization.moc"
