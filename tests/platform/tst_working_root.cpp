// Where the working root lies, and which folders are refused as one.

#include "app/WorkingRoot.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

mode_t modeOf(const QString &path)
{
    struct stat info = {};
    return ::lstat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mode & 07777 : 0;
}

} // namespace

class TestWorkingRoot : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_dir.reset(new QTemporaryDir); }
    void cleanup()
    {
        setWorkingRoot({});
        qunsetenv("KESMIRA_ROOT");
        qputenv("XDG_CACHE_HOME", m_cache);
    }
    void initTestCase() { m_cache = qgetenv("XDG_CACHE_HOME"); }

    void place_data();
    void place();
    void madePrivate();
    void refused_data();
    void refused();
    void namedFolderMayBeReadable();

private:
    QScopedPointer<QTemporaryDir> m_dir;
    QByteArray m_cache;
};

void TestWorkingRoot::place_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QByteArray>("cache");
    QTest::addColumn<QString>("named");
    QTest::addColumn<QString>("root");
    QTest::newRow("cache") << QByteArray() << QByteArray("/c") << ""
                           << "/c/kesmira";
    QTest::newRow("cache with slash") << QByteArray() << QByteArray("/c/") << ""
                                      << "/c/kesmira";
    QTest::newRow("relative cache") << QByteArray() << QByteArray("c") << "" << QDir::homePath() + "/.cache/kesmira";
    QTest::newRow("variable") << QByteArray("/v//") << QByteArray("/c") << ""
                              << "/v";
    QTest::newRow("named") << QByteArray("/v") << QByteArray("/c") << "/n/"
                           << "/n";
    QTest::newRow("named, relative") << QByteArray("/v") << QByteArray("/c") << "n" << QDir::currentPath() + "/n";
    QTest::newRow("dots are the system's") << QByteArray() << QByteArray("/c") << "/a/../b"
                                           << "/a/../b";
}

void TestWorkingRoot::place()
{
    QFETCH(QByteArray, variable);
    QFETCH(QByteArray, cache);
    QFETCH(QString, named);
    QFETCH(QString, root);
    qputenv("KESMIRA_ROOT", variable);
    qputenv("XDG_CACHE_HOME", cache);
    setWorkingRoot(named);
    QCOMPARE(workingRoot(), root);
    QCOMPARE(workingFolder(), root + "/RepairedFiles/");
    QCOMPARE(scratchRoot(), root);
}

void TestWorkingRoot::madePrivate()
{
    const mode_t before = ::umask(0);
    qputenv("KESMIRA_ROOT", QFile::encodeName(m_dir->filePath("a/b\xC3\xA9 \"c\"")));
    const QString problem = prepareWorkingRoot();
    ::umask(before);
    QCOMPARE(problem, QString());
    QCOMPARE(modeOf(workingRoot()), mode_t(0700));
    QCOMPARE(modeOf(m_dir->filePath("a")), mode_t(0700));
    QCOMPARE(prepareWorkingRoot(), QString());
}

void TestWorkingRoot::refused_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("word");
    QTest::newRow("link") << "link"
                          << "symbolic link";
    QTest::newRow("link with slash") << "link/"
                                     << "symbolic link";
    QTest::newRow("dead link") << "dead"
                               << "symbolic link";
    QTest::newRow("file") << "file"
                          << "not a folder";
    QTest::newRow("below a file") << "file/below"
                                  << "Not a directory";
    QTest::newRow("others may look") << "open"
                                     << "0700";
    QTest::newRow("group may enter") << "group"
                                     << "0700";
    QTest::newRow("foreign") << "foreign"
                             << "another user";
    QTest::newRow("name too long") << QString(300, 'x') << "too long";
}

void TestWorkingRoot::refused()
{
    QFETCH(QString, kind);
    QFETCH(QString, word);
    const QDir dir(m_dir->path());
    QVERIFY(dir.mkdir("own") && dir.mkdir("open") && dir.mkdir("group") && dir.mkdir("foreign"));
    QCOMPARE(::chmod(QFile::encodeName(dir.filePath("own")).constData(), 0700), 0);
    QCOMPARE(::chmod(QFile::encodeName(dir.filePath("open")).constData(), 0704), 0);
    QCOMPARE(::chmod(QFile::encodeName(dir.filePath("group")).constData(), 0710), 0);
    QVERIFY(QFile::link(dir.filePath("own"), dir.filePath("link")));
    QVERIFY(QFile::link("nowhere", dir.filePath("dead")));
    QFile file(dir.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));

    // The administrator can give a folder away; everybody else finds one that is the administrator's.
    const bool given = ::chown(QFile::encodeName(dir.filePath("foreign")).constData(), ::geteuid() + 1, gid_t(-1)) == 0;

    qputenv("KESMIRA_ROOT", QFile::encodeName(kind == "foreign" && !given ? "/" : dir.filePath(kind)));
    const QString problem = prepareWorkingRoot();
    QVERIFY2(problem.contains(word), qPrintable(problem));
    QVERIFY(!problem.contains('\n'));
    QVERIFY2(!QFileInfo::exists(dir.filePath("nowhere")), "a link was followed");
}

void TestWorkingRoot::namedFolderMayBeReadable()
{
    const QByteArray name = QFile::encodeName(m_dir->path());
    QCOMPARE(::chmod(name.constData(), 0755), 0);
    setWorkingRoot(m_dir->path());
    QCOMPARE(prepareWorkingRoot(), QString());
    QCOMPARE(modeOf(m_dir->path()), mode_t(0755));
    QCOMPARE(::chmod(name.constData(), 0775), 0);
    QVERIFY(prepareWorkingRoot().contains("written by others"));
}

QTEST_GUILESS_MAIN(TestWorkingRoot)
#include "tst_working_root.moc"
