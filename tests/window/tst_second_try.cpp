// What can be tried for results that are there: a sample, another one, and deep salvage for those that it may help.

#include "support/Damage.h"
#include "support/HeicMaker.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QLabel>
#include <QMenu>
#include <QTextEdit>

namespace {

/// With tables of its own, which no library has.
QByteArray sound(const QImage &picture = drawPicture(320, 240, 3))
{
    return makeJpeg(picture, {.quality = 90, .optimised = true, .jfif = false, .segments = {exifSegment({})}});
}

QByteArray halfGrey()
{
    return sound().left(sound().size() * 6 / 10);
}

QByteArray tilesOf(const MadeHeic &heic)
{
    return QByteArray(300, 0) + heic.stream;
}

/// By the link under the preview of the row.
void trySample(WindowRoom &room, QTreeWidgetItem *row, const QString &sample)
{
    room.tree()->setCurrentItem(row);
    room.expectSample(sample);
    QVERIFY(room.click("sampleLink"));
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
}

void stop(WindowRoom &room)
{
    room.script.expect("StopDlg", "YesBtn");
    QVERIFY(room.click("StopRepairProcessBtn_2"));
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
}

QStringList saved(WindowRoom &room)
{
    room.chooser.answers.push_back({room.destination()});
    room.script.expect("SavingFinishDlg", "OkBtn");
    room.click("SaveRepairBtn_2");
    return WindowRoom::filesBelow(room.destination() + "/RepairedFiles");
}

} // namespace

class TestSecondTry : public QObject
{
    Q_OBJECT

private slots:
    void rightRow_data();
    void rightRow();
    void allOfOneFormat();
    void oneSampleAfterTheOther();
    void tilesAndTwoSamples();
    void stopKeepsWhatIsThere();
    void salvageForThose();
    void stoppedSalvageCanGoOn();
};

void TestSecondTry::rightRow_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("damaged");
    QTest::addColumn<QByteArray>("sample");
    QTest::newRow("JPEG") << "b.jpg" << photos::scanOnly() << photos::sample();
    QTest::newRow("HEIC") << "b.HEIC" << tilesOf(makeHeic({.seed = 2})) << makeHeic().bytes;
}

void TestSecondTry::rightRow()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, damaged);
    QFETCH(QByteArray, sample);
    WindowRoom room; // two cards with the same names
    room.add({room.source("one/" + name, damaged), room.source("two/" + name, damaged)});
    QVERIFY(room.repair());
    QTreeWidgetItem *first = room.tree()->topLevelItem(0), *second = room.tree()->topLevelItem(1);
    room.expectSample(room.source("s." + name.section('.', 1), sample));
    QTest::mouseClick(room.tree()->rowButton(second), Qt::LeftButton);
    QVERIFY(room.rest());
    QCOMPARE(first->childCount(), 0);
    QCOMPARE(second->childCount(), 1);
    QCOMPARE(second->child(0)->text(0), "Copy(1)_" + name);
    QVERIFY(room.tree()->rowButton(first)->isVisible() && !room.tree()->rowButton(second)->isVisible());
}

void TestSecondTry::allOfOneFormat()
{
    WindowRoom room;
    room.add({room.source("a.HEIC", tilesOf(makeHeic({.seed = 2}))), room.source("b.jpg", photos::scanOnly()),
              room.source("c.jpg", photos::plain()), room.source("d.jpg", photos::scanOnly(1))});
    QVERIFY(room.repair());
    room.takeSample("d.jpg", room.source("s.jpg", photos::sample()), true);
    QVERIFY(room.rest());
    QCOMPARE(room.rows(),
             (QStringList{"a.HEIC||2||", "b.jpg||5||", " b.jpg|Repaired|4|x|32x48", "c.jpg||5||",
                          " c.jpg|Repaired|4|x|32x48", "d.jpg||5||", " d.jpg|Repaired|4|x|32x48"}));
    QVERIFY(room.rowButton("a.HEIC")->isVisible());
    // Header of the sample and scan of the damaged file: the picture that both were made of.
    QCOMPARE(largestDifference(QImage(room.result("b.jpg")), QImage::fromData(photos::plain())), 0);
    QVERIFY(room.row("b.jpg", true)->toolTip(0).contains("sample"));
    QCOMPARE(saved(room), (QStringList{"b.jpg", "c.jpg", "d.jpg"}));
}

