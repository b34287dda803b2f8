// Camera raw on the whole road: made files of every format, real ones, and what another reader finds in them.

#include "ExifTool.h"
#include "Road.h"

#include "app/StopFlag.h"
#include "engine/Guards.h"
#include "engine/jpg_repair.h"
#include "support/Cr3Maker.h"
#include "support/Files.h"
#include "support/Grammar.h"
#include "support/RawFile.h"
#include "support/RawMaker.h"
#include "support/SteppingCarve.h"

#include <QDirIterator>
#include <QTest>

#include <sys/stat.h>

namespace {

QString endingOf(const QString &suffix)
{
    return suffix == "PEF" ? ".jpeg" : ".jpg";
}

/// What outputs of source "IMG.<suffix>" are called in front of their number.
QString baseOf(const QString &suffix)
{
    return suffix == "MRW" ? "IMG.mrw" : "IMG";
}

QByteArray wholeCr3()
{
    return makeCr3({.full = rawPicture() + filler(3), .preview = rawPicture(), .thumbnail = rawThumbnail()});
}

} // namespace

class TestRawRoad : public QObject
{
    Q_OBJECT

private slots:
    void madeFiles_data();
    void madeFiles();
    void names_data();
    void names();
    void cr3();
    void cr3NamesStay();
    void cr3LengthBeyondTheFile();
    void badInput_data();
    void badInput();
    void stopAndFullDisk();
    void anotherReader();
    void realFiles();
};

void TestRawRoad::madeFiles_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < rawSamples().size(); ++i) QTest::newRow(rawSamples()[i].name) << int(i);
}

void TestRawRoad::madeFiles()
{
    QFETCH(int, index);
    const RawSample &sample = rawSamples()[size_t(index)];
    const QString name = "IMG." + sample.suffix.toLower();
    const QString pattern = baseOf(sample.suffix) + "_%1" + endingOf(sample.suffix);
    const Run run;
    const QString path = run.source(name, sample.file);
    const Footprint before = footprint(path);
    const FileOutcome outcome = repairOneFile(path);
    QVERIFY(footprint(path) == before);
    QStringList expected;
    for (size_t i = 0; i < sample.pictures.size(); ++i) {
        expected << pattern.arg(i + 1);
        QCOMPARE(run.output(expected.last()), sample.pictures[i]);
        QCOMPARE(outcome.report.outputs.value(int(i)).way, RepairWay::Pointers);
        QCOMPARE(outcome.report.outputs.value(int(i)).size, decoded(sample.pictures[i]).size());
    }
    QCOMPARE(outcome.results, expected);
    QCOMPARE(run.filesLeft(), expected);
    const OutputRows rows = makeRows(outcome);
    QCOMPARE(rows.sourceStatus, QString(status::Repaired));
    QCOMPARE(rows.rows[0].type, QString("Extracted"));
    QCOMPARE(rows.rows[0].resolution, QString("64x96"));

    // With its head destroyed the same file gives what a carve finds, garbage behind the second picture included.
    const QByteArray headless = QByteArray(512, '\0') + QByteArray(512, 'x') + sample.file.mid(1024);
    const RawImages carved = steppingCarve(headless, sample.suffix);
    const FileOutcome second = run.repair("headless/" + name, headless);
    const RawImage images[] = {carved.first, carved.second};
    expected.clear();
    for (int i = 0; i < 2; ++i) {
        const RawImage &image = images[i];
        if (image.length == 0 || image.length >= quint32(headless.size())) continue;
        expected << "Copy(1)_" + pattern.arg(i + 1);
        const QByteArray stored = headless.mid(int(image.start), int(image.length));
        QCOMPARE(run.output(expected.last()), stored + QByteArray(int(image.length) - stored.size(), '\0'));
        QCOMPARE(second.report.outputs.value(second.report.outputs.size() - 1).way, RepairWay::Carve);
    }
    QCOMPARE(second.results, expected);
    QCOMPARE(second.report.reason, expected.isEmpty() ? RepairReason::NoPreview : RepairReason::None);
}

void TestRawRoad::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected"); // of the first output; "" where the file isn't scanned
    QTest::newRow("two dots") << "a.b.cr2"
                              << "a_1.jpg";
    QTest::newRow("dots in front") << "..a.CR2"
                                   << "a_1.jpg";
    QTest::newRow("nothing in front") << ".raf"
                                      << "raf_1.jpg";
    QTest::newRow("mixed case") << "a.NeF"
                                << "a_1.jpg";
    QTest::newRow("jpeg") << "a.x.pef"
                          << "a_1.jpeg";
    QTest::newRow("whole name") << "a.b.mrw"
                                << "a.b.mrw_1.jpg";
    QTest::newRow("blanks") << "a b.dng"
                            << "a b_1.jpg";
    QTest::newRow("CR3") << "a.b.CR3"
                         << "a_3.jpg";
    QTest::newRow("as long as names can be") << QString(251, 'n') + ".cr2" << QString(248, 'n') + "_1.jpg";
    QTest::newRow("tif") << "a.tif"
                         << "";
    QTest::newRow("tiff") << "a.tiff"
                          << "a_1.jpg";
}

