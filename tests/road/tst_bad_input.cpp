// What no one should hand in: each has its told outcome, sources stay as they were, and the run goes on.

#include "Road.h"

#include "engine/jpg_repair.h"
#include "save/SaveFile.h"
#include "support/Damage.h"
#include "support/Files.h"
#include "support/Pictures.h"

#include <QTest>

#include <functional>
#include <sys/stat.h>

using namespace words;

namespace {

/// A file of this size that takes no room; `head` stands at its start.
void writeSparse(const QString &path, const QByteArray &head, qint64 size)
{
    write(path, head);
    if (!QFile::resize(path, size)) qFatal("can't stretch %s", qPrintable(path));
}

using Make = std::function<void(const QString &)>;

} // namespace

Q_DECLARE_METATYPE(Make)

class TestBadInput : public QObject
{
    Q_OBJECT

private slots:
    void badInput_data();
    void badInput();
    void oddNames_data();
    void oddNames();
    void hugeFiles_data();
    void hugeFiles();
    void scanOfOnlyFF();
    void manyNestedImages();
    void vanishesOrShrinksWhileInUse();
    void badWorkingRoots_data();
    void badWorkingRoots();
    void lostWorkingRoot();
    void fullDisk();
};

void TestBadInput::badInput_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("statusCode");
    const auto file = [](const QByteArray &content) {
        return Make([content](const QString &path) { write(path, content); });
    };
    const QByteArray soi = word(SOI);
    QTest::newRow("empty file") << "a.jpg" << file({}) << "empty"
                                << "2";
    QTest::newRow("one byte") << "a.jpg" << file(bytes({0xFF})) << "no-picture-data"
                              << "2";
    QTest::newRow("two bytes") << "a.jpg" << file(soi) << "no-picture-data"
                               << "2";
    QTest::newRow("nothing there") << "a.jpg" << Make([](const QString &) {}) << "unreadable"
                                   << "";
    QTest::newRow("a folder") << "a.jpg" << Make([](const QString &path) { QDir().mkdir(path); }) << "unreadable"
                              << "";
    QTest::newRow("a dead link") << "a.jpg" << Make([](const QString &path) { QFile::link("nowhere", path); })
                                 << "unreadable"
                                 << "";
    QTest::newRow("a link to itself") << "a.jpg" << Make([](const QString &path) { QFile::link(path, path); })
                                      << "unreadable"
                                      << "";
    QTest::newRow("a pipe") << "a.jpg"
                            << Make([](const QString &path) { ::mkfifo(QFile::encodeName(path).constData(), 0600); })
                            << "unreadable"
                            << "";
    QTest::newRow("a link to a device") << "a.jpg" << Make([](const QString &path) { QFile::link("/dev/zero", path); })
                                        << "unreadable"
                                        << "";
    QTest::newRow("no right to read") << "a.jpg" << Make([](const QString &path) {
        write(path, healthyJpeg());
        QFile::setPermissions(path, QFile::Permissions());
    }) << "unreadable"
                                      << "";
    QTest::newRow("one letter") << "a" << file(healthyJpeg()) << "other-format"
                                << "";
    QTest::newRow("a million SOI") << "a.jpg" << file(soi.repeated(1000000)) << "header-lost"
                                   << "2";
    QTest::newRow("a million SOI in front of a table")
        << "a.jpg" << file(soi.repeated(1000000) + dqt({9})) << "header-lost"
        << "2";
    QTest::newRow("a million images without content")
        << "a.jpg" << file((soi + word(APP0) + word(2) + word(EOI)).repeated(1000)) << "header-lost"
        << "2";
    QTest::newRow("2 MB of FF") << "a.jpg" << file(QByteArray(2 * 1024 * 1024, char(0xFF))) << "header-lost"
                                << "2";
    QTest::newRow("a million tables") << "a.jpg" << file(soi + declared(DQT, 2).repeated(1000000)) << "header-lost"
                                      << "2";
}

void TestBadInput::badInput()
{
    QFETCH(QString, name);
    QFETCH(Make, make);
    QFETCH(QString, reason);
    QFETCH(QString, statusCode);
    const Run run;
    const QString path = run.sources() + '/' + name;
    make(path);
    if (QByteArray(QTest::currentDataTag()) == "no right to read" && QFileInfo(path).isReadable())
        QSKIP("this user may read everything");
    const Footprint before = footprint(path);
    const FileOutcome outcome = repairOneFile(path);
    QCOMPARE(footprint(path), before);
    QCOMPARE(reasonWord(outcome.report.reason), reason);
    QCOMPARE(outcome.statusCode, statusCode);
    QCOMPARE(outcome.results, QStringList());
    QVERIFY(!reasonText(outcome.report.reason).isEmpty());
    QVERIFY(makeRows(outcome).rows.isEmpty());
    // The run goes on.
    const FileOutcome next = run.repair("next.jpg", healthyJpeg());
    QCOMPARE(next.results, QStringList("next.jpg"));
    QCOMPARE(next.report.reason, RepairReason::None);
}