void TestSecondTry::oneSampleAfterTheOther()
{
    WindowRoom room;
    const QString right = room.source("right.jpg", sound()), none = room.source("none.jpg", "nothing");
    room.add({room.source("grey.jpg", halfGrey()), room.source("scan.jpg", photos::scanOf(sound())),
              room.source("good.jpg", sound()),
              room.source("tail.jpg", contents(KESMIRA_SOURCE_DIR "/samples/lost-head-tables-left.jpg"))});
    QVERIFY(room.repair());
    room.tree()->setCurrentItem(room.row("tail.jpg")); // whole, but perhaps no more than a preview inside of the file
    QVERIFY(room.find("sampleLink")->isVisible());
    room.tree()->setCurrentItem(room.row("good.jpg"));
    QVERIFY(!room.find("sampleLink")->isVisible());
    room.row("good.jpg", true)->setCheckState(0, Qt::Unchecked);
    const QByteArray told = contents(room.result("grey.jpg"));
    trySample(room, room.row("grey.jpg", true), none);
    trySample(room, room.row("grey.jpg", true), right);
    const QString part = "|Repaired|4|x|240x320";
    QCOMPARE(room.rows().mid(0, 3), (QStringList{"grey.jpg||5||", " grey.jpg" + part, " Copy(1)_grey.jpg" + part}));
    QVERIFY(contents(room.result("grey.jpg")) == told);
    QVERIFY(room.row("grey.jpg", true)->toolTip(0).contains("segments"));
    QVERIFY(!room.row("grey.jpg", true)->toolTip(0).contains("Copy(1)"));
    QCOMPARE(room.row("good.jpg", true)->checkState(0), Qt::Unchecked);

    trySample(room, room.row("scan.jpg"), none);
    QCOMPARE(room.row("scan.jpg")->text(column::Status), QString("7"));
    QVERIFY(room.rowButton("scan.jpg")->isVisible() && room.rowButton("scan.jpg")->isEnabled());
    trySample(room, room.row("scan.jpg"), right);
    QCOMPARE(largestDifference(QImage(room.result("scan.jpg")), QImage::fromData(sound())), 0);
    // Whole, but by a sample: its colours may be wrong. And noise beside it isn't ticked.
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
    room.tree()->setCurrentItem(room.row("scan.jpg"));
    QApplication::sendEvent(room.tree(), &asked);
    auto *menu = room.find<QMenu>("rowMenu");
    QCOMPARE(menu->actions().first()->text(), QString("Try another sample"));
    menu->setActiveAction(menu->actions().first());
    room.expectSample(room.source("wrong.jpg", photos::sample()));
    QTest::keyClick(menu, Qt::Key_Return);
    QVERIFY(room.rest());
    QCOMPARE(room.row("Copy(1)_scan.jpg", true)->checkState(0), Qt::Unchecked);
    QCOMPARE(saved(room), (QStringList{"Copy(1)_grey.jpg", "good.jpg", "grey.jpg", "scan.jpg", "tail.jpg"}));
}

void TestSecondTry::tilesAndTwoSamples()
{
    WindowRoom room;
    const MadeHeic made = makeHeic({.entryCount = 0x35, .seed = 2}), one = makeHeic(), two = makeHeic({.seed = 3});
    room.add({room.source("a.heic", made.bytes)}); // no layout has so many entries
    QVERIFY(room.repair());
    QCOMPARE(room.rows(), (QStringList{"a.heic||5||", " a.heic|Repaired|4|x|0x0"}));
    QVERIFY(room.find<QTextEdit>("detailsPane")->toPlainText().contains("Only the image tiles"));
    QVERIFY(room.find("partDoubtful")->isVisible());
    QTRY_VERIFY(room.rowButton("a.heic") && room.rowButton("a.heic")->isVisible());
    for (const MadeHeic &sample : {made, one, two, made})
        trySample(room, room.row("a.heic"), room.source("sample/s.heic", sample.bytes));
    // The first picture takes the place of the tiles, and what gives tiles alone once more is none beside it.
    QCOMPARE(room.rows(), (QStringList{"a.heic||5||", " a.heic|Repaired|4|x|", " Copy(1)_a.heic|Repaired|4|x|"}));
    QVERIFY(!room.rowButton("a.heic")->isVisible());
    QVERIFY(contents(room.result("HEIC_Repaired/a.heic")) == expectedRewrite(one, made));
    QVERIFY(contents(room.result("HEIC_Repaired/Copy(1)_a.heic")) == expectedRewrite(two, made));
    QVERIFY(room.row("a.heic")->toolTip(0).contains("The sample doesn't fit this file."));
}

