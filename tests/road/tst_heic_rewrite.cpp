// The rewritten HEIC, byte by byte, from itself and with a sample; and its way through the road to its row.

#include "Road.h"

#include "app/StopFlag.h"
#include "engine/jpg_repair.h"
#include "support/Files.h"
#include "support/Grammar.h"
#include "support/HeicMaker.h"

#include <QTest>

namespace {

QByteArray with(QByteArray bytes, int at, const QByteArray &there)
{
    return bytes.replace(at, there.size(), there);
}

/// Wrong, but for its name.
QByteArray indexLost(const MadeHeic &made)
{
    return with(made.bytes, made.at(made.iloc) + 8, QByteArray(made.iloc.size() - 8, 0x5A));
}

/// Nothing in front of the tiles is left.
QByteArray boxesLost(const MadeHeic &made)
{
    return QByteArray(made.bytes.indexOf(made.stream), '\x55') + made.stream;
}

QString describe(const OutputRows &rows)
{
    QStringList lines{rows.sourceStatus};
    for (const OutputRow &row : rows.rows)
        lines << QStringList{row.name, row.type, row.resolution, row.statusCode}.join(" | ");
    return lines.join("; ");
}

int openFiles()
{
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

class TestHeicRewrite : public QObject
{
    Q_OBJECT

private slots:
    void fromItself_data();
    void fromItself();
    void boxes_data();
    void boxes();
    void tilesThatAreTheWholeFile();
    void withSample_data();
    void withSample();
    void withSampleOfOddTiles();
    void roadTellsWhy_data();
    void roadTellsWhy();
    void names();
    void secondPass();
    void fullDisk();
    void stopLeavesNoRow();
};

void TestHeicRewrite::fromItself_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("entryCount");
    QTest::addColumn<QByteArray>("head"); // of the index: size, and the number of items behind the fixed bytes
    const auto row = [](int tiles, int entryCount, const char *head) {
        QTest::addRow("%d, 0x%X", tiles, entryCount) << tiles << entryCount << QByteArray::fromHex(head);
    };
    row(48, 0x33, "00000340696c6f6301000000440000 31");
    row(48, 0x34, "00000350696c6f6301000000440000 31");
    row(48, 0x36, "00000370696c6f6301000000440000 31");
    row(35, 0x26, "00000270696c6f6301000000440000 24");
    row(35, 0x27, "00000280696c6f6301000000440000 24");
    row(36, 0x27, "00000280696c6f6301000000440000 25");
    row(25, 0x1C, "000001d0696c6f6301000000440000 1a");
    for (const int other : {0x32, 0x35, 0x37}) row(48, other, "");
    for (const int other : {0x25, 0x28}) row(35, other, "");
    for (const int other : {0x26, 0x28}) row(36, other, "");
    for (const int other : {0x1B, 0x1D}) row(25, other, "");
}

void TestHeicRewrite::fromItself()
{
    QFETCH(int, tiles);
    QFETCH(int, entryCount);
    QFETCH(QByteArray, head);
    const Run run;
    const int before = openFiles();
    const MadeHeic made = makeHeic({.tiles = tiles, .entryCount = entryCount, .behind = "behind the last tile"});
    const QString source = run.source("a.b.HEIC", indexLost(made));
    const Footprint print = footprint(source);
    const FileOutcome outcome = repairOneFile(source);
    QVERIFY(footprint(source) == print);
    QCOMPARE(openFiles(), before);
    QCOMPARE(outcome.results, QStringList("a.b.heic"));
    QCOMPARE(describe(makeRows(outcome)), QString("5; a.b.heic | Repaired |  | 4"));
    QCOMPARE(run.filesLeft(), QStringList("HEIC_Repaired/a.b.heic"));
    const QByteArray result = run.output("HEIC_Repaired/a.b.heic");
    QCOMPARE(outcome.report.tilesAlone, head.isEmpty());
    if (head.isEmpty()) {
        QCOMPARE(result, made.stream); // listed all the same
        return;
    }
    QCOMPARE(result, expectedRewrite(made, made));
    const int index = result.indexOf("iloc") - 4;
    QCOMPARE(result.mid(index, 16), head);
    // The first entry leads to the first tile.
    const QByteArray first = result.mid(index + 16, 16);
    QCOMPARE(first.left(8), QByteArray::fromHex("0001000000000001"));
    QCOMPARE(first.mid(8, 4), be32(quint32(result.indexOf(made.stream))));
}

void TestHeicRewrite::boxes_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("expected");
    const MadeHeic made = makeHeic();
    const QByteArray &file = made.bytes;
    // Lost boxes leave the rewrite to callers that don't ask first; Heic() says false to them.
    const auto lost = [&](QByteArray MadeHeic::*box) {
        MadeHeic less = made;
        (less.*box).clear();
        return expectedRewrite(less, made);
    };
    for (const auto &[type, box] :
         {std::pair("iref", &MadeHeic::iref), {"iprp", &MadeHeic::iprp}, {"idat", &MadeHeic::idat}})
        QTest::addRow("%s lost", type) << with(file, file.indexOf(type), "none") << lost(box);
    QTest::newRow("iinf lost: the tiles alone") << with(file, file.indexOf("iinf"), "none") << made.stream;
    QTest::newRow("iref as large as the file")
        << with(file, made.at(made.iref), be32(quint32(file.size()))) << lost(&MadeHeic::iref);
    QTest::newRow("iref of 4 GB") << with(file, made.at(made.iref), be32(0xFFFFFFFF)) << lost(&MadeHeic::iref);
    QTest::newRow("iref of 0 bytes") << with(file, made.at(made.iref), be32(0)) << lost(&MadeHeic::iref);
    MadeHeic one = made;
    one.iref = QByteArray(1, 0);
    QTest::newRow("iref of 1 byte") << with(file, made.at(made.iref), be32(1)) << expectedRewrite(one, made);
    MadeHeic longer = made;
    longer.iref = be32(quint32(file.size()) - 1) + file.mid(made.at(made.iref) + 4);
    longer.iref += QByteArray(file.size() - 1 - longer.iref.size(), 0);
    QTest::newRow("iref past the end: zeros behind")
        << with(file, made.at(made.iref), be32(quint32(file.size()) - 1)) << expectedRewrite(longer, made);
    MadeHeic early = made;
    early.idat = heicBox("idat", "early");
    const QByteArray twice = file.left(24) + early.idat + file.mid(24);
    QTest::newRow("idat twice: the first") << twice << expectedRewrite(early, made);
    MadeHeic second = made;
    second.metaSize = be32(0x1234);
    QTest::newRow("meta twice in front of iinf: the last")
        << with(file, 40, be32(0x1234) + "meta") << expectedRewrite(second, made);
    QTest::newRow("meta behind iinf doesn't count")
        << with(file, made.at(made.iloc) + 16, be32(0x1234) + "meta") << expectedRewrite(made, made);
    MadeHeic none = made;
    none.metaSize = be32(0);
    QTest::newRow("no meta") << with(file, 28, "none") << expectedRewrite(none, made);
    QTest::newRow("meta at the very start has no size")
        << with(file, 28, "none").replace(0, 4, "meta") << expectedRewrite(none, made);
}

