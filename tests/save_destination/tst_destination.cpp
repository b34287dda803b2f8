// Saving to a folder of the user's: the layout, the questions and what each answer does, and that nothing is ever lost.

#include "app/KesmiraApp.h"
#include "app/Originals.h"
#include "app/WorkingRoot.h"
#include "engine/OneFile.h"
#include "save/Destination.h"
#include "save/FileCopy.h"
#include "save/SaveFile.h"
#include "support/Files.h"
#include "support/StrictPrompt.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using Files = QMap<QString, QByteArray>; // path below a folder -> contents; folders end in "/"

Q_DECLARE_METATYPE(Files)
Q_DECLARE_METATYPE(ScriptLine)

namespace {

constexpr auto Overwrite = FolderAnswer::Overwrite;

/// Files and empty folders below `folder`.
Files listing(const QString &folder)
{
    Files found;
    QDirIterator each(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        const QString name = path.mid(folder.size() + 1);
        if (!each.fileInfo().isDir())
            found[name] = contents(path);
        else if (QDir(path).isEmpty())
            found[name + '/'] = {};
    }
    return found;
}

/// One word for each row: "saved", "skipped", or the error.
QStringList results(const SaveOutcome &outcome)
{
    QStringList words;
    for (const SavedRow &row : outcome.rows) {
        if (row.result == SaveResult::Saved)
            words << "saved";
        else
            words << (row.result == SaveResult::Skipped ? QString("skipped") : row.error.section(": ", -1));
    }
    return words;
}

/// A file can't grow past `bytes` while this lives, as on a disk that is nearly full.
class NearlyFullDisk
{
public:
    explicit NearlyFullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small = {bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~NearlyFullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    NearlyFullDisk(const NearlyFullDisk &) = delete;
    NearlyFullDisk &operator=(const NearlyFullDisk &) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before = {};
};

} // namespace

class TestDestination : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { setWorkingRoot({}); }

