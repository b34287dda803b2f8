// The download of a new version, and the swap of the installed bundle for it.

#include "desktop/platform/BundleInstall.h"
#include "support/Files.h"
#include "update/QDownloadApp.h"
#include "update/UpdateRoom.h"

#include <QCloseEvent>
#include <QDirIterator>
#include <QLabel>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>

#include <archive.h>
#include <archive_entry.h>
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QString kProgram = "Contents/MacOS/kesmira";

struct Entry
{
    QByteArray path;
    QByteArray bytes = {};
    int type = AE_IFREG;
    QByteArray link = {};
    int mode = 0755;
};
using Entries = QList<Entry>;

Entries goodBundle(const QByteArray &program = "new program")
{
    return {{"Kesmira.app/Contents/MacOS/kesmira", program},
            {"Kesmira.app/Contents/Resources/a.txt", "new", AE_IFREG, {}, 0644},
            {"Kesmira.app/Contents/current", {}, AE_IFLNK, "Resources/a.txt"}};
}

void writeZip(const QString &path, const Entries &entries)
{
    archive *writer = archive_write_new();
    archive_write_set_format_zip(writer);
    archive_write_open_filename(writer, QFile::encodeName(path).constData());
    for (const Entry &each : entries) {
        archive_entry *entry = archive_entry_new();
        archive_entry_set_pathname(entry, each.path.constData());
        archive_entry_set_filetype(entry, unsigned(each.type));
        archive_entry_set_perm(entry, mode_t(each.mode));
        archive_entry_set_size(entry, each.bytes.size());
        if (!each.link.isEmpty()) archive_entry_set_symlink(entry, each.link.constData());
        archive_write_header(writer, entry);
        archive_write_data(writer, each.bytes.constData(), size_t(each.bytes.size()));
        archive_entry_free(entry);
    }
    archive_write_close(writer);
    archive_write_free(writer);
}

/// An installed bundle in a folder of its own.
struct Installed
{
    Installed()
    {
        QDir().mkpath(folder.filePath("apps/Kesmira.app/Contents/MacOS"));
        write("apps/Kesmira.app/" + kProgram, "old program");
        write("apps/Kesmira.app/Contents/old.txt", "old");
        write("beside.txt", "beside");
    }
    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::WriteOnly)) file.write(bytes);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QString apps() const { return folder.filePath("apps"); }
    /// Every file below the folder with its bytes, the archive aside.
    QStringList tree() const
    {
        QStringList lines;
        QDirIterator it(folder.path(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QFileInfo info(it.next());
            if (info.fileName() == "update.zip") continue;
            const QString bytes = info.isFile() ? QString::fromLatin1(contents(info.filePath())) : QString();
            lines << QDir(folder.path()).relativeFilePath(info.filePath()) + "=" + bytes;
        }
        lines.sort();
        return lines;
    }
    QString install(const Entries &entries) const
    {
        const QString zip = folder.filePath("update.zip");
        writeZip(zip, entries);
        return installBundleFromArchive(zip, "Kesmira.app", kProgram, apps());
    }
    QTemporaryDir folder;
};

} // namespace

Q_DECLARE_METATYPE(Entry)

class TestUpdateInstall : public QObject
{
    Q_OBJECT

private slots:
    void swapsTheBundle();
    void refusals_data();
    void refusals();
    void truncatedArchive();
    void diskFull();
    void killedAtAnyTime();
    void labels_data();
    void labels();
    void download();
    void signatures_data();
    void signatures();
    void failedDownload();
    void folderOfTheBundle();
};