void TestHeicRewrite::boxes()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, expected);
    const Run run;
    const QString path = run.source("a.heic", file);
    pApp->lstResultNames.clear();
    jpg_repair engine;
    engine.Heic(path);
    engine.WriteFileData(engine.writeFileWithoutRef(path));
    QCOMPARE(pApp->lstResultNames, QStringList("a.heic"));
    const QByteArray result = run.output("HEIC_Repaired/a.heic");
    QCOMPARE(result.size(), expected.size());
    QVERIFY(result == expected);
    QVERIFY(!pApp->pHeicSource && !pApp->pHeicOutput);
}

void TestHeicRewrite::tilesThatAreTheWholeFile()
{
    const Run run;
    const MadeHeic made = makeHeic();
    for (const QByteArray &file : {made.stream, made.stream.mid(2), junk(500)}) {
        const FileOutcome outcome =
            repairOneFileWithSample(run.source("s.heic", made.bytes), run.source("a.heic", file));
        QCOMPARE(outcome.results, QStringList("a.heic"));
        QVERIFY(!run.output("HEIC_Repaired/a.heic").endsWith(made.stream.right(10)));
    }
}

void TestHeicRewrite::withSample_data()
{
    QTest::addColumn<QByteArray>("damaged");
    QTest::addColumn<QByteArray>("sample");
    QTest::addColumn<QByteArray>("expected");
    const MadeHeic hurt = makeHeic({.tiles = 36, .entryCount = 0x27, .seed = 2});
    const MadeHeic sample = makeHeic({.tiles = 36, .entryCount = 0x27, .seed = 9});
    const QByteArray damaged = boxesLost(hurt);
    QTest::newRow("of the same layout") << damaged << sample.bytes << expectedRewrite(sample, hurt);
    const MadeHeic selfie = makeHeic({.tiles = 35, .entryCount = 0x27});
    QTest::newRow("of another layout, with a count that fits")
        << damaged << selfie.bytes << expectedRewrite(selfie, hurt);
    QTest::newRow("with a count that doesn't fit") << damaged << makeHeic().bytes << hurt.stream;
    QTest::newRow("that isn't a HEIC") << damaged << junk(3000) << hurt.stream;
    QTest::newRow("that is empty") << damaged << QByteArray() << hurt.stream;
    QTest::newRow("that can't be opened") << damaged << QByteArray("(none)") << hurt.stream;
    QTest::newRow("that is the damaged file")
        << indexLost(hurt) << QByteArray("(itself)") << expectedRewrite(hurt, hurt);
}

