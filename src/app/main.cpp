// The window program: one source for both builds, the one fixed to Chinese and the international one.
#include "app/KesmiraApp.h"
#include "desktop/CommandLine.h"
#include "desktop/Languages.h"
#include "desktop/Look.h"
#include "desktop/Paths.h"
#include "desktop/ScreenFit.h"
#include "desktop/SingleInstance.h"
#include "tables/TableLibrary.h"
#include "window/BrowseRepair.h"
#include "window/WaitNote.h"

#include <QApplication>
#include <QMessageBox>
#include <QSettings>
#include <QTextCodec>

#include <csignal>
#include <cstdio>

namespace {

void complain(const QString &line)
{
    std::fprintf(stderr, "kesmira: %s\n", line.toUtf8().constData());
}

/// What --help and --version print, "" where a window is wanted. Needs no display, so that these work everywhere.
QString textWithoutWindow(int argc, char *argv[])
{
    // A starter may have called the program by its path; people know it by this name.
    char name[] = "kesmira";
    char *names[] = {name, nullptr};
    int one = 1;
    const QCoreApplication application(one, names);
    QStringList arguments{QString::fromLatin1(name)};
    for (int i = 1; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    return readCommandLine(arguments).text;
}

int refuse(const QString &why)
{
    // What the batch program says behind its name begins a sentence here.
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Kesmira"), why.left(1).toUpper() + why.mid(1));
    box.exec();
    return 1;
}

void setUpLanguage()
{
    nLanguageType = storedLanguage();
    setLanguageFlags(nLanguageType);
    loadTranslators();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setSetuidAllowed(true);
    std::signal(SIGXFSZ, SIG_IGN); // a limit on a file's size shows as a failed write and doesn't end the program
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); // file names, whatever the locale
    const QString text = textWithoutWindow(argc, argv);
    if (!text.isEmpty()) return std::fputs(text.toUtf8().constData(), stdout) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
    ScreenFit screen(argc, argv);
    QApplication application(argc, argv);
    screen.fit(BrowseRepair::kSize);
    const CommandLine line = readCommandLine(QCoreApplication::arguments());
    if (!line.wrong.isEmpty()) {
        complain(line.wrong + "; --help tells more");
        return 2;
    }
    for (const QString &argument : line.passedOver) complain(argument);
    QCoreApplication::setOrganizationName(QStringLiteral("Vorlane"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("vorlane.example"));
    QCoreApplication::setApplicationName(QStringLiteral("Kesmira"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESMIRA_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("example.vorlane.Kesmira"));
    look::apply(application);
    pApp->strDefaultBrowser.clear();
    pApp->strPreviewHelperPath.clear();
    bChineseCustomBuild = KESMIRA_CHINESE_BUILD;
    pApp->bChineseBuild = KESMIRA_CHINESE_BUILD;
    if (pApp->bChineseBuild) qputenv("KESMIRA_CHINESE", "1"); // the preview helper speaks the language of this window
    pApp->GetOtherAppsPlistPath();
    setApplicationPaths(QCoreApplication::applicationDirPath());
    setUpLanguage();
    const QSettings preferences(QStringLiteral("vorlane"), QStringLiteral("KMPRepairPreferences"));
    pApp->GetPlistLinks();

    const QString tables = checkBuiltInTables();
    if (!tables.isEmpty()) {
        const char *damaged = QT_TRANSLATE_NOOP("Start", "The program is damaged. Please install it again. (%1)");
        return refuse(QCoreApplication::translate("Start", damaged).arg(tables));
    }
    SingleInstance instance;
    WaitNote note;
    QObject::connect(&instance, &SingleInstance::waiting, &application, [&note] { note.show(); });
    QString why;
    switch (instance.start(line.files, &why)) {
    case SingleInstance::Start::First: break;
    case SingleInstance::Start::HandedOver: return 0;
    case SingleInstance::Start::Refused: return refuse(why);
    }

    note.close();
    BrowseRepair::clearUpdateLeftovers();

    auto *window = new BrowseRepair; // lives as long as the process
    window->wipeLeftovers(line.files);
    QObject::connect(&instance, &SingleInstance::asked, window, &BrowseRepair::ComeToFront);
    QObject::connect(window, &BrowseRepair::leaving, &instance, &SingleInstance::leave);
    window->show();
    pApp->InitInstance(window);
    window->AddNamedFiles(line.files);
    return QApplication::exec();
}