void TestUpdateInstall::swapsTheBundle()
{
    const Installed installed;
    QCOMPARE(installed.install(goodBundle()), QString());
    const QString bundle = installed.apps() + "/Kesmira.app/";
    QCOMPARE(contents(bundle + kProgram), QByteArray("new program"));
    QVERIFY(QFileInfo(bundle + kProgram).isExecutable());
    QCOMPARE(contents(bundle + "Contents/current"), QByteArray("new"));
    QVERIFY(!QFileInfo::exists(bundle + "Contents/old.txt"));
    QCOMPARE(QDir(installed.apps()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList("Kesmira.app"));
}

void TestUpdateInstall::refusals_data()
{
    QTest::addColumn<Entries>("entries");
    const auto with = [](const Entry &entry) { return Entries(goodBundle()) << entry; };
    QTest::newRow("climbs out") << with({"../beside.txt", "evil"});
    QTest::newRow("climbs out further in") << with({"Kesmira.app/../../beside.txt", "evil"});
    QTest::newRow("absolute") << with({"/tmp/kesmira-evil", "evil"});
    QTest::newRow("link out") << with({"Kesmira.app/out", {}, AE_IFLNK, "../../../beside.txt"});
    QTest::newRow("absolute link") << with({"Kesmira.app/out", {}, AE_IFLNK, "/etc/passwd"});
    QTest::newRow("through a link") << (Entries{{"Kesmira.app", {}, AE_IFLNK, "."}, {"Kesmira.app/x", "evil"}});
    QTest::newRow("link out of the bundle alone")
        << (with({"Kesmira.app/out", {}, AE_IFLNK, "../Other"}) << Entry{"Other", "x"});
    QTest::newRow("link to nothing") << with({"Kesmira.app/out", {}, AE_IFLNK, "none"});
    QTest::newRow("bundle that is a link")
        << (Entries{{"Other/" + kProgram.toLatin1(), "x"}, {"Kesmira.app", {}, AE_IFLNK, "Other"}});
    QTest::newRow("link to the program's folder")
        << (Entries{{"Kesmira.app/Contents/bin/kesmira", "x"}, {"Kesmira.app/Contents/MacOS", {}, AE_IFLNK, "bin"}});
    QTest::newRow("no bundle") << Entries{{"Other.app/" + kProgram.toLatin1(), "x"}};
    QTest::newRow("no program") << Entries{{"Kesmira.app/Contents/a.txt", "x"}};
    QTest::newRow("program that can't run") << Entries{{"Kesmira.app/" + kProgram.toLatin1(), "x", AE_IFREG, {}, 0644}};
    QTest::newRow("twice the same file") << with({"Kesmira.app/Contents/MacOS/kesmira", "another"});
    QTest::newRow("empty") << Entries{};
}

void TestUpdateInstall::refusals()
{
    QFETCH(Entries, entries);
    const Installed installed;
    const QStringList before = installed.tree();
    QVERIFY(!installed.install(entries).isEmpty());
    QCOMPARE(installed.tree(), before);
    QVERIFY(!QFileInfo::exists("/tmp/kesmira-evil"));
}

void TestUpdateInstall::truncatedArchive()
{
    const Installed installed;
    const QStringList before = installed.tree();
    const QString zip = installed.folder.filePath("update.zip");
    writeZip(zip, goodBundle(QByteArray(5000, 'p')));
    const QByteArray whole = contents(zip);
    for (int size : {0, 10, 100, int(whole.size()) / 2}) {
        installed.write("update.zip", whole.left(size));
        QVERIFY2(!installBundleFromArchive(zip, "Kesmira.app", kProgram, installed.apps()).isEmpty(),
                 qPrintable(QString::number(size)));
        QCOMPARE(installed.tree(), before);
    }
    QVERIFY(!installBundleFromArchive(zip + ".none", "Kesmira.app", kProgram, installed.apps()).isEmpty());
    QVERIFY(!installBundleFromArchive(zip, "Kesmira.app", kProgram, installed.folder.filePath("beside.txt")).isEmpty());
}

void TestUpdateInstall::diskFull()
{
    const Installed installed;
    const QStringList before = installed.tree();
    const QString zip = installed.folder.filePath("update.zip");
    writeZip(zip, goodBundle(QByteArray(300000, 'p')));
    // In a process of its own: no file may grow past 100 KB.
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100000, 100000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const bool told = !installBundleFromArchive(zip, "Kesmira.app", kProgram, installed.apps()).isEmpty();
        ::_exit(told ? 0 : 1);
    }
    int status = 1;
    ::waitpid(child, &status, 0);
    QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    QCOMPARE(installed.tree(), before);
}

