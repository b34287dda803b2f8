// The check for updates against a server on the loopback: what is offered, what is said, what is kept out.

#include "dialogs/MessageBox.h"
#include "update/QCheckUpdate.h"
#include "update/QDownloadApp.h"
#include "update/QMajorUpdate.h"
#include "update/QMinorUpdate.h"
#include "update/UpdateRoom.h"

#include <QLabel>
#include <QPushButton>

Q_DECLARE_METATYPE(LoopbackServer::Answer)

class TestUpdateCheck : public QObject
{
    Q_OBJECT

private slots:
    void versions();
    void offers_data();
    void offers();
    void failures_data();
    void failures();
    void limits();
    void offerOpensItsLinks();
    void oneCheckAtATime();
    void safeAddresses();
};

namespace {

/// Runs a check to its end. Returns what was shown: "major", "minor", "none" with the box, "" for nothing.
QString runCheck(bool asked)
{
    bCheckForUpdate = asked;
    QString said;
    QPointer<QCheckUpdate> check = new QCheckUpdate;
    if (asked) check->show();
    // The box waits for its answer in an event loop of its own.
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [&said] {
        MessageBox *box = UpdateRoom::shown<MessageBox>();
        if (!box) return;
        said = box->text();
        box->accept();
    });
    answer.start(5);
    if (!QTest::qWaitFor([&check] { return !check; }, 20000)) return "never ended";
    if (UpdateRoom::shown<QMajorUpdate>()) return "major";
    if (UpdateRoom::shown<QMinorUpdate>()) return "minor";
    return said == "No update available." ? QString("none") : said;
}

} // namespace

void TestUpdateCheck::versions()
{
    using Offer = QCheckUpdate::Offer;
    const std::pair<Offer, const char *> table[] = {
        {Offer::None, "7.0.0.0,6.99.99.9,seven,8.0.0.0 beta,8.0.0.0.1,8.,-8.0.0.0,8000000.0,,<html>8.0.0.0</html>"},
        {Offer::Minor, "7.0.0.1,7.1.0.0,7.10.0.0"},
        {Offer::Major, "8.0.0.0,12.3.4.5,8"},
    };
    for (const auto &[offer, versions] : table)
        for (const QString &version : QString(versions).split(','))
            QVERIFY2(QCheckUpdate::compare(version, "7.0.0.0") == offer, qPrintable(version));
    QVERIFY(QCheckUpdate::compare("7.9.0.0", "7.10.0.0") == Offer::None);
    fillSoftwareUpdate(QString(40, 'k'), QString(40, 'v'), QString(99, 't')); // cut, whatever a server sends
    QCOMPARE(fieldText(softwareUpdate.kind) + fieldText(softwareUpdate.version) + fieldText(softwareUpdate.title),
             QString(32, 'k') + QString(32, 'v') + QString(32, 't'));
}

void TestUpdateCheck::offers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("last"); // what was installed before
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *text, const char *last, const char *shown) {
        QTest::addRow("%s, %s", text, last) << QByteArray(text) << last << shown;
    };
    row("7.0.0.0\n", "", "none");
    row("7.0.0.1\r\nfurther lines\n", "", "minor");
    row("  8.0.0.0  ", "7.5.0.0", "major");
    row("\n8.0.0.0", "", "none");
    row("8.0.0.0", " 8.0.0.0 ", "none");
    row("8.0.0.0", "8.0", "none");
}

void TestUpdateCheck::offers()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, last);
    QFETCH(QString, shown);
    for (const bool asked : {true, false}) {
        UpdateRoom room;
        QSettings("apple", "KMPR.db").setValue("VNo", last);
        room.server.answers["/Kesmira.txt"] = {text};
        QCOMPARE(runCheck(asked), !asked && shown == "none" ? QString() : shown);
        QVERIFY(room.server.request.contains("\r\nAccept-Encoding: identity\r\n")); // what is counted is what comes
        const bool offered = shown != "none";
        QCOMPARE(UpdateVersionAvailable, offered);
        QCOMPARE(fieldText(softwareUpdate.version), offered ? QString(text.split('\n').first().trimmed()) : "");
        QCOMPARE(fieldText(softwareUpdate.kind).toLower(), offered ? shown : "");
        // Once something was offered, a check that finds nothing either way says nothing of it.
        UpdateVersionAvailable = true;
        qDeleteAll(QApplication::topLevelWidgets());
        if (last.contains("8.0")) QCOMPARE(runCheck(true), QString());
    }
}

void TestUpdateCheck::failures_data()
{
    QTest::addColumn<LoopbackServer::Answer>("answer");
    QTest::newRow("refused") << LoopbackServer::Answer{"8.0.0.0", "404 Not Found"};
    QTest::newRow("silent") << LoopbackServer::Answer{{}, {}, {}, -1, true};
    QTest::newRow("cut off") << LoopbackServer::Answer{"8.0.0.0\n and more", "200 OK", {}, 4};
    QTest::newRow("circle") << LoopbackServer::Answer{{}, "302 Found", "Location: /Kesmira.txt\r\n"};
    QTest::newRow("a megabyte in one line") << LoopbackServer::Answer{"8.0.0.0" + QByteArray(1 << 20, 'x')};
}