void TestRawRoad::names()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    const Run run;
    const FileOutcome outcome = run.repair(name, filler(30) + rawPicture() + filler(30));
    QCOMPARE(outcome.results, expected.isEmpty() ? QStringList() : QStringList(expected));
    QCOMPARE(reasonWord(outcome.report.reason), QString(expected.isEmpty() ? "other-format" : ""));
    // A working copy is read by the user's suffix, but never as CR3.
    pApp->strCurrentPath = outcome.source;
    pApp->strTempCopyPath = outcome.source;
    pApp->strFileSuffix = outcome.suffix;
    pApp->bWorkOnTempCopy = true;
    pApp->lstResultNames.clear();
    jpg_repair().repairing({});
    QCOMPARE(pApp->lstResultNames, outcome.suffix == "CR3" ? QStringList() : outcome.results);
}

void TestRawRoad::cr3()
{
    const Run run;
    const FileOutcome outcome = run.repair("a.cr3", wholeCr3());
    QCOMPARE(outcome.results, QStringList({"a_1.jpg", "a_2.jpg", "a_3.jpg"}));
    QCOMPARE(run.output("a_1.jpg"), rawPicture() + filler(3));
    QCOMPARE(run.output("a_2.jpg"), rawPicture());
    QCOMPARE(run.output("a_3.jpg"), rawThumbnail());
    for (const OutputReport &output : outcome.report.outputs) QCOMPARE(output.way, RepairWay::Pointers);
}

void TestRawRoad::cr3NamesStay()
{
    const Run run;
    QCOMPARE(run.repair("a.cr3", wholeCr3()).results.size(), 3);
    // Two pictures are carved: the first one found counts as thumbnail. The third name is the file's before.
    const FileOutcome carved = run.repair("b.cr3", filler(9) + rawThumbnail() + rawPicture() + filler(9));
    QCOMPARE(carved.results, QStringList({"a_1.jpg", "b_2.jpg", "b_3.jpg"}));
    QCOMPARE(run.output("b_2.jpg"), rawPicture());
    QCOMPARE(run.output("b_3.jpg"), rawThumbnail());
    for (const OutputReport &output : carved.report.outputs) QCOMPARE(output.way, RepairWay::Carve);
    const FileOutcome empty = run.repair("c.cr3", filler(90));
    QCOMPARE(empty.results, carved.results);
    QCOMPARE(makeRows(empty).rows.size(), 3);
    // Other formats know nothing of them.
    QCOMPARE(run.repair("d.nef", filler(90)).results, QStringList());
}

void TestRawRoad::cr3LengthBeyondTheFile()
{
    const Run run;
    QByteArray file = wholeCr3();
    const int preview = file.indexOf("PRVW");
    file.replace(preview + 0x10, 4, RawFile(true).dword(0, guards::kCr3Image));
    const FileOutcome outcome = run.repair("a.cr3", file);
    QCOMPARE(outcome.results.size(), 3);
    struct stat info = {};
    QCOMPARE(::stat(QFile::encodeName(outputPath("a_2.jpg")).constData(), &info), 0);
    QCOMPARE(quint32(info.st_size), guards::kCr3Image);
    QVERIFY(info.st_blocks < 64); // told zeros take no room
    QCOMPARE(makeRows(outcome).rows[1].resolution, QString("0x0"));
}

void TestRawRoad::badInput_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason");
    const auto loop = [](quint32 next) {
        RawFile file = RawFile(false, 600).header().directory(8, {{0x0201, 8}, {0x0202, 0xFFFFFFFF}}, next);
        return QByteArray(file);
    };
    QTest::newRow("empty") << QByteArray() << "empty";
    QTest::newRow("one byte") << QByteArray("I") << "no-preview";
    QTest::newRow("nothing in it") << filler(5000) << "no-preview";
    for (const quint32 next : {0u, 8u, 598u, 599u, 600u, 0xFFFFFFF8u, 0xFFFFFFFFu})
        QTest::addRow("directory at %u", next) << loop(next) << "no-preview";
    QTest::newRow("FF D8 at the end") << filler(100) + word(words::SOI) + word(words::DQT) << "no-preview";
}

