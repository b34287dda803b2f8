// HEIC in the window: the rows of a run, the repair with a sample, preview and panel, saving.

#include "support/HeicMaker.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QGraphicsView>
#include <QLabel>

class TestWindowHeic : public QObject
{
    Q_OBJECT

private slots:
    void runPreviewAndSave();
    void realOnesShow();
    void sampleForOne_data();
    void sampleForOne();
};

void TestWindowHeic::runPreviewAndSave()
{
    WindowRoom room;
    const MadeHeic healthy = makeHeic();
    room.add({room.source("a b.heic", healthy.bytes), room.source("c.HEIC", makeHeic({.seed = 2}).bytes)});
    QVERIFY(room.repair());
    QCOMPARE(room.rows(),
             (QStringList{"a b.heic||5||", " a b.heic|Repaired|4|x|0x0", "c.HEIC||5||", " c.heic|Repaired|4|x|"}));
    // Its tiles are filler: the window says so itself, and no panel comes.
    const auto *label = room.find<QLabel>("Preview_Label");
    room.clickRow(room.row("a b.heic", true));
    QVERIFY(label->isVisible());
    QTRY_VERIFY(label->text().isEmpty());
    QCOMPARE(room.platform.calls, QStringList());
    // The panel gets all results, and takes the place of those that are open.
    const QString results = room.result("HEIC_Repaired/a b.heic") + ' ' + room.result("HEIC_Repaired/c.heic");
    room.platform.helpers = {71, 72};
    room.window->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), room.window.get());
    QTest::keyClick(room.tree(), Qt::Key_F11);
    QTRY_COMPARE(room.platform.calls, (QStringList{"end 71", "end 72", "preview --at 1 -- " + results}));
    room.platform.calls.clear();
    room.platform.helpers.clear();
    room.clickRow(room.row("c.heic", true));
    const QPoint place = room.tree()->visualItemRect(room.row("c.heic", true)).center();
    QTest::mouseDClick(room.tree()->viewport(), Qt::LeftButton, {}, place);
    QTRY_COMPARE(room.platform.calls, QStringList("preview --at 2 -- " + results));

    room.chooser.answers.push_back({room.destination()});
    room.script.expect("SavingFinishDlg", "OkBtn");
    QVERIFY(room.click("SaveRepairBtn_2"));
    QCOMPARE(WindowRoom::filesBelow(room.destination()),
             (QStringList{"RepairedFiles/HEIC_Repaired/a b.heic", "RepairedFiles/HEIC_Repaired/c.heic"}));
    QCOMPARE(contents(room.destination() + "/RepairedFiles/HEIC_Repaired/a b.heic"), expectedRewrite(healthy, healthy));
    QCOMPARE(room.complaint(), QString());
}

void TestWindowHeic::realOnesShow()
{
    const QString real = QStringLiteral(KESMIRA_CORPUS "/heic/iPhone-7_3-frontcam.heic");
    if (!QFileInfo::exists(real)) QSKIP("no real photographs here");
    WindowRoom room;
    room.add({room.source("IMG.1.heic", contents(real)), room.source("b.jpg", photos::withThumbnail())});
    QVERIFY(room.repair());
    const auto *view = room.find<QGraphicsView>("graphicsView");
    const auto shown = [&] { return view->transform().mapRect(view->scene()->itemsBoundingRect()).size().toSize(); };
    room.window->activateWindow();
    room.tree()->setFocus();
    room.clickRow(room.row("IMG.1.heic", true));
    QTRY_VERIFY_WITH_TIMEOUT(view->isVisible(), 60000);
    QCOMPARE(std::max(shown().width() * 290, shown().height() * 400), 400 * 290); // as large as the preview holds
    QVERIFY(room.tree()->hasFocus());
    // The last click wins: a picture that is being decoded doesn't come any more.
    room.clickRow(room.row("IMG.1.heic", true));
    room.clickRow(room.row("b.jpg", true));
    QTRY_VERIFY(view->isVisible());
    QCOMPARE(shown(), QSize(64, 48));
    QTest::keyClick(room.find<QWidget>("graphicsView"), Qt::Key_Return);
    QTRY_COMPARE(room.platform.calls.size(), 1);
    QVERIFY(room.platform.calls[0].startsWith("preview --at 2 -- "));
}

void TestWindowHeic::sampleForOne_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("entryCount");
    QTest::addColumn<QString>("kind");
    QTest::newRow("48 tiles") << 48 << 0x33 << "standard";
    QTest::newRow("36 tiles") << 36 << 0x27 << "square";
    QTest::newRow("35 tiles") << 35 << 0x26 << "standard_selfie";
    QTest::newRow("25 tiles") << 25 << 0x1C << "square_selfie";
}

void TestWindowHeic::sampleForOne()
{
    QFETCH(int, tiles);
    QFETCH(int, entryCount);
    QFETCH(QString, kind);
    WindowRoom room;
    const MadeHeic sample = makeHeic({.tiles = tiles, .entryCount = entryCount});
    const MadeHeic lost = makeHeic({.tiles = tiles, .entryCount = entryCount, .seed = 2});
    // Everything in front of the tiles is destroyed, but stands there: a file of the stream alone is refused.
    const QByteArray damaged = QByteArray(300, 0) + lost.stream;
    room.add({room.source("a.HEIC", damaged), room.source("b.HEIC", damaged)});
    QVERIFY(room.repair());
    QCOMPARE(room.rows(), (QStringList{"a.HEIC||2||", "b.HEIC||2||"}));

    room.chooser.answers.push_back({room.source("sample/s.heic", sample.bytes)});
    room.script.expect("AdvancedRepairDlg", "NextBtn", [kind](QDialog *dialog) {
        QVERIFY(dialog->findChild<QLabel *>("label")->text().contains("' sample HEIC " + kind + " '"));
    });
    room.script.expect("ReferenceFileDlg", "RepairBtn", [](QDialog *dialog) {
        dialog->findChild<QAbstractButton *>("BrowseBtn")->click();
        dialog->findChild<QAbstractButton *>("checkBox")->click(); // of no effect here: one file a run
    });
    room.script.expect("CompletionMsg", "OkBtn");
    QTest::mouseClick(room.rowButton("b.HEIC"), Qt::LeftButton);
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(room.rows(), (QStringList{"a.HEIC||2||", "b.HEIC||5||", " b.HEIC|Repaired|4|x|"}));
    QVERIFY(!room.rowButton("b.HEIC")->isVisible());
    QCOMPARE(contents(room.result("HEIC_Repaired/b.HEIC")), expectedRewrite(sample, lost));
}

QTEST_MAIN(TestWindowHeic)
#include "tst_window_heic.moc"
