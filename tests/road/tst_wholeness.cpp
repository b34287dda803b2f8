// How much of a picture is said to be there, against the pixels that are; and what is said of sources that give nothing.

#include "Road.h"
#include "engine/SameDecoding.h"
#include "support/ByteSource.h"
#include "support/Damage.h"
#include "support/HeicMaker.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"

#include <QTest>

namespace {

/// The share of the blocks of 8 x 8 pixels that are as in the healthy picture.
double sharePresent(const QImage &healthy, const QImage &shown)
{
    int same = 0;
    int all = 0;
    for (int y = 0; y < healthy.height(); y += 8)
        for (int x = 0; x < healthy.width(); x += 8, ++all)
            if (largestDifference(healthy.copy(x, y, 8, 8), shown.copy(x, y, 8, 8)) == 0) ++same;
    return double(same) / all;
}

QByteArray picture(bool progressive, int restartMcus)
{
    JpegOptions options;
    options.progressive = progressive;
    options.restartMcus = restartMcus;
    options.sampling = 444;
    return makeJpeg(drawPicture(320, 320), options);
}

} // namespace

class TestWholeness : public QObject
{
    Q_OBJECT

private slots:
    void outputs_data();
    void outputs();
    void samples_data();
    void samples();
    void heic();
    void sources_data();
    void sources();
    void alike_data();
    void alike();
};

void TestWholeness::outputs_data()
{
    QTest::addColumn<QByteArray>("healthy");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("word");
    const QByteArray plain = picture(false, 0);
    const QByteArray intervals = picture(false, 40);
    const QByteArray scans = picture(true, 0);
    const int half = plain.size() / 2;
    QTest::newRow("healthy") << plain << plain << "whole";
    QTest::newRow("healthy, intervals") << intervals << intervals << "whole";
    QTest::newRow("healthy, progressive") << scans << scans << "whole";
    QTest::newRow("cut in half") << plain << plain.left(half) << "partial";
    QTest::newRow("cut near the end") << plain << plain.left(plain.size() - 600) << "partial";
    QTest::newRow("cut in half, intervals") << intervals << intervals.left(half) << "partial";
    QTest::newRow("a sector of zeros") << plain << Damage(plain).zero(inScan(half / 2), 512).bytes() << "partial";
    QTest::newRow("bytes lost in an interval")
        << intervals << Damage(intervals).remove(inScan(half / 2), 64).bytes() << "";
    QTest::newRow("cut in half, progressive") << scans << scans.left(scans.size() / 2) << "";
}

void TestWholeness::outputs()
{
    QFETCH(QByteArray, healthy);
    QFETCH(QByteArray, file);
    QFETCH(QString, word);
    const Run run;
    const FileOutcome outcome = run.repair("a.jpg", file);
    QCOMPARE(outcome.report.outputs.size(), 1);
    const Wholeness wholeness = outcome.report.outputs[0].wholeness;
    const QString said = completenessWord(wholeness.completeness);
    if (word.isEmpty())
        QVERIFY2(said == "partial" || said == "doubtful",
                 qPrintable(said)); // the picture isn't whole, but nobody can see how much
    else
        QCOMPARE(said, word);
    if (word != "partial") return;
    const double there = sharePresent(decoded(healthy), decoded(run.output("a.jpg")));
    QVERIFY2(qAbs(wholeness.share - there) < 0.02, qPrintable(QString("%1, not %2").arg(wholeness.share).arg(there)));
}

void TestWholeness::samples_data()
{
    QTest::addColumn<bool>("sameTables");
    QTest::newRow("of the same tables") << true;
    QTest::newRow("of other Huffman tables") << false;
}

void TestWholeness::samples()
{
    QFETCH(bool, sameTables);
    JpegOptions options;
    options.jfif = false; // as cameras write
    options.segments = {exifSegment(QByteArray())};
    const QByteArray damaged = Damage(makeJpeg(drawPicture(320, 320), options)).dropHead(upTo(0xFFDA)).bytes();
    options.optimised = !sameTables;
    const Run run;
    const QString source = run.source("a.jpg", QByteArray(20, '\0') + damaged);
    const QString sample = run.source("sample.jpg", makeJpeg(drawPicture(320, 320, 2), options));
    const RepairReport report = repairOneFileWithSample(sample, source).report;
    QCOMPARE(report.outputs.size(), 1);
    QCOMPARE(report.outputs[0].wholeness.completeness == Completeness::Whole, sameTables);
    if (sameTables) QCOMPARE(report.reason, RepairReason::None);
}

