// Saving from the window: what each answer to its dialogs leaves at the destination.

#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QLabel>
#include <QPlainTextEdit>

#include <sys/mount.h>

namespace {

/// Content of a file that stood at the destination before.
const QByteArray kOld("old");

/// "name" for a file that came from the run, "name (old)" for one that stood there before.
QStringList savedFiles(const QString &folder)
{
    QStringList files;
    for (const QString &name : WindowRoom::filesBelow(folder))
        files << (contents(folder + '/' + name) == kOld ? name + " (old)" : name);
    return files;
}

QStringList tickedRows(const WindowRoom &room)
{
    QStringList names;
    for (QTreeWidgetItemIterator it(room.tree(), QTreeWidgetItemIterator::Checked); *it; ++it) names << (*it)->text(0);
    return names;
}

} // namespace

class TestSaving : public QObject
{
    Q_OBJECT

private slots:
    void conflicts_data();
    void conflicts();
    void refusals_data();
    void refusals();
    void cancelledChoice();
    void oneOutputHasNoAnswersForAll();
    void whatFailedStays_data();
    void whatFailedStays();
};

void TestSaving::conflicts_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("clicks"); // "Dialog Button"
    QTest::addColumn<QStringList>("after");
    QTest::addColumn<bool>("finished");
    const QString main = "RepairedFiles/a.jpg", thumb = "RepairedFiles/Thumbnail Repaired/a_[T1].jpg",
                  other = "RepairedFiles/b.jpg";
    const QStringList all{thumb, main, other};
    const auto row = [&](const char *name, const QStringList &before, const QStringList &clicks, QStringList after,
                         bool finished = true) {
        after.sort();
        QTest::newRow(name) << before << clicks << after << finished;
    };
    const auto old = [](const QString &name) { return name + " (old)"; };
    row("fresh folder", {}, {}, all);
    row("folder cancelled", {main}, {"FolderExist CancelBtn"}, {old(main)}, false);
    row("folder renamed", {main}, {"FolderExist RenameBtn"},
        {old(main), "Copy(1)_RepairedFiles/" + thumb, "Copy(1)_RepairedFiles/" + main,
         "Copy(1)_RepairedFiles/" + other});
    row("folder overwritten, no file in the way", {"RepairedFiles/z.jpg"}, {"FolderExist OverwriteBtn"},
        QStringList{old("RepairedFiles/z.jpg")} + all);
    row("overwrite, skip", {main, thumb},
        {"FolderExist OverwriteBtn", "AlreadyExistFileDlg OverwriteBtn", "AlreadyExistFileDlg SkipBtn"},
        {main, old(thumb), other});
    row("rename, overwrite", {main, other},
        {"FolderExist OverwriteBtn", "AlreadyExistFileDlg RenameBtn", "AlreadyExistFileDlg OverwriteBtn"},
        {old(main), "RepairedFiles/Copy(1)_a.jpg", thumb, other});
    row("overwrite all", all, {"FolderExist OverwriteBtn", "AlreadyExistFileDlg OverwriteAllBtn"}, all);
    row("rename all", all, {"FolderExist OverwriteBtn", "AlreadyExistFileDlg RenameAllBtn"},
        {old(main), old(thumb), old(other), "RepairedFiles/Copy(1)_a.jpg",
         "RepairedFiles/Thumbnail Repaired/Copy(2)_a_[T1].jpg", "RepairedFiles/Copy(3)_b.jpg"});
    row("skip all", {main, other}, {"FolderExist OverwriteBtn", "AlreadyExistFileDlg SkipAllBtn"},
        {old(main), thumb, old(other)});
}

