// The dialogs as a person meets them: what each button and key answers, what the keyboard and a screen reader reach, and
// whether long texts fit.

#include "DialogSet.h"

#include "app/KesmiraApp.h"
#include "desktop/Look.h"
#include "dialogs/AdvancedRepairDlg.h"
#include "dialogs/AlreadyExistFileDlg.h"
#include "dialogs/DialogPrompt.h"
#include "dialogs/FolderExist.h"
#include "dialogs/ReferenceFileDlg.h"
#include "dialogs/StopDlg.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

namespace {

template<typename Widget>
Widget *child(QWidget &dialog, const QString &name)
{
    return dialog.findChild<Widget *>(name);
}

/// A button's name, "Enter", "Escape" or "close" (what a window manager does).
void act(QWidget &dialog, const QString &what)
{
    if (what == "close") {
        dialog.close();
    } else if (what == "Enter" || what == "Escape") {
        QTest::keyClick(dialog.focusWidget(), what == "Enter" ? Qt::Key_Return : Qt::Key_Escape);
    } else {
        auto button = child<QPushButton>(dialog, what);
        QVERIFY2(button && button->isVisible() && button->isEnabled(), qPrintable(what));
        QTest::mouseClick(button, Qt::LeftButton);
    }
}

QString word(FolderAnswer answer)
{
    static const char *const words[] = {"Rename", "Overwrite", "Cancel", "Closed"};
    return words[int(answer)];
}

QString word(FileAnswer answer)
{
    static const char *const words[] = {"Overwrite", "Rename",  "Skip",  "OverwriteAll",
                                        "RenameAll", "SkipAll", "Closed"};
    return words[int(answer)];
}

/// What a caller learns from a dialog that has been answered.
QString outcome(const FramelessDialog &dialog)
{
    if (const auto folder = qobject_cast<const FolderExist *>(&dialog)) return word(folder->answer());
    if (const auto file = qobject_cast<const AlreadyExistFileDlg *>(&dialog)) return word(file->answer());
    const bool accepted = dialog.result() == QDialog::Accepted;
    if (pApp->strCloseAnswer == (accepted ? "YesBtn" : "NoBtn")) return accepted ? "yes" : "no";
    return (accepted ? "accepted" : "rejected") + pApp->strCloseAnswer;
}

QList<QWidget *> tabStops(QWidget &dialog)
{
    QList<QWidget *> stops;
    for (QWidget *widget : dialog.findChildren<QWidget *>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->focusPolicy() & Qt::TabFocus) stops << widget;
    }
    return stops;
}

/// "" if all text of the widget is on view.
QString clipping(const QWidget *widget, const QWidget &dialog)
{
    const QRect place(widget->mapTo(const_cast<QWidget *>(&dialog), QPoint()), widget->size());
    QSize needed = widget->sizeHint();
    const auto label = qobject_cast<const QLabel *>(widget);
    if (label && label->wordWrap())
        needed = QSize(label->minimumSizeHint().width(), label->heightForWidth(label->width()));
    if (dialog.rect().contains(place) && place.width() >= needed.width() && place.height() >= needed.height())
        return {};
    return QString("%1 has %2x%3 and needs %4x%5 ")
        .arg(widget->objectName())
        .arg(place.width())
        .arg(place.height())
        .arg(needed.width())
        .arg(needed.height());
}

QString clipped(const QWidget &dialog)
{
    QString all;
    for (const QWidget *widget : dialog.findChildren<QWidget *>()) {
        const bool hasText = qobject_cast<const QLabel *>(widget) || qobject_cast<const QAbstractButton *>(widget);
        if (hasText && widget->isVisible()) all += clipping(widget, dialog);
    }
    return all;
}

void sendMouse(QWidget *to, QEvent::Type type, const QPoint &global, Qt::MouseButton button, Qt::MouseButtons held)
{
    QMouseEvent event(type, to->mapFromGlobal(global), global, button, held, Qt::NoModifier);
    QApplication::sendEvent(to, &event);
}

void dialogRows()
{
    QTest::addColumn<QString>("name");
    for (const DialogCase &one : allDialogs()) QTest::newRow(one.name) << one.name;
}

} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { look::apply(*qApp); }
    void init();
    void cleanup();

    void answers_data();
    void answers();
    void stopClicksOneButton_data();
    void stopClicksOneButton();
    void safeAnswerHasFocusAgain();
    void nextLeadsToTheSample_data();
    void nextLeadsToTheSample();
    void browse_data();
    void browse();
    void sampleIsGivenUp();
    void linkShowsTheFolder();
    void promptHandsOver_data();
    void promptHandsOver();
    void keyboardAndScreenReader_data() { dialogRows(); }
    void keyboardAndScreenReader();
    void longTextsFit_data() { dialogRows(); }
    void longTextsFit();
    void drag_data();
    void drag();
    void hiddenDialogIsNotDragged();
    void centresOnItsParent();