    void save_data();
    void save();
    void counterRunsOnFromSaveToSave();
    void answersAreForgottenAtTheNextSave();
    void refusedDestinations_data();
    void refusedDestinations();
    void fullDiskKeepsTheOldFile();
    void originalsAreSpared();
    void leftoversGo();
    void modesAreKept();
    void copies_data();
    void copies();

private:
    QString work(const QString &name) const { return pApp->strTempDir + name; }
    QString dest(const QString &name = {}) const
    {
        return m_dir->filePath("dest") + (name.isEmpty() ? "" : "/" + name);
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

void TestDestination::init()
{
    m_dir.reset(new QTemporaryDir);
    setWorkingRoot(m_dir->filePath("root"));
    QCOMPARE(prepareWorkingRoot(), QString());
    QVERIFY(beginRun());
    QVERIFY(QDir().mkdir(dest()));
    pApp->nCopyCounter = 0;
    pApp->strFileSuffix = "jpg";
    for (const char *name : {"a.jpg", "b.jpg", "Thumbnail Repaired/a_[T1].jpg", "Thumbnail Repaireda_[T2].jpg",
                             "Thumbnail Repaired/a_[T3].jpg"})
        write(work(name), QByteArray("new ") + name);
}

void TestDestination::save_data()
{
    QTest::addColumn<Files>("before");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QVector<ScriptLine>>("script");
    QTest::addColumn<QStringList>("expectedResults");
    QTest::addColumn<Files>("after"); // of the files that came or changed

    const QByteArray newA = "new a.jpg";
    const QByteArray newB = "new b.jpg";
    const QByteArray newT1 = "new Thumbnail Repaired/a_[T1].jpg";
    const QByteArray newT2 = "new Thumbnail Repaireda_[T2].jpg";
    const QByteArray newT3 = "new Thumbnail Repaired/a_[T3].jpg";
    const QString run = "RepairedFiles/";
    const QString thumbs = run + "Thumbnail Repaired/";
    const Files bothOld = {{run + "a.jpg", "old a"}, {run + "b.jpg", "old b"}};
    const auto asked = [](const QVector<ScriptLine> &more) {
        return QVector<ScriptLine>{folderLine("RepairedFiles, Copy(1)_RepairedFiles", Overwrite)} + more;
    };

    QTest::newRow("fresh folder") << Files() << QStringList{"a.jpg", "a_[T1].jpg", "a_[T2].jpg"}
                                  << QVector<ScriptLine>() << QStringList{"saved", "saved", "saved"}
                                  << Files{{run + "a.jpg", newA},
                                           {thumbs + "a_[T1].jpg", newT1},
                                           {thumbs + "a_[T2].jpg", newT2}};
    QTest::newRow("thumbnail folder is made for nothing")
        << Files() << QStringList{"a.jpg"} << QVector<ScriptLine>() << QStringList{"saved"}
        << Files{{run + "a.jpg", newA}, {thumbs, {}}};
    QTest::newRow("output that is gone") << Files() << QStringList{"c.jpg", "a.jpg"} << QVector<ScriptLine>()
                                         << QStringList{"the repaired file is gone from the working folder", "saved"}
                                         << Files{{run + "a.jpg", newA}, {thumbs, {}}};

    QTest::newRow("folder: rename")
        << Files{{run + "a.jpg", "old a"}, {"Copy(1)_RepairedFiles/", {}}} << QStringList{"a.jpg", "a_[T1].jpg"}
        << QVector<ScriptLine>{folderLine("RepairedFiles, Copy(2)_RepairedFiles", FolderAnswer::Rename)}
        << QStringList{"saved", "saved"}
        << Files{{"Copy(2)_RepairedFiles/RepairedFiles/a.jpg", newA},
                 {"Copy(2)_RepairedFiles/RepairedFiles/Thumbnail Repaired/a_[T1].jpg", newT1}};
    QTest::newRow("folder: rename, a file has the proposed name")
        << Files{{run + "c.jpg", "old"}, {"Copy(1)_RepairedFiles", "a file"}} << QStringList{"a.jpg"}
        << QVector<ScriptLine>{folderLine("RepairedFiles, Copy(2)_RepairedFiles", FolderAnswer::Rename)}
        << QStringList{"saved"}
        << Files{{"Copy(2)_RepairedFiles/RepairedFiles/a.jpg", newA},
                 {"Copy(2)_RepairedFiles/RepairedFiles/Thumbnail Repaired/", {}}};
    QTest::newRow("folder: cancel") << bothOld << QStringList{"a.jpg"}
                                    << QVector<ScriptLine>{folderLine("RepairedFiles, Copy(1)_RepairedFiles",
                                                                      FolderAnswer::Cancel)}
                                    << QStringList{} << Files();
    QTest::newRow("folder: closed is cancelled")
        << Files{{run + "a.jpg", "old a"}} << QStringList{"a.jpg", "b.jpg"}
        << QVector<ScriptLine>{folderLine("RepairedFiles, Copy(1)_RepairedFiles", FolderAnswer::Closed)}
        << QStringList{} << Files();

    QTest::newRow("file: overwrite, skip")
        << bothOld << QStringList{"a.jpg", "b.jpg"}
        << asked({fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::Overwrite),
                  fileLine("b.jpg, Copy(1)_b.jpg", FileAnswer::Skip)})
        << QStringList{"saved", "skipped"} << Files{{run + "a.jpg", newA}, {thumbs, {}}};
    QTest::newRow("file: skip ends with the file")
        << bothOld << QStringList{"a.jpg", "b.jpg"}
        << asked({fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::Skip),
                  fileLine("b.jpg, Copy(1)_b.jpg", FileAnswer::Overwrite)})
        << QStringList{"skipped", "saved"} << Files{{run + "b.jpg", newB}, {thumbs, {}}};
    QTest::newRow("file: closed keeps the old one")
        << bothOld << QStringList{"a.jpg"} << asked({fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::Closed)})
        << QStringList{"the question about it was closed without an answer"} << Files{{thumbs, {}}};
    QTest::newRow("file: rename as proposed, and as typed")
        << Files{{run + "a.jpg", "old a"}, {run + "Copy(1)_a.jpg", "older a"}, {run + "b.jpg", "old b"}}
        << QStringList{"a.jpg", "b.jpg"}
        << asked({fileLine("a.jpg, Copy(2)_a.jpg", FileAnswer::Rename),
                  fileLine("b.jpg, Copy(1)_b.jpg", FileAnswer::Rename, "holiday.jpg")})
        << QStringList{"saved", "saved"}
        << Files{{run + "Copy(2)_a.jpg", newA}, {run + "holiday.jpg", newB}, {thumbs, {}}};
    QTest::newRow("file: typed names that can't be")
        << bothOld << QStringList{"a.jpg", "b.jpg"}
        << asked({fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::Rename, ""),
                  fileLine("b.jpg, Copy(1)_b.jpg", FileAnswer::Rename, "../b")})
        << QStringList{"'' can't be a file's name", "'../b' can't be a file's name"} << Files{{thumbs, {}}};
    QTest::newRow("file: typed name is taken, too")
        << bothOld << QStringList{"a.jpg"}
        << asked({fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::Rename, "b.jpg"),
                  fileLine("b.jpg, Copy(1)_b.jpg", FileAnswer::Rename, "c.jpg")})
        << QStringList{"saved"} << Files{{run + "c.jpg", newA}, {thumbs, {}}};

    QTest::newRow("file: rename all") << bothOld << QStringList{"a.jpg", "a_[T1].jpg", "b.jpg"}
                                      << asked({fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::RenameAll)})
                                      << QStringList{"saved", "saved", "saved"}
                                      << Files{{run + "Copy(1)_a.jpg", newA},
                                               {run + "Copy(2)_b.jpg", newB},
                                               {thumbs + "a_[T1].jpg", newT1}};
    QTest::newRow("file: overwrite all") << bothOld << QStringList{"a.jpg", "b.jpg"}
                                         << asked({fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::OverwriteAll)})
                                         << QStringList{"saved", "saved"}
                                         << Files{{run + "a.jpg", newA}, {run + "b.jpg", newB}, {thumbs, {}}};
    QTest::newRow("file: skip all") << bothOld << QStringList{"a.jpg", "b.jpg", "a_[T1].jpg"}
                                    << asked({fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::SkipAll)})
                                    << QStringList{"skipped", "skipped", "saved"}
                                    << Files{{thumbs + "a_[T1].jpg", newT1}};

    QTest::newRow("thumbnails: overwrite, rename")
        << Files{{thumbs + "a_[T1].jpg", "old"}, {thumbs + "a_[T2].jpg", "old"}}
        << QStringList{"a_[T1].jpg", "a_[T2].jpg"}
        << asked({fileLine("a_[T1].jpg, Copy(1)_a_[T1].jpg", FileAnswer::Overwrite),
                  fileLine("a_[T2].jpg, Copy(1)_a_[T2].jpg", FileAnswer::RenameAll)})
        << QStringList{"saved", "saved"}
        << Files{{thumbs + "a_[T1].jpg", newT1}, {thumbs + "Copy(1)_a_[T2].jpg", newT2}};
    QTest::newRow("third thumbnail: rename")
        << Files{{thumbs + "a_[T3].jpg", "old"}} << QStringList{"a_[T3].jpg"}
        << asked({fileLine("a_[T3].jpg, Copy(1)_a_[T3].jpg", FileAnswer::RenameAll)}) << QStringList{"saved"}
        << Files{{thumbs + "Copy(1)_a_[T3].jpg", newT3}};
    QTest::newRow("HEIC: rename") << Files{{run + "HEIC_Repaired/c.heic", "old"}} << QStringList{"c.heic"}
                                  << asked({fileLine("c.heic, Copy(1)_c.heic", FileAnswer::Rename)})
                                  << QStringList{"saved"}
                                  << Files{{run + "HEIC_Repaired/Copy(1)_c.heic", "new c.heic"}, {thumbs, {}}};
}

