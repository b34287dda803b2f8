// The language of the interface changed while the program runs, and the menus of languages, help and sibling tools.

#include "desktop/Languages.h"
#include "desktop/LinkFile.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>

class TestWindowLanguage : public QObject
{
    Q_OBJECT

private slots:
    void choice_data();
    void choice();
    void allTextsChange();
    void buttonsHoldPictures();
    void links_data();
    void links();
    void help_data();
    void help();
    void moreTools();
};

namespace {

/// The window with a link file, help pages and settings of sibling tools of its own.
class LanguageRoom : public WindowRoom
{
public:
    LanguageRoom()
    {
        pApp->strResourcesPath = m_folder.path();
        pApp->strLinkPlistPath = m_folder.filePath("KMJPGLink.plist");
        QSettings links(pApp->strLinkPlistPath, QSettings::NativeFormat);
        links.setValue("LanguageType", 0);
        links.setValue("KBLink", "https://kb.example/");
        for (const Language &language : languages()) {
            links.setValue("SupportLink_" + language.folder, "https://support.example/" + language.folder);
            links.setValue("SubmitEnquiryLink_" + language.folder, "https://enquiry.example/" + language.folder);
            links.setValue("EmailToSupport_" + language.folder, language.folder + "@support.example");
            links.setValue("SupportName_" + language.folder, "Support & more");
            QDir(m_folder.path()).mkdir("HelpPhoto_" + language.folder);
            for (const char *topic : {"Add_JPEG_files", "Repair_JPEG_files", "Preview_and_Save_JPEG_Files", "Overview"})
                QFile(QString("%1/HelpPhoto_%2/%3.htm").arg(m_folder.path(), language.folder, topic))
                    .open(QIODevice::WriteOnly);
        }
        links.sync();
        pApp->GetPlistLinks();
        QString KesmiraApp::*const settings[] = {
            &KesmiraApp::strDriveWatchPlistPath, &KesmiraApp::strFullRecoverPhotoPlistPath,
            &KesmiraApp::strClipMenderPlistPath, &KesmiraApp::strFullRecoverPlistPath};
        for (int i = 0; i < 4; ++i) pApp->*settings[i] = sibling(i);
    }
    QString sibling(int number) const { return m_folder.filePath(QString("sibling%1.plist").arg(number)); }

private:
    QTemporaryDir m_folder;
};

QMenu *menu(const WindowRoom &room, const char *bar, const char *name)
{
    const QMenuBar *menus = room.find<QMenuBar>(bar);
    return menus ? menus->findChild<QMenu *>(name) : nullptr;
}

/// Chooses a language by its number in the menu of a bar.
bool choose(const WindowRoom &room, const char *bar, int number)
{
    QMenu *languages = menu(room, bar, "languageMenu");
    if (!languages) return false;
    languages->actions()[number]->trigger();
    return true;
}

QString checkedLanguage(const WindowRoom &room, const char *bar)
{
    QStringList checked;
    for (const QAction *action : menu(room, bar, "languageMenu")->actions())
        if (action->isChecked()) checked << action->text();
    return checked.join(",");
}

int stored(const QString &path)
{
    return linkFile::value(path, "LanguageType").toInt();
}

/// Marks every text of the program's, as a catalogue would that has all of them.
class Marking : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QStringLiteral("~") + QString::fromUtf8(source);
    }
};

} // namespace

void TestWindowLanguage::choice_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("kept");
    QTest::addColumn<QString>("name");
    const char *const names[] = {"English", "Deutsch", "Français", "Italiano", "Español", "日本語", "中文"};
    // Chinese is told to the sibling tools as Japanese.
    for (int i = 0; i < 7; ++i) QTest::newRow(names[i]) << i << std::min(i, 5) << QString(names[i]);
}

void TestWindowLanguage::choice()
{
    QFETCH(int, number);
    QFETCH(int, kept);
    QFETCH(QString, name);
    LanguageRoom room;
    QVERIFY(choose(room, "pMenuBar", number));
    QCOMPARE(checkedLanguage(room, "pMenuBar"), name);
    QCOMPARE(currentLanguage()->number, number);
    QCOMPARE(TranslatorPath, pApp->strResourcesPath + "/PhotoTranslation/" + languages()[number].folder);
    QCOMPARE(stored(pApp->strLinkPlistPath), kept);
    QCOMPARE(storedLanguage(), number);
    for (int i = 0; i < 4; ++i) QCOMPARE(stored(room.sibling(i)), kept);

    room.add({room.source("a.jpg", photos::plain())});
    QVERIFY(room.repair());
    QVERIFY(choose(room, "pMenuBar2", (number + 1) % 7));
    QCOMPARE(checkedLanguage(room, "pMenuBar2"), languages()[(number + 1) % 7].endonym);
    emit menu(room, "pMenuBar", "languageMenu")->aboutToShow();
    QCOMPARE(checkedLanguage(room, "pMenuBar"), languages()[(number + 1) % 7].endonym);
}

