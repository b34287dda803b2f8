// The download of a new version, and the swap of the installed bundle for it.

#include "desktop/platform/BundleInstall.h"
#include "support/Files.h"
#include "support/ZipMaker.h"
#include "update/QDownloadApp.h"
#include "update/UpdateRoom.h"

#include <QCloseEvent>
#include <QDirIterator>
#include <QLabel>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>

#include <csignal>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

const QString kProgram = "Contents/MacOS/kesmira";

/// An installed bundle in a folder of its own.
struct Installed
{
    Installed()
    {
        write(apps() + "/Kesmira.app/" + kProgram, "old program");
        write(apps() + "/Kesmira.app/Contents/old.txt", "old");
        write(folder.filePath("beside.txt"), "beside");
    }
    QString apps() const { return folder.filePath("apps"); }
    /// All that lies below the folder with its bytes and rights, the archive aside.
    QByteArray tree() const
    {
        QProcess tar;
        tar.setWorkingDirectory(folder.path());
        tar.start("sh", {"-c", "tar -c --sort=name --mtime=@0 --exclude=update.zip . | sha512sum"});
        tar.waitForFinished();
        return tar.readAllStandardOutput();
    }
    QString install(const ZipEntries &entries) const
    {
        write(zip(), zipOf(entries));
        return installArchive();
    }
    QString installArchive() const { return installBundleFromArchive(zip(), "Kesmira.app", kProgram, apps()); }
    QString zip() const { return folder.filePath("update.zip"); }
    QStringList beside() const
    {
        return QDir(apps()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    QTemporaryDir folder;
};

QStringList systemCalls; ///< "sync PATH", and for the swap the programs in place around it, in their order
bool syncFails = false;

} // namespace

// In the place of the system's own.
extern "C" int fsync(int file)
{
    systemCalls << "sync " + QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(file));
    return syncFails ? -1 : int(::syscall(SYS_fsync, file));
}
extern "C" int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    const QString program = QString::fromUtf8(to) + '/' + kProgram;
    const QByteArray before = contents(program);
    const int result = int(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
    systemCalls << before + " -> " + contents(program);
    return result;
}

Q_DECLARE_METATYPE(ZipEntries)

class TestUpdateInstall : public QObject
{
    Q_OBJECT

private slots:
    void swapsTheBundle();
    void refusals_data();
    void refusals();
    void brokenArchives();
    void endedOnItsWay();
    void labels();
    void download();
    void signatures_data();
    void signatures();
};

void TestUpdateInstall::swapsTheBundle()
{
    const Installed installed;
    syncFails = true;
    const QByteArray before = installed.tree();
    QVERIFY(!installed.install(madeBundle()).isEmpty());
    QCOMPARE(installed.tree(), before); // what isn't on the disk isn't put in place
    syncFails = false;
    systemCalls.clear();
    QCOMPARE(installed.install(madeBundle()), QString());
    const QString bundle = installed.apps() + "/Kesmira.app/";
    QCOMPARE(contents(bundle + kProgram), QByteArray("new program"));
    QVERIFY(QFileInfo(bundle + kProgram).isExecutable());
    QCOMPARE(contents(bundle + "Contents/current"), QByteArray("new"));
    QVERIFY(!QFileInfo::exists(bundle + "Contents/old.txt"));
    // What runs goes on from the old one until it ends, and no other start clears it away.
    clearInstallLeftovers("Kesmira.app", installed.apps());
    QCOMPARE(contents(installed.apps() + '/' + installed.beside()[0] + "/new/Kesmira.app/" + kProgram),
             QByteArray("old program"));
    const QStringList synced = systemCalls.mid(0, systemCalls.indexOf("old program -> new program"));
    // One step, in which there is never no program: whoever is ended here leaves a whole one.
    QVERIFY(synced.size() < systemCalls.size() && systemCalls.last() == "sync " + installed.apps());
    for (const char *part : {"", "/Contents/MacOS", "/Contents/MacOS/kesmira", "/Contents/Resources/a.txt"})
        QCOMPARE(synced.filter(QRegularExpression(QString("/Kesmira.app%1$").arg(part))).size(), 1);
    QCOMPARE(installed.install(madeBundle()), QString());
    QCOMPARE(installed.beside().size(), 2); // nothing runs from the second
}