void TestDestination::save()
{
    QFETCH(Files, before);
    QFETCH(QStringList, names);
    QFETCH(QVector<ScriptLine>, script);
    QFETCH(QStringList, expectedResults);
    QFETCH(Files, after);
    for (auto each = before.cbegin(); each != before.cend(); ++each) {
        if (each.key().endsWith('/'))
            QVERIFY(QDir().mkpath(dest(each.key())));
        else
            write(dest(each.key()), each.value());
    }
    if (names.contains("c.heic")) write(work("HEIC_Repaired/c.heic"), "new c.heic");
    const Files workBefore = listing(m_dir->filePath("root"));
    StrictPrompt prompt(script);

    const SaveOutcome outcome = saveOutputs(dest(), names, prompt);

    QCOMPARE(prompt.complaint(), QString());
    QCOMPARE(outcome.error, QString());
    QCOMPARE(results(outcome), expectedResults);
    QCOMPARE(outcome.cancelled, bool(pApp->bSaveCancelled));
    QCOMPARE(int(pApp->nSavedCount), outcome.rows.size());
    Files expected = before;
    for (auto each = after.cbegin(); each != after.cend(); ++each) expected[each.key()] = each.value();
    QCOMPARE(listing(dest()), expected);
    QCOMPARE(listing(m_dir->filePath("root")), workBefore);
}