private:
    ScriptedChooser m_chooser; // answers for the toolkit's dialogs, which would wait for a person
    RecordingPlatform m_platform;
};

void TestDialogs::init()
{
    *pApp = KesmiraApp();
    m_chooser = {};
    m_platform.calls.clear();
    setFileChooser(&m_chooser);
    setPlatform(&m_platform);
}

void TestDialogs::cleanup()
{
    setFileChooser(nullptr);
    setPlatform(nullptr);
}

void TestDialogs::answers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("expected");
    const std::pair<const char *, const char *> table[] = {
        {"back", "YesBtn=yes NoBtn=no Enter=no Escape=no close=no"},
        {"exit", "YesBtn=yes NoBtn=no Enter=no Escape=no close=no"},
        {"completion", "OkBtn=accepted Enter=accepted Escape=rejected close=rejected"},
        {"message", "OkBtn=accepted Enter=accepted Escape=rejected close=rejected"},
        {"question", "OkBtn=accepted Enter=accepted NoBtn=rejected Escape=rejected close=rejected"},
        {"saved", "OkBtn=accepted Enter=accepted Escape=rejected close=rejected"},
        {"advanced, JPEG", "CancelBtn=rejected Escape=rejected close=rejected"},
        {"reference with sample",
         "RepairBtn=accepted Enter=accepted CancelBtn=rejected Escape=rejected close=rejected"},
        {"folder", "RenameBtn=Rename OverwriteBtn=Overwrite CancelBtn=Cancel"},
        {"folder", "Enter=Rename Escape=Cancel close=Closed"},
        {"file, one of one", "RenameBtn=Rename OverwriteBtn=Overwrite SkipBtn=Skip"},
        {"file, one of one", "Enter=Rename Escape=Closed close=Closed"},
        {"file, one of many", "RenameAllBtn=RenameAll OverwriteAllBtn=OverwriteAll SkipAllBtn=SkipAll SkipBtn=Skip"},
    };
    for (const auto &[name, actions] : table) {
        for (const QString &one : QString(actions).split(' ')) {
            const QString action = one.section('=', 0, 0);
            const QString expected = one.section('=', 1);
            QTest::addRow("%s: %s", name, qPrintable(action)) << name << action << expected;
        }
    }
}

void TestDialogs::answers()
{
    QFETCH(QString, name);
    QFETCH(QString, action);
    const auto dialog = makeDialog(name);
    dialog->show();
    act(*dialog, action);
    QVERIFY(!dialog->isVisible());
    QTEST(outcome(*dialog), "expected");
    if (name == "question") QVERIFY(child<QPushButton>(*dialog, "NoBtn")->isHidden());
}

void TestDialogs::stopClicksOneButton_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("clicked");
    for (const char *action : {"NoBtn", "Enter", "Escape", "close"}) QTest::newRow(action) << action << "NoBtn";
    QTest::newRow("YesBtn") << "YesBtn"
                            << "YesBtn";
}

void TestDialogs::stopClicksOneButton()
{
    QFETCH(QString, action);
    StopDlg dialog;
    QStringList clicked;
    // As the window's slots do: they too close or hide the dialog.
    connect(dialog.YesBtn, &QPushButton::clicked, this, [&] {
        clicked << "YesBtn";
        dialog.close();
    });
    connect(dialog.NoBtn, &QPushButton::clicked, this, [&] {
        clicked << "NoBtn";
        dialog.hide();
    });
    dialog.show();
    act(dialog, action);
    QVERIFY(!dialog.isVisible());
    QTEST(clicked.join(" "), "clicked");
    QCOMPARE(pApp->strCloseAnswer, QString());
}

void TestDialogs::safeAnswerHasFocusAgain()
{
    StopDlg dialog;
    dialog.show();
    dialog.YesBtn->setFocus();
    act(dialog, "YesBtn");
    dialog.show();
    QCOMPARE(dialog.focusWidget(), dialog.NoBtn);
}

void TestDialogs::nextLeadsToTheSample_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("label");
    for (const char *suffix : {"JPG", "jpeg"}) QTest::newRow(suffix) << suffix << "Add a sample JPEG :";
    for (const char *suffix : {"HEIC", "heif"}) QTest::newRow(suffix) << suffix << "Add a sample HEIC :";
}

void TestDialogs::nextLeadsToTheSample()
{
    QFETCH(QString, suffix);
    pApp->strFileSuffix = suffix;
    ReferenceFileDlg reference;
    AdvancedRepairDlg dialog(nullptr, AdvancedRepairDlg::jpegText(), &reference);
    dialog.show();
    act(dialog, "Enter");
    QVERIFY(!dialog.isVisible());
    QVERIFY(reference.isVisible());
    QVERIFY(!reference.RepairBtn->isEnabled());
    QTEST(child<QLabel>(reference, "label")->text(), "label");
}

