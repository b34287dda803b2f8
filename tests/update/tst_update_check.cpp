// The check for updates against a server on the loopback: what is offered, what is said, what is kept out.

#include "dialogs/MessageBox.h"
#include "update/QCheckUpdate.h"
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
    void offers_data();
    void offers();
    void lastUpdateIsNotOfferedAgain_data();
    void lastUpdateIsNotOfferedAgain();
    void failures_data();
    void failures();
    void cancelled();
    void longTextsAreCut();
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
    if (said.isEmpty()) return {};
    return said == "No update available." ? QString("none") : said;
}

} // namespace

void TestUpdateCheck::offers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("equal") << QByteArray("7.0.0.0\n") << "none";
    QTest::newRow("minor") << QByteArray("7.0.0.1\r\nfurther lines\n") << "minor";
    QTest::newRow("minor, second field") << QByteArray("  7.1.0.0  ") << "minor";
    QTest::newRow("major") << QByteArray("8.0.0.0\n") << "major";
    QTest::newRow("two digits") << QByteArray("10.0.0.0") << "major";
    QTest::newRow("two digits, all fields") << QByteArray("12.3.4.5") << "major";
    QTest::newRow("older") << QByteArray("6.9.9.9") << "none";
    QTest::newRow("words behind the numbers") << QByteArray("8.0.0.0 beta") << "none";
    QTest::newRow("no number") << QByteArray("seven") << "none";
    QTest::newRow("empty") << QByteArray() << "none";
    QTest::newRow("empty first line") << QByteArray("\n8.0.0.0") << "none";
    QTest::newRow("a page") << QByteArray("<!DOCTYPE html><html>8.0.0.0</html>") << "none";
}

void TestUpdateCheck::offers()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, shown);
    QCOMPARE(QCheckUpdate::compare("7.9.0.0", "7.10.0.0"), QCheckUpdate::Offer::None);
    for (const bool asked : {true, false}) {
        UpdateRoom room;
        room.server.answers["/Kesmira.txt"] = {text};
        QCOMPARE(runCheck(asked), !asked && shown == "none" ? QString() : shown);
        const bool offered = shown == "major" || shown == "minor";
        QCOMPARE(UpdateVersionAvailable, offered);
        QCOMPARE(fieldText(softwareUpdate.version),
                 offered ? QString::fromLatin1(text.split('\n').first().trimmed()) : "");
        QCOMPARE(fieldText(softwareUpdate.kind), offered ? (shown == "major" ? "Major" : "Minor") : "");
        QVERIFY(!isMajorUpdate && !isMinorUpdate);
    }
}

void TestUpdateCheck::lastUpdateIsNotOfferedAgain_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("shown");
    QTest::newRow("this one") << " 8.0.0.0 "
                              << "none";
    QTest::newRow("found in it") << "8.0"
                                 << "none";
    QTest::newRow("another") << "7.5.0.0"
                             << "major";
    QTest::newRow("nothing kept") << ""
                                  << "major";
}

void TestUpdateCheck::lastUpdateIsNotOfferedAgain()
{
    QFETCH(QString, last);
    UpdateRoom room;
    QSettings("apple", "KMPR.db").setValue("VNo", last);
    room.server.answers["/Kesmira.txt"] = {"8.0.0.0"};
    QTEST(runCheck(true), "shown");
    // Once something was offered, a check that finds nothing either way says nothing of it.
    UpdateVersionAvailable = true;
    QSettings("apple", "KMPR.db").setValue("VNo", "8.0.0.0");
    qDeleteAll(QApplication::topLevelWidgets());
    QCOMPARE(runCheck(true), QString());
}

void TestUpdateCheck::failures_data()
{
    QTest::addColumn<LoopbackServer::Answer>("answer");
    QTest::newRow("refused") << LoopbackServer::Answer{"8.0.0.0", "404 Not Found"};
    QTest::newRow("server error") << LoopbackServer::Answer{"8.0.0.0", "500 Oops"};
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
    QVERIFY(room.server.asked.size() <= 20);
    room.server.close();
    QCOMPARE(runCheck(true), QString("none"));
    QFile::remove(pApp->strLinkPlistPath);
    QCOMPARE(runCheck(true), QString("none")); // no address at all
}

void TestUpdateCheck::cancelled()
{
    UpdateRoom room;
    room.server.answers["/Kesmira.txt"] = {{}, {}, {}, -1, true};
    bCheckForUpdate = true;
    QPointer<QCheckUpdate> check = new QCheckUpdate;
    check->show();
    QTRY_VERIFY(!room.server.asked.isEmpty());
    check->findChild<QPushButton *>("CancelBtn")->click();
    QTRY_VERIFY(!check);
    QVERIFY(!UpdateRoom::shown<MessageBox>());
}

void TestUpdateCheck::longTextsAreCut()
{
    fillSoftwareUpdate(QString(40, 'k'), QString(33, '1'), QString(32, 't'));
    QCOMPARE(fieldText(softwareUpdate.kind), QString(32, 'k'));
    QCOMPARE(fieldText(softwareUpdate.version), QString(32, '1'));
    QCOMPARE(fieldText(softwareUpdate.title), QString(32, 't'));
    fillSoftwareUpdate("a", "b", "c");
    QCOMPARE(fieldText(softwareUpdate.kind) + fieldText(softwareUpdate.version), QString("ab"));
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
    QCOMPARE(window.findChildren<QCheckUpdate *>().size(), 1);
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