void TestBadInput::oddNames_data()
{
    QTest::addColumn<QString>("name");
    const char *const names[] = {"it's \"quoted\".jpg",
                                 "two\nlines.jpg",
                                 " blanks  everywhere .jpg",
                                 "-rf.jpg",
                                 "$HOME;`ls`&&*?.jpg",
                                 "back\\slash.jpg",
                                 "%1%2%n%s.jpg",
                                 "写真 2024年.jpg",
                                 "фото.JPG",
                                 "صورة.jpeg",
                                 "e\u0301te\u0301.jpg",
                                 "😀.jpg",
                                 "a\tb\r\x1b[31m.jpg",
                                 "..jpg",
                                 "a..jpg",
                                 "RepairedFiles.jpg",
                                 "temp.jpg",
                                 "Vorlane.jpg",
                                 "Thumbnail Repaired.jpg"};
    for (const char *name : names) QTest::newRow(name) << QString::fromUtf8(name);
    QTest::newRow("as long as names get") << QString(251, 'n') + ".jpg";
    QTest::newRow("long, of three bytes a letter") << QString(83, QChar(0x5199)) + ".jpg";
}

void TestBadInput::oddNames()
{
    QFETCH(QString, name);
    const Run run;
    const QByteArray thumbnail = makeJpeg(drawPicture(24, 16, 1), {.oneDqt = true});
    const QByteArray file = healthyJpeg({.jfif = false, .segments = {exifSegment(thumbnail)}});
    const QString path = run.source(name, file);
    const Footprint before = footprint(path);
    const FileOutcome outcome = repairOneFile(path);
    QCOMPARE(footprint(path), before);
    const OutputRows rows = makeRows(outcome);
    QCOMPARE(rows.sourceStatus, QString(status::Repaired));
    QCOMPARE(rows.rows.size(), 2);
    QCOMPARE(rows.rows[0].name, name);
    QCOMPARE(decodedFile(rows.rows[0].path), decoded(file));
    QCOMPARE(decodedFile(rows.rows[1].path), decoded(thumbnail));
    QCOMPARE(run.filesLeft().size(), 2); // no scratch file, hidden or not
}

void TestBadInput::hugeFiles_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<qint64>("size");
    constexpr qint64 kGiB = qint64(1) << 30;
    const QByteArray picture = MiniJpeg{}.headOnly();
    QTest::newRow("5 GiB of nothing") << QByteArray() << 5 * kGiB;
    QTest::newRow("5 GiB behind a head") << picture << 5 * kGiB;
    QTest::newRow("2 GiB of nothing, which is looked through") << QByteArray() << 2 * kGiB;
}

void TestBadInput::hugeFiles()
{
    QFETCH(QByteArray, head);
    QFETCH(qint64, size);
    const Run run;
    const QString path = run.sources() + "/huge.jpg";
    writeSparse(path, head, size);
    const Footprint before = footprint(path);
    const FileOutcome outcome = repairOneFile(path);
    QCOMPARE(footprint(path), before);
    QCOMPARE(outcome.report.reason, RepairReason::TooLarge);
    QCOMPARE(outcome.results, QStringList());
    QCOMPARE(run.filesLeft(), QStringList());
}

void TestBadInput::scanOfOnlyFF()
{
    // Each FF that another one follows is an illegal code and becomes 00; the last one belongs to the EOI.
    constexpr int kCount = 8 * 1024 * 1024;
    Damage whole(healthyJpeg());
    const auto data = int(whole.offsetOf(inScan(0)));
    const QByteArray head = whole.bytes().left(data);
    const Run run;
    const FileOutcome outcome = run.repair("ff.jpg", head + QByteArray(kCount, char(0xFF)) + word(EOI));
    QCOMPARE(outcome.results, QStringList("ff.jpg"));
    QCOMPARE(outcome.report.codesNeutralised, qint64(kCount));
    const QByteArray withoutApp0 = word(SOI) + head.mid(int(whole.offsetOf(upTo(DQT))));
    QVERIFY(run.output("ff.jpg") == withoutApp0 + QByteArray(kCount, '\0') + word(EOI));
}

