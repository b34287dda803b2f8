// Brings the real window to each state, with the damaged pictures of samples/, and takes a picture of it and of each
// dialog. Usage: make_screenshots [--all|--help-pages] [--language EN|DE|...] FOLDER; without an option only the pictures that
// the project's documents show, with --help-pages those of the help pages, packed smaller.
// scripts/screenshots runs it on a screen of its own.
#include "screenshots/FewColours.h"

#include "desktop/Languages.h"
#include "desktop/Look.h"
#include "desktop/Paths.h"
#include "support/Damage.h"
#include "tables/TableLibrary.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QAction>
#include <QGraphicsView>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

/// The pictures that the project's documents show.
const QStringList kept{"files", "results", "dialog-sample", "dialog-file-exists"};
/// The pictures that the help pages show.
const QStringList helpPictures{"empty",
                               "files",
                               "run",
                               "results",
                               "results-failed",
                               "dialog-sample",
                               "dialog-saved",
                               "dialog-file-exists",
                               "dialog-folder-exists"};

class Album
{
public:
    /// No names: all pictures. Few colours make small files.
    Album(const QString &folder, const QStringList &names, bool fewColours, const Language *language)
        : m_folder(folder), m_names(names), m_fewColours(fewColours), m_language(language)
    {
    }

    /// Null for the texts of the source.
    const Language *language() const { return m_language; }

    void take(QWidget *widget, const QString &name)
    {
        if (!m_names.isEmpty() && !m_names.contains(name)) return;
        // For the focus to show; a window that isn't on the screen yet can't get it.
        if (!QTest::qWaitForWindowExposed(widget)) miss(name + " isn't shown");
        widget->activateWindow();
        if (!QTest::qWaitFor([widget] { return QApplication::activeWindow() == widget; }))
            miss(name + " doesn't become active");
        QCoreApplication::processEvents(); // layouts that wait for their turn
        const QString path = m_folder.filePath(name + ".png");
        // Without transparency and packed as tightly as the format can: the files are part of the project.
        const QImage picture = widget->grab().toImage().convertToFormat(QImage::Format_RGB888);
        if (!(m_fewColours ? withFewColours(picture) : picture).save(path, "PNG", 0)) miss("can't write " + path);
    }
    /// For a line of a script.
    std::function<void(QDialog *)> taking(const QString &name)
    {
        return [this, name](QDialog *dialog) { take(dialog, name); };
    }
    void check(bool reached, const QString &what)
    {
        if (!reached) miss("didn't get to: " + what);
    }
    void close(const WindowRoom &room)
    {
        if (!room.complaint().isEmpty()) miss(room.complaint());
    }
    bool whole() const { return m_whole; }

private:
    void miss(const QString &what)
    {
        m_whole = false;
        QTextStream(stderr) << "make_screenshots: " << what << '\n';
    }

    QDir m_folder;
    QStringList m_names;
    bool m_fewColours;
    const Language *m_language;
    bool m_whole = true;
};

/// The window in the language of an album, as a person has chosen it in the menu.
class AlbumRoom : public WindowRoom
{
public:
    explicit AlbumRoom(const Album &album)
    {
        if (!album.language()) return;
        pApp->strResourcesPath = QFileInfo(KESMIRA_TRANSLATIONS).path();
        pApp->strLinkPlistPath = m_links.filePath("links.plist"); // a click on a row asks it again
        find<QMenu>("languageMenu")->actions().at(album.language()->number)->trigger();
        if (album.language()->appTranslator->isEmpty()) qFatal("the texts of the language aren't built");
    }

private:
    QTemporaryDir m_links;
};

QStringList samples(const WindowRoom &room)
{
    const QDir folder(KESMIRA_SOURCE_DIR "/samples");
    QStringList paths;
    for (const QString &name : folder.entryList({"*.jpg"}, QDir::Files, QDir::Name))
        paths << room.source(name, RunFolder::bytesOf(folder.filePath(name)));
    return paths;
}

void fileList(Album &album)
{
    AlbumRoom room(album);
    album.take(room.window.get(), "empty");
    const QStringList paths = samples(room);
    room.add(paths);
    room.list()->setCurrentItem(room.list()->topLevelItem(2));
    album.take(room.window.get(), "files");
    room.script.expect("MessageBox", "OkBtn", album.taking("dialog-message"));
    room.add(paths.mid(0, 1));
    album.close(room);
}

void run(Album &album)
{
    AlbumRoom room(album);
    QStringList paths = samples(room);
    for (int i = 0; i < 60; ++i) paths << room.source(QString("IMG_%1.JPG").arg(1200 + i), photos::longWork());
    room.add(paths);
    room.click("StartRepairFilesBtn");
    album.check(QTest::qWaitFor([&] { return room.tree()->topLevelItem(15)->childCount() > 0; }, 60000), "a run");
    album.take(room.window.get(), "run");
    room.script.expect("StopDlg", "YesBtn", album.taking("dialog-stop"));
    room.click("StopRepairProcessBtn_2");
    album.check(room.rest(), "the end of a stopped run");
    album.take(room.window.get(), "stopped");
    album.close(room);
}

void withSample(Album &album, WindowRoom &room, const QString &failed)
{
    room.chooser.answers.push_back({room.source("healthy/IMG_0413.JPG", photos::sample())});
    room.script.expect("AdvancedRepairDlg", "NextBtn", album.taking("dialog-advanced"));
    room.script.expect("ReferenceFileDlg", "CancelBtn", [&album](QDialog *dialog) {
        album.take(dialog, "dialog-sample-empty");
        dialog->findChild<QAbstractButton *>("BrowseBtn")->click();
        album.take(dialog, "dialog-sample");
    });
    QTest::mouseClick(room.rowButton(failed), Qt::LeftButton);
    album.check(room.rest(), "the dialogs of the sample");
}

