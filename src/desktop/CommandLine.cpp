#include "desktop/CommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QUrl>

namespace {

void addOptions(QCommandLineParser &parser)
{
    // Read letter by letter, the toolkit's "-reverse" would hold a "-v".
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(QStringLiteral(
        "Opens the window of Kesmira, which repairs damaged photographs: JPEG, camera raw and HEIC.\n"
        "Files that are named here stand in its list. If the window is open already, it comes to the front and takes "
        "them.\n"
        "kesmira-batch repairs without a window, and takes folders too."));
    parser.addOptions({{{"h", "help"}, "Show this help and end."}, {{"v", "version"}, "Show the version and end."}});
    parser.addPositionalArgument("file", "Photographs to repair, or their file: addresses.", "[FILE...]");
}

/// Path of the file that an argument names.
QString pathOf(const QString &argument)
{
    // A file may really be called so.
    if (!argument.startsWith(QLatin1String("file:"), Qt::CaseInsensitive) || QFileInfo::exists(argument))
        return argument;
    QUrl address(argument, QUrl::StrictMode);
    if (address.host() == QLatin1String("localhost")) address.setHost(QString());
    // Another host's file is none of this machine, and its path would name something else here.
    return address.host().isEmpty() ? address.toLocalFile() : QString();
}

} // namespace

CommandLine readCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    CommandLine line;
    if (!parser.parse(arguments)) line.wrong = parser.errorText();
    if (parser.isSet("help")) {
        line.text = parser.helpText();
        return line;
    }
    if (parser.isSet("version")) {
        line.text = QStringLiteral("Kesmira " KESMIRA_VERSION "\n");
        return line;
    }
    for (const QString &argument : parser.positionalArguments()) {
        const QString path = pathOf(argument);
        const QFileInfo file(path);
        if (path.isEmpty() || !file.exists()) {
            line.passedOver << QStringLiteral("'%1' isn't there").arg(argument);
        } else if (file.isDir()) {
            line.passedOver << QStringLiteral("'%1' is a folder, and folders are for kesmira-batch").arg(argument);
        } else {
            line.files << file.absoluteFilePath();
        }
    }
    return line;
}