void TestBadInput::manyNestedImages()
{
    // 8,000 images to a segment, more than a node can name: such a file is taken for a stream of images. Each is tried
    // and refused, and the picture itself comes the second way.
    const QByteArray tiny = word(SOI) + word(DQT) + word(2) + word(EOI);
    const QByteArray file =
        healthyJpeg({.segments = {segment(APP1, tiny.repeated(8000)), segment(APP2, tiny.repeated(8000))}});
    const Run run;
    const FileOutcome outcome = run.repair("many.jpg", file);
    QCOMPARE(outcome.results, QStringList("/many.jpg"));
    QCOMPARE(decoded(run.output("many.jpg")), decoded(file));
    QVERIFY(outcome.report.decoderRefused);
}

void TestBadInput::vanishesOrShrinksWhileInUse()
{
    // Between the walk and the writing, which opens the file anew.
    const Run run;
    const QByteArray thumbnail = makeJpeg(drawPicture(24, 16), {.oneDqt = true});
    const QByteArray file = healthyJpeg({.jfif = false, .segments = {exifSegment(thumbnail)}});
    for (const int left : {-1, 0, 700, file.size() / 2}) {
        pApp->lstResultNames.clear();
        pApp->report = RepairReport();
        const QString path = run.source("going.jpg", file);
        pApp->strCurrentPath = path;
        pApp->strFileName = "going.jpg";
        jpg_repair engine;
        {
            FileWindow window(path);
            pApp->pCurrentFile = &window;
            pApp->nFileSize = window.size();
            engine.TraverseExistingJpgFile(path, &window, 0);
            pApp->pCurrentFile = nullptr;
        }
        QVERIFY(left < 0 ? QFile::remove(path) : QFile::resize(path, left));
        SaveFile().Save();
        engine.EmptyMemoryAllocation();
        pApp->bThumbFound = false;
        pApp->bWorkOnTempCopy = false;
        // A picture may come of what was left, none may come of nothing, and what is listed decodes.
        if (left <= 0) QCOMPARE(pApp->lstResultNames, QStringList());
        for (const QString &name : qAsConst(pApp->lstResultNames)) QVERIFY(!decodedFile(outputPath(name)).isNull());
        QCOMPARE(run.filesLeft().size(), pApp->lstResultNames.size());
        pApp->nInvalidCount = 0;
    }
}

void TestBadInput::badWorkingRoots_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<QString>("blocked"); // a file in the way of a folder
    QTest::newRow("no folder above it") << "not/there/root"
                                        << "";
    QTest::newRow("a file in its place") << "root"
                                         << "root";
    QTest::newRow("a file in the working folder's place") << "root"
                                                          << "root/RepairedFiles";
}

void TestBadInput::badWorkingRoots()
{
    QFETCH(QString, root);
    QFETCH(QString, blocked);
    const RunFolder folder;
    if (!blocked.isEmpty()) write(folder.place(blocked), "in the way");
    setWorkingRoot(folder.place(root));
    QVERIFY(!beginRun());
}

void TestBadInput::lostWorkingRoot()
{
    const Run run;
    const QString path = run.source("a.jpg", healthyJpeg());
    const Footprint before = footprint(path);
    QVERIFY(QDir(run.root()).removeRecursively());
    const FileOutcome outcome = repairOneFile(path);
    QCOMPARE(outcome.results, QStringList());
    QCOMPARE(outcome.report.reason, RepairReason::DiskFull);
    QCOMPARE(footprint(path), before);
    QCOMPARE(prepareWorkingRoot(), QString());
    QVERIFY(beginRun());
    QCOMPARE(repairOneFile(path).results, QStringList("a.jpg"));
}

void TestBadInput::fullDisk()
{
    const Run run;
    const QByteArray thumbnail = makeJpeg(drawPicture(24, 16), {.oneDqt = true});
    const JpegOptions options{.quality = 98, .jfif = false, .segments = {exifSegment(thumbnail)}};
    const QByteArray large = makeJpeg(drawPicture(320, 240), options);
    const QString path = run.source("large.jpg", large);
    const QString small = run.source("small.jpg", healthyJpeg());
    const Footprint before = footprint(path);
    QVERIFY(large.size() > 24000 && thumbnail.size() < 15000);
    {
        const FileSizeLimit limit(20000);
        const FileOutcome outcome = repairOneFile(path);
        QCOMPARE(outcome.results, QStringList("large_[T1].jpg")); // there was room for that one
        QCOMPARE(outcome.report.reason, RepairReason::DiskFull);
        QCOMPARE(run.filesLeft(), QStringList("Thumbnail Repaired/large_[T1].jpg"));
        QCOMPARE(repairOneFile(small).results, QStringList("small.jpg"));
        QCOMPARE(pApp->report.reason, RepairReason::None);
    }
    QCOMPARE(footprint(path), before);
    QCOMPARE(repairOneFile(path).results, QStringList({"large.jpg", "large_[T1].jpg"}));
}

QTEST_GUILESS_MAIN(TestBadInput)
#include "tst_bad_input.moc"
