// One file on the road: dispatch by suffix, what is left in the shared state, working names and statuses.

#include "Road.h"

#include "app/StopFlag.h"
#include "engine/jpg_repair.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

using namespace words;

namespace {

QStringList describe(const OutputRows &rows)
{
    QStringList lines{rows.sourceStatus};
    for (const OutputRow &row : rows.rows) lines << QStringList{row.name, row.type, row.resolution}.join(" | ");
    return lines;
}

} // namespace

class TestOneFile : public QObject
{
    Q_OBJECT

private slots:
    void dispatch_data();
    void dispatch();
    void stateAfterwards_data();
    void stateAfterwards();
    void workingCopy_data();
    void workingCopy();
    void workingNames();
    void statuses();
    void stop();
};

void TestOneFile::dispatch_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason"); // "" for a repaired picture
    const QByteArray jpeg = healthyJpeg();
    for (const char *name : {"a.jpg", "a.JPG", "a.jpeg", "a.JPEG", "a.JpEg", "a.tar.jpg", ".jpg", "a b.jpg"})
        QTest::addRow("%s", name) << name << jpeg << "";
    for (const char *name : {"a.tif", "a", "a.", "jpg", "a.jpg.bak", "a.jpe", "a.png", "a.mpo", "a.jpg "})
        QTest::addRow("%s", name) << name << jpeg << "other-format";
    QTest::newRow("a HEIC named jpg") << "h.jpg" << bytes({0, 0, 0, 24}) + "ftypheic" + filler(300) << "other-format";
    QTest::newRow("a text named jpg") << "t.jpg" << QByteArray("Dear diary, \n").repeated(50) << "no-picture-data";
}

void TestOneFile::dispatch()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, file);
    QFETCH(QString, reason);
    const Run run;
    const FileOutcome outcome = run.repair(name, file);
    QCOMPARE(reasonWord(outcome.report.reason), reason);
    QCOMPARE(outcome.suffix, QFileInfo(name).suffix());
    QCOMPARE(outcome.results, reason.isEmpty() ? QStringList(name) : QStringList());
    QCOMPARE(outcome.statusCode, QString(name == "h.jpg" || name == "t.jpg" ? status::Invalid : status::Unreached));
    QCOMPARE(run.filesLeft(), outcome.results);
    if (reason.isEmpty()) QCOMPARE(decoded(run.output(name)), decoded(file));
}

void TestOneFile::stateAfterwards_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("file");
    const QByteArray thumbnail = makeJpeg(drawPicture(24, 16), {.oneDqt = true});
    const QByteArray whole = healthyJpeg({.jfif = false, .segments = {exifSegment(thumbnail)}});
    QTest::newRow("a picture with a thumbnail") << "a.jpg" << whole;
    QTest::newRow("illegal codes and trailing images")
        << "a.jpg" << Damage(whole).put(inScan(40), "\xFF\x01").append(junk(9) + healthyJpeg()).bytes();
    QTest::newRow("no header") << "a.jpg" << filler(500);
    QTest::newRow("empty") << "a.jpg" << QByteArray();
    QTest::newRow("can't be opened") << "folder.jpg/a.jpg" << QByteArray();
    QTest::newRow("a format without a way") << "a.tif" << whole;
}

void TestOneFile::stateAfterwards()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, file);
    const Run run;
    QString path = run.source(name, file);
    if (name.contains('/')) path = QFileInfo(path).path();
    pApp->strCurrentPath = path;
    pApp->strFileName = QFileInfo(path).fileName();
    pApp->strThumb2Name = "kept";
    pApp->lstResultNames.clear();
    jpg_repair().repairing("this is not read.cr2");
    QVERIFY(!pApp->pMainListHead && !pApp->pMainListNext && !pApp->pMainListRawHead);
    QVERIFY(!pApp->pScanFaultHead && !pApp->pScanFaultNext);
    QVERIFY(!pApp->pCurrentFile);
    for (const QString &text : {pApp->strCurrentPath, pApp->strFileName, pApp->strReportName, pApp->strRepairedPath,
                                pApp->strThumb1Path, pApp->strThumb1Name, pApp->strTempCopyPath})
        QCOMPARE(text, QString());
    if (name != "a.jpg" || !file.contains(QByteArray("Exif"))) QCOMPARE(pApp->strThumb2Name, QString("kept"));
    QVERIFY(!pApp->bThumbFound && !pApp->bWorkOnTempCopy && pApp->bQuantNotFound);
    QCOMPARE(int(pApp->aQuantHead1[0]) + pApp->aQuantHead2[0], 0);
    QCOMPARE(pApp->nDqt67Count + pApp->nDqtIndex + pApp->nDhtCount + pApp->nDqtLength, 0u);
    QCOMPARE(pApp->nThumbPass, 0u);
    pApp->nInvalidCount = 0;
}