void TestDestination::counterRunsOnFromSaveToSave()
{
    const ScriptLine folder = folderLine("RepairedFiles, Copy(1)_RepairedFiles", Overwrite);
    write(dest("RepairedFiles/a.jpg"), "old");
    for (int round = 1; round <= 3; ++round) {
        StrictPrompt prompt({folder, fileLine(QString("a.jpg, Copy(%1)_a.jpg").arg(round), FileAnswer::RenameAll)});
        QCOMPARE(results(saveOutputs(dest(), {"a.jpg"}, prompt)), QStringList{"saved"});
        QCOMPARE(prompt.complaint(), QString());
    }
    // A dialog's proposal begins at 1, the running number goes on.
    StrictPrompt prompt({folder, fileLine("b.jpg, Copy(1)_b.jpg", FileAnswer::RenameAll)});
    write(dest("RepairedFiles/b.jpg"), "old");
    saveOutputs(dest(), {"b.jpg"}, prompt);
    QCOMPARE(prompt.complaint(), QString());
    QVERIFY(QFile::exists(dest("RepairedFiles/Copy(4)_b.jpg")));
}

void TestDestination::answersAreForgottenAtTheNextSave()
{
    const ScriptLine folder = folderLine("RepairedFiles, Copy(1)_RepairedFiles", Overwrite);
    write(dest("RepairedFiles/a.jpg"), "old");
    StrictPrompt first({folder, fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::SkipAll)});
    QCOMPARE(results(saveOutputs(dest(), {"a.jpg"}, first)), QStringList{"skipped"});
    StrictPrompt second({folder, fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::Overwrite)});
    QCOMPARE(results(saveOutputs(dest(), {"a.jpg"}, second)), QStringList{"saved"});
    QCOMPARE(second.complaint(), QString());
    QVERIFY(!pApp->bFolderOverwrite);
}

void TestDestination::refusedDestinations_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("word");
    QTest::newRow("the root") << "root"
                              << "working folder";
    QTest::newRow("inside the root") << "root/RepairedFiles/x"
                                     << "working folder";
    QTest::newRow("through a link") << "link/x"
                                    << "working folder";
    QTest::newRow("by dots") << "dest/../root"
                             << "working folder";
    QTest::newRow("a file") << "file"
                            << "not a folder";
    QTest::newRow("run folder's name is a file's") << "blocked"
                                                   << "can't be made";
}

