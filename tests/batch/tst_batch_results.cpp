// What becomes of the results of a batch run: saving, the sample, the working folder, and runs that end early.

#include "BatchCall.h"
#include "BatchFolder.h"

#include "app/KesmiraApp.h"
#include "app/RootLock.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTest>

#include <csignal>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

class TestBatchResults : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder.reset(new BatchFolder); }
    void cleanup()
    {
        const bool isTidy = m_folder->isTidy();
        m_folder.reset(); // puts the environment back before the next one changes it
        QVERIFY2(isTidy, "a temporary root is left");
    }

    void savesTwice_data();
    void savesTwice();
    void overwriteAndSkipFaceForeignFiles_data();
    void overwriteAndSkipFaceForeignFiles();
    void originalsStay();
    void failedSaveShows();
    void rawFilesOfAFolder();
    void samplePass();
    void sampleOfAnotherKindIsLeftAlone();
    void workFolder();
    void workFolderRefused_data();
    void workFolderRefused();
    void workFolderOfAnEarlierRunIsNoSource();
    void destinationThatRunsEmptyIsRefused();
    void outputThatBreaksEndsTheRun_data();
    void outputThatBreaksEndsTheRun();
    void signalStopsTheRun();

private:
    QString path(const QString &name) const { return m_folder->path(name); }

    QScopedPointer<BatchFolder> m_folder;
};

void TestBatchResults::savesTwice_data()
{
    QTest::addColumn<QStringList>("option");
    QTest::addColumn<QStringList>("saved");
    const QStringList once = {"RepairedFiles/Thumbnail Repaired/b_[T1].jpg", "RepairedFiles/a.jpg",
                              "RepairedFiles/b.jpg"};
    QTest::newRow("default") << QStringList()
                             << once
            + QStringList{"RepairedFiles/Copy(1)_a.jpg", "RepairedFiles/Copy(2)_b.jpg",
                          "RepairedFiles/Thumbnail Repaired/Copy(3)_b_[T1].jpg"};
    QTest::newRow("rename") << QStringList{"--on-conflict", "rename"}
                            << once
            + QStringList{"RepairedFiles/Copy(1)_a.jpg", "RepairedFiles/Copy(2)_b.jpg",
                          "RepairedFiles/Thumbnail Repaired/Copy(3)_b_[T1].jpg"};
    QTest::newRow("overwrite") << QStringList{"--on-conflict", "overwrite"} << once;
    QTest::newRow("skip") << QStringList{"--on-conflict", "skip"} << once;
}

void TestBatchResults::savesTwice()
{
    QFETCH(QStringList, option);
    QFETCH(QStringList, saved);
    JpegOptions options;
    options.segments = {exifSegment(makeJpeg(drawPicture(16, 16)))};
    write(path("in/b.jpg"), healthyJpeg(options));
    pApp->nCopyCounter = 0;
    for (int round = 0; round < 2; ++round) {
        const BatchCall call(option + QStringList{"--json", "--to", path("new/out"), path("in")});
        QCOMPARE(call.err, QString());
        QCOMPARE(call.status, 0);
    }
    saved.sort();
    QCOMPARE(filesBelow(path("new/out")), saved);
    for (const QString &name : qAsConst(saved))
        QVERIFY2(!decoded(contents(path("new/out/" + name))).isNull(), qPrintable(name));
}

void TestBatchResults::overwriteAndSkipFaceForeignFiles_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("staysOld");
    QTest::addColumn<QString>("count");
    QTest::newRow("overwrite") << "overwrite" << false << "2 saved, 0 skipped, 0 failed.";
    QTest::newRow("skip") << "skip" << true << "1 saved, 1 skipped, 0 failed.";
    QTest::newRow("rename") << "rename" << true << "2 saved, 0 skipped, 0 failed.";
}