void TestSaving::conflicts()
{
    QFETCH(QStringList, before);
    QFETCH(QStringList, clicks);
    QFETCH(QStringList, after);
    QFETCH(bool, finished);
    WindowRoom room;
    for (const QString &name : before) write(room.destination() + '/' + name, kOld);
    room.add({room.source("a.jpg", photos::withThumbnail()), room.source("b.jpg", photos::plain(1))});
    QVERIFY(room.repair());
    for (const QString &click : clicks) room.script.expect(click.section(' ', 0, 0), click.section(' ', 1));
    if (finished)
        room.script.expect("SavingFinishDlg", "OkBtn", [&clicks](QDialog *dialog) {
            const QString note = dialog->findChild<QLabel *>("noteLabel")->text();
            QVERIFY2(note.startsWith("3 of 3 files were saved.") != clicks.join(' ').contains("Skip"),
                     qPrintable(note));
        });
    room.chooser.answers.push_back({room.destination()});
    QVERIFY(room.click("SaveRepairBtn_2"));

    QCOMPARE(room.complaint(), QString());
    QCOMPARE(savedFiles(room.destination()), after);
    QCOMPARE(tickedRows(room), finished ? QStringList() : (QStringList{"a.jpg", "a_[T1].jpg", "b.jpg"}));
    QCOMPARE(room.find("SaveRepairBtn_2")->isEnabled(), !finished);
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(WindowRoom::filesBelow(room.result({})),
             (QStringList{"Thumbnail Repaired/a_[T1].jpg", "a.jpg", "b.jpg"})); // can be saved again
}

void TestSaving::refusals_data()
{
    QTest::addColumn<QString>("refusal");  // what the system says; "" lets the copy find out
    QTest::addColumn<QString>("standing"); // what stands at the destination; "gone" for no destination
    QTest::addColumn<QString>("said");
    const QString told = "Selected destination path is read-only (restricted by the operating system"
                         "Select a different location to proceed.";
    QTest::newRow("the system refuses") << readOnlyDestinationText() << QString() << told;
    QTest::newRow("a file stands where the run folder goes")
        << QString() << "RepairedFiles"
        << "the folder '%1/RepairedFiles' can't be made: a file has its name";
    QTest::newRow("the folder has vanished") << QString() << "gone"
                                             << "the folder '%1/RepairedFiles' can't be made: the folder is gone";
}

void TestSaving::refusals()
{
    QFETCH(QString, refusal);
    QFETCH(QString, standing);
    QFETCH(QString, said);
    WindowRoom room;
    room.platform.refusal = refusal;
    if (standing == "gone")
        QVERIFY(QDir().rmdir(room.destination()));
    else if (!standing.isEmpty())
        write(room.destination() + '/' + standing, kOld);
    said.replace("%1", room.destination());
    const QStringList before = savedFiles(room.destination());
    room.add({room.source("b.jpg", photos::plain(1))});
    QVERIFY(room.repair());
    room.chooser.answers.push_back({room.destination()});
    room.script.expect("MessageBox", "OkBtn", [said](QDialog *box) {
        QStringList texts;
        for (const QLabel *label : box->findChildren<QLabel *>()) texts << label->text();
        QVERIFY2(texts.contains(said), qPrintable(texts.join('|')));
    });
    QVERIFY(room.click("SaveRepairBtn_2"));
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(savedFiles(room.destination()), before);
    QCOMPARE(tickedRows(room), QStringList("b.jpg"));
    QVERIFY(room.find("SaveRepairBtn_2")->isEnabled());
}

void TestSaving::cancelledChoice()
{
    WindowRoom room;
    room.add({room.source("b.jpg", photos::plain(1))});
    QVERIFY(room.repair());
    room.chooser.answers.push_back({});
    QVERIFY(room.click("SaveRepairBtn_2"));
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(tickedRows(room), QStringList("b.jpg"));
}

void TestSaving::oneOutputHasNoAnswersForAll()
{
    WindowRoom room;
    write(room.destination() + "/RepairedFiles/b.jpg", kOld);
    room.add({room.source("b.jpg", photos::plain(1))});
    QVERIFY(room.repair());
    room.script.expect("FolderExist", "OverwriteBtn");
    room.script.expect("AlreadyExistFileDlg", "SkipBtn", [](QDialog *dialog) {
        for (const char *name : {"RenameAllBtn", "OverwriteAllBtn", "SkipAllBtn"})
            QVERIFY2(!dialog->findChild<QAbstractButton *>(name)->isVisible(), name);
    });
    room.script.expect("SavingFinishDlg", "OkBtn");
    room.chooser.answers.push_back({room.destination()});
    QVERIFY(room.click("SaveRepairBtn_2"));
    QCOMPARE(room.complaint(), QString());
    QCOMPARE(savedFiles(room.destination()), QStringList("RepairedFiles/b.jpg (old)"));
}