void TestOneFile::workingCopy_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<bool>("copyIsThere");
    QTest::addColumn<bool>("analysed");
    QTest::newRow("the user's file is a JPEG") << "jpG" << true << true;
    QTest::newRow("the user's file is a raw file") << "CR3" << true << false;
    QTest::newRow("the user's file is something else") << "txt" << true << false;
    QTest::newRow("no working copy") << "jpg" << false << false;
}

void TestOneFile::workingCopy()
{
    QFETCH(QString, suffix);
    QFETCH(bool, copyIsThere);
    QFETCH(bool, analysed);
    const Run run;
    // The suffix of the earlier analysis decides; the bytes, and what is written, are the copy's.
    const QByteArray copy = healthyJpeg();
    pApp->strCurrentPath = run.source("original.txt", filler(50));
    pApp->strFileName = "original.jpg";
    pApp->strFileSuffix = suffix;
    pApp->strTempCopyPath = copyIsThere ? run.source("temp.jpg", copy) : run.place("temp.jpg");
    pApp->bWorkOnTempCopy = true;
    pApp->lstResultNames.clear();
    jpg_repair().repairing({});
    QCOMPARE(pApp->lstResultNames, analysed ? QStringList("original.jpg") : QStringList());
    if (analysed) QCOMPARE(decoded(run.output("original.jpg")), decoded(copy));
    QVERIFY(!pApp->bWorkOnTempCopy);
    QCOMPARE(pApp->strFileSuffix, suffix);
    QCOMPARE(pApp->strTempCopyPath, QString());
    pApp->nInvalidCount = 0;
}

void TestOneFile::workingNames()
{
    const Run run;
    const QByteArray thumbnail = makeJpeg(drawPicture(24, 16), {.oneDqt = true});
    const auto picture = [&](int variant) {
        return makeJpeg(drawPicture(48, 32, variant), {.jfif = false, .segments = {exifSegment(thumbnail)}});
    };
    QStringList names;
    QVector<QByteArray> files;
    for (const char *folder : {"card 1", "card 2", "card 3"}) {
        files << picture(files.size());
        const FileOutcome outcome = run.repair(QString(folder) + "/IMG_0001.JPG", files.last());
        names << outcome.results;
        QCOMPARE(makeRows(outcome).rows[0].name, outcome.results[0]);
    }
    QCOMPARE(names,
             QStringList({"IMG_0001.JPG", "IMG_0001_[T1].jpg", "Copy(1)_IMG_0001.JPG", "Copy(1)_IMG_0001_[T1].jpg",
                          "Copy(2)_IMG_0001.JPG", "Copy(2)_IMG_0001_[T1].jpg"}));
    for (int i = 0; i < files.size(); ++i) QCOMPARE(decoded(run.output(names[2 * i])), decoded(files[i]));

    // The name that a later source would get may be an earlier one's own; the same path keeps its name.
    QCOMPARE(workingName("/x/Copy(1)_b.jpg"), QString("Copy(1)_b.jpg"));
    QCOMPARE(workingName("/x/b.jpg"), QString("b.jpg"));
    QCOMPARE(workingName("/y/b.jpg"), QString("Copy(2)_b.jpg"));
    QCOMPARE(workingName("/y/Copy(1)_b.jpg"), QString("Copy(1)_Copy(1)_b.jpg"));
    QCOMPARE(workingName("/x/b.jpg"), QString("b.jpg"));
    // The second way and a sample write under it too.
    const QByteArray headless = Damage(healthyJpeg({.segments = {segment(APP2, 9)}})).zero(fromStart(0), 18);
    QCOMPARE(run.repair("1/c.jpg", headless).results, QStringList("/c.jpg"));
    const FileOutcome second = run.repair("2/c.jpg", headless);
    QCOMPARE(second.results, QStringList("/Copy(1)_c.jpg"));
    QCOMPARE(makeRows(second).rows[0].name, QString("Copy(1)_c.jpg"));
    const QString sample = run.source("s.jpg", healthyJpeg({.jfif = false, .segments = {exifSegment({})}}));
    QCOMPARE(repairOneFileWithSample(sample, second.source).results, QStringList("Copy(1)_c.jpg"));
    // A new run knows nothing of it.
    QVERIFY(beginRun());
    QCOMPARE(workingName("/y/b.jpg"), QString("b.jpg"));
    QCOMPARE(run.filesLeft(), QStringList());
}

