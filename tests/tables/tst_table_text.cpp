// The table texts: what a sound one gives, what each kind of bad record is answered with, and the data of the program.
#include "tables/TableTexts.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace tabletest;

namespace {

const QByteArray kDht = dht(huffman(0x00, "0101", "ab"));
const QByteArray kPair = dqt({values("01", 2), values("03", 4)});
const QByteArray kTriple = dqt({values("01", 2), values("03", 4), values("05", 6)});

QByteArray with(QByteArray segment, int at, int value)
{
    segment[at] = char(value);
    return segment;
}

// Every row that a library hands out must be safe to copy to the result buffers and true to its own length.
bool isSound(const TableLibrary &library)
{
    bool sound = true;
    for (const HuffmanRow &row : library.huffmanRows())
        sound = sound && row.length <= 418 && row.segment.size() == row.length + 2;
    for (int family = 0; family < kQuantizationFamilies; ++family) {
        for (const QuantizationRow &row : library.quantizationRows(QuantizationFamily(family), QuantizationKind::Pair))
            sound = sound && row.segment.size() == 134 && row.tableCount() == 2;
        for (const QuantizationRow &row :
             library.quantizationRows(QuantizationFamily(family), QuantizationKind::Triple))
            sound = sound && row.segment.size() == 199 && row.tableCount() == 3;
    }
    return sound;
}

} // namespace

class TestTableText : public QObject
{
    Q_OBJECT

private slots:
    void soundTextGivesItsRows();
    void badRecordIsNamed_data();
    void badRecordIsNamed();
    void mutatedTextIsRefusedOrSound();
    void builtInDataIsSound();
    void scopedTablesNest();
};

void TestTableText::soundTextGivesItsRows()
{
    const QByteArray second = dqt({values("07", 8), values("09", 10)}, 67);
    TableLibrary made =
        library("# a comment\n\n  # another\r\n" + huffmanRecord(kDht) + '\t' + huffmanRecord(kDht).toUpper(),
                quantizationRecord("standard_3_4_5", 9, second) + "standard_3_4_5  pair\t2   " + kPair.toHex() + " \r\n"
                    + quantizationRecord("standard_15_21_50_others", 2, kTriple).trimmed());
    QCOMPARE(int(made.huffmanRows().size()), 2);
    QCOMPARE(made.huffmanRows()[0].length, 21);
    QCOMPARE(made.huffmanRows()[0].line, 4);
    QCOMPARE(made.huffmanRows()[1].segment, kDht);
    const auto &pairs = made.quantizationRows(QuantizationFamily::Standard345, QuantizationKind::Pair);
    QCOMPARE(int(pairs.size()), 2);
    QCOMPARE(pairs[0].segment, kPair);
    QCOMPARE(pairs[0].position, 2);
    QCOMPARE(pairs[1].segment, second);
    QCOMPARE(int(*pairs[1].values(1)), 9);
    const auto &triples = made.quantizationRows(QuantizationFamily::StandardOthers, QuantizationKind::Triple);
    QCOMPARE(int(triples.size()), 1);
    QCOMPARE(int(*triples[0].values(2)), 5);
    QVERIFY(isSound(made));
}

void TestTableText::badRecordIsNamed_data()
{
    QTest::addColumn<bool>("huffmanText");
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QString>("message");

    const QByteArray hex = kDht.toHex();
    const auto dhtRow = [](const char *name, const QByteArray &record, const char *message) {
        QTest::newRow(name) << true << record << QString(message);
    };
    dhtRow("length is no number", "x21 " + hex, "no length");
    dhtRow("length goes on", "21a " + hex, "no length");
    dhtRow("length too large for a number", "99999999999 " + hex, "no length");
    dhtRow("negative length", "-21 " + hex, "no length");
    dhtRow("no segment", "21", "missing");
    dhtRow("one field too many", "21 " + hex + " 00", "behind the segment");
    dhtRow("odd count of digits", "21 " + hex.chopped(1), "hexadecimal");
    dhtRow("a letter that is no digit", "21 " + hex.chopped(1) + "g", "hexadecimal");
    dhtRow("a byte over 127", "21 " + hex.chopped(1) + "\xE9", "hexadecimal");
    dhtRow("only a marker", "2 ffc4", "too short");
    dhtRow("marker of another segment", "21 " + with(kDht, 1, 0xDB).toHex(), "begins with ffdb");
    dhtRow("length field differs from the length", "22 " + hex, "length field 21");
    dhtRow("length field differs from the bytes", "22 " + with(kDht, 3, 22).toHex(), "21 bytes behind");
    dhtRow("no table", "2 ffc40002", "counts run past");
    dhtRow("table class 2", huffmanRecord(with(kDht, 4, 0x20)), "Tc/Th");
    dhtRow("destination 4", huffmanRecord(with(kDht, 4, 0x04)), "Tc/Th");
    dhtRow("counts exceed the symbols", huffmanRecord(with(kDht, 5, 2)), "symbols run past");
    dhtRow("a symbol behind the last table", huffmanRecord(with(kDht, 5, 0)), "counts run past");
    dhtRow("257 symbols", huffmanRecord(dht(huffman(0, "ff02", QByteArray(257, 'a')))), "257 symbols");
    dhtRow("longer than a result holds", huffmanRecord(dht(QByteArray(17 * 25, '\0'))), "too long");

    const auto dqtRow = [](const char *name, const QByteArray &record, const char *message) {
        QTest::newRow(name) << false << record << QString(message);
    };
    const QByteArray pair = kPair.toHex();
    dqtRow("unknown family", quantizationRecord("standard_03", 1, kPair), "\"standard_03\" is no family");
    dqtRow("a family like a terminal command", quantizationRecord("\x1b[2J", 1, kPair), "\"?[2J\" is no family");
    dqtRow("unknown kind", "standard pairs 1 " + pair, "no kind");
    dqtRow("position is no number", "standard pair one " + pair, "no position");
    dqtRow("negative position", "standard pair -1 " + pair, "no position");
    dqtRow("position missing", "standard pair " + pair, "no position");
    dqtRow("segment missing", "standard pair 1", "missing");
    dqtRow("pair named triple", "standard triple 1 " + pair, "134 bytes instead of 199");
    dqtRow("triple named pair", "standard pair 1 " + kTriple.toHex(), "199 bytes instead of 134");
    dqtRow("DHT marker", quantizationRecord("standard", 1, with(kPair, 1, 0xC4)), "begins with ffc4");
    dqtRow("pair with a length of its own", quantizationRecord("standard", 1, with(kPair, 3, 66)),
           "length field is 66");
    dqtRow("triple with the odd length", quantizationRecord("standard", 1, with(with(kTriple, 2, 0), 3, 67)),
           "length field is 67");
    dqtRow("first Tq byte", quantizationRecord("standard", 1, with(kPair, 4, 1)), "table 0 is 01");
    dqtRow("second Tq byte of 16 bits", quantizationRecord("standard", 1, with(kPair, 69, 0x11)), "table 1 is 11");
    dqtRow("third Tq byte", quantizationRecord("standard", 1, with(kTriple, 134, 1)), "table 2 is 01");
    dqtRow("position given twice", quantizationRecord("standard", 0, kPair), "position 0 is that of line 1");
}

