// The window as a person uses it: the file list, a run, checks, preview, a sample, stop, back and close.

#include "engine/OneFile.h"
#include "update/QCheckUpdate.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QCheckBox>
#include <QGraphicsView>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QScrollBar>

namespace {

QMimeData *dropOf(const QStringList &paths)
{
    auto *data = new QMimeData;
    QList<QUrl> urls;
    for (const QString &path : paths) urls << QUrl::fromLocalFile(path);
    data->setUrls(urls);
    return data;
}

void drop(QWidget *target, const QStringList &paths)
{
    const std::unique_ptr<QMimeData> data(dropOf(paths));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

QStringList names(const DrgDrp *list)
{
    QStringList all;
    for (int i = 0; i < list->topLevelItemCount(); ++i) all << list->topLevelItem(i)->text(0);
    return all;
}

void tick(QTreeWidgetItem *item, bool on)
{
    item->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
}

} // namespace

class TestWindow : public QObject
{
    Q_OBJECT

private slots:
    void sizesInTheList_data();
    void sizesInTheList();
    void intake_data();
    void intake();
    void firstIntakeSetsTheListUp_data();
    void firstIntakeSetsTheListUp();
    void boxesSteerRepair();
    void wholeRun_data();
    void wholeRun();
    void allInvalid();
    void previews();
    void thumbnailsCanBeHidden();
    void buttonsFollowTheView();
    void stopKeepsWhatWasMade();
    void backAndAgain();
    void closeAsksOnce();
    void closeDuringARun();
    void doubleClicks();
};

void TestWindow::sizesInTheList_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("900 bytes") << qint64(900) << "0";
    QTest::newRow("just under 1 MiB") << qint64(1048575) << "1023";
    QTest::newRow("1.5 MiB") << qint64(1572864) << "1024";
    QTest::newRow("3 MiB") << qint64(3145728) << "3072";
    QTest::newRow("just under 1 GiB") << qint64(1073741823) << "1047552";
    QTest::newRow("2 GiB") << qint64(2147483648) << "0";
}

void TestWindow::sizesInTheList()
{
    QFETCH(qint64, bytes);
    QFETCH(QString, text);
    QCOMPARE(BrowseRepair::GetSizeOfItem(bytes), text);
}

void TestWindow::intake_data()
{
    QTest::addColumn<bool>("dropped");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("listed");
    QTest::addColumn<int>("messages");
    const auto row = [](const char *name, bool dropped, const char *files, const char *listed, int messages) {
        QTest::newRow(name) << dropped << QString(files).split(' ') << QString(listed).split(' ', Qt::SkipEmptyParts)
                            << messages;
    };
    row("dialog takes every format", false, "a.jpg b.JPEG c.raf d.CR3 e.heic", "a.jpg b.JPEG c.raf d.CR3 e.heic", 0);
    row("dialog passes over others", false, "a.jpg b.png c.HEIF d", "a.jpg", 0);
    row("the same path twice", false, "a.jpg b.jpg a.jpg", "a.jpg b.jpg", 1);
    row("the same name in two folders", false, "a.jpg two/a.jpg", "a.jpg a.jpg", 0);
    row("another case is the same", false, "a.jpg A.JPG", "a.jpg", 1);
    row("drop takes four suffixes", true, "a.jpg b.JPEG c.jpeg d.JPG e.Jpg f.CR2", "a.jpg b.JPEG c.jpeg d.JPG", 0);
    row("a folder cancels a drop", true, "a.jpg folder/ b.jpg", "", 0);
    row("drop of nothing that fits", true, "a.CR2", "", 0);
    row("drop of a duplicate", true, "a.jpg a.jpg", "a.jpg", 1);
}