void TestUpdateInstall::refusals_data()
{
    QTest::addColumn<ZipEntries>("entries");
    const QByteArray program = "Kesmira.app/" + kProgram.toLatin1();
    const auto row = [](const char *name, const ZipEntries &entries) { QTest::newRow(name) << entries; };
    const auto with = [&](const char *name, const char *path, const char *link) {
        row(name,
            ZipEntries(madeBundle()) << ZipEntry{path, link ? "" : "evil", link ? ZipEntry::Link : ZipEntry::Program,
                                                 link});
    };
    with("climbs out", "../beside.txt", nullptr);
    with("climbs out further in", "Kesmira.app/../../beside.txt", nullptr);
    with("absolute", "/tmp/kesmira-evil", nullptr);
    with("twice the same file", program, nullptr);
    with("link out", "Kesmira.app/out", "../../../beside.txt");
    with("absolute link", "Kesmira.app/out", "/etc/passwd");
    with("link to nothing", "Kesmira.app/out", "none");
    with("link out of the bundle alone", "Kesmira.app/out", "..");
    row("through a link", {{"Kesmira.app", {}, ZipEntry::Link, "."}, {"Kesmira.app/x", "evil"}});
    row("bundle that is a link", {{"Other/" + kProgram.toLatin1(), "x"}, {"Kesmira.app", {}, ZipEntry::Link, "Other"}});
    row("link to the program's folder",
        {{"Kesmira.app/Contents/bin/kesmira", "x"}, {"Kesmira.app/Contents/MacOS", {}, ZipEntry::Link, "bin"}});
    row("no bundle", {{"Other.app/" + kProgram.toLatin1(), "x"}});
    row("no program", {{"Kesmira.app/Contents/a.txt", "x"}});
    row("program that can't run", {{program, "x", ZipEntry::Plain}});
    row("empty", {});
}

void TestUpdateInstall::refusals()
{
    QFETCH(ZipEntries, entries);
    const Installed installed;
    const QByteArray before = installed.tree();
    QVERIFY(!installed.install(entries).isEmpty());
    QCOMPARE(installed.tree(), before);
    QVERIFY(!QFileInfo::exists("/tmp/kesmira-evil"));
}

void TestUpdateInstall::brokenArchives()
{
    const Installed installed;
    const QByteArray before = installed.tree();
    const QByteArray whole = zipOf(madeBundle(QByteArray(300000, 'p')));
    for (const int size : {0, 10, 100, whole.size() / 2, whole.size()}) { // the last on a full disk
        write(installed.zip(), whole.left(size));
        rlimit limit{};
        ::getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{100000, limit.rlim_max}; // bytes that a file may hold
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &small);
        const QString problem = installed.installArchive();
        ::setrlimit(RLIMIT_FSIZE, &limit);
        QVERIFY2(!problem.isEmpty(), qPrintable(QString::number(size)));
        QCOMPARE(installed.tree(), before);
    }
    QVERIFY(!installBundleFromArchive("/none", "Kesmira.app", kProgram, installed.apps()).isEmpty());
    QVERIFY(!installBundleFromArchive(installed.zip(), "Kesmira.app", kProgram, installed.zip()).isEmpty());
}

void TestUpdateInstall::endedOnItsWay()
{
    const Installed ended;
    const QByteArray before = ended.tree();
    QDir(ended.apps()).mkpath(".kesmira-update-a/new/Kesmira.app");
    clearInstallLeftovers("Kesmira.app", ended.apps());
    QCOMPARE(ended.tree(), before);
    QDir(ended.apps()).mkpath(".kesmira-update-a"); // as earlier versions left it
    QVERIFY(QDir(ended.apps()).rename("Kesmira.app", ".kesmira-update-a/old"));
    clearInstallLeftovers("Kesmira.app", ended.apps());
    QCOMPARE(ended.tree(), before);
}