void TestSecondTry::stopKeepsWhatIsThere()
{
    WindowRoom room;
    const QByteArray large = sound(drawPicture(2000, 1500));
    QStringList paths{room.source("grey.jpg", halfGrey())};
    for (int i = 0; i < 8; ++i) paths << room.source(QString("%1.jpg").arg(i), photos::scanOf(large));
    room.add(paths);
    QVERIFY(room.repair());
    const QStringList told = room.rows();
    room.takeSample("0.jpg", room.source("s.jpg", large), true, true);
    QTRY_VERIFY(room.row("0.jpg")->childCount() > 0);
    stop(room);
    QCOMPARE(room.rows().mid(0, 2), told.mid(0, 2));
    room.tree()->setCurrentItem(room.row("7.jpg"));
    QVERIFY(room.find("sampleLink")->isVisible());
    QVERIFY(saved(room).contains("grey.jpg"));
}

void TestSecondTry::salvageForThose()
{
    WindowRoom room;
    room.add({room.source("a.jpg", photos::plain()), room.source("zeros.jpg", QByteArray(900, 0)),
              room.source("lost.jpg", Damage(sound()).zero(at(0xFFC0), 2)), room.source("grey.jpg", halfGrey())});
    QVERIFY(room.repair());
    room.row("a.jpg", true)->setCheckState(0, Qt::Unchecked);
    QStringList rows = room.rows();
    const QByteArray told = contents(room.result("grey.jpg"));
    QCOMPARE(room.find("salvageOffer")->text(), QString("Try deep salvage for 2 files"));
    room.script.expect("CompletionMsg", "OkBtn");
    QVERIFY(room.click("salvageOffer"));
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
    rows.insert(rows.indexOf("lost.jpg||2||") + 1, " lost_salvaged.jpg|Salvaged|4|x|240x320");
    QCOMPARE(room.rows().mid(0, rows.size()), rows);
    QVERIFY(contents(room.result("grey.jpg")) == told);
    QCOMPARE(largestDifference(QImage(room.result("lost_salvaged.jpg")), QImage::fromData(sound())), 0);
    QVERIFY(!room.find("salvageOffer")->isVisible()); // nothing is left for it
    QVERIFY(!pApp->bDeepSalvage);
}

void TestSecondTry::stoppedSalvageCanGoOn()
{
    WindowRoom room;
    const QByteArray large = sound(drawPicture(3200, 2400));
    room.add({room.source("long.jpg", Damage(large).zero(inScan(large.size() / 4), 3000))});
    QVERIFY(room.repair());
    const QStringList told = room.rows();
    QVERIFY(room.click("salvageOffer"));
    const auto *label = room.find<QLabel>("label_RepairFileName");
    QTRY_COMPARE_WITH_TIMEOUT(label->text(), QString("Deep salvage: long.jpg"), 60000);
    QVERIFY(!room.find("salvageOffer")->isVisible());
    stop(room);
    QCOMPARE(room.rows(), told);
    QCOMPARE(room.find("salvageOffer")->text(), QString("Try deep salvage for 1 file"));
    room.script.expect("BackApplicationDlg", "YesBtn");
    QVERIFY(room.click("BackBtn_2"));
    QVERIFY(room.rest());
    QCOMPARE(WindowRoom::filesBelow(room.result({})), QStringList());
    QVERIFY(room.repair());
    QCOMPARE(room.rows(), told);
}

QTEST_MAIN(TestSecondTry)
#include "tst_second_try.moc"