void TestWindowLanguage::allTextsChange()
{
    LanguageRoom room;
    room.add({room.source("a.jpg", photos::plain()), room.source("b.jpg", photos::scanOnly())});
    QVERIFY(room.repair());
    Marking marking;
    QVERIFY(QCoreApplication::installTranslator(&marking));
    QCoreApplication::processEvents();
    QStringList left;
    for (QWidget *widget : room.window->findChildren<QWidget *>()) {
        const QString text = widget->property("text").toString();
        if (!widget->isHidden() && !text.isEmpty() && !text.startsWith('~') && widget->objectName() != "Percnt_Label"
            && !widget->objectName().startsWith("qt_") && widget->window() == room.window.get())
            left << widget->objectName() + ": " + text;
    }
    const QTreeWidgetItem *head = room.tree()->headerItem();
    for (int column : {column::Name, column::Type, column::Resolution})
        if (!head->text(column).startsWith('~')) left << "column " + head->text(column);
    for (const QMenuBar *bar : room.window->findChildren<QMenuBar *>())
        for (const QAction *action : bar->actions())
            if (!action->text().startsWith('~')) left << "menu " + action->text();
    QCOMPARE(left.join("; "), QString());
    QCOMPARE(room.row("a.jpg", true)->text(column::Type), QString("~Repaired"));
    QCOMPARE(room.rowButton("b.jpg")->text(), QString("~Advance Repair"));
    QCoreApplication::removeTranslator(&marking);
    QCoreApplication::processEvents();
    QCOMPARE(room.rowButton("b.jpg")->text(), QString("Advance Repair"));
}

void TestWindowLanguage::buttonsHoldPictures()
{
    LanguageRoom room;
    const auto *repair = room.find<QPushButton>("StartRepairFilesBtn");
    QVERIFY(choose(room, "pMenuBar", 6));
    QCOMPARE(repair->text(), QString());
    QVERIFY(!repair->icon().isNull());
    QCOMPARE(repair->accessibleName(), QString("Repair"));
    QVERIFY(choose(room, "pMenuBar", 5));
    QCOMPARE(repair->accessibleName(), QString("Repair"));
    QVERIFY(choose(room, "pMenuBar", 0));
    QCOMPARE(repair->text(), QString("Repair"));
    QVERIFY(repair->icon().isNull());
    QVERIFY(!room.find<QPushButton>("AddFilesBtn")->icon().isNull());
}

void TestWindowLanguage::links_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("folder");
    const char *const folders[] = {"EN", "DE", "FR", "IT", "ES", "JA", "CN"};
    for (int i = 0; i < 7; ++i) QTest::newRow(folders[i]) << i << QString(folders[i]);
}

void TestWindowLanguage::links()
{
    QFETCH(int, number);
    QFETCH(QString, folder);
    LanguageRoom room;
    QVERIFY(choose(room, "pMenuBar", number));
    room.window->onViewSupport();
    room.window->onGenerateTicket();
    room.window->onMailVorlaneSupport();
    room.window->onViewKB();
    QCOMPARE(room.platform.calls,
             (QStringList{"open https://support.example/" + folder, "open https://enquiry.example/" + folder,
                          "open mailto:" + folder + "@support.example", "open https://kb.example/"}));
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(room.window.get(), &change);
    const QMenu *help = menu(room, "pMenuBar", "helpMenu");
    QCOMPARE(help->findChild<QAction *>("support")->text(), QString("Support && more"));

    QFile::remove(pApp->strLinkPlistPath);
    pApp->GetPlistLinks();
    room.platform.calls.clear();
    room.window->onViewSupport();
    room.window->onMailVorlaneSupport();
    room.window->onViewKB();
    QCOMPARE(room.platform.calls, QStringList());
}

void TestWindowLanguage::help_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("folder");
    for (const Language &each : languages()) QTest::addRow("%d", each.number) << each.number << each.folder;
}

void TestWindowLanguage::help()
{
    QFETCH(int, number);
    QFETCH(QString, folder);
    LanguageRoom room;
    QVERIFY(choose(room, "pMenuBar", number));
    const auto opened = [&room, &folder](const char *topic) {
        const QStringList calls = std::exchange(room.platform.calls, {});
        return calls
            == QStringList(QString("open file://%1/HelpPhoto_%2/%3.htm").arg(pApp->strResourcesPath, folder, topic));
    };
    room.window->OnHelp();
    QVERIFY(opened("Add_JPEG_files"));
    room.add({room.source("a.jpg", photos::plain())});
    room.window->OnHelp();
    QVERIFY(opened("Repair_JPEG_files"));
    QVERIFY(room.repair());
    room.window->OnHelp();
    QVERIFY(opened("Preview_and_Save_JPEG_Files"));
    room.window->onHelpBtnClick();
    QVERIFY(opened("Overview"));
}

void TestWindowLanguage::moreTools()
{
    LanguageRoom room;
    pApp->strClipMenderPath = "/tools/ClipMender.app";
    const auto actions = [&room] { return room.find<QPushButton>("pMoreToolsBtn")->menu()->actions(); };
    QCOMPARE(actions()[2]->text(), QString("Repair Video"));
    for (const QAction *action : actions()) QVERIFY(!action->isEnabled() && !action->icon().isNull());
    room.window->LaunchVideoRepair();
    QCOMPARE(room.platform.calls, QStringList("start /tools/ClipMender.app"));
}

QTEST_MAIN(TestWindowLanguage)
#include "tst_window_language.moc"