void TestUpdateCheck::failures()
{
    QFETCH(LoopbackServer::Answer, answer);
    UpdateRoom room;
    room.server.answers["/Kesmira.txt"] = answer;
    if (answer.silent) Download::setTimeout(50);
    QCOMPARE(runCheck(true), QString("none"));
    QVERIFY(!UpdateVersionAvailable);
    QVERIFY(QFileInfo(VersionTxtPath).size() <= 64 * 1024);
    QCOMPARE(runCheck(false), QString());
    QVERIFY(room.server.asked <= 20);
    room.server.close();
    QCOMPARE(runCheck(true), QString("none"));
    QFile::remove(pApp->strLinkPlistPath);
    QCOMPARE(runCheck(true), QString("none")); // no address at all
}

void TestUpdateCheck::limits()
{
    UpdateRoom room;
    room.server.answers["/much"] = {QByteArray(1000, 'x')};
    room.server.answers["/slow"] = {{}, {}, {}, -1, true};
    const auto fetch = [&room](const char *name, qint64 bytes, int milliseconds) {
        Download download;
        QEventLoop loop;
        QObject::connect(&download, &Download::finished, &loop, &QEventLoop::quit);
        download.start(room.server.base() + name, room.folder.filePath(name), bytes, milliseconds);
        loop.exec();
        return download.finish();
    };
    QCOMPARE(fetch("much", 1000, 20000), QString());
    QVERIFY(fetch("much", 999, 20000).contains("more than"));
    QVERIFY(fetch("slow", 999, 50).contains("too long")); // however long a silence alone may last
    QVERIFY(!fetch("gone/much", 1000, 20000).isEmpty() && room.server.asked == 3); // what can't be kept isn't fetched
}

void TestUpdateCheck::offerOpensItsLinks()
{
    UpdateRoom room;
    room.link("WhatsNewLink_DE", "https://example.invalid/new");
    room.link("VisitUpdateLink_DE", "https://example.invalid/page");
    room.server.answers["/Kesmira.txt"] = {"8.0.0.0"};
    QCOMPARE(runCheck(true), QString("major"));
    auto *offer = UpdateRoom::shown<QMajorUpdate>();
    QCOMPARE(offer->findChild<QLabel *>("label")->text(), QString("New version details: \nUpdate: Kesmira 8.0.0.0\n"));
    QVERIFY(!offer->findChild<QPushButton *>("DownloadBtn")->isVisible()); // there is no key
    offer->findChild<QPushButton *>("WhatNewBtn")->click();
    offer->findChild<QPushButton *>("VisitBtn")->click();
    QCOMPARE(room.platform.calls,
             (QStringList{"open https://example.invalid/new", "open https://example.invalid/page"}));
    room.link("UpdateKey", QByteArray(32, 'k').toBase64());
    QMinorUpdate minor;
    minor.show();
    QVERIFY(minor.findChild<QPushButton *>("DownloadBtn")->isVisible());
    QVERIFY(!minor.findChild<QPushButton *>("VisitBtn")->isVisible());
}

void TestUpdateCheck::oneCheckAtATime()
{
    UpdateRoom room;
    room.server.answers["/Kesmira.txt"] = {{}, {}, {}, -1, true};
    QWidget window;
    for (int i = 0; i < 3; ++i) QCheckUpdate::begin(&window);
    QPointer<QCheckUpdate> check = window.findChild<QCheckUpdate *>();
    QCOMPARE(window.findChildren<QCheckUpdate *>().size(), 1);
    QVERIFY(check->isModal()); // a run would wipe what is fetched
    bCheckForUpdate = true;
    QTRY_VERIFY(room.server.asked > 0);
    check->findChild<QPushButton *>("CancelBtn")->click();
    QTRY_VERIFY(!check);
    QVERIFY(!UpdateRoom::shown<MessageBox>()); // who has cancelled isn't told that there is nothing
    // An offer that is open, and a download that goes on from it, are no less a check.
    QMinorUpdate offer(&window);
    offer.show();
    QCheckUpdate::begin(&window);
    room.server.answers["/Kesmira.zip"] = {{}, {}, {}, -1, true};
    offer.DownloadApp();
    QCheckUpdate::begin(&window);
    QVERIFY(!offer.isVisible() && !window.findChild<QCheckUpdate *>());
    QVERIFY(offer.isModal() && window.findChild<QDownloadApp *>()->isModal());
}

void TestUpdateCheck::safeAddresses()
{
    for (const char *safe : {"https://example.invalid/", "http://localhost:8/", "http://127.9.0.1/", "http://[::1]/"})
        QVERIFY2(Download::isSafe(QUrl(safe)), safe);
    for (const char *unsafe :
         {"http://example.invalid/", "http://localhost@example.invalid/", "http://localhost.invalid/",
          "ftp://127.0.0.1/", "file:///etc/passwd", "http://128.0.0.1/", ""})
        QVERIFY2(!Download::isSafe(QUrl(unsafe)), unsafe);
    for (const char *host : {"localhost", "0.0.0.0"}) { // the second one reaches the server too, but isn't said to
        UpdateRoom room;
        const QByteArray next = room.server.base().replace("127.0.0.1", host).toLatin1() + "next";
        room.server.answers["/Kesmira.txt"] = {{}, "302 Found", "Location: " + next + "\r\n"};
        room.server.answers["/next"] = {"8.0.0.0"};
        QCOMPARE(runCheck(true), QString(host) == "0.0.0.0" ? QString("none") : QString("major"));
    }
}

QTEST_MAIN(TestUpdateCheck)
#include "tst_update_check.moc"