void saving(Album &album, WindowRoom &room)
{
    room.chooser.answers.push_back({room.destination()});
    room.script.expect("SavingFinishDlg", "OkBtn", album.taking("dialog-saved"));
    album.check(room.click("SaveRepairBtn_2"), "saving");
    room.click("checkBox1_2"); // saving has taken the marks away
    room.chooser.answers.push_back({room.destination()});
    room.script.expect("FolderExist", "OverwriteBtn", album.taking("dialog-folder-exists"));
    room.script.expect("AlreadyExistFileDlg", "SkipAllBtn", album.taking("dialog-file-exists"));
    room.script.expect("SavingFinishDlg", "OkBtn", album.taking("dialog-saved-in-part"));
    album.check(room.click("SaveRepairBtn_2"), "saving again");
}

void results(Album &album)
{
    AlbumRoom room(album);
    const QString failed = "IMG_0412.JPG";
    QStringList paths = samples(room);
    paths.insert(2, room.source(failed, photos::scanOnly()));
    room.add(paths);
    room.script.expect("CompletionMsg", "OkBtn", album.taking("dialog-completion"));
    room.click("StartRepairFilesBtn");
    album.check(room.rest(), "results");
    album.take(room.window.get(), "results-first");
    room.clickRow(room.row("damaged-three-tables.jpg", true));
    auto *view = room.find<QGraphicsView>("graphicsView");
    album.check(QTest::qWaitFor([view] { return view->isVisible(); }, 10000), "a preview");
    room.tree()->scrollToTop();
    album.take(room.window.get(), "results");
    room.clickRow(room.row(failed));
    auto *label = room.find<QLabel>("Preview_Label");
    album.check(QTest::qWaitFor([label] { return label->isVisible(); }, 10000), "the row without a preview");
    album.take(room.window.get(), "results-failed");
    room.clickRow(room.row("lost-tail.jpg", true));
    album.check(QTest::qWaitFor([view] { return view->isVisible(); }, 10000), "a picture in part");
    album.take(room.window.get(), "results-partial");
    album.check(room.click("partNothing"), "a part of the summary");
    album.take(room.window.get(), "results-filtered");
    room.click("showAllBtn");
    withSample(album, room, failed);
    room.script.expect("BackApplicationDlg", "NoBtn", album.taking("dialog-back-unsaved"));
    album.check(room.click("BackBtn_2"), "back with unsaved results");
    saving(album, room);
    room.script.expect("BackApplicationDlg", "NoBtn", album.taking("dialog-back"));
    album.check(room.click("BackBtn_2"), "back");
    room.script.expect("CloseApplicationDlg", "NoBtn", album.taking("dialog-exit"));
    album.check(room.click("closeBtn"), "exit");
    album.close(room);
}

/// A picture that deep salvage alone wins, and one that it takes a while for.
void deepSalvage(Album &album)
{
    AlbumRoom room(album);
    auto *entry = room.window->findChild<QAction *>("actionDeepSalvage");
    entry->setChecked(true);
    const QByteArray lost = makeJpeg(drawPicture(640, 480, 3), {.optimised = true});
    const QByteArray large = makeJpeg(drawPicture(3200, 2400, 1), {.quality = 95, .optimised = true});
    QStringList paths = samples(room);
    paths.prepend(room.source("IMG_0409.JPG", Damage(lost).zero(at(0xFFC0), 2)));
    paths << room.source("IMG_0415.JPG", Damage(large).zero(inScan(large.size() / 4), 3000));
    room.add(paths);
    room.click("StartRepairFilesBtn");
    const auto *label = room.find<QLabel>("label_RepairFileName");
    const auto atWork = [label] { return label->text().endsWith("IMG_0415.JPG"); };
    album.check(QTest::qWaitFor(atWork, 60000), "a salvage");
    album.take(room.window.get(), "run-salvage");
    room.script.expect("StopDlg", "YesBtn");
    room.click("StopRepairProcessBtn_2");
    album.check(room.rest(), "the end of a stopped salvage");
    if (QTreeWidgetItem *row = room.row("IMG_0409_salvaged.jpg", true)) room.clickRow(row);
    auto *view = room.find<QGraphicsView>("graphicsView");
    album.check(QTest::qWaitFor([view] { return view->isVisible(); }, 10000), "a salvaged picture");
    album.take(room.window.get(), "results-salvaged");
    entry->setChecked(false);
    album.close(room);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Kesmira"));
    look::apply(application);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool all = arguments.removeAll("--all") > 0;
    const bool help = arguments.removeAll("--help-pages") > 0;
    const Language *language = nullptr;
    if (arguments.size() == 3 && arguments.first() == "--language") {
        for (const Language &each : languages())
            if (each.folder == arguments.at(1)) language = &each;
        if (language) arguments = arguments.mid(2);
    }
    if (arguments.size() != 1 || (all && help) || !QDir().mkpath(arguments.first())) {
        QTextStream(stderr)
            << "Usage: make_screenshots [--all|--help-pages] [--language EN|DE|FR|IT|ES|JA|CN] FOLDER\n";
        return 2;
    }
    checkBuiltInTables();
    Album album(arguments.first(), all ? QStringList() : help ? helpPictures : kept, help, language);
    fileList(album);
    if (all || help) run(album);
    results(album);
    if (all) deepSalvage(album);
    return album.whole() ? 0 : 1;
}