void TestWindow::intake()
{
    QFETCH(bool, dropped);
    QFETCH(QStringList, files);
    QFETCH(QStringList, listed);
    QFETCH(int, messages);
    WindowRoom room;
    QStringList paths;
    for (const QString &file : files) {
        if (file.endsWith('/'))
            QDir(room.sources()).mkdir(file);
        else
            room.source(file, "x");
        paths << room.sources() + '/' + file;
    }
    for (int i = 0; i < messages; ++i)
        room.script.expect("MessageBox", "OkBtn", [](QDialog *box) {
            const auto labels = box->findChildren<QLabel *>();
            QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
                return label->text().endsWith("\nFile name already added to list.");
            }));
        });
    if (dropped)
        drop(room.list()->pDropArea, paths);
    else
        room.add(paths);

    QCOMPARE(names(room.list()), listed);
    QCOMPARE(room.find("StartRepairFilesBtn")->isVisible(), !listed.isEmpty());
    QCOMPARE(room.find("pDropButton")->isVisible(), listed.isEmpty());
    const auto *note = room.find<QLabel>("listNote");
    for (const QString &file : qAsConst(files))
        if (!listed.contains(file.section('/', -1)) && !(listed.isEmpty() && file.endsWith(".jpg")) && messages == 0)
            QVERIFY2(note->isVisible() && note->text().contains(file.section('/', 0, 0)), qPrintable(note->text()));
    QCOMPARE(room.complaint(), QString());
}

void TestWindow::firstIntakeSetsTheListUp_data()
{
    QTest::addColumn<bool>("dropped");
    QTest::addColumn<QRect>("place");
    QTest::addColumn<QString>("header");
    QTest::newRow("by the dialog") << false << QRect(25, 240, 800, 250) << " Modified Date";
    QTest::newRow("by a drop") << true << QRect(24, 226, 692, 270) << "Modified date";
}

void TestWindow::firstIntakeSetsTheListUp()
{
    QFETCH(bool, dropped);
    QFETCH(QRect, place);
    QFETCH(QString, header);
    WindowRoom room;
    const QString first = room.source("a.jpg", "x"), second = room.source("b.jpg", "x");
    if (dropped)
        drop(room.list()->viewport(), {first});
    else
        room.add({first});
    // What the other way would have set comes too late.
    if (dropped)
        room.add({second});
    else
        drop(room.list()->viewport(), {second});
    QCOMPARE(room.list()->geometry(), place);
    QCOMPARE(room.list()->headerItem()->text(7), header);
    QCOMPARE(room.list()->frameStyle(), 0x36);
    QVERIFY(!room.list()->horizontalScrollBar()->isVisible());
    QCOMPARE(names(room.list()), (QStringList{"a.jpg", "b.jpg"}));
}

void TestWindow::boxesSteerRepair()
{
    WindowRoom room;
    room.add({room.source("a.jpg", "x"), room.source("b.jpg", "x")});
    auto *all = room.find<QCheckBox>("checkBox1");
    auto *repair = room.find("StartRepairFilesBtn");
    const auto clickBox = [&](int index) {
        const QRect line = room.list()->visualItemRect(room.list()->topLevelItem(index));
        QTest::mouseClick(room.list()->viewport(), Qt::LeftButton, {}, QPoint(line.left() + 14, line.center().y()));
    };
    clickBox(0);
    QCOMPARE(all->checkState(), Qt::PartiallyChecked);
    QVERIFY(repair->isEnabled());
    clickBox(1);
    QCOMPARE(all->checkState(), Qt::Unchecked);
    QVERIFY(!repair->isEnabled());
    QVERIFY(room.click("checkBox1"));
    QCOMPARE(all->checkState(), Qt::Checked);
    QVERIFY(repair->isEnabled());
    QCOMPARE(room.list()->topLevelItem(1)->checkState(0), Qt::Checked);

    room.list()->setCurrentItem(room.list()->topLevelItem(0));
    QTest::keyClick(room.list(), Qt::Key_Space);
    QCOMPARE(all->checkState(), Qt::PartiallyChecked);
    QTest::keyClick(room.list(), Qt::Key_Delete);
    QCOMPARE(names(room.list()), QStringList("b.jpg"));
    QCOMPARE(all->checkState(), Qt::Checked);
    room.add({room.source("big.jpg", QByteArray(11 << 10, 'x')), room.source("small.jpg", QByteArray(2 << 10, 'x'))});
    room.list()->sortByColumn(2, Qt::AscendingOrder);
    QCOMPARE(names(room.list()), (QStringList{"b.jpg", "small.jpg", "big.jpg"}));
    QFile dated(room.source("friday.jpg", "x")); // "Fri" stands in front of "Thu", which was the day before
    QVERIFY(dated.open(QIODevice::ReadWrite));
    QVERIFY(dated.setFileTime(QDateTime(QDate(2099, 1, 2), QTime(0, 0)), QFileDevice::FileModificationTime));
    room.window->ComeToFront({dated.fileName()});
    room.list()->sortByColumn(7, Qt::AscendingOrder);
    QCOMPARE(names(room.list()).last(), QString("friday.jpg"));
    QVERIFY(room.click("removeTickedBtn"));
    QVERIFY(room.find("pDropButton")->isVisible() && !repair->isVisible());
    drop(room.list()->pDropArea, {room.sources() + "/big.jpg"});
    QCOMPARE(names(room.list()), QStringList("big.jpg"));
}