void TestUpdateInstall::killedAtAnyTime()
{
    const Entries entries = goodBundle(QByteArray(300000, 'p'));
    int before = 0;
    int after = 0;
    for (int delay = 0; after < 5 && delay < 400000; delay += 500) {
        const Installed installed;
        const QString zip = installed.folder.filePath("update.zip");
        writeZip(zip, entries);
        const pid_t child = ::fork();
        if (child == 0) {
            installBundleFromArchive(zip, "Kesmira.app", kProgram, installed.apps());
            ::_exit(0);
        }
        ::usleep(useconds_t(delay));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const QString bundle = installed.apps() + "/Kesmira.app/";
        const bool fresh = contents(bundle + kProgram) == entries[0].bytes;
        QCOMPARE(contents(bundle + (fresh ? "Contents/Resources/a.txt" : "Contents/old.txt")),
                 QByteArray(fresh ? "new" : "old"));
        ++(fresh ? after : before);
        clearInstallLeftovers("Kesmira.app", installed.apps());
        QCOMPARE(QDir(installed.apps()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList("Kesmira.app"));
    }
    QVERIFY(before > 0 && after > 0);

    const Installed aside; // as earlier versions left it
    QDir(aside.apps()).mkpath(".kesmira-update-a");
    QVERIFY(QDir(aside.apps()).rename("Kesmira.app", ".kesmira-update-a/old"));
    clearInstallLeftovers("Kesmira.app", aside.apps());
    QCOMPARE(aside.tree(), Installed().tree());
}

void TestUpdateInstall::labels_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<qint64>("received");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<QString>("elapsed");
    QTest::addColumn<QString>("rate");
    constexpr qint64 kMB = 1 << 20;
    QTest::newRow("form") << 3999 << kMB * 3 / 2 << kMB * 10 << "Time Elapsed: 3 sec (1.50 MB of  10.00 MB copied) "
                          << "Transfer Rate: 341 KB/sec ";
    QTest::newRow("of unknown size") << 500 << kMB << qint64(-1) << "Time Elapsed: 0 sec (1.00 MB of  1.00 MB copied) "
                                     << "";
    QTest::newRow("under a second") << 999 << kMB * 8 << kMB * 10
                                    << "Time Elapsed: 0 sec (8.00 MB of  10.00 MB copied) "
                                    << "";
    QTest::newRow("under a megabyte") << 2000 << kMB / 2 << kMB / 2
                                      << "Time Elapsed: 2 sec (0.50 MB of  0.50 MB copied) "
                                      << "";
    QTest::newRow("whole megabytes count")
        << 1000 << kMB * 2 - 1 << kMB * 2 << "Time Elapsed: 1 sec (2.00 MB of  2.00 MB copied) "
        << "Transfer Rate: 1024 KB/sec ";
}

void TestUpdateInstall::labels()
{
    QFETCH(int, milliseconds);
    QFETCH(qint64, received);
    QFETCH(qint64, total);
    QTEST(QDownloadApp::elapsedText(milliseconds, received, total), "elapsed");
    QTEST(QDownloadApp::rateText(milliseconds, received), "rate");
}

void TestUpdateInstall::download()
{
    UpdateRoom room;
    const QByteArray archive(3 << 20, 'z');
    room.server.answers["/Kesmira.zip"] = {archive};
    fillSoftwareUpdate("Major", "8.0.0.0", "Major Update");
    QDownloadApp dialog;
    dialog.show();
    QCOMPARE(dialog.findChild<QLabel *>("label")->text(),
             QString("Please wait as this process will take several seconds to few minutes "));
    QSignalSpy installed(&dialog, &QDownloadApp::installed);
    QVERIFY(installed.wait(20000));
    const auto *bar = dialog.findChild<QProgressBar *>("progressBar");
    QCOMPARE(bar->maximum(), int(archive.size()));
    QCOMPARE(bar->value(), int(archive.size()));
    QVERIFY(dialog.findChild<QLabel *>("timeLabel")->text().endsWith("(3.00 MB of  3.00 MB copied) "));
    // This test runs from no bundle: nothing is replaced, and nothing is kept of the offer.
    QVERIFY(!installed[0][0].toString().isEmpty() || !room.platform.calls.isEmpty());
    QVERIFY(dialog.findChild<QPushButton *>("OkBtn")->isVisible());
    QVERIFY(!QFileInfo::exists(updateFolder() + "Kesmira.zip"));
    dialog.findChild<QPushButton *>("OkBtn")->click();
    QVERIFY(!dialog.isVisible());
    QVERIFY(!QSettings("apple", "KMVR.db").contains("VNo"));

    QSettings("apple", "KMPR.db").setValue("VNo", "7.0.0.0");
    dialog.ApplicationSettings();
    const QSettings store("apple", "KMVR.db");
    QCOMPARE(store.value("VInfoType").toString() + store.value("VNo").toString() + store.value("VUpdate").toString(),
             QString("Major8.0.0.0Major Update"));
    QVERIFY(!QFileInfo::exists(QSettings("apple", "KMPR.db").fileName()));
}

void TestUpdateInstall::signatures_data()
{
    QTest::addColumn<QStringList>("versions"); // offered, signed
    QTest::addColumn<QString>("damaged");      // after the signing
    QTest::addColumn<bool>("taken");
    const QStringList same{"8.0.0.0", "8.0.0.0"};
    QTest::newRow("the maker's") << same << QString() << true;
    QTest::newRow("an old one offered as new") << QStringList{"8.0.0.0", "7.5.0.0"} << QString() << false;
    QTest::newRow("the installed version") << QStringList{"7.0.0.0", "7.0.0.0"} << QString() << false;
    for (const char *damaged : {"archive", "signature", "absent", "cut", "key"})
        QTest::newRow(damaged) << same << QString(damaged) << false;
}