void TestDestination::refusedDestinations()
{
    QFETCH(QString, place);
    QFETCH(QString, word);
    write(m_dir->filePath("file"), "mine");
    write(m_dir->filePath("blocked/RepairedFiles"), "mine");
    QVERIFY(QFile::link(m_dir->filePath("root"), m_dir->filePath("link")));
    const Files before = listing(m_dir->path());
    StrictPrompt prompt({});
    const SaveOutcome outcome = saveOutputs(m_dir->filePath(place), {"a.jpg"}, prompt);
    QVERIFY2(outcome.error.contains(word), qPrintable(outcome.error));
    QVERIFY(outcome.rows.isEmpty());
    QCOMPARE(listing(m_dir->path()), before);
    // A name that only begins like the root's is another folder.
    QCOMPARE(destinationProblem(m_dir->filePath("root2")), QString());
}

void TestDestination::fullDiskKeepsTheOldFile()
{
    write(work("a.jpg"), QByteArray(500000, 'n'));
    write(dest("RepairedFiles/a.jpg"), QByteArray(200000, 'o'));
    StrictPrompt prompt({folderLine("RepairedFiles, Copy(1)_RepairedFiles", Overwrite),
                         fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::OverwriteAll)});
    SaveOutcome outcome;
    {
        const NearlyFullDisk limit(300000);
        outcome = saveOutputs(dest(), {"a.jpg", "b.jpg"}, prompt);
    }
    QCOMPARE(results(outcome), QStringList({"the file is larger than may be written there", "saved"}));
    QCOMPARE(listing(dest()),
             (Files{{"RepairedFiles/a.jpg", QByteArray(200000, 'o')},
                    {"RepairedFiles/b.jpg", "new b.jpg"},
                    {"RepairedFiles/Thumbnail Repaired/", {}}}));
}

// What the run was given lies at the destination, once under a second name; the answer is to overwrite all.
void TestDestination::originalsAreSpared()
{
    write(dest("RepairedFiles/a.jpg"), "mine");
    write(m_dir->filePath("b"), "mine too");
    QCOMPARE(::link(qPrintable(m_dir->filePath("b")), qPrintable(dest("RepairedFiles/b.jpg"))), 0);
    setOriginals({dest("RepairedFiles/a.jpg"), m_dir->filePath("b")});
    StrictPrompt prompt({folderLine("RepairedFiles, Copy(1)_RepairedFiles", Overwrite),
                         fileLine("a.jpg, Copy(1)_a.jpg", FileAnswer::OverwriteAll)});
    const SaveOutcome outcome = saveOutputs(dest(), {"a.jpg", "b.jpg"}, prompt);
    QVERIFY(outcome.rows[0].sparesOriginal && outcome.rows[1].sparesOriginal);
    QCOMPARE(listing(dest()),
             (Files{{"RepairedFiles/a.jpg", "mine"},
                    {"RepairedFiles/b.jpg", "mine too"},
                    {"RepairedFiles/Copy(1)_a.jpg", "new a.jpg"},
                    {"RepairedFiles/Copy(1)_b.jpg", "new b.jpg"},
                    {"RepairedFiles/Thumbnail Repaired/", {}}}));
}