void TestBatchResults::overwriteAndSkipFaceForeignFiles()
{
    QFETCH(QString, answer);
    QFETCH(bool, staysOld);
    QFETCH(QString, count);
    write(path("out/RepairedFiles/a.jpg"), "mine");
    const BatchCall call({path("in"), "--to", path("out"), "--on-conflict", answer});
    QCOMPARE(call.status, 0);
    QCOMPARE(contents(path("out/RepairedFiles/a.jpg")) == "mine", staysOld);
    QVERIFY2(call.out.contains(count), qPrintable(call.out));
    if (answer != "skip") return;
    const BatchCall again({path("in"), "--to", path("out"), "--on-conflict", answer});
    QVERIFY2(again.out.contains("0 saved, 1 skipped, 1 identical, 0 failed.\n"), qPrintable(again.out));
    QVERIFY2(again.out.contains("\n  b.jpg: identical\n"), qPrintable(again.out));
}

/// Wherever the originals of a run lie, and under whatever second names, they stay as they are.
void TestBatchResults::originalsStay()
{
    QCOMPARE(BatchCall({"--work", path("work"), path("in")}).status, 0);
    QStringList originals = {path("ow/RepairedFiles/a.jpg"), path("work/Vorlanea.jpg"), path("second.jpg"),
                             path("work/RepairedFiles/bad.jpg")};
    for (const QString &name : originals) write(name, cameraJpeg(2));
    write(path("bad.jpg"), headless(1));
    QVERIFY(QDir().mkpath(path("work/Vorlane")));
    for (const char *name : {"work/RepairedFiles/c.jpg", "work/Vorlane/temp.jpg"}) {
        QCOMPARE(::link(qPrintable(path("second.jpg")), qPrintable(path(name))), 0);
        originals << path(name);
    }
    const BatchCall call({"--json", "--work", path("work"), "--on-conflict", "overwrite", "--to", path("ow"),
                          "--sample", originals[3], path("in/a.jpg"), path("in/b.jpg"), originals[0], originals[1],
                          originals[2], path("bad.jpg")});
    QCOMPARE(call.status, 0);
    QVERIFY2(call.err.contains("'a.jpg' was saved as 'Copy("), qPrintable(call.err));
    for (const QString &name : originals) QCOMPARE(contents(name), cameraJpeg(2));
}

void TestBatchResults::failedSaveShows()
{
    QVERIFY(QDir().mkpath(path("out/RepairedFiles/a.jpg")));
    const BatchCall call({"--json", path("in"), "--to", path("out"), "--on-conflict", "overwrite"});
    QCOMPARE(call.status, 3);
    QCOMPARE(call.objects().size(), 2);
    QCOMPARE(call.errLines().size(), 2);
    QVERIFY2(call.err.contains("'a.jpg' was not saved"), qPrintable(call.err));
    QVERIFY(!decoded(contents(path("out/RepairedFiles/b.jpg"))).isNull());
    // What found no place is kept, and nothing else.
    const QString kept = call.errLines()[1].section('\'', 1, 1);
    QCOMPARE(filesBelow(kept), QStringList("a.jpg"));
    QCOMPARE(decoded(contents(kept + "/a.jpg")), decoded(healthyJpeg()));
    QCOMPARE(BatchCall({path("in")}).status, 0); // cleans up after runs that were killed
    QVERIFY(QDir(QFileInfo(kept).path()).removeRecursively());
    const BatchCall none({"--json", path("in"), "--to", path("in/a.jpg/below")});
    QCOMPARE(none.status, 3);
    QVERIFY2(none.err.contains("can't be made"), qPrintable(none.err));
}

void TestBatchResults::rawFilesOfAFolder()
{
    // A stretch of bytes with three pictures; what CR3 carves first is its thumbnail, and so the third name.
    const QByteArray wide = makeJpeg(drawPicture(80, 20), {.jfif = false});
    const QByteArray narrow = makeJpeg(drawPicture(16, 20), {.jfif = false});
    const QByteArray gap(50, 'x');
    write(path("raw/a.Cr3"), gap + wide + gap + narrow + gap + narrow + gap);
    write(path("raw/b.nef"), gap + narrow + gap);
    write(path("raw/c.mrw"), gap);
    const BatchCall call({"--to", path("to"), path("raw")});
    QCOMPARE(call.status, exitStatus::SomeGaveNothing);
    QVERIFY2(call.out.contains("Results: 4, 0 repaired, 4 extracted, 0 thumbnails."), qPrintable(call.out));
    QVERIFY2(call.out.contains("by the carve"), qPrintable(call.out));
    QVERIFY2(call.out.contains("c.mrw: No usable picture was found inside the file."), qPrintable(call.out));
    const QString saved = "RepairedFiles/";
    QCOMPARE(filesBelow(path("to")),
             QStringList({saved + "a_1.jpg", saved + "a_2.jpg", saved + "a_3.jpg", saved + "b_1.jpg"}));
    QCOMPARE(contents(path("to/RepairedFiles/a_3.jpg")), wide);
    for (QString *name : {&pApp->strCr3FullName, &pApp->strCr3PreviewName, &pApp->strCr3ThumbName}) name->clear();
}

