// The copy of a rewritten HEIC that strict readers take, byte by byte.

#include "Road.h"

#include "engine/heic/ReadingCopy.h"
#include "support/ByteSource.h"
#include "support/Files.h"
#include "support/Grammar.h"
#include "support/HeicMaker.h"

#include <QTest>

namespace {

QByteArray with(QByteArray bytes, int at, const QByteArray &there)
{
    return bytes.replace(at, there.size(), there);
}

/// Worked out from the made file: of its items the tiles and the grid, of its references those of the grid.
QByteArray expectedCopy(const MadeHeic &made)
{
    const int tiles = int(made.lengths.size());
    const int grid = tiles + 1;
    constexpr int kEntry = 21; // bytes of each `infe`
    const QByteArray iinf = heicBox("iinf", be32(0) + be16(grid) + made.iinf.mid(14, grid * kEntry));
    const QByteArray dimg = made.iref.mid(12, int(quint8(made.iref[14]) << 8 | quint8(made.iref[15])));
    const QByteArray front = heicBox("hdlr", QByteArray(8, 0) + "pict" + QByteArray(14, 0))
        + heicBox("pitm", be32(0) + be16(grid)) + iinf + heicBox("iref", made.iref.mid(8, 4) + dimg) + made.iprp
        + made.idat;
    const QByteArray fileType = made.bytes.left(24);
    quint32 offset = quint32(fileType.size() + 12 + front.size() + 16 + 16 * grid + 8);
    QByteArray index = QByteArray::fromHex("010000004400") + be16(grid);
    for (int k = 0; k < tiles; ++k) {
        index +=
            be16(k + 1) + QByteArray::fromHex("000000000001") + be32(offset) + be32(quint32(made.lengths[size_t(k)]));
        offset += quint32(made.lengths[size_t(k)]);
    }
    index += be16(grid) + QByteArray::fromHex("000100000001") + be32(0) + be32(8);
    return fileType + heicBox("meta", be32(0) + front + heicBox("iloc", index)) + heicBox("mdat", made.stream);
}

} // namespace

class TestHeicReadingCopy : public QObject
{
    Q_OBJECT

private slots:
    void copies_data();
    void copies();
    void problems_data();
    void problems();
};

void TestHeicReadingCopy::copies_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("entryCount");
    QTest::addColumn<bool>("wide"); // numbers of four bytes in the references
    QTest::newRow("48") << 48 << 0x36 << false;
    QTest::newRow("35") << 35 << 0x26 << false;
    QTest::newRow("36, wide") << 36 << 0x27 << true;
    QTest::newRow("25") << 25 << 0x1C << false;
}

void TestHeicReadingCopy::copies()
{
    QFETCH(int, tiles);
    QFETCH(int, entryCount);
    QFETCH(bool, wide);
    MadeHeic made =
        makeHeic({.tiles = tiles, .entryCount = entryCount, .wideReferences = wide, .behind = "behind the last tile"});
    const QByteArray rewritten = expectedRewrite(made, made);
    const QByteArray expected = expectedCopy(made);
    for (const int blockSize : {1, 16, FileWindow::kBlockSize}) {
        ByteSource source(rewritten);
        FileWindow file(source, blockSize);
        QString problem;
        QVERIFY(readingCopyBytes(file, problem) == expected);
        QCOMPARE(problem, QString());
    }
    const Run run;
    const QString path = run.source("a.HEIC", rewritten);
    QCOMPARE(readableName("a.HEIC"), QString("a_readable.heic"));
    QCOMPARE(writeReadingCopy(path, run.place("copy.heic")), QString());
    QVERIFY(contents(run.place("copy.heic")) == expected);
    QVERIFY(contents(path) == rewritten);
    {
        const FileSizeLimit limit(1000);
        QVERIFY(!writeReadingCopy(path, run.place("full.heic")).isEmpty());
    }
    QVERIFY(!QFileInfo::exists(run.place("full.heic")));
}

void TestHeicReadingCopy::problems_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("problem"); // a word of it
    const MadeHeic made = makeHeic();
    const QByteArray good = expectedRewrite(made, made);
    const int index = good.indexOf("iloc") - 4;
    QTest::newRow("nothing") << QByteArray() << "tiles alone";
    QTest::newRow("tiles alone") << made.stream << "tiles alone";
    QTest::newRow("a healthy file") << made.bytes << "tiles alone";
    QTest::newRow("cut in its boxes") << good.left(300) << "box";
    QTest::newRow("cut in its index") << good.left(index + 300) << "index";
    QTest::newRow("cut in front of its tiles") << good.left(good.indexOf(made.stream)) << "index";
    QTest::newRow("iinf of 4 bytes") << with(good, 120, be32(4)) << "box";
    QTest::newRow("iinf past the end") << with(good, 120, be32(0x7FFFFFFF)) << "box";
    QTest::newRow("iref short by one") << with(good, good.indexOf("iref") - 4, be32(quint32(made.iref.size()) - 1))
                                       << "index";
    QTest::newRow("index of another version") << with(good, index + 8, QByteArray(1, 0)) << "index";
    QTest::newRow("index of more items") << with(good, index + 14, be16(0xFFFF)) << "index";
    QTest::newRow("a tile in front of the tiles") << with(good, index + 24, be32(100)) << "index";
    QTest::newRow("no grid") << with(good, good.indexOf("grid"), "hvc1") << "tiles together";
    QTest::newRow("a grid that isn't placed") << with(good, good.indexOf("grid") - 4, be16(0x32)) << "tiles together";
}

void TestHeicReadingCopy::problems()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, problem);
    ByteSource source(file);
    FileWindow window(source);
    QString found;
    QVERIFY(readingCopyBytes(window, found).isNull());
    QVERIFY2(found.contains(problem), qPrintable(found));
}

QTEST_GUILESS_MAIN(TestHeicReadingCopy)
#include "tst_heic_reading_copy.moc"