void TestDialogs::browse_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<bool>("forJpeg");
    QTest::addColumn<bool>("forHeic");
    const QString jpeg = "Add File | /home | Images (*.JPEG *.JPG *.jpg *.jpeg )";
    const QString heic = "Add File | /home | Images (*.HEIC *.HEIF *.heic *.heif)";
    QTest::newRow("JPEG") << ""
                          << "JPG"
                          << "/card/good.jpg" << jpeg << true << false;
    QTest::newRow("HEIC") << ""
                          << "heic"
                          << "/card/good.heic" << heic << false << true;
    QTest::newRow("cancelled") << ""
                               << "jpg"
                               << "" << jpeg << false << false;
    QTest::newRow("in German") << "DE"
                               << "JPG"
                               << "/card/good.jpg"
                               << "Auswahl des Beispiels | /home | Bilder (*.JPEG *.JPG *.jpg *.jpeg )" << true
                               << false;
}

void TestDialogs::browse()
{
    QFETCH(QString, language);
    QFETCH(QString, suffix);
    QFETCH(QString, file);
    const Spoken spoken(language);
    pApp->strFileSuffix = suffix;
    m_chooser.answers.push_back(QStringList{file});
    ReferenceFileDlg dialog;
    dialog.show();
    act(dialog, "Enter"); // while there is no sample, that is Browse

    const bool taken = !file.isEmpty();
    QVERIFY(dialog.isVisible());
    QTEST(m_chooser.asked.join(", "), "asked");
    QCOMPARE(pApp->strSamplePath, file);
    QCOMPARE(dialog.textEdit->toPlainText(), file);
    QCOMPARE(dialog.checkBox->isEnabled(), taken);
    QCOMPARE(dialog.RepairBtn->isEnabled(), taken);
    QTEST(pApp->bReferenceRepair, "forJpeg");
    QTEST(pApp->bHeicReferenceRepair, "forHeic");
}

void TestDialogs::sampleIsGivenUp()
{
    const auto made = makeDialog("reference with sample");
    auto &dialog = static_cast<ReferenceFileDlg &>(*made);
    dialog.show();
    pApp->bApplyToAllSameFormat = true;
    act(dialog, "Escape");
    QVERIFY(!pApp->bApplyToAllSameFormat);
    QVERIFY(!dialog.RepairBtn->isEnabled());

    dialog.checkBox->setChecked(true);
    dialog.reset();
    QCOMPARE(dialog.textEdit->toPlainText(), QString());
    QVERIFY(!dialog.checkBox->isChecked() && !dialog.checkBox->isEnabled());
}

void TestDialogs::linkShowsTheFolder()
{
    const auto dialog = makeDialog("saved");
    dialog->show();
    act(*dialog, "ClickHereBtn");
    QCOMPARE(m_platform.calls, QStringList{"show /media/card/out"});
    QVERIFY(dialog->isVisible());
}

void TestDialogs::promptHandsOver_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("expected");
    QTest::newRow("proposal") << ""
                              << "Enter"
                              << "Rename Copy(1)_a.jpg";
    QTest::newRow("typed") << "b c.jpg"
                           << "RenameBtn"
                           << "Rename b c.jpg";
    QTest::newRow("no way out of the folder") << "../b.jpg"
                                              << "Enter"
                                              << "Rename ..b.jpg";
    QTest::newRow("all") << ""
                         << "OverwriteAllBtn"
                         << "OverwriteAll Copy(1)_a.jpg";
}

void TestDialogs::promptHandsOver()
{
    QFETCH(QString, typed);
    QFETCH(QString, action);
    QWidget window;
    window.show();
    DialogPrompt prompt(&window);
    QTimer person;
    connect(&person, &QTimer::timeout, this, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        if (auto edit = child<QLineEdit>(*dialog, "RenameFileText"); edit && !typed.isEmpty())
            QTest::keyClicks(edit, typed);
        act(*dialog, action);
    });
    person.start(0);
    QString newName = "Copy(1)_a.jpg";
    const FileAnswer answer = prompt.fileExists("a.jpg", newName);
    QTEST(word(answer) + " " + newName, "expected");

    action = "OverwriteBtn";
    QCOMPARE(word(prompt.folderExists("RepairedFiles", "Copy(1)_RepairedFiles")), QString("Overwrite"));
}

