// What can be tried again for results that are there: another sample, and deep salvage for those that it may help.

#include "support/Damage.h"
#include "support/HeicMaker.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QTemporaryDir>

namespace {

QImage photo()
{
    return drawPicture(320, 240, 3);
}

/// With tables of its own, which no library has.
QByteArray healthy(const QImage &picture, bool fitForASample = false)
{
    JpegOptions options{.quality = 90, .optimised = true};
    if (fitForASample) {
        options.jfif = false;
        options.segments = {exifSegment({})};
    }
    return makeJpeg(picture, options);
}

QByteArray scanOf(const QByteArray &whole)
{
    for (const SegmentPlace &segment : segmentPlaces(whole))
        if (segment.marker == 0xFFDA) return QByteArray("\xFF\xD8", 2) + whole.mid(int(segment.offset));
    return {};
}

QByteArray halfGrey()
{
    const QByteArray whole = healthy(photo());
    return whole.left(whole.size() * 6 / 10);
}

/// Takes a sample by `ask`, which opens the first of the two dialogs.
void trySample(WindowRoom &room, const QString &sample, const std::function<void()> &ask, bool all = false)
{
    room.chooser.answers.push_back({sample});
    room.script.expect("AdvancedRepairDlg", "NextBtn");
    room.script.expect("ReferenceFileDlg", "RepairBtn", [all](QDialog *dialog) {
        dialog->findChild<QAbstractButton *>("BrowseBtn")->click();
        if (all) dialog->findChild<QAbstractButton *>("checkBox")->click();
    });
    room.script.expect("CompletionMsg", "OkBtn");
    ask();
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
}

/// By the link under the preview of the row.
void trySampleFor(WindowRoom &room, QTreeWidgetItem *row, const QString &sample, bool all = false)
{
    room.tree()->setCurrentItem(row);
    trySample(
        room, sample, [&room] { QVERIFY(room.click("sampleLink")); }, all);
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
    void initTestCase() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path()); }
    void rightRow_data();
    void rightRow();
    void allOfOneFormat();
    void oneSampleAfterTheOther();
    void tilesAndTwoSamples();
    void stopKeepsWhatIsThere();
    void salvageForThose();
    void stoppedSalvageCanGoOn();

private:
    QTemporaryDir m_folder;
};

void TestSecondTry::rightRow_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("damaged");
    QTest::addColumn<QByteArray>("sample");
    QTest::newRow("JPEG") << "b.jpg" << photos::scanOnly() << photos::sample();
    QTest::newRow("HEIC") << "b.HEIC" << QByteArray(300, 0) + makeHeic({.seed = 2}).stream << makeHeic().bytes;
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
    trySample(room, room.source("s." + name.section('.', 1), sample),
              [&] { QTest::mouseClick(room.tree()->rowButton(second), Qt::LeftButton); });
    QCOMPARE(first->childCount(), 0);
    QCOMPARE(second->childCount(), 1);
    QCOMPARE(second->child(0)->text(0), "Copy(1)_" + name);
    QVERIFY(room.tree()->rowButton(first)->isVisible() && !room.tree()->rowButton(second)->isVisible());
}

void TestSecondTry::allOfOneFormat()
{
    WindowRoom room;
    room.add({room.source("a.HEIC", QByteArray(300, 0) + makeHeic({.seed = 2}).stream),
              room.source("b.jpg", photos::scanOnly()), room.source("c.jpg", photos::scanOnly(1))});
    QVERIFY(room.repair());
    trySample(
        room, room.source("s.jpg", photos::sample()),
        [&] { QTest::mouseClick(room.rowButton("c.jpg"), Qt::LeftButton); }, true);
    QCOMPARE(room.rows(),
             (QStringList{"a.HEIC||2||", "b.jpg||5||", " b.jpg|Repaired|4|x|32x48", "c.jpg||5||",
                          " c.jpg|Repaired|4|x|32x48"}));
    QVERIFY(room.rowButton("a.HEIC")->isVisible());
    QCOMPARE(saved(room), (QStringList{"b.jpg", "c.jpg"}));
}

