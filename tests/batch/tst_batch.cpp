// The batch program's contract: command line, exit status, JSON and table, and the sources that it takes.

#include "BatchCall.h"
#include "BatchFolder.h"

#include "support/Damage.h"
#include "support/Pictures.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class TestBatch : public QObject
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

private:
    QString path(const QString &name) const { return m_folder->path(name); }

    QScopedPointer<BatchFolder> m_folder;
};

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
             (QJsonArray{QJsonObject{{"name", "c.JPEG"},
                                     {"type", "Repaired"},
                                     {"resolution", "32x48"},
                                     {"completeness", "whole"},
                                     {"share", 1}}}));
    const QJsonObject report = junk["report"].toObject();
    QVERIFY(report["bytesSteppedOver"].toInt() >= 100);
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
    const auto has = [&lines](const QStringList &words) { // with any blanks between
        return std::any_of(lines.begin(), lines.end(),
                           [&words](const QString &line) { return line.simplified() == words.join(' '); });
    };
    QVERIFY(has({"File", "Type", "Resolution", "What was done"}));
    QVERIFY2(has({"c.jpg", "Repaired", "32x48", "whole"}), qPrintable(call.out));
    QVERIFY2(has({"c_[T1].jpg", "Thumbnail", "16x16", "whole"}), qPrintable(call.out));
    QVERIFY2(!lines.filter(QRegularExpression("in/d.jpg +repaired +[1-9][0-9]* bytes stepped over$")).isEmpty(),
             qPrintable(call.out));
    QCOMPARE(lines.mid(lines.size() - 5),
             QStringList({"Sources: 5, 4 gave something, 1 gave nothing, 0 passed over.",
                          "Results: 5, 4 repaired, 0 extracted, 1 thumbnails.",
                          "Of the pictures 4 are whole, 0 there in part, 0 doubtful; 3 sources open as they are.",
                          "Nothing came of:",
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
    QVERIFY(QDir::setCurrent(m_folder->path()));
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
    QVERIFY(QDir(m_folder->path()).mkpath("bare/er"));
    const BatchCall call({path("bare"), path("in")});
    QCOMPARE(call.status, 1);
    QCOMPARE(call.errLines(),
             QStringList{"kesmira-batch: '" + path("bare") + "' holds no picture to repair; passed over"});
    QVERIFY(call.out.contains("Sources: 2, 2 gave something, 0 gave nothing, 1 passed over."));
}

void TestBatch::foreignBytesInNames()
{
    const QByteArray folder = QFile::encodeName(path("in"));
    const QByteArrayList files = {folder + "/c\xff.jpg", folder + "/d\xe4.txt"};
    const QByteArray below = folder + "/\xc3";
    const auto tidy = qScopeGuard([&] { // nothing else in this program can name them
        for (const QByteArray &file : files) ::unlink(file.constData());
        ::rmdir(below.constData());
    });
    for (const QByteArray &file : files) {
        const int fd = ::open(file.constData(), O_CREAT | O_WRONLY, 0600);
        if (fd < 0) QSKIP("the file system takes no such names");
        ::close(fd);
    }
    QCOMPARE(::mkdir(below.constData(), 0700), 0);
    const BatchCall call({"--json", path("in"), path("in/c\uFFFD.jpg")});
    QCOMPARE(call.status, 1);
    QCOMPARE(call.each("source"), QStringList({path("in/a.jpg"), path("in/b.jpg")}));
    QStringList lines;
    for (const char *name : {"in/c\\xff.jpg", "in/\\xc3", "in/c\uFFFD.jpg"})
        lines << "kesmira-batch: '" + path(QString::fromUtf8(name)) + "' is not a valid UTF-8 name; passed over";
    QCOMPARE(call.errLines(), lines);
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

QTEST_GUILESS_MAIN(TestBatch)
#include "tst_batch.moc"
