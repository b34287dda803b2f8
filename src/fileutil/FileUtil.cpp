#include "fileutil/FileUtil.h"

#include "desktop/Languages.h"
#include "desktop/Paths.h"
#include "desktop/PlainTextStyle.h"
#include "desktop/ScreenFit.h"
#include "fileutil/DecodeProcess.h"
#include "fileutil/PictureExport.h"
#include "fileutil/PicturePanel.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextCodec>

#include <cstdio>

// Resources of a static library aren't there by themselves; a namespace can't hold this.
static void initResources()
{
    Q_INIT_RESOURCE(kesmira_res);
}

namespace {

enum ExitStatus { Done = 0, NoPicture = 1, WrongUsage = 2, NotWritten = 3 };

int complain(const QString &line, int status)
{
    std::fprintf(stderr, "FileUtil: %s\n", line.toUtf8().constData());
    return status;
}

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        "Shows JPEGs and HEICs in a panel, one after the other: Page Up and Page Down turn the pages, wheel, + and - "
        "zoom, 0 fits, 1 is full size, F11 fills the screen, Ctrl+S saves, Escape and Space close.\n\n"
        "Exit status: 0 done, 1 the file gives no picture, 2 wrong usage, 3 the export "
        "can't be written.");
    parser.addOptions(
        {{{"h", "help"}, "Show this help and end."},
         {{"v", "version"}, "Show the version and end."},
         {"at", "Begin with the Nth of the files.", "N", "1"},
         {"export",
          "Open no window: write the picture of the one file to OUT, a new .png or .jpg file, or a HEIC in the form "
          "that other programs open, a new .heic file.",
          "OUT"}});
    parser.addPositionalArgument("file", "The files.", "FILE...");
}

int exportTo(const QString &target, const QString &source)
{
    const ExportKind kind = exportKind(target);
    if (kind == ExportKind::None) return complain("--export takes a .png, .jpg or .heic name", WrongUsage);
    DecodedPicture decoded;
    if (kind != ExportKind::Heic) decoded = decodePicture(source);
    QString problem;
    const QByteArray bytes = exportBytes(kind, source, decoded, problem);
    if (!problem.isEmpty()) return complain(QStringLiteral("'%1': %2").arg(source, problem), NoPicture);
    const QString trouble = writeNewFile(target, bytes);
    return trouble.isEmpty() ? Done : complain(trouble, NotWritten);
}

int print(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    return std::fflush(stdout) == 0 ? Done : NotWritten;
}

/// What the panel shows.
struct Files
{
    QStringList names;
    int first = 0;
};

/// Everything but the panel, which needs a display; -1 asks for it.
int runWithoutWindow(const QStringList &arguments, Files &files)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments)) return complain(parser.errorText(), WrongUsage);
    if (parser.isSet("help")) return print(parser.helpText());
    if (parser.isSet("version")) return print("FileUtil " KESMIRA_VERSION "\n");
    files.names = parser.positionalArguments();
    if (files.names.isEmpty()) return complain("give a file; --help tells more", WrongUsage);
    if (parser.isSet("export")) {
        if (files.names.size() > 1) return complain("--export takes one file", WrongUsage);
        return exportTo(parser.value("export"), files.names.first());
    }
    bool isNumber = false;
    files.first = parser.value("at").toInt(&isNumber) - 1;
    if (!isNumber || files.first < 0 || files.first >= files.names.size())
        return complain("--at takes the number of one of the files", WrongUsage);
    return -1;
}

/// The language that the main program keeps in its settings, which lie where this program's folder leads to.
void speakLanguageOfWindow()
{
    bChineseCustomBuild = qEnvironmentVariableIsSet("KESMIRA_CHINESE");
    setApplicationPaths(QCoreApplication::applicationDirPath());
    setLanguageFlags(storedLanguage());
    loadTranslators();
}

} // namespace

int runFileUtil(int argc, char **argv)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); // file names, whatever the locale
    ScreenFit screen(argc, argv);
    Files files;
    {
        const QCoreApplication application(argc, argv);
        const int status = runWithoutWindow(QCoreApplication::arguments(), files);
        if (status >= 0) return status;
    }
    QApplication application(argc, argv);
    screen.fit(PicturePanel::kLeast);
    QApplication::setStyle(new PlainTextStyle);
    initResources();
    speakLanguageOfWindow();
    PicturePanel panel(files.names, files.first);
    panel.show();
    panel.raise();
    panel.activateWindow();
    return QApplication::exec();
}
