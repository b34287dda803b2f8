// The window and its worker in every order of Stop, Back, Save, a further run and Close: nothing is shared without care,
// nothing hangs.

#include "app/StopFlag.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

class TestWindowThreads : public QObject
{
    Q_OBJECT

private slots:
    void orders_data();
    void orders();
};

void TestWindowThreads::orders_data()
{
    // One letter a deed: r wait until the run shows, 1 until it has an output, s stop, b back, a again (Repair),
    // f wait until all is at rest, p preview, v save, c close.
    QTest::addColumn<QString>("deeds");
    for (const char *deeds : {"f p v f", "r s f v", "1 s b", "1 s b a f b f", "r s b a r s b a f", "1 s p v f", "r c",
                              "1 c", "r s c", "1 s b c", "1 s b a c", "f b c", "r s b a r c"})
        QTest::newRow(deeds) << QString(deeds);
}

void TestWindowThreads::orders()
{
    QFETCH(QString, deeds);
    WindowRoom room;
    QStringList paths{room.source("a.jpg", photos::withThumbnail())};
    const bool stops = deeds.contains('s') || deeds.contains('c');
    for (int i = 0; i < (stops ? 12 : 3); ++i) paths << room.source(QString("l%1.jpg").arg(i), photos::longWork());
    room.add(paths);
    QVERIFY(room.click("StartRepairFilesBtn"));
    for (const QString &deed : deeds.split(' ')) {
        if (deed == "r") QTRY_VERIFY_WITH_TIMEOUT(room.find("StopRepairProcessBtn_2")->isVisible(), 60000);
        if (deed == "1") QTRY_VERIFY_WITH_TIMEOUT(room.row("a.jpg", true), 60000);
        if (deed == "f") {
            if (room.window->workerRuns() && pApp->bResultsPage && !stopRequested())
                room.script.expect("CompletionMsg", "OkBtn");
            QVERIFY(room.rest());
        }
        if (deed == "s") {
            room.script.expect("StopDlg", "YesBtn");
            QVERIFY(room.click("StopRepairProcessBtn_2"));
        }
        if (deed == "b") {
            room.script.expect("BackApplicationDlg", "YesBtn");
            QVERIFY(room.click("BackBtn_2"));
        }
        if (deed == "a") {
            QVERIFY(room.click("StartRepairFilesBtn"));
            QTRY_VERIFY_WITH_TIMEOUT(room.find("StopRepairProcessBtn_2")->isVisible(), 60000);
        }
        if (deed == "p")
            for (QTreeWidgetItemIterator it(room.tree()); *it; ++it) room.window->OnItemClicked(*it, 0);
        if (deed == "v" && room.find("SaveRepairBtn_2")->isEnabled()) {
            room.chooser.answers.push_back({room.destination()});
            room.script.expect("SavingFinishDlg", "OkBtn");
            room.click("SaveRepairBtn_2");
        }
        if (deed == "c") {
            room.script.expect("CloseApplicationDlg", "YesBtn");
            QVERIFY(room.window->isVisible() && (room.click("closeBtn") || room.click("closeBtn_2")));
            QVERIFY(!QFileInfo::exists(room.root() + "/RepairedFiles"));
        }
    }
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
}

QTEST_MAIN(TestWindowThreads)
#include "tst_window_threads.moc"