void TestSaving::whatFailedStays_data()
{
    QTest::addColumn<QString>("disk"); // options of the destination's own file system; "" takes an output away
    QTest::addColumn<QString>("reason");
    QTest::newRow("an output is lost") << QString() << "the repaired file is gone from the working folder";
    QTest::newRow("full disk") << "size=4k"
                               << "'%1': the disk is full";
    QTest::newRow("disk that can only be read") << "ro"
                                                << "'%1': the disk can only be read";
}

void TestSaving::whatFailedStays()
{
    QFETCH(QString, disk);
    QFETCH(QString, reason);
    WindowRoom room;
    room.add({room.source("a.jpg", photos::plain(1)), room.source("b.jpg", photos::plain(2))});
    QVERIFY(room.repair());
    const QString folder = room.destination() + "/RepairedFiles";
    const bool readOnly = disk == "ro";
    if (disk.isEmpty()) {
        QVERIFY(QFile::rename(room.result("b.jpg"), room.result("kept")));
    } else {
        const QByteArray place = QFile::encodeName(room.destination());
        if (::mount("none", place.constData(), "tmpfs", 0, readOnly ? nullptr : disk.toLatin1().constData()) != 0)
            QSKIP("only root makes file systems");
        QVERIFY(!readOnly || QDir().mkpath(folder));
        QVERIFY(!readOnly || ::mount("none", place.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0);
    }
    if (readOnly) room.script.expect("FolderExist", "OverwriteBtn");
    room.script.expect("SavingFinishDlg", "OkBtn", [&](QDialog *dialog) {
        QCOMPARE(dialog->findChild<QLabel *>("label")->text(),
                 QString("%1 of 2 files were saved.").arg(readOnly ? 0 : 1));
        const QString told = dialog->findChild<QPlainTextEdit *>("problems")->toPlainText().section('\n', -1);
        QCOMPARE(told, "b.jpg: " + QString(reason).replace("%1", folder + "/b.jpg"));
    });
    room.chooser.answers.push_back({room.destination()});
    QVERIFY(room.click("SaveRepairBtn_2"));
    ::umount2(QFile::encodeName(room.destination()).constData(), MNT_DETACH);
    const QStringList left = readOnly ? QStringList{"a.jpg", "b.jpg"} : QStringList("b.jpg");
    QCOMPARE(tickedRows(room), left);
    QVERIFY(room.find("SaveRepairBtn_2")->isEnabled());

    room.script.expect("BackApplicationDlg", "NoBtn", [&](QDialog *dialog) {
        const QString text = dialog->findChild<QLabel *>("warning")->text();
        QVERIFY2(text.endsWith(QString(": %1").arg(left.size())), qPrintable(text));
    });
    QVERIFY(room.click("BackBtn_2"));

    // Nothing was wiped: a second save elsewhere has all that is left.
    if (disk.isEmpty()) QVERIFY(QFile::rename(room.result("kept"), room.result("b.jpg")));
    QVERIFY(QDir().mkpath(room.place("elsewhere")));
    room.script.expect("SavingFinishDlg", "OkBtn", [](QDialog *dialog) {
        QCOMPARE(dialog->findChild<QLabel *>("label")->text(), QString("Image(s) saved successfully."));
    });
    room.chooser.answers.push_back({room.place("elsewhere")});
    QVERIFY(room.click("SaveRepairBtn_2"));
    QStringList saved = left;
    QCOMPARE(WindowRoom::filesBelow(room.place("elsewhere")), saved.replaceInStrings(QRegExp("^"), "RepairedFiles/"));
    QVERIFY(tickedRows(room).isEmpty());
    QCOMPARE(room.complaint(), QString());
}

QTEST_MAIN(TestSaving)
#include "tst_saving.moc"