void TestUpdateInstall::labels()
{
    constexpr qint64 kMB = 1 << 20;
    const std::tuple<int, qint64, qint64, const char *, const char *> table[] = {
        {3999, kMB * 3 / 2, kMB * 10, "3 sec (1.50 MB of  10.00", "341"},
        {500, kMB, -1, "0 sec (1.00 MB of  1.00", ""}, // the server doesn't say
        {2000, kMB * 3, kMB, "2 sec (3.00 MB of  3.00", "1536"},
        {2000, -1, -1, "2 sec (0.00 MB of  0.00", ""},
        {999, kMB * 8, kMB * 10, "0 sec (8.00 MB of  10.00", ""},
        {1000, kMB * 2 - 1, kMB * 2, "1 sec (2.00 MB of  2.00", "1024"}, // whole ones count
    };
    for (const auto &[time, received, total, elapsed, rate] : table) {
        QCOMPARE(QDownloadApp::elapsedText(time, received, total),
                 QString("Time Elapsed: %1 MB copied) ").arg(elapsed));
        QCOMPARE(QDownloadApp::rateText(time, received), *rate ? QString("Transfer Rate: %1 KB/sec ").arg(rate) : "");
    }
}

void TestUpdateInstall::download()
{
    for (const int cutAt : {-1, 5000}) {
        const bool whole = cutAt < 0;
        UpdateRoom room;
        room.server.answers["/Kesmira.zip"] = {QByteArray(3 << 20, 'z'), "200 OK", {}, cutAt};
        QDownloadApp dialog;
        dialog.show();
        QSignalSpy installed(&dialog, &QDownloadApp::installed);
        QVERIFY(installed.wait(20000));
        const auto *bar = dialog.findChild<QProgressBar *>("progressBar");
        if (whole) { // what is cut off may have been told before, or not
            QVERIFY(dialog.findChild<QLabel *>("timeLabel")->text().endsWith(" MB copied) "));
            QCOMPARE(bar->value(), 3 << 20);
        }
        QVERIFY(dialog.isVisible() && !bar->isVisible());
        // There is no signature, and nothing is kept of the offer.
        QVERIFY(!installed[0][0].toString().isEmpty() && room.platform.calls.isEmpty());
        QCOMPARE(QDir(updateFolder()).entryList(QDir::Files), QStringList());
        dialog.findChild<QPushButton *>("OkBtn")->click();
        QVERIFY(!QSettings("apple", "KMVR.db").contains("VNo"));
        QCOMPARE(QDownloadApp::installFolder(QCoreApplication::applicationDirPath()), QString());
    }
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
    QFETCH(bool, taken);
    UpdateRoom room;
    QByteArray archive = "an archive";
    QDir::setCurrent(room.folder.path());
    write("Kesmira.zip", archive);
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
    QSettings("apple", "KMPR.db").setValue("VNo", "6.0.0.0");
    const QString before = QSettings("apple", "KMPR.db").fileName();
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
    // Nothing is unpacked before that is known.
    QCOMPARE(room.platform.calls, taken ? QStringList("install " + place.apps() + "/Kesmira.app") : QStringList());
    QCOMPARE(installed[0][0].toString().isEmpty(), taken);
    QCOMPARE(dialog.findChild<QLabel *>("label")->text(), installed[0][0].toString());
    QCOMPARE(installed[0][0].toString().contains("the maker's"),
             !taken && damaged != "absent"); // not known of that one
    QCOMPARE(QDir(updateFolder()).entryList(QDir::Files), QStringList());
    // The program's own window is asked, and may stay for what isn't saved.
    dialog.findChild<QPushButton *>("OkBtn")->click();
    QCoreApplication::processEvents();
    QCOMPARE(window.asked, int(taken));
    const QSettings store("apple", "KMVR.db");
    const QString kept =
        store.value("VInfoType").toString() + store.value("VNo").toString() + store.value("VUpdate").toString();
    QCOMPARE(kept, taken ? QString("Major8.0.0.0Major Update") : QString());
    QCOMPARE(QFileInfo::exists(before), !taken);
}

QTEST_MAIN(TestUpdateInstall)
#include "tst_update_install.moc"