void TestBatchResults::samplePass()
{
    write(path("bad/a.jpg"), headless(1));
    write(path("bad/b.jpg"), cameraJpeg(3));
    write(path("sample.jpg"), cameraJpeg(2));
    const BatchCall call(
        {"--json", "--sample", path("sample.jpg"), "--to", path("out"), path("bad"), path("none.jpg")});
    QCOMPARE(call.status, 1);
    QCOMPARE(
        call.each("source"),
        QStringList({path("bad/a.jpg"), path("bad/b.jpg"), path("none.jpg"), path("bad/a.jpg"), path("none.jpg")}));
    QCOMPARE(call.each("status"), QStringList({"2", "5", "", "5", "2"}));
    QCOMPARE(call.each("pass"), QStringList({"", "", "", "sample", "sample"}));
    const QJsonObject helped = call.objects().at(3);
    QCOMPARE(helped["rows"].toArray(),
             (QJsonArray{QJsonObject{{"name", "a.jpg"},
                                     {"type", "Repaired"},
                                     {"resolution", "64x96"},
                                     {"completeness", "whole"},
                                     {"share", 1}}}));
    QCOMPARE(helped["report"].toObject()["outputs"].toArray().first().toObject()["way"].toString(), QString("sample"));
    // The sample's tables are the picture's own, so every pixel comes back.
    QCOMPARE(decoded(contents(path("out/RepairedFiles/a.jpg"))), decoded(cameraJpeg(1)));

    const BatchCall table({"--sample", path("sample.jpg"), path("bad/a.jpg")});
    QCOMPARE(table.status, 0);
    QVERIFY(table.out.contains("With the sample " + path("sample.jpg")));
    QVERIFY(table.out.contains("Sources: 1, 1 gave something, 0 gave nothing, 0 passed over."));
}

void TestBatchResults::sampleOfAnotherKindIsLeftAlone()
{
    write(path("bad.jpg"), headless(1));
    write(path("sample.heic"), cameraJpeg(2));
    const BatchCall call({"--json", "--sample", path("sample.heic"), path("bad.jpg")});
    QCOMPARE(call.each("pass"), QStringList{""});
    QCOMPARE(call.status, 1);
}

void TestBatchResults::workFolder()
{
    QCOMPARE(BatchCall({"--work", path("work/new"), path("in")}).status, 0);
    struct stat info = {};
    QCOMPARE(::stat(QFile::encodeName(path("work/new")).constData(), &info), 0);
    QCOMPARE(info.st_mode & 07777, mode_t(0700));
    QCOMPARE(decoded(contents(path("work/new/RepairedFiles/a.jpg"))), decoded(healthyJpeg()));
    QCOMPARE(BatchCall({"--work", path("work/new"), path("in/b.jpg")}).status, 0);
    QCOMPARE(QDir(path("work/new/RepairedFiles")).entryList(QDir::Files), QStringList{"b.jpg"});
    // A folder of the user's own will do, whatever else lies in it.
    QVERIFY(QDir(m_folder->path()).mkdir("own"));
    QCOMPARE(::chmod(QFile::encodeName(path("own")).constData(), 0755), 0);
    write(path("own/mine.txt"), "mine");
    QCOMPARE(BatchCall({"--work", path("own"), path("in")}).status, 0);
    QCOMPARE(contents(path("own/mine.txt")), QByteArray("mine"));
}

void TestBatchResults::workFolderRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("word");
    QTest::newRow("link") << "link"
                          << "symbolic link";
    QTest::newRow("file") << "in/a.jpg"
                          << "not a folder";
    QTest::newRow("below a file") << "in/a.jpg/x"
                                  << "can't be made";
    QTest::newRow("writable by others") << "shared"
                                        << "written by others";
    QTest::newRow("in use") << "locked"
                            << "in use";
    QTest::newRow("with results of the user's") << "saved"
                                                << "RepairedFiles";
    QTest::newRow("with a link to results") << "tricky"
                                            << "RepairedFiles";
}

