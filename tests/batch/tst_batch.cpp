// The batch program's contract: command line, exit status, JSON and table, sources, saving, the sample, stopping.

#include "BatchCall.h"

#include "support/Damage.h"
#include "support/Pictures.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QLockFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kSos = 0xFFDA;

void write(const QString &path, const QByteArray &bytes)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

QStringList filesBelow(const QString &folder)
{
    QStringList found;
    QDirIterator each(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (each.hasNext()) found << each.next().mid(folder.size() + 1);
    found.sort();
    return found;
}

/// Healthy, with the camera's APP1 right behind its SOI, as a sample must have it.
QByteArray cameraJpeg(int variant)
{
    JpegOptions options;
    options.jfif = false;
    options.segments = {exifSegment(QByteArray())};
    return makeJpeg(drawPicture(96, 64, variant), options);
}

/// The same without anything in front of its SOS: no table, no frame header.
QByteArray headless(int variant)
{
    return Damage(cameraJpeg(variant)).dropHead(upTo(kSos));
}

QImage decoded(const QByteArray &jpeg)
{
    return QImage::fromData(jpeg, "JPG");
}

} // namespace

class TestBatch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void wrongUsage_data();
    void wrongUsage();
    void helpAndVersion_data();
    void helpAndVersion();

    void jsonContract();
    void tableForPeople();
    void exitStatuses_data();
    void exitStatuses();
    void namesOfAllKinds();
    void foldersAreSortedAndWalkedOnce();
    void foldersWithoutPictures();
    void foreignBytesInNames();
    void sourcesStayAsTheyAre();

    void savesTwice_data();
    void savesTwice();
    void overwriteAndSkipFaceForeignFiles_data();
    void overwriteAndSkipFaceForeignFiles();
    void failedSaveShows();

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
    QString path(const QString &name) const { return m_dir->filePath(name); }

    QScopedPointer<QTemporaryDir> m_dir;
    QByteArray m_temporary;
};

// Temporary roots go to a folder that the end of each test looks into.
void TestBatch::init()
{
    m_dir.reset(new QTemporaryDir);
    m_temporary = qgetenv("TMPDIR");
    QVERIFY(QDir(m_dir->path()).mkdir("tmp"));
    qputenv("TMPDIR", QFile::encodeName(path("tmp")));
    write(path("in/a.jpg"), healthyJpeg());
    write(path("in/b.jpg"), healthyJpeg());
}

void TestBatch::cleanup()
{
    QVERIFY2(QDir(path("tmp")).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             "a temporary root is left");
    if (m_temporary.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", m_temporary);
}

void TestBatch::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("word");
    QTest::newRow("nothing to repair") << QStringList() << "no file or folder";
    QTest::newRow("only options") << QStringList{"--json"} << "no file or folder";
    QTest::newRow("unknown option") << QStringList{"--jsno", "IN"} << "jsno";
    QTest::newRow("option without value") << QStringList{"IN", "--to"} << "to";
    QTest::newRow("empty destination") << QStringList{"--to", "", "IN"} << "--to";
    QTest::newRow("empty sample") << QStringList{"--sample=", "IN"} << "--sample";
    QTest::newRow("empty root") << QStringList{"--work", "", "IN"} << "--work";
    QTest::newRow("unknown answer") << QStringList{"--on-conflict", "re\nname", "IN"} << "on-conflict";
    QTest::newRow("answer in capitals") << QStringList{"--on-conflict", "Rename", "IN"} << "on-conflict";
    QTest::newRow("no such sample") << QStringList{"--sample", "IN/none.jpg", "IN"} << "none.jpg";
    QTest::newRow("sample is a folder") << QStringList{"--sample", "IN", "IN"} << "sample";
    QTest::newRow("destination is a file") << QStringList{"--to", "IN/a.jpg", "IN"} << "not a folder";
    QTest::newRow("destination in the root") << QStringList{"--work", "W", "--to", "W/x", "IN"} << "working folder";
}

