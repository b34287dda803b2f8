// The two pages for whoever has no mouse, sees no screen, or speaks a language with longer words: what the Tab key reaches
// and in which order, what a screen reader hears, which keys do what, and whether every text is whole.

#include "desktop/Languages.h"
#include "desktop/Look.h"
#include "support/Spoken.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QStyleOptionButton>

namespace {

/// The states in which a person meets the window.
enum class State { Empty, Listed, Running, Done };

void bringTo(WindowRoom &room, State state)
{
    room.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(room.window.get()));
    if (state == State::Empty) return;
    QStringList paths{room.source("a.jpg", photos::withThumbnail()), room.source("b.jpg", photos::scanOnly())};
    static const QByteArray longWork = photos::longWork();
    for (int i = 0; state == State::Running && i < 40; ++i)
        paths << room.source(QString("long%1.jpg").arg(i), longWork);
    room.add(paths);
    if (state == State::Listed) return;
    if (state == State::Done) {
        QVERIFY(room.repair());
        room.window->activateWindow(); // where no window manager does it behind a dialog
        QTRY_COMPARE(QApplication::activeWindow(), room.window.get());
        room.clickRow(room.row("a.jpg", true));
        QTRY_VERIFY(room.find<QWidget>("graphicsView")->isVisible());
        return;
    }
    QVERIFY(room.click("StartRepairFilesBtn"));
    QTRY_VERIFY(room.row("b.jpg") && !room.row("b.jpg")->text(column::Status).isEmpty());
}

void stateColumns()
{
    QTest::addColumn<State>("state");
    QTest::addColumn<bool>("chinese");
}

QString nameOf(const QWidget *widget)
{
    return widget ? widget->objectName() : QString("nothing");
}

bool isTabStop(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && widget->focusPolicy() & Qt::TabFocus;
}

/// What is wrong with the widget that has the focus, "" if nothing is.
QString complaintOfFocus(QWidget *focus)
{
    if (!isTabStop(focus)) return nameOf(focus) + " is hidden or off; ";
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(focus);
    if (!reader) return nameOf(focus) + " is unknown to a screen reader; ";
    QString wrong;
    if (reader->text(QAccessible::Name).trimmed().isEmpty()) wrong += nameOf(focus) + " has no name; ";
    if (reader->role() == QAccessible::NoRole || reader->role() == QAccessible::Client)
        wrong += nameOf(focus) + " has no role; ";
    // The toolkit never says it of a list, but of the row in it.
    if (!reader->state().focused && !qobject_cast<QAbstractItemView *>(focus))
        wrong += nameOf(focus) + " isn't told to have the focus; ";
    const auto *button = qobject_cast<const QAbstractButton *>(focus);
    if (button && button->objectName() == "rowButton" && button->text().isEmpty())
        wrong += "a button that nobody sees takes the focus; ";
    return wrong;
}

QString sizeText(const QSize &size)
{
    return QString("%1x%2").arg(size.width()).arg(size.height());
}

/// "" if the text of the label or button is whole.
QString cutText(const QWidget *widget)
{
    QSize needed;
    QSize has = widget->size();
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        if (label->text().isEmpty()) return {};
        needed = label->wordWrap() ? QSize(label->minimumSizeHint().width(), label->heightForWidth(label->width()))
                                   : label->sizeHint();
    } else if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        // A row's button has a fixed width; its words are measured in the languages that there are.
        if (button->text().isEmpty() || button->objectName() == "rowButton") return {};
        QStyleOptionButton option;
        option.initFrom(button);
        has = button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button).size();
        needed = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        if (!button->icon().isNull()) needed.rwidth() += button->iconSize().width() + 4;
    } else {
        return {};
    }
    if (needed.width() <= has.width() && needed.height() <= has.height()) return {};
    return QString("%1 needs %2 and has %3; ").arg(nameOf(widget), sizeText(needed), sizeText(has));
}

QString cutHeaders(const QHeaderView *header)
{
    QString cut;
    for (int i = 0; i < header->count(); ++i) {
        const QString text = header->model()->headerData(i, Qt::Horizontal).toString();
        if (header->isSectionHidden(i) || text.isEmpty()) continue;
        const int needed = header->sectionSizeHint(i);
        if (header->sectionSize(i) >= needed) continue;
        cut += QString("header \"%1\" needs %2 and has %3; ").arg(text).arg(needed).arg(header->sectionSize(i));
    }
    return cut;
}

/// Cells of the file list that are meant to be whole; names and paths are cut in their middle.
QString cutCells(const QTreeWidget *list)
{
    QString cut;
    const QAbstractItemView *view = list;
    for (const int column : {2, 7, 8}) { // size, modified, created
        const int needed = view->sizeHintForColumn(column);
        if (list->topLevelItemCount() == 0 || list->columnWidth(column) >= needed) continue;
        cut += QString("column %1 needs %2 and has %3; ").arg(column).arg(needed).arg(list->columnWidth(column));
    }
    return cut;
}

