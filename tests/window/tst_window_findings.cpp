// What the window says of what came out: badges, words, details, the summary and its filter, the count of the list.

#include "support/WordyTranslator.h"
#include "window/Photos.h"
#include "window/ResultSummary.h"
#include "window/RowWords.h"
#include "window/WindowRoom.h"

#include <QLabel>
#include <QPushButton>
#include <QTextEdit>

Q_DECLARE_METATYPE(Wholeness)
Q_DECLARE_METATYPE(RepairReport)

namespace {

QString details(const WindowRoom &room, QTreeWidgetItem *row)
{
    room.tree()->setCurrentItem(row);
    return room.find<QTextEdit>("detailsPane")->toPlainText();
}

/// The end of a run once more, with other findings than the run's own.
void finishWith(WindowRoom &room, const QString &name, const Wholeness &wholeness, const RepairReport &report)
{
    FileOutcome outcome;
    outcome.source = room.row(name)->text(column::Path);
    outcome.report = report;
    outcome.report.outputs[0].wholeness = wholeness;
    keepWholeness(room.row(name, true), wholeness);
    keepReport(room.row(name), outcome);
    room.script.expect("CompletionMsg", "OkBtn");
    room.window->OnCompletionMsgBox();
}

RepairReport reportWith(const QString &output)
{
    RepairReport report;
    report.outputs.append({output, output, RepairWay::Main, {}, {}});
    return report;
}

QStringList shownSources(const WindowRoom &room)
{
    QStringList names;
    for (int i = 0; i < room.tree()->topLevelItemCount(); ++i)
        if (!room.tree()->topLevelItem(i)->isHidden()) names << room.tree()->topLevelItem(i)->text(0);
    return names;
}

QString partsOf(const WindowRoom &room)
{
    QStringList parts{room.find<QLabel>("summaryAll")->text()};
    for (const char *name : {"partHealthy", "partWhole", "partPartial", "partDoubtful", "partUnjudged", "partNothing"})
        if (const auto *part = room.find(name); part->isVisible()) parts << part->text();
    return parts.join(' ');
}

} // namespace

class TestWindowFindings : public QObject
{
    Q_OBJECT

private slots:
    void words_data();
    void words();
    void noRowIsSilent();
    void filterSavesTheSame();
    void summaryFits();
    void listIsCounted();
};

void TestWindowFindings::words_data()
{
    QTest::addColumn<Wholeness>("wholeness");
    QTest::addColumn<RepairReport>("report");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("advice");
    QTest::addColumn<QString>("part");
    const RepairReport plain = reportWith("<b>a.jpg");
    RepairReport sample = plain, healthy = plain, searched = plain;
    sample.outputs[0].way = RepairWay::Sample;
    healthy.sourceHealthy = true;
    searched.salvage.ran = true;
    const auto row = [](const char *name, const Wholeness &wholeness, const RepairReport &report, const char *state,
                        const char *advice, const char *part) {
        QTest::newRow(name) << wholeness << report << QString(state) << QString(advice) << QString(part);
    };
    row("whole", {Completeness::Whole, 1}, plain, "The picture is whole.", "save it", "1 whole");
    row("in part", {Completeness::Partial, 0.459}, plain, "(about 45 %)", "Deep salvage may", "1 in part");
    row("hardly a part", {Completeness::Partial, 0.001}, plain, "(about 1 %)", "Deep salvage may", "1 in part");
    row("all but a bit", {Completeness::Partial, 0.999}, searched, "(about 99 %)", "no way is left", "1 in part");
    row("another's colours", {Completeness::Doubtful, 1}, sample, "doubtful", "another healthy photo", "1 doubtful");
    row("healthy", {Completeness::Whole, 1}, healthy, "The picture is whole.", "Nothing needs", "1 healthy");
    row("nobody knows", {}, plain, "isn't known", "look at the picture", "1 not judged");
}

void TestWindowFindings::words()
{
    QFETCH(Wholeness, wholeness);
    QFETCH(RepairReport, report);
    QFETCH(QString, state);
    QFETCH(QString, advice);
    QFETCH(QString, part);
    WindowRoom room;
    room.add({room.source("<b>a.jpg", photos::withThumbnail())});
    QVERIFY(room.repair());
    const QStringList told = room.rows();
    finishWith(room, "<b>a.jpg", wholeness, report);
    QCOMPARE(room.rows(), told);
    QCOMPARE(partsOf(room), "1 file: " + part);
    QTreeWidgetItem *output = room.row("<b>a.jpg", true);
    QCOMPARE(output->icon(column::Type).isNull(), wholeness.completeness == Completeness::Unjudged);
    QCOMPARE(room.row("<b>a.jpg")->icon(column::Name).isNull(), !report.sourceHealthy);
    const QString text = details(room, output);
    QVERIFY2(text.contains(state) && text.contains(advice), qPrintable(text));
    QVERIFY(text.startsWith("<b>a.jpg\n") && text.contains(room.row("<b>a.jpg")->text(column::Path)));
    if (wholeness.completeness != Completeness::Unjudged) {
        QVERIFY(output->toolTip(column::Type).contains(state));
        QVERIFY(output->data(column::Type, Qt::AccessibleTextRole).toString().contains(state));
    }
    const QString tip = output->toolTip(column::Name);
    QVERIFY2(tip.contains("<b>a.jpg: "), qPrintable(tip));
    QCOMPARE(details(room, room.row("<b>a.jpg")).contains("It opens as it is."), report.sourceHealthy);
}