void TestSecondTry::oneSampleAfterTheOther()
{
    WindowRoom room;
    const QString wrong = room.source("wrong.jpg", photos::sample());
    const QString right = room.source("right.jpg", healthy(photo(), true));
    room.add({room.source("grey.jpg", halfGrey()), room.source("scan.jpg", scanOf(healthy(photo()))),
              room.source("good.jpg", healthy(photo())), room.source("zeros.jpg", QByteArray(900, 0))});
    QVERIFY(room.repair());
    const QStringList before = room.rows();
    for (const char *name : {"good.jpg", "zeros.jpg"}) { // no sample makes these better, unless it was told so
        room.tree()->setCurrentItem(room.row(name));
        QCOMPARE(room.find("sampleLink")->isVisible(), before.contains(QString(name) + "||2||"));
    }
    // What came before stays, and nothing else changes; no telling word or button is there for this row.
    const QByteArray told = contents(room.result("grey.jpg"));
    room.row("good.jpg", true)->setCheckState(0, Qt::Unchecked);
    trySampleFor(room, room.row("grey.jpg", true), right);
    QCOMPARE(room.row("grey.jpg")->childCount(), 2);
    QCOMPARE(room.row("grey.jpg")->text(column::Status), QString("5"));
    QVERIFY(contents(room.result("grey.jpg")) == told);
    QCOMPARE(room.row("good.jpg", true)->checkState(0), Qt::Unchecked);
    QCOMPARE(room.row("Copy(1)_grey.jpg", true)->checkState(0), Qt::Checked);
    // A name that gave nothing is free for the next; noise isn't ticked.
    trySampleFor(room, room.row("scan.jpg"), wrong);
    trySampleFor(room, room.row("scan.jpg"), right);
    QTreeWidgetItem *scan = room.row("scan.jpg");
    QTreeWidgetItem *last = scan->child(scan->childCount() - 1);
    QCOMPARE(largestDifference(QImage(room.result(last->text(0))), QImage::fromData(healthy(photo()))), 0);
    QCOMPARE(room.find("sampleLink")->text(), QString("Try another sample"));

    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
    room.tree()->setCurrentItem(scan);
    QApplication::sendEvent(room.tree(), &asked);
    auto *menu = room.find<QMenu>("rowMenu");
    QCOMPARE(menu->actions().first()->text(), QString("Try another sample"));
    menu->setActiveAction(menu->actions().first());
    trySample(room, wrong, [menu] { QTest::keyClick(menu, Qt::Key_Return); });
    QVERIFY(saved(room).contains("Copy(1)_grey.jpg"));
}

void TestSecondTry::tilesAndTwoSamples()
{
    WindowRoom room;
    const MadeHeic made = makeHeic({.entryCount = 0x35, .seed = 2}), one = makeHeic(), two = makeHeic({.seed = 3});
    const MadeHeic other = makeHeic({.entryCount = 0x35}); // no layout has so many entries: tiles alone once more
    room.add({room.source("a.heic", made.bytes)});
    QVERIFY(room.repair());
    for (const MadeHeic &sample : {one, two, other})
        trySampleFor(room, room.row("a.heic"), room.source("sample/s.heic", sample.bytes));
    QCOMPARE(room.rows(), (QStringList{"a.heic||5||", " a.heic|Repaired|4|x|", " Copy(1)_a.heic|Repaired|4|x|"}));
    QVERIFY(contents(room.result("HEIC_Repaired/a.heic")) == expectedRewrite(one, made));
    QVERIFY(contents(room.result("HEIC_Repaired/Copy(1)_a.heic")) == expectedRewrite(two, made));
    QVERIFY(room.row("a.heic")->toolTip(0).contains("The sample doesn't fit this file."));
    QCOMPARE(saved(room), (QStringList{"HEIC_Repaired/Copy(1)_a.heic", "HEIC_Repaired/a.heic"}));
}