void TestWindow::wholeRun_data()
{
    QTest::addColumn<bool>("chinese");
    QTest::newRow("international") << false;
    QTest::newRow("fixed to Chinese") << true;
}

void TestWindow::wholeRun()
{
    QFETCH(bool, chinese);
    WindowRoom room(chinese);
    QCOMPARE(room.find("HelpBtn")->isVisible(), !chinese);
    const QString vanished = room.source("gone.jpg", photos::plain());
    room.add({room.source("a.jpg", photos::withThumbnail()), room.source("b.jpg", photos::scanOnly()), vanished,
              room.source("two/a.jpg", photos::plain(1)), room.source("c.JPG", photos::plain(2))});
    QFile::remove(vanished);
    tick(room.list()->topLevelItem(4), false); // not ticked, not repaired
    QStringList texts;
    connect(room.window.get(), &BrowseRepair::ShowProgressLabel, room.window.get(),
            [&](const QString &text, const QString &percent) { texts << text + ", " + percent; });
    QVERIFY(room.repair());

    QCOMPARE(room.complaint(), QString());
    QCOMPARE(texts,
             (QStringList{"Repairing file 1 of 4, 25 %", "Repairing file 2 of 4, 50 %", "Repairing file 3 of 4, 75 %",
                          "Repairing file 4 of 4, 100 %"}));
    QCOMPARE(room.rows(),
             (QStringList{"a.jpg||5||", " a.jpg|Repaired|4|x|48x64", " a_[T1].jpg|Thumbnail|4|x|24x32", "b.jpg||2||",
                          "gone.jpg||||", "a.jpg||5||", " Copy(1)_a.jpg|Repaired|4|x|32x48"}));
    QVERIFY(room.rowButton("b.jpg")->isVisible());
    QCOMPARE(room.rowButton("b.jpg")->text(), QString("Advance Repair"));
    QVERIFY(!room.rowButton("a.jpg") || !room.rowButton("a.jpg")->isVisible());
    QVERIFY(room.row("b.jpg")->toolTip(0).contains("sample"));
    QVERIFY(room.row("gone.jpg")->toolTip(0).contains("can't be read"));
    QVERIFY(room.row("a.jpg", true)->toolTip(0).contains("rebuilt"));
    QCOMPARE(room.find<QLabel>("label_3")->text(), QString("Repair process completed."));
    QVERIFY(room.find("SaveRepairBtn_2")->isEnabled());
    QVERIFY(!room.find("StopRepairProcessBtn_2")->isVisible());
    QVERIFY(room.find("BackBtn_2")->isEnabled());
    QCOMPARE(room.find<QCheckBox>("checkBox1_2")->checkState(), Qt::Checked);
    QCOMPARE(room.window->findChild<QMenuBar *>("pMenuBar2") != nullptr, !chinese);

    QMap<QString, QByteArray> made;
    for (const QString &name : WindowRoom::filesBelow(room.result({}))) made[name] = contents(room.result(name));
    room.chooser.answers.push_back({room.destination()});
    room.script.expect("SavingFinishDlg", "OkBtn",
                       [](QDialog *dialog) { dialog->findChild<QAbstractButton *>("ClickHereBtn")->click(); });
    QVERIFY(room.click("SaveRepairBtn_2"));
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(room.platform.calls, QStringList("show " + room.destination() + "/RepairedFiles"));
    const QString saved = room.destination() + "/RepairedFiles/";
    QCOMPARE(WindowRoom::filesBelow(saved), (QStringList{"Copy(1)_a.jpg", "Thumbnail Repaired/a_[T1].jpg", "a.jpg"}));
    for (const QString &name : made.keys()) QVERIFY2(contents(saved + name) == made[name], qPrintable(name));
    // The healthy sources come back with every pixel.
    QCOMPARE(QImage(saved + "a.jpg"), QImage(room.sources() + "/a.jpg"));
    QCOMPARE(QImage(saved + "Copy(1)_a.jpg"), QImage(room.sources() + "/two/a.jpg"));
    QCOMPARE(QImage(saved + "Thumbnail Repaired/a_[T1].jpg"), QImage::fromData(makeJpeg(drawPicture(32, 24, 1))));
    QVERIFY(!room.find("SaveRepairBtn_2")->isEnabled());
    QCOMPARE(room.rows()[1], QString(" a.jpg|Repaired|4|-|48x64"));
}