/// Signed with the tool that the maker uses.
void TestUpdateInstall::signatures()
{
    QFETCH(QStringList, versions);
    QFETCH(QString, damaged);
    UpdateRoom room;
    QByteArray archive = "an archive";
    QDir::setCurrent(room.folder.path());
    QFile zip("Kesmira.zip");
    QVERIFY(zip.open(QIODevice::WriteOnly) && zip.write(archive) == archive.size());
    zip.close();
    const QString steps = "openssl genpkey -algorithm ed25519 -out key.pem && "
                          "openssl pkey -in key.pem -pubout -outform DER | tail -c 32 | base64 > key.txt && "
                          "{ echo 'Kesmira update'; echo "
        + versions[1]
        + "; sha512sum < Kesmira.zip | cut -d' ' -f1; } > text && "
          "openssl pkeyutl -sign -rawin -inkey key.pem -in text -out Kesmira.zip.sig";
    QCOMPARE(QProcess::execute("sh", {"-c", steps}), 0);
    QByteArray signature = contents("Kesmira.zip.sig");
    if (damaged == "archive") archive[0] = 'A';
    if (damaged == "signature") signature[10] = char(signature[10] ^ 1);
    if (damaged == "cut") signature.chop(1);
    const QByteArray key = damaged == "key" ? QByteArray(32, 'k').toBase64() : contents("key.txt").trimmed();
    room.link("UpdateKey", key);
    room.server.answers["/Kesmira.zip"] = {archive};
    if (damaged != "absent") room.server.answers["/Kesmira.zip.sig"] = {signature};
    fillSoftwareUpdate("Major", versions[0], "Major Update");
    struct : QWidget
    {
        void closeEvent(QCloseEvent *event) override { ++asked, event->ignore(); }
        int asked = 0;
    } window;
    QDownloadApp dialog(&window);
    const Installed place;
    ApplicationPath = place.apps() + "/Kesmira.app/Contents/Resources/Kesmira.app/Contents/MacOS";
    QDir().mkpath(ApplicationPath);
    QSignalSpy installed(&dialog, &QDownloadApp::installed);
    QVERIFY(installed.wait(20000));
    QTEST(!room.platform.calls.isEmpty(), "taken");
    QCOMPARE(installed[0][0].toString().isEmpty(), !room.platform.calls.isEmpty());
    QCOMPARE(QDir(updateFolder()).entryList(QDir::Files), QStringList());
    // The program's own window is asked, and may stay for what isn't saved.
    dialog.findChild<QPushButton *>("OkBtn")->click();
    QCoreApplication::processEvents();
    QCOMPARE(window.asked, int(!room.platform.calls.isEmpty()));
}

void TestUpdateInstall::failedDownload()
{
    UpdateRoom room;
    room.server.answers["/Kesmira.zip"] = {QByteArray(100000, 'z'), "200 OK", {}, 5000};
    QDownloadApp dialog;
    dialog.show();
    QSignalSpy installed(&dialog, &QDownloadApp::installed);
    QVERIFY(installed.wait(20000));
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.findChild<QLabel *>("timeLabel")->text(), QString(" "));
    QCOMPARE(dialog.findChild<QLabel *>("rateLabel")->text(), QString("      "));
    QVERIFY(!dialog.findChild<QProgressBar *>("progressBar")->isVisible());
    QVERIFY(!QFileInfo::exists(updateFolder() + "Kesmira.zip"));
    QCOMPARE(room.platform.calls, QStringList());
}

void TestUpdateInstall::folderOfTheBundle()
{
    const QTemporaryDir folder;
    const QString nested = folder.path() + "/apps/Kesmira.app/Contents/Resources/Kesmira.app/Contents/MacOS";
    QDir().mkpath(nested);
    QCOMPARE(QDownloadApp::installFolder(nested), folder.path() + "/apps");
    QDir().mkpath(folder.path() + "/bin/a/b/c/d/e/f");
    QCOMPARE(QDownloadApp::installFolder(folder.path() + "/bin/a/b/c/d/e/f"), QString());
    QCOMPARE(QDownloadApp::installFolder("/usr/bin"), QString());
}

QTEST_MAIN(TestUpdateInstall)
#include "tst_update_install.moc"
