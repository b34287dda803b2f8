// The order of the results, and what a person sees of their names.

#include "window/NameDelegate.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QListView>
#include <QPushButton>
#include <QTimer>

class TestWindowOrder : public QObject
{
    Q_OBJECT

private slots:
    void resultsAreSorted();
    void thumbnailsKeepTheirMark();
    void questionGoesWithTheRun();
    void allMarkedAreFiles();
};

void TestWindowOrder::resultsAreSorted()
{
    WindowRoom room;
    const QString sample = room.source("sample/s.jpg", photos::sample());
    room.add({room.source("c.jpg", photos::plain()), room.source("b.jpg", photos::withThumbnail()),
              room.source("a.jpg", photos::scanOnly()), room.source("d.jpg", photos::scanOnly(1))});
    QVERIFY(room.repair());
    const auto click = [&room](int section) {
        auto *head = room.tree()->header();
        QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, {head->sectionViewportPosition(section) + 20, 5});
        QString order;
        for (int i = 0; i < 4; ++i) order += room.tree()->topLevelItem(i)->text(0).at(0);
        return order;
    };
    QCOMPARE(click(column::Name), QString("abcd"));
    QCOMPARE(click(column::Name), QString("dcba"));
    QCOMPARE(room.row("b.jpg")->child(0)->text(0), QString("b.jpg")); // and the thumbnail stays below it
    QCOMPARE(click(column::Name), QString("cbad"));
    QCOMPARE(click(column::Type), QString("cbad")); // what failed is last
    QCOMPARE(click(column::Type), QString("adcb"));
    QCOMPARE(click(column::Resolution), QString("adcb"));
    room.takeSample("d.jpg", sample, false);
    QVERIFY(room.rest());
    QCOMPARE(
        room.rows(),
        (QStringList{"a.jpg||2||", "c.jpg||5||", " c.jpg|Repaired|4|x|32x48", "d.jpg||5||", " d.jpg|Repaired|4|x|32x48",
                     "b.jpg||5||", " b.jpg|Repaired|4|x|48x64", " b_[T1].jpg|Thumbnail|4|x|24x32"}));
    QTRY_VERIFY(room.rowButton("a.jpg")->isVisible() && !room.rowButton("d.jpg")->isVisible());
    QCOMPARE(room.complaint(), QString());
}

void TestWindowOrder::thumbnailsKeepTheirMark()
{
    struct Shown : NameDelegate
    {
        using NameDelegate::initStyleOption;
    } delegate;
    QTreeWidget tree;
    new QTreeWidgetItem(&tree, {"PXL_20261126_114500123_[T1].jpg"});
    QStyleOptionViewItem option;
    option.widget = &tree;
    option.rect = QRect(0, 0, 150, 20);
    delegate.initStyleOption(&option, tree.model()->index(0, 0));
    QVERIFY2(option.text.startsWith("P") && option.text.endsWith("_[T1].jpg"), qPrintable(option.text));
    QVERIFY(option.fontMetrics.horizontalAdvance(option.text) <= 150);
}

void TestWindowOrder::questionGoesWithTheRun()
{
    WindowRoom room;
    room.add({room.source("long.jpg", photos::longWork())});
    QVERIFY(room.click("StartRepairFilesBtn"));
    QTRY_VERIFY(room.find("StopRepairProcessBtn_2")->isVisible());
    room.script.expect("StopDlg", {});
    room.script.expect("CompletionMsg", "OkBtn");
    QVERIFY(room.click("StopRepairProcessBtn_2"));
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
}

void TestWindowOrder::allMarkedAreFiles()
{
    RunFolder room;
    const QStringList files{room.source("a.jpg", "x"), room.source("b.jpg", "x")};
    room.source("folder/c.jpg", "x");
    QTimer person;
    connect(&person, &QTimer::timeout, [&person] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        auto *view = dialog ? dialog->findChild<QListView *>("listView") : nullptr;
        if (!view || view->model()->rowCount(view->rootIndex()) < 3) return;
        QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open)->click();
        if (dialog->isVisible()) dialog->reject();
    });
    person.start(20);
    QStringList chosen = FileChooser().openFiles(nullptr, "Add", room.sources(), "Images (*.jpg)");
    chosen.sort(); // the dialog names them as its list came by them
    QCOMPARE(chosen, files);
}

QTEST_MAIN(TestWindowOrder)
#include "tst_window_order.moc"
