// What the Linux side asks of the desktop: a private bus, private settings and real processes stand for it.

#include "app/KesmiraApp.h"
#include "desktop/platform/PlatformLinux.h"
#include "support/Files.h"
#include "support/RunFolder.h"

#include <QDBusConnection>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

namespace {

/// Keeps what would have been opened.
class RecordingPlatform : public PlatformLinux
{
public:
    QStringList opened;

protected:
    bool openFolder(const QString &folder) override
    {
        opened << folder;
        return true;
    }
};

class FakeFileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;

public slots:
    void ShowItems(const QStringList &addresses, const QString &) { shown << addresses; }
};

QString copyOfSleep(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    return QFile::copy(QFileInfo("/bin/sleep").canonicalFilePath(), path) ? path : QString();
}

} // namespace

class TestPlatformLinux : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_room.reset(new RunFolder); }
    void cleanup() { m_room.reset(); }

    void reveal_data();
    void reveal();
    void helpersAreFoundAndEnded_data();
    void helpersAreFoundAndEnded();
    void helperGetsTheNameAsOneArgument();
    void destination_data();
    void destination();
    void browser_data();
    void browser();
    void addressWithoutScheme() { QVERIFY(!PlatformLinux().openAddress(QUrl("etc/passwd"))); }

private:
    QScopedPointer<RunFolder> m_room;
    QTemporaryDir m_busFolder;
    QProcess m_bus;
};

/// A bus of the test's own, which knows no service that it could start.
void TestPlatformLinux::initTestCase()
{
    const QString daemon = QStandardPaths::findExecutable("dbus-daemon");
    if (daemon.isEmpty()) return;
    const QString config = m_busFolder.filePath("bus.conf");
    write(config,
          "<busconfig><type>session</type><listen>unix:dir=" + m_busFolder.path().toUtf8()
              + "</listen><policy context=\"default\"><allow eavesdrop=\"true\"/>"
                "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>");
    m_bus.start(daemon, {"--nofork", "--print-address", "--config-file=" + config});
    QVERIFY(m_bus.waitForReadyRead());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
}

void TestPlatformLinux::cleanupTestCase()
{
    m_bus.kill();
    m_bus.waitForFinished();
}

void TestPlatformLinux::reveal_data()
{
    QTest::addColumn<bool>("hasBus");
    QTest::addColumn<bool>("hasFileManager");
    QTest::addColumn<QString>("name"); ///< of what is shown, in the folder of the sources
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("opened");
    QTest::newRow("file manager, folder") << true << true << "a b#%"
                                          << "a%20b%23%25" << QString();
    QTest::newRow("file manager, file") << true << true << "f.jpg"
                                        << "f.jpg" << QString();
    QTest::newRow("no file manager, folder") << true << false << "a b#%" << QString() << "/a b#%";
    QTest::newRow("no file manager, file") << true << false << "f.jpg" << QString() << "";
    QTest::newRow("no bus") << false << true << "f.jpg" << QString() << "";
    QTest::newRow("nothing there") << true << true << "gone" << QString() << QString();
}

void TestPlatformLinux::reveal()
{
    QFETCH(bool, hasBus);
    QFETCH(bool, hasFileManager);
    QFETCH(QString, name);
    QFETCH(QString, shown);
    QFETCH(QString, opened);
    if (m_bus.state() != QProcess::Running) QSKIP("dbus-daemon is not installed");
    m_room->source("f.jpg", "f");
    QDir(m_room->sources()).mkdir("a b#%");
    FakeFileManager manager;
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    QDBusConnection service = QDBusConnection::connectToBus(QString::fromUtf8(address), "file manager");
    QVERIFY(service.registerObject("/org/freedesktop/FileManager1", &manager, QDBusConnection::ExportAllSlots));
    if (hasFileManager) QVERIFY(service.registerService("org.freedesktop.FileManager1"));
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (!hasBus) {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_room->sources()));
    }

    RecordingPlatform platform;
    const bool isAsked = platform.showInFileManager(m_room->sources() + '/' + name);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    qputenv("XDG_RUNTIME_DIR", runtime);
    QCOMPARE(isAsked, !shown.isNull() || !opened.isNull());
    if (isAsked) QTRY_VERIFY(!manager.shown.isEmpty() || !platform.opened.isEmpty());

    const QString base = m_room->sources();
    QCOMPARE(manager.shown, shown.isNull() ? QStringList() : QStringList{"file://" + base + '/' + shown});
    QCOMPARE(platform.opened, opened.isNull() ? QStringList() : QStringList{base + opened});
    service.unregisterService("org.freedesktop.FileManager1");
    service.unregisterObject("/org/freedesktop/FileManager1"); // the manager of the next row takes its place
}

void TestPlatformLinux::helpersAreFoundAndEnded_data()
{
    QTest::addColumn<QString>("program"); ///< where the helper's program lies
    QTest::newRow("bundle") << "bin/FileUtil.app/Contents/MacOS/FileUtil";
    QTest::newRow("beside") << "bin/FileUtil";
    QTest::newRow("no bundle but a file of that name") << "bin/FileUtil.app";
}