void TestBatch::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, word);
    arguments.replaceInStrings(QRegularExpression("^IN"), path("in"));
    arguments.replaceInStrings(QRegularExpression("^W"), path("work"));
    const BatchCall call(arguments);
    QCOMPARE(call.status, 2);
    QCOMPARE(call.out, QString());
    QCOMPARE(call.err.count('\n'), 1);
    QVERIFY2(call.err.contains(word), qPrintable(call.err));
}

void TestBatch::helpAndVersion_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("words");
    const QStringList help = {"--json", "--to",       "--on-conflict", "--sample", "--work", "rename|overwrite|skip",
                              "FILE",   "Exit status"};
    QTest::newRow("help") << QStringList{"--help"} << help;
    QTest::newRow("help beside a source") << QStringList{"x.jpg", "-h"} << help;
    QTest::newRow("version") << QStringList{"--version"} << QStringList{"kesmira-batch 7.0.0.0\n"};
}

void TestBatch::helpAndVersion()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, words);
    const BatchCall call(arguments);
    QCOMPARE(call.status, 0);
    QCOMPARE(call.err, QString());
    for (const QString &word : words) QVERIFY2(call.out.contains(word), qPrintable(word));
    FailDevice full(3);
    QTextStream out(&full);
    QString text;
    QTextStream err(&text);
    QCOMPARE(runBatch(QStringList("kesmira-batch") + arguments, out, err), 3);
}

void TestBatch::jsonContract()
{
    write(path("in/sub/c.JPEG"), Damage(healthyJpeg()).junkInFront(100));
    write(path("other.txt"), "text");
    write(path("empty.jpg"), {});
    write(path("headless.jpg"), headless(1));
    const QStringList sources = {path("empty.jpg"), path("in"), path("other.txt"), path("missing.jpg"),
                                 path("headless.jpg")};
    const BatchCall call(QStringList{"--json"} + sources);
    QCOMPARE(call.status, 1);

    QCOMPARE(call.each("source"),
             QStringList({path("empty.jpg"), path("in/a.jpg"), path("in/b.jpg"), path("in/sub/c.JPEG"),
                          path("other.txt"), path("missing.jpg"), path("headless.jpg")}));
    QCOMPARE(call.each("status"), QStringList({"2", "5", "5", "5", "", "", "2"}));
    QStringList reasons;
    for (const QJsonObject &object : call.objects()) {
        QCOMPARE(object.keys(), QStringList({"report", "results", "rows", "source", "status"}));
        reasons << object["report"].toObject()["reason"].toString();
    }
    QCOMPARE(reasons, QStringList({"empty", "", "", "", "other-format", "unreadable", "header-lost"}));

    const QJsonObject junk = call.objects().at(3);
    QCOMPARE(junk["results"].toArray(), QJsonArray{"c.JPEG"});
    QCOMPARE(junk["rows"].toArray(),
             (QJsonArray{QJsonObject{{"name", "c.JPEG"}, {"type", "Repaired"}, {"resolution", "32x48"}}}));
    const QJsonObject report = junk["report"].toObject();
    QCOMPARE(report["bytesSteppedOver"].toInt(), 100);
    const QJsonObject output = report["outputs"].toArray().first().toObject();
    QCOMPARE(output["way"].toString(), QString("main"));
    QCOMPARE(QSize(output["width"].toInt(), output["height"].toInt()), QSize(48, 32));
    QCOMPARE(call.errLines(), QStringList{"kesmira-batch: '" + path("missing.jpg") + "': No such file or directory"});
}