/// Widgets of a page that lie on each other or leave it. The strip at the top is meant to lie under the title.
QString misplaced(const QWidget *page)
{
    QString wrong;
    QList<const QWidget *> seen;
    for (const QWidget *widget : page->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!widget->isVisible() || widget->property("role") == "strip") continue;
        if (!page->rect().contains(widget->geometry())) wrong += nameOf(widget) + " leaves the page; ";
        for (const QWidget *other : qAsConst(seen))
            if (other->geometry().intersects(widget->geometry()))
                wrong += QString("%1 lies on %2; ").arg(nameOf(widget), nameOf(other));
        seen << widget;
    }
    return wrong;
}

QString layoutFaults(const WindowRoom &room)
{
    QString faults;
    for (const QWidget *widget : room.window->findChildren<QWidget *>()) {
        if (!widget->isVisible()) continue;
        faults += cutText(widget);
        if (const auto *header = qobject_cast<const QHeaderView *>(widget)) faults += cutHeaders(header);
    }
    if (room.list()->isVisible()) faults += cutCells(room.list());
    for (const char *name : {"frame", "frame2"})
        if (const auto *page = room.find<QWidget>(name); page->isVisible()) faults += misplaced(page);
    return faults;
}

} // namespace

Q_DECLARE_METATYPE(State)

class TestAccessible : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { look::apply(*qApp); }
    void tabGoesThroughThePage_data();
    void tabGoesThroughThePage();
    void unseenRowsHaveNoButton();
    void namesAreNoMarkup();
    void keys_data();
    void keys();
    void textsFit_data();
    void textsFit();
};

void TestAccessible::tabGoesThroughThePage_data()
{
    stateColumns();
    QTest::addColumn<QString>("order");
    const struct
    {
        const char *name;
        State state;
        const char *order;
    } pages[] = {
        {"empty list", State::Empty, "pDropButton UpdateBtn HelpBtn MiniMaBtn_2 closeBtn_2 pMoreToolsBtn"},
        {"list", State::Listed,
         "pFileList checkBox1 AddFilesBtn removeFileBtn removeTickedBtn deepBox StartRepairFilesBtn UpdateBtn HelpBtn "
         "MiniMaBtn_2 closeBtn_2 pMoreToolsBtn"},
        {"run", State::Running, "StopRepairProcessBtn_2 HelpBtn_1 MiniMaBtn closeBtn pMoreToolsBtn"},
        {"results", State::Done,
         "pResultTree graphicsView detailsPane checkBox1_2 checkBox3 salvageOffer SaveRepairBtn_2 BackBtn_2 "
         "UpdateBtn_2 HelpBtn_1 "
         "MiniMaBtn "
         "closeBtn rowButton pMoreToolsBtn partHealthy partNothing"},
    };
    for (const auto &page : pages) {
        QTest::addRow("%s", page.name) << page.state << false << QString(page.order);
        QTest::addRow("%s, fixed to Chinese", page.name)
            << page.state << true << QString(page.order).remove(QRegularExpression(" HelpBtn\\w*"));
    }
}

void TestAccessible::tabGoesThroughThePage()
{
    QFETCH(State, state);
    QFETCH(bool, chinese);
    QFETCH(QString, order);
    WindowRoom room(chinese);
    bringTo(room, state);

    QWidget *const first = room.window->focusWidget();
    QVERIFY2(first && isTabStop(first), qPrintable("focus starts on " + nameOf(first)));
    QStringList reached;
    QString wrong;
    QWidget *focus = first;
    do {
        reached << nameOf(focus);
        wrong += complaintOfFocus(focus);
        QTest::keyClick(focus, Qt::Key_Tab);
        focus = room.window->focusWidget();
    } while (focus && focus != first && reached.size() < 50);
    QCOMPARE(wrong, QString());
    QCOMPARE(reached.join(' '), order);
    // Nothing that can be used is left out.
    QStringList missed;
    for (const QWidget *widget : room.window->findChildren<QWidget *>())
        if (widget->window() == room.window.get() && isTabStop(widget) && !reached.contains(nameOf(widget)))
            missed << nameOf(widget) + " " + widget->metaObject()->className();
    QCOMPARE(missed.join(", "), QString());
}

void TestAccessible::unseenRowsHaveNoButton()
{
    // A row that was never tried has nothing to press.
    WindowRoom room;
    const QString vanished = room.source("gone.jpg", photos::plain());
    room.add({vanished, room.source("b.jpg", photos::scanOnly())});
    QFile::remove(vanished);
    QVERIFY(room.repair());
    QVERIFY(room.rowButton("b.jpg")->isVisible());
    const QAbstractButton *none = room.rowButton("gone.jpg");
    QVERIFY(!none || !none->isVisible());
}

void TestAccessible::namesAreNoMarkup()
{
    WindowRoom room;
    const QString path = room.source("<img src=x>/<b>.jpg", photos::plain());
    room.add({path});
    const QPoint place(60, room.list()->visualItemRect(room.list()->topLevelItem(0)).center().y());
    QHelpEvent hover(QEvent::ToolTip, place, room.list()->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(room.list()->viewport(), &hover);
    bool seen = false;
    for (const QWidget *widget : QApplication::allWidgets()) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        if (!label || !(label->isVisible() || room.window->isAncestorOf(label))) continue;
        QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->text()));
        seen = seen || (label->inherits("QTipLabel") && label->text() == path);
    }
    QVERIFY(seen);
}