void TestHeicRewrite::withSample()
{
    QFETCH(QByteArray, damaged);
    QFETCH(QByteArray, sample);
    QFETCH(QByteArray, expected);
    const Run run;
    const int before = openFiles();
    const QString path = run.source("My picture.HEIC", damaged);
    QString samplePath = run.place("gone.heic");
    if (sample == "(itself)")
        samplePath = path;
    else if (sample != "(none)")
        samplePath = run.source("sample.heic", sample);
    const Footprint prints[] = {footprint(path), footprint(samplePath)};
    const FileOutcome outcome = repairOneFileWithSample(samplePath, path);
    QVERIFY(footprint(path) == prints[0] && footprint(samplePath) == prints[1]);
    QCOMPARE(openFiles(), before);
    QCOMPARE(outcome.results, QStringList("My picture.HEIC")); // its own name and suffix
    QCOMPARE(describe(makeSampleRows(outcome)), QString("5; My picture.HEIC | Repaired |  | 4"));
    QVERIFY(run.output("HEIC_Repaired/My picture.HEIC") == expected);
    QCOMPARE(outcome.report.tilesAlone, !expected.startsWith(makeHeic().bytes.left(24)));
}

void TestHeicRewrite::withSampleOfOddTiles()
{
    const Run run;
    const MadeHeic odd = makeHeic({.tiles = 47, .entryCount = 0x33});
    pApp->bHeicStandard = true; // left by another file
    const FileOutcome outcome =
        repairOneFileWithSample(run.source("s.heic", makeHeic().bytes), run.source("a.heic", odd.bytes));
    QCOMPARE(outcome.results, QStringList("a.heic"));
    QVERIFY(outcome.report.tilesAlone);
    QCOMPARE(run.output("HEIC_Repaired/a.heic"), odd.stream);
}

void TestHeicRewrite::roadTellsWhy_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("reason");
    const MadeHeic made = makeHeic();
    QTest::newRow("healthy") << "a.HeIc" << made.bytes << "5"
                             << "";
    QTest::newRow("boxes lost") << "a.heic" << boxesLost(made) << "2"
                                << "boxes-lost";
    QTest::newRow("ftyp lost") << "a.heic" << with(made.bytes, 4, "none") << "2"
                               << "boxes-lost";
    QTest::newRow("47 tiles") << "a.heic" << makeHeic({.tiles = 47}).bytes << "2"
                              << "tiles-unknown";
    QTest::newRow("no tile") << "a.heic" << junk(900) << "2"
                             << "tiles-unknown";
    QTest::newRow("empty") << "a.heic" << QByteArray() << "2"
                           << "empty";
    QTest::newRow("not there") << "a.heic" << QByteArray("(none)") << "2"
                               << "unreadable";
    QTest::newRow("HEIF") << "a.heif" << made.bytes << ""
                          << "other-format";
}