void TestSecondTry::stopKeepsWhatIsThere()
{
    WindowRoom room;
    const QImage large = drawPicture(3200, 2400);
    const QByteArray scan = scanOf(makeJpeg(large));
    QStringList paths{room.source("grey.jpg", halfGrey())};
    for (int i = 0; i < 8; ++i) paths << room.source(QString("%1.jpg").arg(i), scan);
    room.add(paths);
    QVERIFY(room.repair());
    QStringList told = room.rows();
    const QString sample = room.source("s.jpg", makeJpeg(large, {.jfif = false, .segments = {exifSegment({})}}));
    room.chooser.answers.push_back({sample});
    room.script.expect("AdvancedRepairDlg", "NextBtn");
    room.script.expect("ReferenceFileDlg", "RepairBtn", [](QDialog *dialog) {
        dialog->findChild<QAbstractButton *>("BrowseBtn")->click();
        dialog->findChild<QAbstractButton *>("checkBox")->click();
    });
    QTest::mouseClick(room.rowButton("0.jpg"), Qt::LeftButton);
    QTRY_VERIFY(room.row("0.jpg")->childCount() > 0);
    room.script.expect("StopDlg", "YesBtn");
    QVERIFY(room.click("StopRepairProcessBtn_2"));
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(room.rows().mid(0, 2), told.mid(0, 2));
    QVERIFY(room.find("SaveRepairBtn_2")->isEnabled());
    room.tree()->setCurrentItem(room.row("7.jpg"));
    QVERIFY(room.find("sampleLink")->isVisible());
    QVERIFY(saved(room).contains("grey.jpg"));
}

void TestSecondTry::salvageForThose()
{
    WindowRoom room;
    const QByteArray lost = Damage(healthy(photo())).zero(at(0xFFC0), 2); // the frame's length
    room.add({room.source("a.jpg", photos::plain()), room.source("lost.jpg", lost),
              room.source("zeros.jpg", QByteArray(900, 0)), room.source("grey.jpg", halfGrey())});
    QVERIFY(room.repair());
    QStringList rows = room.rows();
    QCOMPARE(room.find("salvageOffer")->text(), QString("Try deep salvage for 2 files"));
    const QByteArray told = contents(room.result("grey.jpg"));
    room.row("a.jpg", true)->setCheckState(0, Qt::Unchecked);
    room.script.expect("CompletionMsg", "OkBtn");
    QVERIFY(room.click("salvageOffer"));
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
    rows.replace(1, rows[1].replace("|x|", "|-|"));
    const int place = rows.indexOf("lost.jpg||2||") + 1;
    QVERIFY(place > 0);
    rows.insert(place, " lost_salvaged.jpg|Salvaged|4|x|240x320");
    for (const QString &row : rows) QVERIFY2(room.rows().contains(row), qPrintable(row));
    QVERIFY(contents(room.result("grey.jpg")) == told);
    QCOMPARE(largestDifference(QImage(room.result("lost_salvaged.jpg")), QImage::fromData(healthy(photo()))), 0);
    QVERIFY(!room.find("salvageOffer")->isVisible()); // nothing is left for it
    QVERIFY(!pApp->bDeepSalvage);
}

void TestSecondTry::stoppedSalvageCanGoOn()
{
    WindowRoom room;
    const QByteArray large = healthy(drawPicture(3200, 2400));
    room.add({room.source("long.jpg", Damage(large).zero(inScan(large.size() / 4), 3000))});
    QVERIFY(room.repair());
    const QStringList told = room.rows();
    QVERIFY(room.click("salvageOffer"));
    const auto *label = room.find<QLabel>("label_RepairFileName");
    QTRY_COMPARE_WITH_TIMEOUT(label->text(), QString("Deep salvage: long.jpg"), 60000);
    QVERIFY(!room.find("salvageOffer")->isVisible());
    room.script.expect("StopDlg", "YesBtn");
    QVERIFY(room.click("StopRepairProcessBtn_2"));
    QVERIFY(room.rest());
    QCOMPARE(room.rows(), told);
    QCOMPARE(room.find("salvageOffer")->text(), QString("Try deep salvage for 1 file"));
    room.script.expect("BackApplicationDlg", "YesBtn");
    QVERIFY(room.click("BackBtn_2"));
    QVERIFY(room.rest());
    QCOMPARE(WindowRoom::filesBelow(room.result({})), QStringList());
    QVERIFY(room.repair());
    QCOMPARE(room.rows(), told);
    QCOMPARE(room.complaint(), QString());
}

QTEST_MAIN(TestSecondTry)
#include "tst_second_try.moc"
