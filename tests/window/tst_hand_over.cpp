// Files that another start of the program hands over to the window, whatever it is just doing.

#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QTest>

namespace {

QStringList listed(const WindowRoom &room)
{
    QStringList names;
    for (int i = 0; i < room.list()->topLevelItemCount(); ++i) names << room.list()->topLevelItem(i)->text(0);
    return names;
}

} // namespace

class TestHandOver : public QObject
{
    Q_OBJECT

private slots:
    void toTheList_data();
    void toTheList();
    void whileTheListIsFilled_data();
    void whileTheListIsFilled();
};

void TestHandOver::toTheList_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("nothing but to the front") << QStringList{} << QStringList{};
    QTest::newRow("as the dialog takes them")
        << QStringList{"a.jpg", "b.CR2", "c.png", "d e.HEIC"} << QStringList{"a.jpg", "b.CR2", "d e.HEIC"};
}

void TestHandOver::toTheList()
{
    QFETCH(QStringList, files);
    QFETCH(QStringList, expected);
    WindowRoom room;
    QStringList paths;
    for (const QString &file : files) paths << room.source(file, "x");
    room.window->showMinimized();
    room.window->ComeToFront(paths);
    QVERIFY(!room.window->isMinimized());
    QCOMPARE(listed(room), expected);
    QCOMPARE(room.find("StartRepairFilesBtn")->isVisible(), !expected.isEmpty());
}

void TestHandOver::whileTheListIsFilled_data()
{
    QTest::addColumn<bool>("dropped");
    QTest::newRow("dialog") << false;
    QTest::newRow("drop") << true;
}

/// A question keeps the filling from its end; what comes meanwhile mustn't wait until the list is filled once more.
void TestHandOver::whileTheListIsFilled()
{
    QFETCH(bool, dropped);
    WindowRoom room;
    const QString first = room.source("a.jpg", "x");
    const QString last = room.source("b.jpg", "x");
    const QString other = room.source("c.CR2", "x");
    room.script.expect("MessageBox", "OkBtn", [&](QDialog *) { room.window->ComeToFront({other}); });
    const QStringList paths{first, first, last};
    if (dropped)
        room.window->SetItemInTreeWidget(paths);
    else
        room.add(paths);
    QStringList all = listed(room);
    all.sort(); // a drop sorts the list
    QCOMPARE(all, (QStringList{"a.jpg", "b.jpg", "c.CR2"}));
    QCOMPARE(room.complaint(), QString());
}

QTEST_MAIN(TestHandOver)
#include "tst_hand_over.moc"
