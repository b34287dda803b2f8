// Deep salvage in the window: its entry, a run with and without it, what its row can do, and Stop.

#include "support/Damage.h"
#include "window/Photos.h"
#include "window/ReportText.h"
#include "window/WindowRoom.h"

#include <QAction>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QGraphicsView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

class TestWindowDeep : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path()); }
    void init() { QSettings("vorlane", "KMPRepairPreferences").clear(); }
    void entryOfBothBars();
    void choiceIsKept();
    void fixedToChinese();
    void toldResultsStay();
    void rowIsUsable();
    void staysBesideASampleRepair();
    void progress();
    void stop_data();
    void stop();
    void words_data();
    void words();

private:
    QTemporaryDir m_folder;
};

namespace {

QAction *entry(const WindowRoom &room)
{
    return room.window->findChild<QAction *>("actionDeepSalvage");
}

void keep(bool on)
{
    QSettings("vorlane", "KMPRepairPreferences").setValue("DeepSalvage", on);
}

QImage photo()
{
    return drawPicture(320, 240, 3);
}

QByteArray ownTables(const QImage &picture)
{
    return makeJpeg(picture, {.quality = 90, .optimised = true});
}

/// The frame's length field: the header is lost to whoever goes by it.
QByteArray wrongLength(const QByteArray &healthyFile)
{
    return Damage(healthyFile).zero(at(0xFFC0), 2);
}

/// One count of a table that no library knows: whoever can't work it out loses the picture.
QByteArray wrongCount(const QByteArray &healthyFile)
{
    Damage damage(healthyFile);
    const Place count = at(0xFFC4, 1) + 3 + 4; // behind the length and the table's number: codes of 5 bits
    const char value = healthyFile[int(damage.offsetOf(count))];
    return damage.put(count, QByteArray(1, char(value + 9)));
}

QMap<QString, QByteArray> filesOf(const WindowRoom &room)
{
    QMap<QString, QByteArray> files;
    for (const QString &name : WindowRoom::filesBelow(room.result({}))) files[name] = contents(room.result(name));
    return files;
}

QStringList salvagedRows(const WindowRoom &room)
{
    return room.rows().filter("|Salvaged|");
}

/// A run over a file that only the salvage wins, and whatever stands in `more`.
bool runOverLost(WindowRoom &room, const QStringList &more = {})
{
    entry(room)->trigger();
    room.add(QStringList{room.source("lost.jpg", wrongLength(ownTables(photo())))} + more);
    return room.repair();
}

} // namespace

void TestWindowDeep::entryOfBothBars()
{
    WindowRoom room;
    QVERIFY(!entry(room)->isChecked());
    QVERIFY(!pApp->bDeepSalvage);
    room.add({room.source("a.jpg", photos::plain())});
    QVERIFY(entry(room)->isEnabled());
    bool enabledInTheRun = true;
    connect(room.window.get(), &BrowseRepair::ShowProgressLabel, room.window.get(),
            [&] { enabledInTheRun = entry(room)->isEnabled(); });
    QVERIFY(room.repair());
    QVERIFY(!enabledInTheRun);
    QVERIFY(entry(room)->isEnabled());
    for (const char *bar : {"pMenuBar", "pMenuBar2"}) {
        const QMenu *file = room.find<QMenuBar>(bar)->findChild<QMenu *>("fileMenu");
        const QList<QAction *> actions = file->actions();
        const int place = actions.indexOf(entry(room));
        QVERIFY(place > 0 && actions.size() == place + 4);
        QVERIFY(actions[place - 1]->isSeparator() && actions[place + 2]->isSeparator());
        QCOMPARE(actions[place + 1]->objectName(), QString("actionCameraData"));
        QCOMPARE(actions[place + 3]->objectName(), QString("actionExit"));
        QVERIFY(file->toolTipsVisible());
    }
    QVERIFY(entry(room)->isCheckable());
    QCOMPARE(entry(room)->text(), QString("&Deep salvage"));
    QVERIFY(entry(room)->toolTip().contains("may be a guess"));
}