void TestBatch::tableForPeople()
{
    JpegOptions options;
    options.segments = {exifSegment(makeJpeg(drawPicture(16, 16)))};
    write(path("in/c.jpg"), healthyJpeg(options));
    write(path("in/d.jpg"), Damage(healthyJpeg()).junkInFront(7));
    write(path("headless\x1b[2J.jpg"), headless(1));
    const BatchCall call({path("in"), path("headless\x1b[2J.jpg")});
    QCOMPARE(call.status, 1);
    QCOMPARE(call.err, QString());
    QVERIFY2(!call.out.contains('\x1b'), "a file's name reaches the terminal");

    const QStringList lines = call.outLines();
    const auto has = [&lines](const QStringList &words) {
        return std::any_of(lines.begin(), lines.end(),
                           [&words](const QString &line) { return line.simplified() == words.join(' '); });
    };
    QVERIFY(has({"File", "Type", "Resolution", "What was done"}));
    QVERIFY2(has({"c.jpg", "Repaired", "32x48"}), qPrintable(call.out));
    QVERIFY2(has({"c_[T1].jpg", "Thumbnail", "16x16"}), qPrintable(call.out));
    QVERIFY2(has({path("in/d.jpg"), "repaired", "7 bytes stepped over"}), qPrintable(call.out));
    QCOMPARE(lines.mid(lines.size() - 4),
             QStringList({"Sources: 5, 4 gave something, 1 gave nothing, 0 passed over.",
                          "Results: 5, 4 repaired, 0 extracted, 1 thumbnails.", "Nothing came of:",
                          "  " + path("headless\\u001b[2J.jpg")
                              + ": The header is lost; a healthy sample from the same camera may help."}));
}

void TestBatch::exitStatuses_data()
{
    QTest::addColumn<QStringList>("sources");
    QTest::addColumn<int>("status");
    QTest::newRow("all gave") << QStringList{"in"} << 0;
    QTest::newRow("the same file twice") << QStringList{"in/a.jpg", "in/a.jpg"} << 0;
    QTest::newRow("behind two dashes") << QStringList{"--", "in/a.jpg"} << 0;
    QTest::newRow("one missing") << QStringList{"none.jpg", "in"} << 1;
    QTest::newRow("none") << QStringList{"none.jpg"} << 1;
}

void TestBatch::exitStatuses()
{
    QFETCH(QStringList, sources);
    QFETCH(int, status);
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir->path()));
    const BatchCall table(sources);
    const BatchCall json(QStringList{"--json"} + sources);
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(table.status, status);
    QCOMPARE(json.status, status);
}

void TestBatch::namesOfAllKinds()
{
    const QStringList names = {"two words.jpg",
                               "quote\"'.jpg",
                               "new\nline.jpg",
                               QString::fromUtf8("\u65e5\u672c \u0440\u0443.jpg"),
                               "%1$s; rm -rf $HOME.jpg",
                               "a.jpg.jpg",
                               "-dash.jpg",
                               "tab\tand\\.jpg",
                               QString::fromUtf8("\U0001F600.jpg")};
    QStringList paths;
    for (const QString &name : names) {
        paths << path("odd/" + name);
        write(paths.last(), healthyJpeg());
    }
    const BatchCall json(QStringList{"--json", "--to", path("out"), "--"} + paths);
    QCOMPARE(json.status, 0);
    QCOMPARE(json.each("source"), paths);
    QStringList saved;
    for (const QString &name : names) {
        saved << "RepairedFiles/" + name;
        QVERIFY2(QFile::exists(path("out/RepairedFiles/" + name)), qPrintable(name));
    }
    saved.sort();
    QCOMPARE(filesBelow(path("out")), saved);
    const BatchCall table(paths);
    QVERIFY(table.out.contains("new\\nline.jpg"));
    QVERIFY(table.out.contains(names[3]));
}