void TestBatchResults::workFolderRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, word);
    for (const char *folder : {"own", "shared", "locked", "saved", "tricky"})
        QVERIFY(QDir(m_folder->path()).mkdir(folder));
    QVERIFY(QFile::link(path("own"), path("link")));
    QVERIFY(QFile::link(path("in"), path("tricky/RepairedFiles")));
    QCOMPARE(::chmod(QFile::encodeName(path("shared")).constData(), 0777), 0);
    write(path("saved/RepairedFiles/mine.jpg"), "mine");
    RootLock lock;
    QVERIFY(lock.tryLock(path("locked/kesmira.lock")) == RootLock::Result::Locked);

    const BatchCall call({"--json", "--work", path(name), path("in")});
    QCOMPARE(call.status, 3);
    QCOMPARE(call.out, QString());
    QCOMPARE(call.err.count('\n'), 1);
    QVERIFY2(call.err.contains(word), qPrintable(call.err));
    QCOMPARE(contents(path("saved/RepairedFiles/mine.jpg")), QByteArray("mine"));
    QCOMPARE(contents(path("in/a.jpg")), healthyJpeg());
}

// A run empties its folder before it begins, so what lies there can't be its source.
void TestBatchResults::workFolderOfAnEarlierRunIsNoSource()
{
    QCOMPARE(BatchCall({"--work", path("work"), path("in")}).status, 0);
    const BatchCall call(
        {"--json", "--work", path("work"), path("work"), path("work/RepairedFiles/a.jpg"), path("in/b.jpg")});
    QCOMPARE(call.status, 1);
    QCOMPARE(call.each("source"), QStringList{path("in/b.jpg")});
    QCOMPARE(call.errLines().filter("which the run empties; passed over").size(), call.errLines().size());
}

void TestBatchResults::destinationThatRunsEmptyIsRefused()
{
    QCOMPARE(BatchCall({"--work", path("work"), path("in")}).status, 0);
    QCOMPARE(BatchCall({"--to", path("work"), path("in")}).status, 2);
}

void TestBatchResults::outputThatBreaksEndsTheRun_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("json") << QStringList{"--json"};
    QTest::newRow("table") << QStringList();
}

void TestBatchResults::outputThatBreaksEndsTheRun()
{
    QFETCH(QStringList, options);
    for (const int room : {0, 200}) {
        FailDevice device(room);
        QTextStream out(&device);
        QString errors;
        QTextStream err(&errors);
        const QStringList sources = QVector<QString>(50, path("in/a.jpg")).toList();
        QCOMPARE(
            runBatch(QStringList("kesmira-batch") + options + QStringList{"--to", path("out")} + sources, out, err), 3);
        QCOMPARE(errors, QString("kesmira-batch: the results could not be written\n"));
        QVERIFY2(device.writes() < 10, "the run went on without a reader");
    }
}

// The first object is on its way when the signal comes; the other sources are named and left.
void TestBatchResults::signalStopsTheRun()
{
    FailDevice device(1 << 20, [first = true]() mutable {
        if (std::exchange(first, false)) std::raise(SIGTERM);
    });
    QTextStream out(&device);
    QString errors;
    QTextStream err(&errors);
    const int status =
        runBatch({"kesmira-batch", "--json", "--to", path("out"), path("in"), path("in/a.jpg")}, out, err);
    QCOMPARE(status, 1);
    QStringList reasons;
    for (const QByteArray &line : device.taken().trimmed().split('\n'))
        reasons << QJsonDocument::fromJson(line).object()["report"].toObject()["reason"].toString();
    QCOMPARE(reasons, QStringList({"", "stopped", "stopped"}));
    QCOMPARE(errors, QString("kesmira-batch: stopped; nothing was saved\n"));
    QVERIFY(filesBelow(path("out")).isEmpty());
    // The next run begins afresh.
    QCOMPARE(BatchCall({path("in")}).status, 0);
}

QTEST_GUILESS_MAIN(TestBatchResults)
#include "tst_batch_results.moc"
