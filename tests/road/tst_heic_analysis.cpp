// Which HEICs can be rebuilt: the tiles that are counted, and the boxes that must follow each other.

#include "Road.h"

#include "app/StopFlag.h"
#include "engine/heic/Boxes.h"
#include "engine/heic/TileLayout.h"
#include "engine/heic/TileWalk.h"
#include "engine/jpg_repair.h"
#include "support/ByteSource.h"
#include "support/Grammar.h"
#include "support/HeicMaker.h"
#include "support/PlainTiles.h"

#include <QTest>

namespace {

QByteArray tiles(int count)
{
    QByteArray all;
    for (int i = 0; i < count; ++i) all += heicTile(12 + i % 5, i);
    return all;
}

QByteArray with(QByteArray bytes, int at, const QByteArray &there)
{
    return bytes.replace(at, there.size(), there);
}

} // namespace

class TestHeicAnalysis : public QObject
{
    Q_OBJECT

private slots:
    void tileWalk_data();
    void tileWalk();
    void layouts_data();
    void layouts();
    void boxes_data();
    void boxes();
    void unreadable();
    void checkingTouchesNothingElse();
    void dispatchAnalyses();
    void stopEndsIt();
};

void TestHeicAnalysis::tileWalk_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("count");
    const QByteArray pattern("\x28\x01\xAF\x80", 4);
    const QByteArray healthy = makeHeic().bytes;
    const int stream = healthy.indexOf("mdat") + 4;
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("no tile") << junk(5000) << 0;
    QTest::newRow("healthy, 48") << healthy << 48;
    QTest::newRow("one tile") << bytes({1, 2, 3}) + tiles(1) << 1;
    QTest::newRow("47") << tiles(47) << 47;
    QTest::newRow("300") << junk(9) + tiles(300) << 300;
    QTest::newRow("pattern at 0") << pattern + tiles(5) << 0;
    QTest::newRow("pattern at 3") << "abc" + pattern + tiles(5) << 0;
    QTest::newRow("first tile at 0") << tiles(5) << 5;
    QTest::newRow("an item that is none between two tiles") << tiles(2) + heicTile(30, 1, "none") + tiles(3) << 5;
    QTest::newRow("a pattern inside an item") << tiles(2) + be32(20) + "none" + tiles(1).left(16) + tiles(3) << 5;
    QTest::newRow("length past the end") << with(healthy, stream, be32(0x7FFFFFFF)) << 1;
    QTest::newRow("length of all ones") << with(healthy, stream, be32(0xFFFFFFFF)) << 1;
    QTest::newRow("length 0 in front of a tile") << junk(8) + be32(0) + pattern << 1;
    QTest::newRow("lengths of zeros behind") << tiles(3) + QByteArray(400, 0) << 3;
    QTest::newRow("patterns one behind the other") << junk(4) + pattern.repeated(20) << 1;
    QTest::newRow("cut in a tile's data") << tiles(4).left(70) << 4;
    QTest::newRow("cut in a length field") << tiles(3) + be32(16).left(2) << 3;
    QTest::newRow("cut in a pattern") << tiles(3) + be32(16) + pattern.left(3) << 3;
    QTest::newRow("nothing but first bytes of patterns") << QByteArray(3000, '\x28') << 0;
}

void TestHeicAnalysis::tileWalk()
{
    QFETCH(QByteArray, file);
    QFETCH(int, count);
    const QVector<quint32> plain = plainTiles(file);
    QCOMPARE(plain.size(), count);
    for (const int blockSize : {1, 2, 3, 16, FileWindow::kBlockSize}) {
        ByteSource source(file);
        FileWindow window(source, blockSize);
        QVector<quint32> lengths(320, 7);
        const TileWalk walk = walkTiles(window, lengths.data(), 256);
        QCOMPARE(int(walk.count), count);
        const int kept = qMin(count, 256);
        QCOMPARE(lengths.mid(0, kept), plain.mid(0, kept));
        QCOMPARE(lengths.mid(kept), QVector<quint32>(320 - kept, 7));
        QVERIFY(walk.position > quint64(file.size()));
    }
}

void TestHeicAnalysis::layouts_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<QString>("name");
    QTest::newRow("48") << 48 << "standard";
    QTest::newRow("36") << 36 << "square";
    QTest::newRow("35") << 35 << "standard_selfie";
    QTest::newRow("25") << 25 << "square_selfie";
    for (const int other : {0, 1, 24, 26, 47, 49, 55, 56, 300}) QTest::addRow("%d", other) << other << "";
}

void TestHeicAnalysis::layouts()
{
    QFETCH(int, tiles);
    QFETCH(QString, name);
    const Run run;
    const bool known = !name.isEmpty();
    const QString path = run.source("a.heic", makeHeic({.tiles = tiles, .entryCount = tiles + 3}).bytes);
    for (bool *flag : {&pApp->bHeicStandard, &pApp->bHeicSquare, &pApp->bHeicStandardSelfie, &pApp->bHeicSquareSelfie,
                       &pApp->bHeicHeaderIntact, &pApp->bHeicOddTileCount})
        *flag = true; // what an earlier file left
    const auto flags = [] {
        return QVector<bool>{pApp->bHeicStandard, pApp->bHeicSquare, pApp->bHeicStandardSelfie,
                             pApp->bHeicSquareSelfie};
    };
    const QVector<bool> expected{tiles == 48, tiles == 36, tiles == 35, tiles == 25};
    jpg_repair engine;
    QCOMPARE(engine.Heic(path), known); // the count of items plays no part here
    QCOMPARE(flags(), expected);
    QCOMPARE(pApp->bHeicHeaderIntact, known);
    QCOMPARE(pApp->bHeicOddTileCount, !known);
    QVERIFY(pApp->pHeicSource);
    QCOMPARE(engine.CheckingImageType(path), unsigned(tiles));
    QCOMPARE(flags(), expected);
    QCOMPARE(layoutName(unsigned(tiles)), name);
}

