#include "batch/Options.h"

#include <QCommandLineParser>

namespace {

const QString &description()
{
    static const QString text = QStringLiteral(
        "Repairs damaged photographs without a window.\n"
        "\n"
        "All sources are repaired as one run, in the order given. A folder stands for the pictures below it, sorted "
        "by\n"
        "name; a file that is named is tried whatever its name ends in. Sources are never changed.\n"
        "\n"
        "Exit status: 0 every source gave something, 1 some gave nothing, 2 wrong usage, 3 the program could not work\n"
        "(no working folder, output or a saved file that could not be written).");
    return text;
}

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(description());
    parser.addOptions({
        {{"h", "help"}, "Show this help and end."},
        {{"v", "version"}, "Show the version and end."},
        {"json", "Print one JSON object a line for each source instead of a table."},
        {"to",
         "Save all results below DIR/RepairedFiles, and thumbnails in its folder \"Thumbnail Repaired\". DIR is made "
         "if "
         "it is missing; a folder RepairedFiles that stands there is used.",
         "DIR"},
        {"on-conflict",
         "What to do with a result whose name is taken in DIR: rename (to Copy(n)_NAME), overwrite or skip, which "
         "tells "
         "files with the same bytes as identical. The default is rename.",
         "rename|overwrite|skip", "rename"},
        {"sample", "After the run, repair the sources that failed with FILE, a healthy picture from the same camera.",
         "FILE"},
        {"readable",
         "Beside each repaired HEIC write NAME_readable.heic, the same picture in the strict form that most programs "
         "want."},
        {"deep",
         "Try deep salvage too, for a JPEG whose main picture is missing or damaged. What it finds is saved beside the "
         "other results as NAME_salvaged.jpg; parts of it may be a guess."},
        {"camera-data",
         "Put the camera's data (Exif with date, place and orientation, colour profile) that stand sound in a source "
         "JPEG "
         "back into the saved copy of its picture. Needs --to; nothing else that is written changes."},
        {"work",
         "Work in DIR and leave all results there, in its folder RepairedFiles, which the next run empties. DIR is "
         "made "
         "with mode 0700 if it is missing; one that is there must be yours, and nobody else may write in it. Without "
         "this option a private temporary folder is used and removed.",
         "DIR"},
    });
    parser.addPositionalArgument("source", "Files and folders to repair.", "FILE|FOLDER...");
}

bool readConflictAnswer(const QString &word, FileAnswer &answer)
{
    if (word == "rename")
        answer = FileAnswer::RenameAll;
    else if (word == "overwrite")
        answer = FileAnswer::OverwriteAll;
    else if (word == "skip")
        answer = FileAnswer::SkipAll;
    else
        return false;
    return true;
}

} // namespace

QString parseOptions(const QStringList &arguments, Options &options)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments)) return parser.errorText();
    options.json = parser.isSet("json");
    options.help = parser.isSet("help");
    options.version = parser.isSet("version");
    options.readable = parser.isSet("readable");
    options.deep = parser.isSet("deep");
    options.cameraData = parser.isSet("camera-data");
    if (options.help) options.helpText = parser.helpText();
    if (options.help || options.version) return {};

    for (const char *name : {"to", "sample", "work"}) {
        if (parser.isSet(name) && parser.value(name).isEmpty()) return QStringLiteral("--%1 needs a name").arg(name);
    }
    const QString answer = parser.value("on-conflict");
    if (!readConflictAnswer(answer, options.onConflict)) {
        return QStringLiteral("--on-conflict takes rename, overwrite or skip, not '%1'").arg(answer);
    }
    options.destination = parser.value("to");
    if (options.cameraData && options.destination.isEmpty())
        return QStringLiteral("--camera-data is for saved copies and needs --to");
    options.sample = parser.value("sample");
    options.workingRoot = parser.value("work");
    options.sources = parser.positionalArguments();
    if (options.sources.isEmpty()) return QStringLiteral("no file or folder to repair; --help tells more");
    return {};
}