void TestWindow::allInvalid()
{
    WindowRoom room;
    room.add({room.source("b.jpg", photos::scanOnly()), room.source("c.jpg", photos::scanOnly(1))});
    QVERIFY(room.repair());
    QCOMPARE(room.rows(), (QStringList{"b.jpg||2||", "c.jpg||2||"}));
    QVERIFY(!room.find("SaveRepairBtn_2")->isEnabled());
    QCOMPARE(room.find<QCheckBox>("checkBox1_2")->checkState(), Qt::Unchecked);
    QVERIFY(room.rowButton("b.jpg")->isVisible() && room.rowButton("c.jpg")->isVisible());
}

void TestWindow::previews()
{
    WindowRoom room;
    const QByteArray large = makeJpeg(drawPicture(900, 300));
    room.add({room.source("a.jpg", photos::withThumbnail()), room.source("large.jpg", large),
              room.source("b.jpg", photos::scanOnly())});
    QVERIFY(room.repair());
    auto *view = room.find<QGraphicsView>("graphicsView");
    auto *label = room.find<QLabel>("Preview_Label");
    const auto shownSize = [&] {
        return view->transform().mapRect(view->scene()->itemsBoundingRect()).size().toSize();
    };
    room.clickRow(room.row("a.jpg", true));
    QTRY_VERIFY(view->isVisible());
    QVERIFY(!label->isVisible());
    QCOMPARE(shownSize(), QSize(64, 48)); // smaller than the view: its own size
    room.clickRow(room.row("large.jpg", true));
    QTRY_COMPARE(shownSize().width(), 400);
    QCOMPARE(shownSize().height(), 133);
    room.clickRow(room.row("b.jpg"));
    QTRY_VERIFY(label->isVisible());
    QVERIFY(!view->isVisible());

    // The arrow keys go the way of a click and leave the rows open.
    room.tree()->setCurrentItem(room.row("a.jpg"));
    QTest::keyClick(room.tree(), Qt::Key_Down);
    QTRY_VERIFY(view->isVisible());
    QCOMPARE(shownSize(), QSize(64, 48));
    QVERIFY(room.row("a.jpg")->isExpanded());
    QTest::keyClick(room.tree(), Qt::Key_Space);
    QCOMPARE(room.row("a.jpg", true)->checkState(0), Qt::Checked); // the space key does nothing here
    QTest::keyClick(room.tree(), Qt::Key_Return);
    QCOMPARE(room.row("a.jpg", true)->checkState(0), Qt::Unchecked);
    QCOMPARE(room.find<QCheckBox>("checkBox1_2")->checkState(), Qt::PartiallyChecked);
}