void TestWindowDeep::choiceIsKept()
{
    for (bool on : {true, false}) {
        {
            WindowRoom room;
            QCOMPARE(entry(room)->isChecked(), !on);
            entry(room)->trigger();
            QCOMPARE(pApp->bDeepSalvage, on);
        }
        QCOMPARE(QSettings("vorlane", "KMPRepairPreferences").value("DeepSalvage").toBool(), on);
        WindowRoom next;
        QCOMPARE(entry(next)->isChecked(), on);
        QCOMPARE(pApp->bDeepSalvage, on);
    }
}

void TestWindowDeep::fixedToChinese()
{
    keep(true);
    WindowRoom room(true);
    room.add({room.source("lost.jpg", wrongLength(ownTables(photo())))});
    QVERIFY(room.click("deepBox")); // off
    QVERIFY(!pApp->bDeepSalvage && !entry(room)->isChecked());
    QVERIFY(room.click("deepBox"));
    QVERIFY(room.repair());
    QCOMPARE(salvagedRows(room).size(), 1);
}

struct RunResult
{
    QStringList rows, buttons, tips;
    QMap<QString, QByteArray> files;
};

RunResult runOverAll(bool deep)
{
    keep(deep);
    WindowRoom room;
    const QByteArray healthyFile = ownTables(photo());
    room.add({room.source("a.jpg", photos::withThumbnail()), room.source("length.jpg", wrongLength(healthyFile)),
              room.source("count.jpg", wrongCount(healthyFile)), room.source("b.jpg", photos::scanOnly()),
              room.source("c.jpg", photos::plain())});
    if (!room.repair() || !room.complaint().isEmpty()) return {};
    RunResult result{room.rows(), {}, {}, filesOf(room)};
    for (int i = 0; i < room.tree()->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = room.tree()->topLevelItem(i);
        const QAbstractButton *button = room.tree()->rowButton(row);
        result.buttons << (button && button->isVisible() ? button->text() : QString());
        result.tips << row->toolTip(0);
    }
    return result;
}

void TestWindowDeep::toldResultsStay()
{
    const RunResult told = runOverAll(false);
    RunResult deep = runOverAll(true);
    QVERIFY(told.rows.contains("length.jpg||2||") && told.rows.contains("count.jpg||||"));
    const QImage picture = QImage::fromData(ownTables(photo()));
    for (const QString &name : {QString("length"), QString("count")}) {
        const QString source = told.rows[told.rows.indexOf(QRegularExpression(name + ".*"))];
        const QString row = QString(" %1_salvaged.jpg|Salvaged|4|x|240x320").arg(name);
        QCOMPARE(deep.rows.value(deep.rows.indexOf(source) + 1), row);
        QCOMPARE(largestDifference(QImage::fromData(deep.files.value(name + "_salvaged.jpg")), picture), 0);
    }
    for (const QString &row : deep.rows.filter("|Salvaged|")) {
        deep.rows.removeOne(row);
        deep.files.remove(row.section('|', 0, 0).trimmed());
    }
    QCOMPARE(deep.rows, told.rows);
    QCOMPARE(deep.files, told.files);
    QCOMPARE(deep.buttons, told.buttons);
    QCOMPARE(told.buttons, (QStringList{"", "Advance Repair", "", "Advance Repair", ""}));
    for (int i : {0, 4}) QCOMPARE(deep.tips[i], told.tips[i]); // healthy: nothing was salvaged, nothing is said
    for (int i : {1, 2}) QCOMPARE(deep.tips[i].section('\n', 0, -2), told.tips[i].section('\n', 0, -2));
}