// What a run that was ended by force has left goes; what another one is writing stays, and so does what is the user's.
void TestDestination::leftoversGo()
{
    const QString run = dest("RepairedFiles/");
    for (const char *name : {".kesmira-1-1.part", ".kesmira-1-2.part", ".kesmira-1-a.part", "kesmira-1-1.part"})
        write(run + name, "part");
    QFile atWork(run + ".kesmira-1-2.part");
    QVERIFY(atWork.open(QIODevice::ReadOnly));
    QCOMPARE(::flock(atWork.handle(), LOCK_EX), 0);
    StrictPrompt prompt({folderLine("RepairedFiles, Copy(1)_RepairedFiles", Overwrite)});
    QCOMPARE(results(saveOutputs(dest(), {"a.jpg"}, prompt)), QStringList{"saved"});
    QCOMPARE(
        listing(dest()).keys(),
        QStringList({"RepairedFiles/.kesmira-1-2.part", "RepairedFiles/.kesmira-1-a.part",
                     "RepairedFiles/Thumbnail Repaired/", "RepairedFiles/a.jpg", "RepairedFiles/kesmira-1-1.part"}));
}

void TestDestination::modesAreKept()
{
    const mode_t mask = ::umask(022);
    for (const auto &[before, after] : {std::pair<mode_t, mode_t>{0600, 0600}, {0755, 0644}, {0440, 0640}}) {
        write(m_dir->filePath("source/a.jpg"), "damaged");
        QCOMPARE(::chmod(qPrintable(m_dir->filePath("source/a.jpg")), before), 0);
        reserveNames({m_dir->filePath("source/a.jpg")});
        StrictPrompt prompt({});
        const QString folder = m_dir->filePath(QString("to%1").arg(before));
        QVERIFY(QDir().mkdir(folder));
        const QString target = saveOutputs(folder, {"a.jpg"}, prompt).rows[0].target;
        struct stat info = {};
        QCOMPARE(::stat(qPrintable(target), &info), 0);
        QCOMPARE(info.st_mode, mode_t(S_IFREG | after));
        QVERIFY(QFile::remove(m_dir->filePath("source/a.jpg")));
    }
    ::umask(mask);
}

void TestDestination::copies_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("isNewPossible");
    QTest::addColumn<bool>("isReplacePossible");
    QTest::newRow("free") << "free" << true << true;
    QTest::newRow("file") << "file" << false << true;
    QTest::newRow("link") << "link" << false << true;
    QTest::newRow("dead link") << "dead" << false << true;
    QTest::newRow("folder") << "folder" << false << false;
    QTest::newRow("no such folder") << "missing/x" << false << false;
    QTest::newRow("longest name") << QString(255, 'x') << true << true;
}

void TestDestination::copies()
{
    QFETCH(QString, target);
    QFETCH(bool, isNewPossible);
    QFETCH(bool, isReplacePossible);
    const QString source = m_dir->filePath("source");
    const QByteArray bytes(700001, 's');
    write(source, bytes);
    QCOMPARE(::chmod(QFile::encodeName(source).constData(), 0600), 0);
    write(dest("file"), "old");
    write(dest("aim"), "aim");
    QVERIFY(QDir().mkdir(dest("folder")));
    QVERIFY(QFile::link(dest("aim"), dest("link")) && QFile::link("nowhere", dest("dead")));
    const Files before = listing(dest());

    const mode_t mask = ::umask(022);
    QCOMPARE(copyToNewFile({source}, dest(target)) == 0, isNewPossible);
    if (!isNewPossible) QCOMPARE(listing(dest()), before);
    addOriginal(dest(target));
    if (QFileInfo::exists(dest(target))) QCOMPARE(replaceByCopy({source}, dest(target)), EEXIST);
    setOriginals({});
    QCOMPARE(replaceByCopy({source}, dest(target)) == 0, isReplacePossible);
    ::umask(mask);

    Files after = before;
    if (isReplacePossible) after[target] = bytes;
    QCOMPARE(listing(dest()), after);
    if (!isReplacePossible) return;
    struct stat info = {};
    QCOMPARE(::lstat(QFile::encodeName(dest(target)).constData(), &info), 0);
    QCOMPARE(info.st_mode, mode_t(S_IFREG | 0644));
}

QTEST_GUILESS_MAIN(TestDestination)
#include "tst_destination.moc"