void TestAccessible::keys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<State>("state");
    QTest::addColumn<bool>("choosesFile");
    QTest::addColumn<QString>("dialog");
    const auto row = [](const char *key, const char *where, State state, bool chooses, const char *dialog) {
        QTest::addRow("%s, %s", key, where) << key << state << chooses << dialog;
    };
    row("Ctrl+O", "empty list", State::Empty, true, "");
    row("Ctrl+O", "list", State::Listed, true, "");
    row("Ctrl+O", "results", State::Done, false, "");
    row("Ctrl+R", "empty list", State::Empty, false, "");
    row("Ctrl+R", "list", State::Listed, false, "CompletionMsg OkBtn");
    row("Ctrl+R", "run", State::Running, false, "");
    row("Ctrl+.", "run", State::Running, false, "StopDlg NoBtn");
    row("Esc", "run", State::Running, false, "StopDlg NoBtn");
    row("Esc", "results", State::Done, false, "");
    row("Ctrl+S", "run", State::Running, false, "");
    row("Ctrl+S", "results", State::Done, true, "SavingFinishDlg OkBtn");
    row("Alt+Left", "run", State::Running, false, "");
    row("Alt+Left", "results", State::Done, false, "BackApplicationDlg NoBtn");
    row("Ctrl+Q", "list", State::Listed, false, "CloseApplicationDlg NoBtn");
    row("Ctrl+Q", "results", State::Done, false, "CloseApplicationDlg NoBtn");
}

void TestAccessible::keys()
{
    QFETCH(QString, key);
    QFETCH(State, state);
    QFETCH(bool, choosesFile);
    QFETCH(QString, dialog);
    WindowRoom room;
    bringTo(room, state);
    if (choosesFile)
        room.chooser.answers.push_back({state == State::Done ? room.destination() : room.source("c.jpg", "x")});
    if (!dialog.isEmpty()) room.script.expect(dialog.section(' ', 0, 0), dialog.section(' ', 1));
    const int pressed = QKeySequence(key)[0];
    QTest::keyClick(room.window.get(), Qt::Key(pressed & ~int(Qt::KeyboardModifierMask)),
                    Qt::KeyboardModifiers(pressed & int(Qt::KeyboardModifierMask)));
    QTRY_VERIFY(room.script.done());
    QCOMPARE(room.complaint(), QString());
    if (choosesFile && state != State::Done) QCOMPARE(room.list()->topLevelItemCount(), state == State::Empty ? 1 : 3);
}

void TestAccessible::textsFit_data()
{
    stateColumns();
    QTest::addColumn<QString>("language");
    const std::pair<const char *, State> states[] = {
        {"empty list", State::Empty}, {"list", State::Listed}, {"run", State::Running}, {"results", State::Done}};
    for (const auto &[name, state] : states) {
        for (const QString &language : QStringList{"", "long"} + Spoken::all())
            QTest::addRow("%s %s", name, qPrintable(language)) << state << false << language;
        for (const QString &language : {QString(), QString("long"), QString("CN")})
            QTest::addRow("%s %s, fixed to Chinese", name, qPrintable(language)) << state << true << language;
    }
}

void TestAccessible::textsFit()
{
    QFETCH(State, state);
    QFETCH(bool, chinese);
    QFETCH(QString, language);
    const Spoken spoken(language);
    QVERIFY(spoken.isThere());
    WindowRoom room(chinese);
    if (Spoken::all().contains(language)) {
        setLanguageFlags(Spoken::all().indexOf(language));
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(room.window.get(), &change);
    }
    bringTo(room, state);
    QTRY_COMPARE(layoutFaults(room), QString());
    for (const QTreeWidget *tree : room.window->findChildren<QTreeWidget *>())
        QVERIFY(language == "long" || !tree->horizontalScrollBar()->isVisible());
    // The words of a row's button are measured in the languages that there are; the made one is longer than any.
    const QAbstractButton *button = state == State::Done && language != "long" ? room.rowButton("b.jpg") : nullptr;
    if (button) QVERIFY(button->fontMetrics().horizontalAdvance(button->text()) <= button->width() - 10);
    // A bar that is too low for its words hides them behind a button of the toolkit's.
    for (const QWidget *more : room.window->findChildren<QWidget *>("qt_menubar_ext_button"))
        QVERIFY(!more->isVisible());
    for (const QMenu *menu : room.window->findChildren<QMenu *>()) {
        QStringList keys;
        for (const QAction *action : menu->actions()) keys << QKeySequence::mnemonic(action->text()).toString();
        keys.removeAll(QString());
        QCOMPARE(keys.removeDuplicates(), 0);
    }
}

QTEST_MAIN(TestAccessible)
#include "tst_accessible.moc"
