// The real window in a private place: no person, no system, no file of the tester's. Dialogs, choosers and the platform
// are answered by strict scripts; whatever was not expected, and whatever was not used, is a complaint.
#pragma once

#include "app/KesmiraApp.h"
#include "engine/OneFile.h"
#include "support/FakeDesktop.h"
#include "support/Files.h"
#include "support/RunFolder.h"
#include "window/BrowseRepair.h"
#include "window/CustomButton.h"
#include "window/DrgDrp.h"
#include "window/MyTreeWidget.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDirIterator>
#include <QPointer>
#include <QTest>

#include <deque>
#include <functional>
#include <memory>

/// Answers modal dialogs in their order: each line names the class and the button to click.
class DialogScript : public QObject
{
public:
    struct Line
    {
        QString dialog;
        QString button;                           ///< none for a dialog that goes by itself
        std::function<void(QDialog *)> look = {}; ///< looks at the dialog before the click
    };

    DialogScript() { qApp->installEventFilter(this); }
    void expect(const QString &dialog, const QString &button, std::function<void(QDialog *)> look = {})
    {
        m_lines.push_back({dialog, button, std::move(look)});
    }
    bool done() const { return m_lines.empty(); }
    QString complaint() const
    {
        QStringList all = m_surprises;
        for (const Line &line : m_lines) all << "not shown: " + line.dialog;
        return all.join("; ");
    }

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *dialog = qobject_cast<QDialog *>(object);
        if (dialog && event->type() == QEvent::Show && dialog->isModal())
            QMetaObject::invokeMethod(
                this, [this, guard = QPointer<QDialog>(dialog)] { answer(guard); }, Qt::QueuedConnection);
        return false;
    }

private:
    void answer(QDialog *dialog)
    {
        if (!dialog || !dialog->isVisible()) return;
        const QString name = QString::fromLatin1(dialog->metaObject()->className());
        if (m_lines.empty() || m_lines.front().dialog != name) {
            m_surprises << "unexpected: " + name;
            dialog->reject();
            return;
        }
        const Line line = m_lines.front();
        m_lines.pop_front();
        if (line.look) line.look(dialog);
        if (line.button.isEmpty()) return;
        auto *button = dialog->findChild<QAbstractButton *>(line.button);
        if (button && button->isVisible() && button->isEnabled()) {
            button->click();
            return;
        }
        m_surprises << name + " has no button to click called " + line.button;
        dialog->reject();
    }

    std::deque<Line> m_lines;
    QStringList m_surprises;
};

class WindowRoom : public RunFolder
{
public:
    explicit WindowRoom(bool chinese = false)
    {
        *pApp = KesmiraApp();
        pApp->bChineseBuild = chinese;
        if (!prepareWorkingRoot().isEmpty()) qFatal("no working root");
        setPlatform(&platform);
        setFileChooser(&chooser);
        QDir().mkpath(destination());
        window = std::make_unique<BrowseRepair>();
        window->show();
    }
    ~WindowRoom()
    {
        window.reset();
        beginRun(); // lets the records of the last run go
        setPlatform(nullptr);
        setFileChooser(nullptr);
    }

    QString destination() const { return place("destination"); }
    QString result(const QString &name) const { return root() + "/RepairedFiles/" + name; }
    /// Names of all files below a folder, relative to it, sorted.
    static QStringList filesBelow(const QString &folder)
    {
        QStringList files;
        for (QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();)
            files << QDir(folder).relativeFilePath(it.next());
        files.sort();
        return files;
    }

    template<typename Widget = QAbstractButton>
    Widget *find(const char *name) const
    {
        auto *widget = window->findChild<Widget *>(QString::fromLatin1(name));
        if (!widget) qFatal("the window has no %s", name);
        return widget;
    }
    DrgDrp *list() const { return find<DrgDrp>("pFileList"); }
    MyTreeWidget *tree() const { return find<MyTreeWidget>("pResultTree"); }

    /// A click as a person's: only what is seen and enabled takes it.
    bool click(const char *name) const
    {
        auto *button = find(name);
        if (!button->isVisible() || !button->isEnabled()) return false;
        QTest::mouseClick(button, Qt::LeftButton);
        return true;
    }
    void add(const QStringList &paths)
    {
        chooser.answers.push_back(paths);
        click(find("pDropButton")->isVisible() ? "pDropButton" : "AddFilesBtn");
    }
    /// Starts a run and waits until its summary was confirmed and the worker has left.
    bool repair()
    {
        script.expect("CompletionMsg", "OkBtn");
        return click("StartRepairFilesBtn") && rest();
    }
    bool rest() const
    {
        return QTest::qWaitFor([this] { return script.done() && !window->workerRuns(); }, 60000);
    }

    /// One line a row: indentation for an output, name, type, status, box ("x", "-", none), resolution.
    QStringList rows() const
    {
        QStringList lines;
        for (QTreeWidgetItemIterator it(tree()); *it; ++it) {
            const QTreeWidgetItem *row = *it;
            const QVariant box = row->data(column::Name, Qt::CheckStateRole);
            lines << QStringLiteral("%1%2|%3|%4|%5|%6")
                         .arg(row->parent() ? " " : "", row->text(column::Name), row->text(column::Type),
                              row->text(column::Status),
                              !box.isValid()    ? ""
                                  : box.toInt() ? "x"
                                                : "-",
                              row->text(column::Resolution));
        }
        return lines;
    }
    QTreeWidgetItem *row(const QString &name, bool output = false) const
    {
        for (QTreeWidgetItemIterator it(tree()); *it; ++it)
            if ((*it)->text(column::Name) == name && bool((*it)->parent()) == output) return *it;
        return nullptr;
    }
    QAbstractButton *rowButton(const QString &name) const { return tree()->rowButton(row(name)); }
    void clickRow(QTreeWidgetItem *item) const
    {
        tree()->scrollToItem(item);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, tree()->visualItemRect(item).center());
    }
    /// Through both dialogs with `sample`, once they are opened; `all` ticks the box of the second.
    void expectSample(const QString &sample, bool all = false, bool stopped = false)
    {
        chooser.answers.push_back({sample});
        script.expect("AdvancedRepairDlg", "NextBtn");
        script.expect("ReferenceFileDlg", "RepairBtn", [all](QDialog *dialog) {
            QVERIFY(!dialog->findChild<QAbstractButton *>("RepairBtn")->isEnabled());
            dialog->findChild<QAbstractButton *>("BrowseBtn")->click();
            if (all) dialog->findChild<QAbstractButton *>("checkBox")->click();
        });
        if (!stopped) script.expect("CompletionMsg", "OkBtn");
    }
    void takeSample(const QString &row, const QString &sample, bool all, bool stopped = false)
    {
        expectSample(sample, all, stopped);
        QTest::mouseClick(rowButton(row), Qt::LeftButton);
    }
    QString complaint() const
    {
        QStringList all;
        if (!script.complaint().isEmpty()) all << script.complaint();
        if (chooser.unexpected > 0) all << "a file was asked for unexpectedly";
        if (!chooser.answers.empty()) all << "no file was asked for";
        return all.join("; ");
    }

    RecordingPlatform platform;
    ScriptedChooser chooser;
    DialogScript script;
    std::unique_ptr<BrowseRepair> window;
};