void TestBatch::foldersAreSortedAndWalkedOnce()
{
    for (const char *name : {"B.JPG", "a/z.jpeg", "a/y.Jpg", "a.jpg", "deep/er/er/x.jpg"})
        write(path("tree/" + QString(name)), healthyJpeg());
    for (const char *name : {"note.txt", "jpg", ".hidden.jpg", ".hid/x.jpg"})
        write(path("tree/" + QString(name)), healthyJpeg());
    QVERIFY(QFile::link(path("tree"), path("tree/deep/loop")));
    QVERIFY(QFile::link(path("tree/a"), path("tree/folder.jpg")));
    QVERIFY(QFile::link(path("in/a.jpg"), path("tree/link.jpg")));
    QVERIFY(QFile::link("nowhere", path("tree/dead.jpg")));
    QCOMPARE(::mkfifo(QFile::encodeName(path("tree/pipe.jpg")).constData(), 0600), 0);

    QStringList expected;
    for (const char *name : {"B.JPG", "a/y.Jpg", "a/z.jpeg", "a.jpg", "dead.jpg", "deep/er/er/x.jpg", "link.jpg"})
        expected << path("tree/" + QString(name));
    for (const QString &folder : {path("tree"), path("tree/")}) {
        const BatchCall call({"--json", folder});
        QCOMPARE(call.each("source"), expected);
        QCOMPARE(call.status, 1); // the dead link
    }
    // A link that is named is followed.
    QVERIFY(QFile::link(path("in"), path("linked")));
    QCOMPARE(BatchCall({"--json", path("linked")}).each("source"),
             QStringList({path("linked/a.jpg"), path("linked/b.jpg")}));
}

void TestBatch::foldersWithoutPictures()
{
    QVERIFY(QDir(m_dir->path()).mkpath("bare/er"));
    const BatchCall call({path("bare"), path("in")});
    QCOMPARE(call.status, 1);
    QCOMPARE(call.errLines(),
             QStringList{"kesmira-batch: '" + path("bare") + "' holds no picture to repair; passed over"});
    QVERIFY(call.out.contains("Sources: 2, 2 gave something, 0 gave nothing, 1 passed over."));
}

void TestBatch::foreignBytesInNames()
{
    const QByteArray folder = QFile::encodeName(path("in"));
    for (const QByteArray name : {"/c\xff.jpg", "/d\xe4.txt"}) {
        const int fd = ::open((folder + name).constData(), O_CREAT | O_WRONLY, 0600);
        if (fd < 0) QSKIP("the file system takes no such names");
        ::close(fd);
    }
    QCOMPARE(::mkdir((folder + "/\xc3").constData(), 0700), 0);
    const BatchCall call({"--json", path("in"), path("in/c\uFFFD.jpg")});
    QCOMPARE(call.status, 1);
    QCOMPARE(call.each("source"), QStringList({path("in/a.jpg"), path("in/b.jpg")}));
    QCOMPARE(call.errLines(),
             QStringList({"kesmira-batch: '" + path("in/c\\xff.jpg") + "' is not a valid UTF-8 name; passed over",
                          "kesmira-batch: '" + path("in/\\xc3") + "' is not a valid UTF-8 name; passed over",
                          "kesmira-batch: '" + path("in/c\uFFFD.jpg") + "' is not a valid UTF-8 name; passed over"}));
}

void TestBatch::sourcesStayAsTheyAre()
{
    write(path("in/c.jpg"), headless(1));
    write(path("sample.jpg"), cameraJpeg(2));
    const QStringList names = {path("in/a.jpg"), path("in/b.jpg"), path("in/c.jpg"), path("sample.jpg")};
    const auto look = [&names] {
        QList<QByteArray> seen;
        for (const QString &name : names) {
            struct stat info = {};
            ::stat(QFile::encodeName(name).constData(), &info);
            seen << contents(name) << QByteArray::number(qint64(info.st_mtim.tv_sec))
                 << QByteArray::number(qint64(info.st_mtim.tv_nsec)) << QByteArray::number(info.st_mode)
                 << QByteArray::number(qint64(info.st_ctim.tv_nsec));
        }
        return seen;
    };
    const auto before = look();
    const QStringList found = filesBelow(path("in"));
    QCOMPARE(BatchCall({path("in"), "--sample", path("sample.jpg"), "--to", path("out")}).status, 0);
    QCOMPARE(look(), before);
    QCOMPARE(filesBelow(path("in")), found);
}

void TestBatch::savesTwice_data()
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

void TestBatch::savesTwice()
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