void TestWholeness::heic()
{
    MadeHeic made = makeHeic();
    const int lastTile = made.bytes.size() - made.lengths.back();
    const Run run;
    const auto shareOf = [&run](const QByteArray &file) {
        const RepairReport report = run.repair("a.heic", file).report;
        return report.outputs.isEmpty() ? -1 : report.outputs[0].wholeness.share;
    };
    QCOMPARE(shareOf(made.bytes), 1.0);
    QCOMPARE(shareOf(QByteArray(made.bytes).replace(lastTile + 20, 8, QByteArray(8, '\0'))), 47.0 / 48);
}

void TestWholeness::sources_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<bool>("healthy");
    QTest::addColumn<QString>("format");
    const QByteArray plain = picture(false, 0);
    QByteArray noise(100'000, '\0');
    quint32 state = 1;
    for (char &byte : noise) byte = char((state = state * 1664525 + 1013904223) >> 24);
    QTest::newRow("healthy") << "a.jpg" << plain << "" << true << "";
    QTest::newRow("without its end") << "a.jpg" << plain.left(plain.size() / 2) << "" << false << "";
    QTest::newRow("zeros") << "a.jpg" << QByteArray(5000, '\0') << "no-picture-data" << false << "";
    QTest::newRow("random bytes") << "a.jpg" << noise << "no-picture-data" << false << "";
    QTest::newRow("zeros in a table") << "a.jpg" << Damage(plain).zero(at(0xFFDB) + 23, 30).bytes() << "" << false
                                      << "";
    QTest::newRow("its data alone") << "a.jpg" << Damage(plain).dropHead(inScan(0)).bytes() << "header-lost" << false
                                    << "";
    QTest::newRow("the end of its data between zeros")
        << "a.jpg" << QByteArray(70'000, '\0') + plain.right(4000) << "header-lost" << false << "";
    QTest::newRow("zeros, raw") << "a.nef" << QByteArray(5000, '\0') << "no-picture-data" << false << "";
    QTest::newRow("a PNG") << "a.jpg" << QByteArray("\x89PNG\r\n\x1a\n") + noise.left(50) << "other-format" << false
                           << "PNG";
    QTest::newRow("a JPEG named HEIC") << "a.heic" << plain << "other-format" << false << "JPEG";
}

void TestWholeness::sources()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, file);
    const Run run;
    const RepairReport report = run.repair(name, file).report;
    QTEST(reasonWord(report.reason), "reason");
    QTEST(report.sourceHealthy, "healthy");
    QTEST(report.trueFormat, "format");
}

// Where a source isn't decoded since its output tells already how it decodes.
void TestWholeness::alike_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<bool>("same");
    JpegOptions noted;
    noted.segments = {exifSegment("\xFF\xD8\xFF\xDA\xFF\xD9"), commentSegment("words")};
    noted.trailing = "behind";
    QTest::newRow("notes, and bytes behind it") << healthyJpeg(noted) << true;
    QTest::newRow("no end") << healthy().cutAt(fromEnd(2)).bytes() << false;
    QTest::newRow("junk between segments") << healthy().insert(upTo(0xFFC0), "junk").bytes() << false;
    QTest::newRow("a table's value") << healthy().put(at(0xFFDB, 1) + 60, "\x7B").bytes() << false;
    QTest::newRow("a byte of the data") << healthy().put(inScan(30), "\x7B").bytes() << false;
    QTest::newRow("no data") << QByteArray() << false;
}

void TestWholeness::alike()
{
    QFETCH(QByteArray, source);
    ByteSource bytes(source), ofPicture(healthyJpeg() + QByteArray("\xFF\xD9"));
    FileWindow file(bytes), picture(ofPicture);
    QTEST(decodesAlike(file, picture), "same");
}

QTEST_GUILESS_MAIN(TestWholeness)
#include "tst_wholeness.moc"