void TestWindowDeep::rowIsUsable()
{
    WindowRoom room;
    QVERIFY(runOverLost(room));
    QCOMPARE(room.rows(), (QStringList{"lost.jpg||2||", " lost_salvaged.jpg|Salvaged|4|x|240x320"}));
    QTreeWidgetItem *row = room.row("lost_salvaged.jpg", true);
    QVERIFY(row->parent()->isExpanded());
    QVERIFY(!row->icon(0).isNull());
    QVERIFY(row->toolTip(column::Type).startsWith("The picture is whole.\nSalvaged")
            && row->toolTip(column::Type).endsWith("(exact)"));
    QVERIFY(row->parent()->toolTip(0).endsWith("\n" + row->toolTip(column::Type).section('\n', 1)));
    QVERIFY(room.find("SaveRepairBtn_2")->isEnabled());
    QCOMPARE(room.find<QCheckBox>("checkBox1_2")->checkState(), Qt::Checked);

    room.clickRow(row);
    auto *view = room.find<QGraphicsView>("graphicsView");
    QTRY_VERIFY(view->isVisible());
    QCOMPARE(view->scene()->itemsBoundingRect().size().toSize(), QSize(320, 240));
    QVERIFY(room.click("checkBox3")); // it is no thumbnail
    QVERIFY(!row->isHidden());
    auto *all = room.find<QCheckBox>("checkBox1_2");
    for (int i = 0; i < 2; ++i) { // "Select all" leaves it and takes it
        QVERIFY(room.click("checkBox1_2"));
        QCOMPARE(row->checkState(0), all->checkState());
        QCOMPARE(room.find("SaveRepairBtn_2")->isEnabled(), all->isChecked());
    }
    row->setCheckState(0, Qt::Checked);
    room.clickRow(row);

    const QByteArray made = contents(room.result("lost_salvaged.jpg"));
    room.chooser.answers.push_back({room.destination()});
    room.script.expect("SavingFinishDlg", "OkBtn");
    QVERIFY(room.click("SaveRepairBtn_2"));
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(WindowRoom::filesBelow(room.destination()), QStringList("RepairedFiles/lost_salvaged.jpg"));
    QVERIFY(contents(room.destination() + "/RepairedFiles/lost_salvaged.jpg") == made);
}

void TestWindowDeep::staysBesideASampleRepair()
{
    WindowRoom room;
    const QByteArray sample =
        makeJpeg(photo(), {.quality = 90, .optimised = true, .jfif = false, .segments = {exifSegment({})}});
    QVERIFY(runOverLost(room));
    const QString tip = room.row("lost_salvaged.jpg", true)->toolTip(0);
    room.takeSample("lost.jpg", room.source("sample/s.jpg", sample), false);
    QVERIFY(room.rest());
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(
        room.rows(),
        (QStringList{"lost.jpg||5||", " lost_salvaged.jpg|Salvaged|4|x|240x320", " lost.jpg|Repaired|4|x|240x320"}));
    QCOMPARE(room.row("lost_salvaged.jpg", true)->toolTip(0), tip);
    QVERIFY(room.row("lost.jpg", true)->toolTip(0).contains("sample"));
    QVERIFY(room.click("checkBox3"));
    QVERIFY(!room.row("lost.jpg", true)->isHidden() && !room.row("lost_salvaged.jpg", true)->isHidden());
}

void TestWindowDeep::progress()
{
    WindowRoom room;
    QStringList texts;
    const auto *bar = room.find<QProgressBar>("progressBar_2");
    connect(room.window.get(), &BrowseRepair::ShowProgressLabel, room.window.get(),
            [&](const QString &text, const QString &percent) {
                texts << text + ", " + percent;
                // The run in hand goes on as it was started.
                entry(room)->setChecked(false);
            });
    QList<int> values;
    connect(bar, &QProgressBar::valueChanged, room.window.get(), [&](int value) { values << value; });
    QVERIFY(runOverLost(room,
                        {room.source("a.jpg", photos::plain()),
                         room.source(QString(150, 'n') + ".jpg", wrongCount(ownTables(photo())))}));
    QCOMPARE(salvagedRows(room).size(), 2);
    // A healthy file isn't salvaged, and nothing is said of it.
    const QString elided = texts.value(5);
    QCOMPARE(texts.mid(0, 5),
             (QStringList{"Repairing file 1 of 3, 33 %", "Deep salvage: lost.jpg, 33 %", "Repairing file 1 of 3, 33 %",
                          "Repairing file 2 of 3, 66 %", "Repairing file 3 of 3, 100 %"}));
    QVERIFY(elided.startsWith("Deep salvage: nnn") && elided.endsWith(".jpg, 100 %") && elided.size() < 100);
    QCOMPARE(texts.mid(6), QStringList("Repairing file 3 of 3, 100 %"));
    QCOMPARE(bar->maximum(), 3);
    QCOMPARE(bar->value(), 3);
}