void TestHeicRewrite::roadTellsWhy()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, file);
    QFETCH(QString, status);
    QFETCH(QString, reason);
    const Run run;
    const QString path = file == "(none)" ? run.place(name) : run.source(name, file);
    const FileOutcome outcome = repairOneFile(path);
    const OutputRows rows = makeRows(outcome);
    QCOMPARE(rows.sourceStatus, status);
    QCOMPARE(reasonWord(outcome.report.reason), reason);
    QCOMPARE(outcome.results.isEmpty(), !reason.isEmpty());
    // Where the suffix isn't all capitals, the size of the picture that was never loaded stands.
    QCOMPARE(describe(rows), reason.isEmpty() ? "5; a.heic | Repaired | 0x0 | 4" : status);
}

void TestHeicRewrite::names()
{
    // Two cards, each with a file of this name; nested-image marks in the names mean nothing here.
    const Run run;
    const MadeHeic one = makeHeic({.seed = 1});
    const MadeHeic two = makeHeic({.seed = 2});
    QCOMPARE(run.repair("one/x_[T1].HEIC", one.bytes).results, QStringList("x_[T1].heic"));
    const FileOutcome outcome = run.repair("two/x_[T1].HEIC", two.bytes);
    QCOMPARE(outcome.results, QStringList("Copy(1)_x_[T1].heic"));
    QVERIFY(run.output("HEIC_Repaired/x_[T1].heic").endsWith(one.stream));
    QVERIFY(run.output("HEIC_Repaired/Copy(1)_x_[T1].heic").endsWith(two.stream));
    QCOMPARE(describe(makeRows(outcome)), QString("5; Copy(1)_x_[T1].heic | Repaired |  | 4"));
    QCOMPARE(outputPath("x_[T1].heic"), pApp->strTempDir + "HEIC_Repaired/x_[T1].heic");
    QCOMPARE(destinationPlace("x_[T1].heic"), QString("HEIC_Repaired/x_[T1].heic"));
    QCOMPARE(destinationPlace("x.HEIC"), QString("HEIC_Repaired/x.HEIC"));
}

void TestHeicRewrite::secondPass()
{
    // A count of invalid files that is up has the same file written once more; its first row alone is marked.
    const Run run;
    pApp->nInvalidCount = 1;
    const FileOutcome outcome = run.repair("a.heic", makeHeic().bytes);
    QCOMPARE(outcome.results, QStringList({"a.heic", "a.heic"}));
    QCOMPARE(describe(makeRows(outcome)), QString("5; a.heic | Repaired | 0x0 | 4; a.heic |  | 0x0 | "));
    QCOMPARE(pApp->nInvalidCount, 0u);
}

void TestHeicRewrite::fullDisk()
{
    const Run run;
    const MadeHeic made = makeHeic();
    const QString path = run.source("a.heic", made.bytes);
    const auto check = [&](const FileOutcome &outcome) {
        QCOMPARE(outcome.results, QStringList());
        QCOMPARE(outcome.report.reason, RepairReason::DiskFull);
        QCOMPARE(run.filesLeft(), QStringList());
        QVERIFY(makeRows(outcome).rows.isEmpty() && makeSampleRows(outcome).rows.isEmpty());
    };
    {
        const FileSizeLimit limit(2000);
        check(repairOneFile(path));
        check(repairOneFileWithSample(path, path));
    }
    QVERIFY(QDir(run.root() + "/RepairedFiles/HEIC_Repaired").removeRecursively());
    write(run.root() + "/RepairedFiles/HEIC_Repaired", "in the way");
    const FileOutcome outcome = repairOneFile(path);
    QCOMPARE(outcome.results, QStringList());
    QCOMPARE(outcome.report.reason, RepairReason::DiskFull);
}

void TestHeicRewrite::stopLeavesNoRow()
{
    const Run run;
    const MadeHeic made = makeHeic();
    const QString path = run.source("a.heic", made.bytes);
    jpg_repair engine;
    QVERIFY(engine.Heic(path));
    setFlag(pApp->bStopRepair, true);
    engine.WriteFileData(engine.writeFileWithoutRef(path));
    QVERIFY(run.output("HEIC_Repaired/a.heic").size() < made.stream.size());
    QVERIFY(!pApp->pHeicSource && !pApp->pHeicOutput);
    const FileOutcome outcome = repairOneFileWithSample(path, path);
    QCOMPARE(outcome.statusCode, QString(status::Stopped));
    QVERIFY(makeSampleRows(outcome).rows.isEmpty());
}

QTEST_GUILESS_MAIN(TestHeicRewrite)
#include "tst_heic_rewrite.moc"