void TestHeicAnalysis::boxes_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("inOrder");
    const MadeHeic made = makeHeic();
    const QByteArray &file = made.bytes;
    QTest::newRow("healthy") << file << true;
    QTest::newRow("iloc zeroed, but for its name")
        << with(file, made.at(made.iloc) + 8, QByteArray(made.iloc.size() - 8, 0)) << true;
    QTest::newRow("sizes of meta and iloc zeroed")
        << with(with(file, 24, be32(0)), made.at(made.iloc), be32(0)) << true;
    for (const char *type : {"ftyp", "meta", "iinf", "iref", "iprp", "idat", "iloc"})
        QTest::newRow(type) << with(file, file.indexOf(type), "none") << false;
    QTest::newRow("handler, data information and primary item zeroed") << with(file, 36, QByteArray(84, 0)) << true;
    QTest::newRow("a byte in front") << "\x01" + file << false;
    QTest::newRow("ftyp once more, behind") << file + heicBox("ftyp", "heic") << true;
    QTest::newRow("ftyp at the very start, so with no size") << file.mid(4) << false;
    QTest::newRow("size of ftyp past the end") << with(file, 0, be32(0xFFFFFFF0)) << false;
    QTest::newRow("size of iref 0") << with(file, made.at(made.iref), be32(0)) << false;
    QTest::newRow("size of iref 4 GB") << with(file, made.at(made.iref), be32(0xFFFFFFFF)) << false;
    QTest::newRow("idat and iloc swapped")
        << file.left(made.at(made.idat)) + made.iloc + made.idat + file.mid(file.indexOf("mdat") - 4) << false;
    QTest::newRow("nothing") << QByteArray() << false;
}

void TestHeicAnalysis::boxes()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, inOrder);
    for (const int blockSize : {1, 3, 16, FileWindow::kBlockSize}) {
        ByteSource source(file);
        FileWindow window(source, blockSize);
        QCOMPARE(boxesInOrder(window), inOrder);
    }
    if (file.isEmpty()) return;
    const Run run;
    jpg_repair engine;
    QCOMPARE(engine.Heic(run.source("a.HEIC", file)), inOrder);
    QCOMPARE(pApp->bHeicStandard, true); // whatever the boxes, a sample can serve
    QCOMPARE(pApp->bHeicHeaderIntact, inOrder);
}

void TestHeicAnalysis::unreadable()
{
    const Run run;
    pApp->bHeicSquare = true;
    jpg_repair engine;
    for (const QString &path : {run.place("gone.heic"), run.sources()}) {
        QVERIFY(!engine.Heic(path));
        QVERIFY(!pApp->bHeicSquare && !pApp->bHeicOddTileCount && !pApp->pHeicSource);
        QCOMPARE(engine.CheckingImageType(path), 0u);
    }
    // Four gigabytes, nearly all of it a hole: refused at once.
    const QString large = run.source("large.heic", makeHeic().bytes);
    QVERIFY(QFile::resize(large, qint64(1) << 32));
    QVERIFY(!engine.Heic(large));
    QVERIFY(!pApp->pHeicSource);
    QCOMPARE(engine.CheckingImageType(large), 0u);
    QCOMPARE(repairOneFile(large).report.reason, RepairReason::TooLarge);
    QCOMPARE(repairOneFileWithSample(run.source("s.heic", makeHeic().bytes), large).report.reason,
             RepairReason::TooLarge);
}

void TestHeicAnalysis::checkingTouchesNothingElse()
{
    const Run run;
    pApp->bHeicOddTileCount = true;
    pApp->bHeicHeaderIntact = true;
    jpg_repair engine;
    const QString path = run.source("a.heic", makeHeic({.tiles = 35, .entryCount = 0x26}).bytes);
    QCOMPARE(engine.CheckingImageType(path), 35u);
    QVERIFY(pApp->bHeicOddTileCount && pApp->bHeicHeaderIntact && !pApp->pHeicSource);
    engine.scanAgainForiLocation(run.source("b.heic", makeHeic().bytes));
    QVERIFY(pApp->bHeicStandardSelfie && !pApp->bHeicStandard && pApp->pHeicSource);
}

void TestHeicAnalysis::dispatchAnalyses()
{
    const Run run;
    for (const char *name : {"a.heic", "b.HEIF"}) {
        pApp->strCurrentPath = run.source(name, makeHeic({.tiles = 25, .entryCount = 0x1C}).bytes);
        pApp->bHeicSquareSelfie = pApp->bHeicHeaderIntact = false;
        jpg_repair().repairing(pApp->strCurrentPath);
        QVERIFY2(pApp->bHeicSquareSelfie && pApp->bHeicHeaderIntact, name);
        QVERIFY2(!pApp->pHeicSource && !pApp->pCurrentFile, name); // the object is gone, and what it held with it
        QCOMPARE(run.filesLeft(), QStringList());                  // nothing is written here
    }
}

void TestHeicAnalysis::stopEndsIt()
{
    const Run run;
    const QString path = run.source("a.heic", makeHeic().bytes);
    setFlag(pApp->bStopRepair, true);
    jpg_repair engine;
    QVERIFY(!engine.Heic(path));
    const FileOutcome outcome = repairOneFile(path);
    QCOMPARE(outcome.statusCode, QString(status::Stopped));
    QCOMPARE(outcome.report.reason, RepairReason::Stopped);
    QVERIFY(makeRows(outcome).rows.isEmpty());
}

QTEST_GUILESS_MAIN(TestHeicAnalysis)
#include "tst_heic_analysis.moc"