void TestBatch::overwriteAndSkipFaceForeignFiles_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("staysOld");
    QTest::addColumn<QString>("count");
    QTest::newRow("overwrite") << "overwrite" << false << "2 saved, 0 skipped, 0 failed.";
    QTest::newRow("skip") << "skip" << true << "1 saved, 1 skipped, 0 failed.";
    QTest::newRow("rename") << "rename" << true << "2 saved, 0 skipped, 0 failed.";
}

void TestBatch::overwriteAndSkipFaceForeignFiles()
{
    QFETCH(QString, answer);
    QFETCH(bool, staysOld);
    QFETCH(QString, count);
    write(path("out/RepairedFiles/a.jpg"), "mine");
    const BatchCall call({path("in"), "--to", path("out"), "--on-conflict", answer});
    QCOMPARE(call.status, 0);
    QCOMPARE(contents(path("out/RepairedFiles/a.jpg")) == "mine", staysOld);
    QVERIFY2(call.out.contains(count), qPrintable(call.out));
}

void TestBatch::failedSaveShows()
{
    QVERIFY(QDir().mkpath(path("out/RepairedFiles/a.jpg")));
    const BatchCall call({"--json", path("in"), "--to", path("out"), "--on-conflict", "overwrite"});
    QCOMPARE(call.status, 3);
    QCOMPARE(call.objects().size(), 2);
    QCOMPARE(call.errLines().size(), 1);
    QVERIFY2(call.err.contains("'a.jpg' was not saved"), qPrintable(call.err));
    QVERIFY(!decoded(contents(path("out/RepairedFiles/b.jpg"))).isNull());
    const BatchCall none({"--json", path("in"), "--to", path("in/a.jpg/below")});
    QCOMPARE(none.status, 3);
    QVERIFY2(none.err.contains("can't be made"), qPrintable(none.err));
}

void TestBatch::samplePass()
{
    write(path("bad/a.jpg"), headless(1));
    write(path("bad/b.jpg"), cameraJpeg(3));
    write(path("bad/c.jpg"), QByteArray(500, 'c'));
    write(path("sample.jpg"), cameraJpeg(2));
    const BatchCall call(
        {"--json", "--work", path("work"), "--sample", path("sample.jpg"), "--to", path("out"), path("bad")});
    QCOMPARE(call.status, 1);
    const QStringList sources = {path("bad/a.jpg"), path("bad/b.jpg"), path("bad/c.jpg"), path("bad/a.jpg"),
                                 path("bad/c.jpg")};
    QCOMPARE(call.each("source"), sources);
    QCOMPARE(call.each("status"), QStringList({"2", "5", "2", "5", "2"}));
    QCOMPARE(call.each("pass"), QStringList({"", "", "", "sample", "sample"}));
    const QJsonObject helped = call.objects().at(3);
    QCOMPARE(helped["rows"].toArray(),
             (QJsonArray{QJsonObject{{"name", "a.jpg"}, {"type", "Repaired"}, {"resolution", "64x96"}}}));
    QCOMPARE(helped["report"].toObject()["outputs"].toArray().first().toObject()["way"].toString(), QString("sample"));
    // The sample's tables are the picture's own, so every pixel comes back.
    QCOMPARE(decoded(contents(path("out/RepairedFiles/a.jpg"))), decoded(cameraJpeg(1)));

    const BatchCall table({"--sample", path("sample.jpg"), path("bad/a.jpg")});
    QCOMPARE(table.status, 0);
    QVERIFY(table.out.contains("With the sample " + path("sample.jpg")));
    QVERIFY(table.out.contains("Sources: 1, 1 gave something, 0 gave nothing, 0 passed over."));
}

void TestBatch::sampleOfAnotherKindIsLeftAlone()
{
    write(path("bad.jpg"), headless(1));
    write(path("sample.heic"), cameraJpeg(2));
    const BatchCall call({"--json", "--sample", path("sample.heic"), path("bad.jpg")});
    QCOMPARE(call.each("pass"), QStringList{""});
    QCOMPARE(call.status, 1);
}