void TestOneFile::statuses()
{
    const Run run;
    const QByteArray thumbnail = makeJpeg(drawPicture(24, 16), {.oneDqt = true});
    const QByteArray whole = healthyJpeg({.jfif = false, .segments = {exifSegment(thumbnail)}});

    const FileOutcome good = run.repair("good.jpg", whole);
    QCOMPARE(good.statusCode, QString(status::Unreached));
    QCOMPARE(describe(makeRows(good)).first(), QString(status::Repaired));
    // The header fails, the second way's picture doesn't load: failed, but for its thumbnail.
    const FileOutcome thumbnailOnly = run.repair("head.jpg", Damage(whole).zero(upTo(SOF0), 19));
    QCOMPARE(thumbnailOnly.statusCode, QString(status::Invalid));
    QCOMPARE(describe(makeRows(thumbnailOnly)), QStringList({"2", "head_[T1].jpg | Thumbnail | 16x24"}));
    // Without a frame no scan counts as one.
    QCOMPARE(thumbnailOnly.report.missingSegments, QStringList({"SOF", "SOS"}));
    // The header holds, but the decoder refuses: no status of its own, and no second way.
    const FileOutcome refused = run.repair("refused.jpg", Damage(healthyJpeg()).zero(at(SOF0) + 3, 4));
    QCOMPARE(refused.statusCode, QString(status::Unreached));
    QCOMPARE(refused.report.reason, RepairReason::DecoderRefused);
    QVERIFY(!refused.report.decoderWarning.isEmpty());
    QCOMPARE(describe(makeRows(refused)), QStringList{""});
    // A failure before doesn't reach the next file.
    QCOMPARE(run.repair("again.jpg", whole).statusCode, QString(status::Unreached));
    QCOMPARE(pApp->nInvalidCount, 0u);
}

void TestOneFile::stop()
{
    const Run run;
    for (const QByteArray &file : {healthyJpeg(), filler(300), QByteArray()}) {
        setFlag(pApp->bStopRepair, true);
        const FileOutcome outcome = run.repair("a.jpg", file);
        const OutputRows rows = makeRows(outcome);
        setFlag(pApp->bStopRepair, false);
        QCOMPARE(outcome.statusCode, QString(status::Stopped));
        QCOMPARE(outcome.report.reason, RepairReason::Stopped);
        QCOMPARE(outcome.results, QStringList());
        QCOMPARE(describe(rows), QStringList(status::Stopped));
        QCOMPARE(run.filesLeft(), QStringList());
    }
    // A stop between the repair and the rows.
    const FileOutcome outcome = run.repair("b.jpg", healthyJpeg());
    setFlag(pApp->bStopRepair, true);
    const OutputRows rows = makeRows(outcome);
    setFlag(pApp->bStopRepair, false);
    QCOMPARE(describe(rows), QStringList(status::Stopped));
}

QTEST_GUILESS_MAIN(TestOneFile)
#include "tst_one_file.moc"