void TestPlatformLinux::helpersAreFoundAndEnded()
{
    QFETCH(QString, program);
    const QString path = m_room->place("bin/FileUtil.app");
    pApp->strPreviewHelperPath = path;
    PlatformLinux platform;
    QVERIFY(platform.previewHelpers(path).isEmpty());
    QVERIFY(!platform.startPreviewHelper(path, {"60"}));

    const QString helper = copyOfSleep(m_room->place(program));
    const QString stranger = copyOfSleep(m_room->place("elsewhere/FileUtil"));
    QProcess first, second, other;
    first.start(helper, {"60"});
    second.start(helper, {"60"});
    other.start(stranger, {"60"});
    QVERIFY(first.waitForStarted() && second.waitForStarted() && other.waitForStarted());
    const QSet<unsigned int> expected{unsigned(first.processId()), unsigned(second.processId())};
    const QList<unsigned int> found = platform.previewHelpers(path);
    QCOMPARE(QSet<unsigned int>(found.begin(), found.end()), expected);

    platform.endPreviewHelper(unsigned(other.processId()));
    platform.endPreviewHelper(unsigned(first.processId()));
    QVERIFY(first.waitForFinished());
    QCOMPARE(platform.previewHelpers(path), QList<unsigned int>{unsigned(second.processId())});
    QCOMPARE(other.state(), QProcess::Running);
    for (QProcess *process : {&second, &other}) {
        process->kill();
        process->waitForFinished();
    }
    pApp->strPreviewHelperPath.clear();
}

void TestPlatformLinux::helperGetsTheNameAsOneArgument()
{
    const QString helper = m_room->place("FileUtil");
    const QString answer = m_room->place("answer");
    write(helper,
          "#!/bin/sh\nprintf '%s|' \"$#\" \"$1\" > '" + answer.toUtf8() + ".new'\nmv '" + answer.toUtf8() + ".new' '"
              + answer.toUtf8() + "'\n");
    QFile::setPermissions(helper, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QVERIFY(PlatformLinux().startPreviewHelper(helper + ".app", {"/a b'\"$(exit);\n.heic", "--"}));
    QTRY_COMPARE(contents(answer), QByteArray("2|/a b'\"$(exit);\n.heic|"));
}

void TestPlatformLinux::destination_data()
{
    QTest::addColumn<QString>("folder"); ///< "%" stands for the room's folder
    QTest::addColumn<QString>("refusal");
    const QString readOnly = "Selected destination path is read-only (restricted by the operating system"
                             "Select a different location to proceed.";
    QTest::newRow("there") << "%/sources"
                           << "";
    QTest::newRow("can be made") << "%/sources/new/deep"
                                 << "";
    QTest::newRow("a file") << "%/sources/f.jpg"
                            << "the destination '%/sources/f.jpg' is not a folder";
    QTest::newRow("below a file") << "%/sources/f.jpg/new" << readOnly;
    QTest::newRow("takes no files") << "/proc" << readOnly;
    QTest::newRow("takes no folders") << "/proc/new/deep" << readOnly;
    if (::geteuid() != 0) QTest::newRow("no right to write") << "%/locked" << readOnly;
    QTest::newRow("working folder") << "%/root"
                                    << "the destination '%/root' lies inside the program's working folder";
    QTest::newRow("linked into it") << "%/link/x"
                                    << "the destination '%/link/x' lies inside the program's working folder";
}

void TestPlatformLinux::destination()
{
    QFETCH(QString, folder);
    QFETCH(QString, refusal);
    const QString room = m_room->place("");
    m_room->source("f.jpg", "f");
    QDir().mkdir(m_room->place("root"));
    QDir().mkdir(m_room->place("locked"));
    QFile::setPermissions(m_room->place("locked"), QFile::ReadOwner | QFile::ExeOwner);
    QFile::link(m_room->root(), m_room->place("link"));
    const QString base = room.chopped(room.endsWith('/') ? 1 : 0);
    QCOMPARE(PlatformLinux().destinationRefusal(folder.replace('%', base)), refusal.replace('%', base));
    QCOMPARE(QDir(m_room->sources()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{"f.jpg"});
}

void TestPlatformLinux::browser_data()
{
    QTest::addColumn<QString>("file"); ///< path below the room
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    const QByteArray two = "[Default Applications]\nx-scheme-handler/http=gone.desktop; two.desktop;\n";
    QTest::newRow("nothing set") << "config/other" << QByteArray() << "";
    QTest::newRow("the first that is installed") << "config/mimeapps.list" << two << "two";
    QTest::newRow("file of this desktop") << "config/gnome-mimeapps.list" << two << "two";
    QTest::newRow("file of another desktop") << "config/kde-mimeapps.list" << two << "";
    QTest::newRow("file beside the entries") << "data/applications/mimeapps.list" << two << "two";
    QTest::newRow("other section") << "config/mimeapps.list"
                                   << QByteArray("[Added Associations]\nx-scheme-handler/http=two.desktop\n") << "";
    QTest::newRow("path in place of a name")
        << "config/mimeapps.list"
        << QByteArray("[Default Applications]\nx-scheme-handler/http=../applications/two.desktop\n") << "";
}

void TestPlatformLinux::browser()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, text);
    write(m_room->place("data/applications/two.desktop"), "[Desktop Entry]\n");
    write(m_room->place(file), text);
    const QVector<QPair<const char *, QByteArray>> wanted{
        {"XDG_CONFIG_HOME", QFile::encodeName(m_room->place("config"))},
        {"XDG_CONFIG_DIRS", "/nowhere"},
        {"XDG_DATA_HOME", QFile::encodeName(m_room->place("data"))},
        {"XDG_DATA_DIRS", "/nowhere"},
        {"XDG_CURRENT_DESKTOP", "Something:GNOME"},
    };
    QVector<QByteArray> before;
    for (const auto &[variable, value] : wanted) {
        before << qgetenv(variable);
        qputenv(variable, value);
    }
    const QString found = PlatformLinux().defaultBrowser();
    for (int i = 0; i < wanted.size(); ++i) qputenv(wanted[i].first, before[i]);
    QTEST(found, "expected");
}

QTEST_GUILESS_MAIN(TestPlatformLinux)
#include "tst_platform_linux.moc"