void TestTableText::badRecordIsNamed()
{
    QFETCH(bool, huffmanText);
    QFETCH(QByteArray, record);
    QFETCH(QString, message);
    // The bad record stands in line 3, between sound ones.
    QByteArray texts[] = {huffmanRecord(kDht), quantizationRecord("standard", 0, kPair)};
    QByteArray &text = texts[huffmanText ? 0 : 1];
    text += "#\n" + record.trimmed() + '\n'
        + (huffmanText ? huffmanRecord(kDht) : quantizationRecord("standard", 5, kPair));

    TableLibrary made = library(huffmanRecord(kDht), {});
    QString error;
    QVERIFY(!TableLibrary::load(texts[0], texts[1], made, &error));
    QVERIFY2(error.startsWith(huffmanText ? "huffman.txt:3: " : "quantization.txt:3: "), qPrintable(error));
    QVERIFY2(error.contains(message), qPrintable(error));
    QVERIFY2(!error.contains('\n') && error.size() < 120, qPrintable(error));
    QCOMPARE(int(made.huffmanRows().size()), 1); // what was there before a failed load stays
}

void TestTableText::mutatedTextIsRefusedOrSound()
{
    QRandomGenerator random(7);
    const QByteArray texts[] = {huffmanRecord(kDht) + huffmanRecord(dhtOfLength(152)),
                                quantizationRecord("standard", 0, kPair) + quantizationRecord("standard", 1, kTriple)};
    int accepted = 0;
    for (int i = 0; i < 3000; ++i) {
        QByteArray changed[] = {texts[0], texts[1]};
        QByteArray &text = changed[i % 2];
        for (int times = 1 + i % 3; times > 0; --times) {
            const int at = random.bounded(text.size());
            if (random.bounded(4) == 0)
                text.remove(at, random.bounded(40));
            else
                text[at] = char(random.bounded(256));
            if (text.isEmpty()) break;
        }
        TableLibrary made;
        QString error;
        const bool loaded = TableLibrary::load(changed[0], changed[1], made, &error);
        QCOMPARE(loaded, error.isEmpty());
        QVERIFY2(isSound(made), text.constData());
        accepted += loaded;
    }
    QVERIFY(accepted > 0); // changed symbols and values leave a record sound
}

void TestTableText::builtInDataIsSound()
{
    QCOMPARE(checkBuiltInTables(), QString());
    const TableLibrary &tables = TableLibrary::builtIn();
    QVERIFY(isSound(tables));
    QCOMPARE(&TableLibrary::current(), &tables);
    int records[] = {0, 0};
    int *count = records;
    for (const char *name : {"huffman.txt", "quantization.txt"}) {
        for (const QByteArray &line : builtInText(name).split('\n')) *count += !line.isEmpty() && !line.startsWith('#');
        ++count;
    }
    int rows = 0;
    for (int family = 0; family < kQuantizationFamilies; ++family) {
        for (const QuantizationKind kind : {QuantizationKind::Pair, QuantizationKind::Triple}) {
            const int own = int(tables.quantizationRows(QuantizationFamily(family), kind).size());
            QVERIFY(own > 0);
            rows += own;
        }
    }
    QCOMPARE(int(tables.huffmanRows().size()), records[0]);
    QCOMPARE(rows, records[1]);
}

void TestTableText::scopedTablesNest()
{
    const TableLibrary outer = library(huffmanRecord(kDht), {});
    {
        const ScopedTables first(outer);
        const TableLibrary inner;
        {
            const ScopedTables second(inner);
            QCOMPARE(&TableLibrary::current(), &inner);
        }
        QCOMPARE(&TableLibrary::current(), &outer);
    }
    QCOMPARE(&TableLibrary::current(), &TableLibrary::builtIn());
}

QTEST_APPLESS_MAIN(TestTableText)
#include "tst_table_text.moc"