void TestWindow::thumbnailsCanBeHidden()
{
    WindowRoom room;
    room.add({room.source("a.jpg", photos::withThumbnail())});
    QVERIFY(room.repair());
    QVERIFY(room.click("checkBox3"));
    QVERIFY(room.row("a_[T1].jpg", true)->isHidden());
    QVERIFY(!room.row("a.jpg", true)->isHidden());
    room.chooser.answers.push_back({room.destination()});
    room.script.expect("SavingFinishDlg", "OkBtn");
    QVERIFY(room.click("SaveRepairBtn_2"));
    QCOMPARE(WindowRoom::filesBelow(room.destination()), QStringList("RepairedFiles/a.jpg"));
    QVERIFY(QDir(room.destination() + "/RepairedFiles/Thumbnail Repaired").exists());
    QCOMPARE(room.row("a_[T1].jpg", true)->checkState(0), Qt::Unchecked); // loses its mark all the same
    QVERIFY(room.click("checkBox3"));
    QVERIFY(!room.row("a_[T1].jpg", true)->isHidden());
    QCOMPARE(room.complaint(), QString());
}

void TestWindow::buttonsFollowTheView()
{
    WindowRoom room;
    QStringList paths;
    for (int i = 0; i < 60; ++i) paths << room.source(QString("b%1.jpg").arg(i), photos::scanOnly());
    room.add(paths);
    QVERIFY(room.repair());
    const auto isShown = [&room](const char *row) { return room.rowButton(row)->isVisible(); };
    QVERIFY(isShown("b0.jpg") && !isShown("b59.jpg"));
    room.tree()->scrollToBottom();
    QVERIFY(!isShown("b0.jpg") && isShown("b59.jpg"));
    const QRect cell = room.tree()->visualItemRect(room.row("b59.jpg"));
    QCOMPARE(room.rowButton("b59.jpg")->y(), cell.y());
    // One that was hidden stays hidden, whatever the tree does.
    room.rowButton("b0.jpg")->hide();
    room.tree()->scrollToTop();
    room.tree()->doItemsLayout();
    QVERIFY(!isShown("b0.jpg") && isShown("b1.jpg"));
}

void TestWindow::stopKeepsWhatWasMade()
{
    WindowRoom room;
    QStringList paths{room.source("a.jpg", photos::plain())};
    for (int i = 0; i < 40; ++i) paths << room.source(QString("long%1.jpg").arg(i), photos::longWork());
    room.add(paths);
    QVERIFY(room.click("StartRepairFilesBtn"));
    QTRY_VERIFY(room.row("a.jpg", true)); // the first file is done, the others are not
    QVERIFY(!room.find("BackBtn_2")->isEnabled());
    room.script.expect("StopDlg", "YesBtn");
    QVERIFY(room.click("StopRepairProcessBtn_2"));
    QVERIFY(room.rest()); // and no summary was shown
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(room.rows()[0], QString("a.jpg||5||"));
    QCOMPARE(room.rows().last(), QString("long39.jpg||1|x|"));
    QCOMPARE(room.rowButton("long39.jpg")->text(), QString("Aborted"));
    QVERIFY(room.find("BackBtn_2")->isEnabled());
    QVERIFY(!room.find("StopRepairProcessBtn_2")->isVisible());
    QCOMPARE(QImage(room.result("a.jpg")), QImage(room.sources() + "/a.jpg"));
}