void TestWindowFindings::noRowIsSilent()
{
    WindowRoom room;
    const QString gone = room.source("gone.jpg", photos::plain());
    QStringList paths{gone, room.source("empty.jpg", {}), room.source("nothing.cr2", QByteArray(900, 'x')),
                      room.source("long.jpg", photos::longWork())};
    for (int i = 0; i < 30; ++i) paths << room.source(QString("%1.jpg").arg(i), photos::longWork());
    room.add(paths);
    QFile::remove(gone);
    QVERIFY(room.click("StartRepairFilesBtn"));
    QTRY_VERIFY(room.row("long.jpg") && room.row("long.jpg")->childCount() > 0);
    QVERIFY(!room.find<QTextEdit>("detailsPane")->isVisible()); // the progress stands there
    room.script.expect("StopDlg", "YesBtn");
    QVERIFY(room.click("StopRepairProcessBtn_2"));
    QVERIFY(room.rest());
    const std::pair<const char *, const char *> rows[] = {{"gone.jpg", "can't be read.\nNext: "},
                                                          {"empty.jpg", "The file is empty."},
                                                          {"nothing.cr2", "nothing here helps"},
                                                          {"29.jpg", "Stopped before this file was done.\nNext: "}};
    for (const auto &[name, words] : rows) {
        const QString text = details(room, room.row(name));
        QVERIFY2(text.contains(words) && text.contains("Next: "), qPrintable(text));
        QVERIFY2(!room.row(name)->toolTip(0).startsWith('/'), name);
    }
}

void TestWindowFindings::filterSavesTheSame()
{
    WindowRoom room;
    room.add({room.source("a.jpg", photos::plain()), room.source("b.jpg", photos::scanOnly()),
              room.source("c.jpg", photos::plain(1))});
    QVERIFY(room.repair());
    finishWith(room, "a.jpg", {Completeness::Whole, 1}, reportWith("a.jpg"));
    finishWith(room, "c.jpg", {Completeness::Partial, 0.3}, reportWith("c.jpg"));
    QCOMPARE(partsOf(room), QString("3 files: 1 whole 1 in part 1 not repaired"));
    const auto *showAll = room.find("showAllBtn");
    room.tree()->setCurrentItem(room.row("a.jpg"));
    auto *failed = room.find("partNothing");
    failed->setFocus();
    QTest::keyClick(failed, Qt::Key_Space);
    QCOMPARE(shownSources(room), QStringList("b.jpg"));
    QCOMPARE(room.tree()->currentItem(), room.row("b.jpg")); // and the details are those of a row that is seen
    QTRY_VERIFY(room.rowButton("b.jpg")->isVisible());
    QVERIFY(showAll->isVisible() && room.find<QLabel>("summaryNote")->isVisible());
    QVERIFY(room.click("partPartial"));
    QCOMPARE(shownSources(room), QStringList("c.jpg"));
    QTRY_VERIFY(!room.rowButton("b.jpg")->isVisible());

    room.chooser.answers.push_back({room.destination()});
    room.script.expect("SavingFinishDlg", "OkBtn");
    QVERIFY(room.click("SaveRepairBtn_2"));
    QCOMPARE(WindowRoom::filesBelow(room.destination()),
             (QStringList{"RepairedFiles/a.jpg", "RepairedFiles/c.jpg"})); // as without a filter
    QVERIFY(room.click("showAllBtn"));
    QCOMPARE(shownSources(room).size(), 3);
    QVERIFY(!showAll->isVisible());
    QCOMPARE(room.complaint(), QString());
}

void TestWindowFindings::summaryFits()
{
    WordyTranslator longer; // gone from the application with its end
    QVERIFY(QCoreApplication::installTranslator(&longer));
    QWidget page;
    QTreeWidget tree;
    tree.setColumnCount(7);
    for (int i = 0; i < 3600; ++i) { // six kinds
        auto *source = new QTreeWidgetItem(&tree);
        FileOutcome outcome;
        outcome.report.sourceHealthy = i % 6 == 4;
        if (i % 6 < 4) keepWholeness(new QTreeWidgetItem(source), {Completeness(i % 6), 0.5});
        keepReport(source, outcome);
    }
    ResultSummary summary(&tree, &page);
    page.show();
    summary.refresh();
    summary.findChild<QPushButton *>("partNothing")->click();
    int shown = 0;
    for (const QWidget *part : summary.findChildren<QWidget *>()) {
        if (part->isHidden()) continue;
        QVERIFY2(summary.rect().contains(part->geometry()), qPrintable(part->objectName()));
        ++shown;
    }
    QCOMPARE(shown, 9);
}

void TestWindowFindings::listIsCounted()
{
    WindowRoom room;
    const auto *count = room.find<QLabel>("listCount");
    QVERIFY(!count->isVisible());
    room.add({room.source("a.jpg", photos::plain()), room.source("b.jpg", photos::plain(1))});
    QTRY_COMPARE(count->text(), QString("2 files, 2 ticked"));
    room.list()->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    QTRY_COMPARE(count->text(), QString("2 files, 1 ticked"));
    delete room.list()->takeTopLevelItem(0);
    QTRY_COMPARE(count->text(), QString("1 file, 1 ticked"));
}

QTEST_MAIN(TestWindowFindings)
#include "tst_window_findings.moc"