void TestDialogs::keyboardAndScreenReader()
{
    QFETCH(QString, name);
    const auto dialog = makeDialog(name);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));

    const QList<QWidget *> stops = tabStops(*dialog);
    QSet<QWidget *> reached;
    for (int i = 0; i < stops.size(); ++i) {
        QWidget *focus = dialog->focusWidget();
        reached << focus;
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(focus);
        QVERIFY(interface);
        QVERIFY2(!interface->text(QAccessible::Name).trimmed().isEmpty(), qPrintable(focus->objectName()));
        QVERIFY(interface->role() != QAccessible::NoRole && interface->role() != QAccessible::Client);
        QVERIFY(interface->state().focused);
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    QCOMPARE(reached, QSet<QWidget *>(stops.begin(), stops.end()));
    for (const QLabel *label : dialog->findChildren<QLabel *>()) // names of files may look like markup
        QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->text()));
    QVERIFY(!dialog->windowTitle().isEmpty());
    QCOMPARE(QAccessible::queryAccessibleInterface(dialog.get())->text(QAccessible::Name), dialog->windowTitle());
}

void TestDialogs::longTextsFit()
{
    QFETCH(QString, name);
    const auto before = makeDialog(name);
    before->show();
    QCOMPARE(clipped(*before), QString());
    const QSize size = before->size();
    const QString title = before->windowTitle();

    WordyTranslator wordy;
    QCoreApplication::installTranslator(&wordy);
    const auto after = makeDialog(name); // what the caller's texts are in the new language
    after->show();
    QTRY_VERIFY(before->windowTitle().size() * 10 >= title.size() * 14);
    QTRY_COMPARE(clipped(*before), QString());
    QTRY_COMPARE(clipped(*after), QString());

    QCoreApplication::removeTranslator(&wordy);
    QTRY_COMPARE(before->windowTitle(), title);
    // Heights of lines are rounded, not always to the same side.
    QCOMPARE(before->width(), size.width());
    QVERIFY(qAbs(before->height() - size.height()) <= 1);

    for (const QString &language : Spoken::all()) {
        const Spoken spoken(language);
        QVERIFY(spoken.isThere());
        const auto dialog = makeDialog(name);
        dialog->show();
        QTRY_COMPARE(clipped(*dialog), QString());
    }
}

void TestDialogs::drag_data()
{
    QTest::addColumn<QPoint>("grip");
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("moves");
    QTest::newRow("strip") << QPoint(40, 10) << int(Qt::LeftButton) << true;
    QTest::newRow("title") << QPoint(180, 14) << int(Qt::LeftButton) << true;
    QTest::newRow("other button") << QPoint(40, 10) << int(Qt::RightButton) << false;
    QTest::newRow("below the strip") << QPoint(40, 35) << int(Qt::LeftButton) << false;
}

void TestDialogs::drag()
{
    QFETCH(QPoint, grip);
    QFETCH(int, button);
    QFETCH(bool, moves);
    const auto dialog = makeDialog("folder");
    dialog->show();
    const QPoint start = dialog->pos();
    QWidget *under = dialog->childAt(grip);
    QVERIFY(under);
    const auto held = Qt::MouseButton(button);
    const QPoint from = dialog->mapToGlobal(grip);
    const QPoint way(37, -12);

    sendMouse(under, QEvent::MouseButtonPress, from, held, held);
    QCOMPARE(dragged, moves);
    sendMouse(under, QEvent::MouseMove, from + way / 2, Qt::NoButton, held);
    sendMouse(under, QEvent::MouseMove, from + way, Qt::NoButton, held);
    QCOMPARE(dialog->pos(), moves ? start + way : start);
    sendMouse(under, QEvent::MouseButtonRelease, from + way, held, Qt::NoButton);
    QVERIFY(!dragged);
    sendMouse(under, QEvent::MouseMove, from, Qt::NoButton, Qt::NoButton);
    QCOMPARE(dialog->pos(), moves ? start + way : start);
}

void TestDialogs::hiddenDialogIsNotDragged()
{
    const auto dialog = makeDialog("exit");
    dialog->show();
    const QPoint from = dialog->mapToGlobal(QPoint(40, 10));
    sendMouse(dialog.get(), QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    act(*dialog, "Escape");
    QVERIFY(!dragged);
}

void TestDialogs::centresOnItsParent()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget window;
    window.setGeometry(screen.x() + 100, screen.y() + 50, 600, 500);
    window.show();
    const auto dialog = makeDialog("folder", &window);
    const auto offCentre = [&] {
        return (dialog->frameGeometry().center() - window.frameGeometry().center()).manhattanLength();
    };
    dialog->show();
    QVERIFY(offCentre() <= 2);
    dialog->move(5, 5);
    dialog->hide();
    dialog->show();
    QVERIFY(offCentre() <= 2);

    dialog->hide();
    window.move(screen.right() - 50, screen.bottom() - 50);
    dialog->show();
    QVERIFY(screen.contains(dialog->frameGeometry()));
}

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