void TestWindow::backAndAgain()
{
    WindowRoom room;
    QStringList paths;
    for (int i = 0; i < 30; ++i) paths << room.source(QString("long%1.jpg").arg(i), photos::longWork());
    paths << room.source("a.jpg", photos::plain());
    room.add(paths);
    QVERIFY(room.click("StartRepairFilesBtn"));
    QTRY_VERIFY(room.find("StopRepairProcessBtn_2")->isVisible());
    room.script.expect("StopDlg", "YesBtn");
    QVERIFY(room.click("StopRepairProcessBtn_2"));
    // Back at once, while the stopped worker may still run; a "No" first changes nothing.
    room.script.expect("BackApplicationDlg", "NoBtn");
    QVERIFY(room.click("BackBtn_2"));
    QVERIFY(room.tree()->topLevelItemCount() > 0);
    room.script.expect("BackApplicationDlg", "YesBtn");
    QVERIFY(room.click("BackBtn_2"));
    QCOMPARE(room.tree()->topLevelItemCount(), 0);
    QCOMPARE(room.list()->topLevelItemCount(), 31);
    QCOMPARE(room.find<QLabel>("label")->text(), QString("Kesmira"));
    for (int i = 0; i < 30; ++i) tick(room.list()->topLevelItem(i), false);
    QVERIFY(room.repair());
    QCOMPARE(room.rows(), (QStringList{"a.jpg||5||", " a.jpg|Repaired|4|x|32x48"}));
    QCOMPARE(WindowRoom::filesBelow(room.root() + "/RepairedFiles"), QStringList("a.jpg"));
    QCOMPARE(room.complaint(), QString());

    room.script.expect("BackApplicationDlg", "YesBtn");
    QVERIFY(room.click("BackBtn_2"));
    QVERIFY(room.rest());
    QCOMPARE(WindowRoom::filesBelow(room.root() + "/RepairedFiles"), QStringList());
}

void TestWindow::closeAsksOnce()
{
    WindowRoom room;
    room.add({room.source("a.jpg", photos::plain())});
    QVERIFY(room.repair());
    room.script.expect("CloseApplicationDlg", "NoBtn");
    QVERIFY(room.click("closeBtn"));
    QVERIFY(room.window->isVisible());
    QCOMPARE(WindowRoom::filesBelow(room.root() + "/RepairedFiles"), QStringList("a.jpg"));
    room.script.expect("CloseApplicationDlg", "YesBtn");
    QVERIFY(room.click("closeBtn"));
    QVERIFY(!room.window->isVisible());
    QVERIFY(!QFileInfo::exists(room.root() + "/RepairedFiles"));
    QCOMPARE(room.complaint(), QString());
}

void TestWindow::closeDuringARun()
{
    WindowRoom room;
    QStringList paths;
    for (int i = 0; i < 40; ++i) paths << room.source(QString("long%1.jpg").arg(i), photos::longWork());
    room.add(paths);
    QVERIFY(room.click("StartRepairFilesBtn"));
    QTRY_VERIFY(room.find("StopRepairProcessBtn_2")->isVisible());
    room.window->onUpdateWizard();
    QVERIFY(!room.window->findChild<QCheckUpdate *>()); // it waits for the run, which wipes the folder of updates
    room.script.expect("CloseApplicationDlg", "YesBtn");
    QVERIFY(room.click("closeBtn"));
    QVERIFY(!room.window->isVisible());
    QVERIFY(!room.window->workerRuns());
    QVERIFY(!QFileInfo::exists(room.root() + "/RepairedFiles"));
    QCOMPARE(room.complaint(), QString());
}

void TestWindow::doubleClicks()
{
    WindowRoom room;
    const QString sample = room.source("sample/s.jpg", photos::sample());
    room.chooser.answers.push_back({room.source("b.jpg", photos::scanOnly())});
    const auto doubleClick = [](QWidget *button) {
        for (int i = 0; i < 2; ++i)
            if (button->isVisible() && button->isEnabled()) QTest::mouseClick(button, Qt::LeftButton);
    };
    doubleClick(room.find("pDropButton"));
    QCOMPARE(room.list()->topLevelItemCount(), 1);
    room.script.expect("CompletionMsg", "OkBtn");
    doubleClick(room.find("StartRepairFilesBtn"));
    QVERIFY(room.rest());
    room.chooser.answers.push_back({sample});
    room.script.expect("AdvancedRepairDlg", "NextBtn");
    room.script.expect("ReferenceFileDlg", "CancelBtn",
                       [](QDialog *dialog) { dialog->findChild<QAbstractButton *>("BrowseBtn")->click(); });
    doubleClick(room.rowButton("b.jpg"));
    QVERIFY(room.rest());
    QCOMPARE(room.rows(), QStringList("b.jpg||2||")); // Cancel changed nothing
    QCOMPARE(room.complaint(), QString());
}

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