void TestBatch::workFolder()
{
    QCOMPARE(BatchCall({"--work", path("work/new"), path("in")}).status, 0);
    struct stat info = {};
    QCOMPARE(::stat(QFile::encodeName(path("work/new")).constData(), &info), 0);
    QCOMPARE(info.st_mode & 07777, mode_t(0700));
    QCOMPARE(decoded(contents(path("work/new/RepairedFiles/a.jpg"))), decoded(healthyJpeg()));
    QCOMPARE(BatchCall({"--work", path("work/new"), path("in/b.jpg")}).status, 0);
    QCOMPARE(QDir(path("work/new/RepairedFiles")).entryList(QDir::Files), QStringList{"b.jpg"});
    // A folder of the user's own will do, whatever else lies in it.
    QVERIFY(QDir(m_dir->path()).mkdir("own"));
    QCOMPARE(::chmod(QFile::encodeName(path("own")).constData(), 0755), 0);
    write(path("own/mine.txt"), "mine");
    QCOMPARE(BatchCall({"--work", path("own"), path("in")}).status, 0);
    QCOMPARE(contents(path("own/mine.txt")), QByteArray("mine"));
}

void TestBatch::workFolderRefused_data()
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

void TestBatch::workFolderRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, word);
    for (const char *folder : {"own", "shared", "locked", "saved", "tricky"})
        QVERIFY(QDir(m_dir->path()).mkdir(folder));
    QVERIFY(QFile::link(path("own"), path("link")));
    QVERIFY(QFile::link(path("in"), path("tricky/RepairedFiles")));
    QCOMPARE(::chmod(QFile::encodeName(path("shared")).constData(), 0777), 0);
    write(path("saved/RepairedFiles/mine.jpg"), "mine");
    QLockFile lock(path("locked/kesmira.lock"));
    QVERIFY(lock.tryLock(0));

    const BatchCall call({"--json", "--work", path(name), path("in")});
    QCOMPARE(call.status, 3);
    QCOMPARE(call.out, QString());
    QCOMPARE(call.err.count('\n'), 1);
    QVERIFY2(call.err.contains(word), qPrintable(call.err));
    QCOMPARE(contents(path("saved/RepairedFiles/mine.jpg")), QByteArray("mine"));
    QCOMPARE(contents(path("in/a.jpg")), healthyJpeg());
}

// A run empties its folder before it begins, so what lies there can't be its source.
void TestBatch::workFolderOfAnEarlierRunIsNoSource()
{
    QCOMPARE(BatchCall({"--work", path("work"), path("in")}).status, 0);
    const BatchCall call(
        {"--json", "--work", path("work"), path("work"), path("work/RepairedFiles/a.jpg"), path("in/b.jpg")});
    QCOMPARE(call.status, 1);
    QCOMPARE(call.each("source"), QStringList{path("in/b.jpg")});
    QCOMPARE(call.errLines().filter("which the run empties; passed over").size(), call.errLines().size());
}

void TestBatch::destinationThatRunsEmptyIsRefused()
{
    QCOMPARE(BatchCall({"--work", path("work"), path("in")}).status, 0);
    QCOMPARE(BatchCall({"--to", path("work"), path("in")}).status, 2);
}

void TestBatch::outputThatBreaksEndsTheRun_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("json") << QStringList{"--json"};
    QTest::newRow("table") << QStringList();
}

void TestBatch::outputThatBreaksEndsTheRun()
{
    QFETCH(QStringList, options);
    for (const int room : {0, 200}) {
        FailDevice device(room);
        QTextStream out(&device);
        QString errors;
        QTextStream err(&errors);
        const QStringList sources(50, path("in/a.jpg"));
        QCOMPARE(
            runBatch(QStringList("kesmira-batch") + options + QStringList{"--to", path("out")} + sources, out, err), 3);
        QCOMPARE(errors, QString("kesmira-batch: the results could not be written\n"));
        QVERIFY2(device.writes() < 10, "the run went on without a reader");
    }
}

// The first object is on its way when the signal comes; the other sources are named and left.
void TestBatch::signalStopsTheRun()
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

QTEST_GUILESS_MAIN(TestBatch)
#include "tst_batch.moc"