void TestRawRoad::badInput()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, reason);
    const Run run;
    for (const QString &suffix : carvedSuffixes() + QStringList("CR3")) {
        const FileOutcome outcome = run.repair("a." + suffix, file);
        QCOMPARE(suffix + reasonWord(outcome.report.reason), suffix + reason);
        QCOMPARE(run.filesLeft(), QStringList());
        QCOMPARE(makeRows(outcome).rows.size(), 0);
    }
    // What can't be opened, and what is too large to be told in 32 bits.
    const QString path = run.source("large.dng", file);
    QVERIFY(QFile::resize(path, qint64(1) << 32));
    QCOMPARE(repairOneFile(path).report.reason, RepairReason::TooLarge);
    jpg_repair().ScanDNG(path);
    jpg_repair().ScanCR3Size(path);
    jpg_repair().ScanDNG(run.sources());
    QCOMPARE(run.filesLeft(), QStringList());
}

void TestRawRoad::stopAndFullDisk()
{
    const Run run;
    for (const RawSample &sample : rawSamples()) {
        setFlag(pApp->bStopRepair, true);
        const FileOutcome outcome = run.repair("a." + sample.suffix, sample.file);
        setFlag(pApp->bStopRepair, false);
        QCOMPARE(outcome.statusCode, QString(status::Stopped));
        QCOMPARE(outcome.results, QStringList());
        const QString path = run.source("b." + sample.suffix, sample.file);
        const FileSizeLimit limit(100);
        const FileOutcome full = repairOneFile(path);
        QCOMPARE(full.report.reason, RepairReason::DiskFull);
        QCOMPARE(full.results, QStringList());
        QCOMPARE(run.filesLeft(), QStringList());
    }
}

void TestRawRoad::anotherReader()
{
    if (!hasExifTool()) QSKIP("exiftool is not installed");
    const Run run;
    QStringList paths{run.source("a.cr3", wholeCr3())};
    for (const RawSample &sample : rawSamples()) paths << run.source(sample.name + '.' + sample.suffix, sample.file);
    const auto found = exifToolPictures(paths);
    QCOMPARE(found.size(), paths.size());
    QCOMPARE(found[0]["JpgFromRaw"], rawPicture() + filler(3));
    QCOMPARE(found[0]["PreviewImage"], rawPicture());
    QCOMPARE(found[0]["ThumbnailImage"], rawThumbnail());
    for (int i = 1; i < paths.size(); ++i) {
        const RawSample &sample = rawSamples()[size_t(i - 1)];
        const QStringList tags = QString(sample.readBy).split(' ', Qt::SkipEmptyParts);
        for (int k = 0; k < tags.size(); ++k) QVERIFY2(found[i][tags[k]] == sample.pictures[size_t(k)], sample.name);
    }
}

void TestRawRoad::realFiles()
{
    QStringList paths;
    for (QDirIterator it(QStringLiteral(KESMIRA_CORPUS "/raw"), QDir::Files); it.hasNext();) {
        const QString path = it.next();
        if (isRawSuffix(QFileInfo(path).suffix())) paths << path;
    }
    if (paths.isEmpty()) QSKIP("no real raw files here");
    paths.sort();
    const auto read = hasExifTool() ? exifToolPictures(paths) : QVector<QMap<QString, QByteArray>>(paths.size());
    int outputs = 0;
    int agreed = 0;
    for (int i = 0; i < paths.size(); ++i) {
        const Run run; // what an earlier run's CR3 was called is forgotten
        const QByteArray name = QFileInfo(paths[i]).fileName().toUtf8();
        const Footprint before = footprint(paths[i]);
        const FileOutcome outcome = repairOneFile(paths[i]);
        QVERIFY2(footprint(paths[i]) == before, name);
        QVERIFY2(outcome.results.size() == outcome.report.outputs.size(), name);
        const QByteArray file = RunFolder::bytesOf(paths[i]);
        for (const OutputReport &output : outcome.report.outputs) {
            const QByteArray bytes = RunFolder::bytesOf(output.path);
            ++outputs;
            if (read[i].values().contains(bytes)) ++agreed;
            // Every output is a piece of its source; only zeros may stand where the source ends.
            QVERIFY2(file.contains(bytes) || bytes.count('\0') == bytes.size(), name);
        }
    }
    qInfo("%d outputs of %d files, %d of them as exiftool gives them", outputs, int(paths.size()), agreed);
    QVERIFY(outputs >= paths.size() / 2);
    if (hasExifTool()) QVERIFY(agreed >= outputs / 3);
}

QTEST_GUILESS_MAIN(TestRawRoad)
#include "tst_raw_road.moc"