void TestWindowDeep::stop_data()
{
    QTest::addColumn<bool>("last");
    QTest::newRow("another file waits") << false;
    QTest::newRow("in the last file") << true;
}

void TestWindowDeep::stop()
{
    QFETCH(bool, last);
    WindowRoom room;
    entry(room)->trigger();
    const QByteArray large = ownTables(drawPicture(3200, 2400));
    room.add({room.source("long.jpg", Damage(large).zero(inScan(large.size() / 4), 3000))});
    if (!last) room.add({room.source("a.jpg", photos::plain())});
    QVERIFY(room.click("StartRepairFilesBtn"));
    const auto *label = room.find<QLabel>("label_RepairFileName");
    QTRY_COMPARE_WITH_TIMEOUT(label->text(), QString("Deep salvage: long.jpg"), 60000);
    QCOMPARE(room.find<QProgressBar>("progressBar_2")->maximum(), 0); // no end in sight
    QElapsedTimer clock;
    room.script.expect("StopDlg", "YesBtn", [&clock](QDialog *) { clock.start(); });
    QVERIFY(room.click("StopRepairProcessBtn_2"));
    QVERIFY(room.rest());
    const qint64 answered = clock.elapsed();
#ifdef __SANITIZE_ADDRESS__
    constexpr int kMost = 1200; // its work between two looks at the flag takes several times as long
#else
    constexpr int kMost = 200;
#endif
    QVERIFY2(answered < kMost, qPrintable(QString("%1 ms").arg(answered)));
    QCOMPARE(room.complaint(), QString()); // no summary: who has stopped a run knows of it
    // What the other ways had made of the file stays and can be saved; the next file hasn't begun.
    QStringList rows{"long.jpg||5||", " long.jpg|Repaired|4|x|2400x3200"};
    if (!last) rows << "a.jpg||1|x|";
    QCOMPARE(room.rows(), rows);
    QVERIFY(!filesOf(room).contains("long_salvaged.jpg"));
    QVERIFY(room.find("SaveRepairBtn_2")->isEnabled());
    QVERIFY(entry(room)->isEnabled());
    QVERIFY(!label->isVisible());
}

void TestWindowDeep::words_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("certainty");
    QTest::addColumn<QString>("text");
    QTest::newRow("two steps") << "counts mended,size found"
                               << "guess"
                               << "Salvaged: Huffman counts mended, size found (a guess)";
    QTest::newRow("header written anew") << ""
                                         << "likely"
                                         << "Salvaged (likely)";
    QTest::newRow("in the entropy data")
        << "interval resynchronised,realigned"
        << "guess"
        << "Salvaged: restart intervals put in place, shifted parts moved back (a guess)";
    QTest::newRow("nothing found") << ""
                                   << ""
                                   << "Deep salvage found nothing better.";
}

void TestWindowDeep::words()
{
    QFETCH(QString, steps);
    QFETCH(QString, certainty);
    QFETCH(QString, text);
    FileOutcome outcome;
    QVERIFY(!reportText(outcome).contains("alvage"));
    SalvageReport &salvage = outcome.report.salvage;
    salvage.ran = true;
    salvage.steps = steps.split(',', Qt::SkipEmptyParts);
    salvage.certainty = certainty;
    if (!certainty.isEmpty()) salvage.name = "a_salvaged.jpg";
    outcome.report.reason = RepairReason::HeaderLost;
    QCOMPARE(reportText(outcome).section('\n', -1), text);
    QVERIFY(reportText(outcome).startsWith("The header is lost."));
    salvage.passedOver = "too-large";
    QCOMPARE(reportText(outcome).section('\n', -1), QString("The file is too large for deep salvage."));
}

QTEST_MAIN(TestWindowDeep)
#include "tst_window_deep.moc"
