#include "desktop/platform/CommandText.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace commandText {
namespace {

const QLatin1String kHelperProgram("/FileUtil.app/Contents/MacOS/FileUtil");

/// What stands between single quotes, so that a quote in it doesn't end them.
QString quoted(QString text)
{
    return '\'' + text.replace("'", "'\\''") + '\'';
}

/// A word without quotes in which only a blank keeps its meaning. A line end can't be escaped and would begin a new
/// command, so it becomes a blank.
QString bare(const QString &text)
{
    static const QString special("\\\"'`$&|;<>(){}[]*?!#~\t");
    QString result;
    for (const QChar letter : text) {
        if (special.contains(letter)) result += '\\';
        result += letter == '\n' ? QChar(' ') : letter;
    }
    return result;
}

/// What stands between the double quotes of the script. The shell reads the script's text first and must leave the name
/// alone, then comes the script's own reading; a backslash has to pass both. A line end could end the script's text.
QString scriptWord(const QString &path)
{
    QString result;
    for (const QChar letter : path) {
        if (letter == '\\') {
            result += QLatin1String(R"(\\\)");
        } else if (letter == '"' || letter == '$' || letter == '`') {
            result += '\\';
        }
        result += letter == '\n' ? QChar(' ') : letter;
    }
    return result;
}

} // namespace

QString revealScriptPath()
{
    return QStringLiteral("/var/tmp/slpScpt");
}

QString revealScript(const QString &path)
{
    return "#!/bin/bash\n"
           "osascript << EOT\n"
           "set theFile to \""
        + scriptWord(path)
        + "\"\n"
          "set a to POSIX file thefile\n"
          "tell application \"Finder\" to activate\n"
          "tell application \"Finder\"\n"
          "reveal a\n"
          "end\n"
          "EOT";
}

QString makeRevealScriptRunnable()
{
    return "chmod 777 " + revealScriptPath();
}

QString answerPath()
{
    return QStringLiteral("/var/tmp/TempFile");
}

QString listHelpers()
{
    return "ps -A | grep " + kHelperProgram + " > " + answerPath();
}

QList<unsigned int> helperIds(const QString &answer)
{
    QList<unsigned int> ids;
    for (const QString &line : answer.split('\n')) {
        if (!line.contains(kHelperProgram)) continue;
        bool isNumber = false;
        const unsigned int id = line.split(' ', Qt::SkipEmptyParts).first().toUInt(&isNumber);
        if (isNumber) ids.append(id);
    }
    return ids;
}

QString endProcess(unsigned int pid)
{
    return "kill -9 " + QString::number(pid);
}

QString askVersion()
{
    return "sw_vers | grep 'ProductVersion:' >> " + answerPath();
}

QString versionIn(const QString &answer)
{
    return answer.section('\n', 0, 0).remove("ProductVersion:", Qt::CaseInsensitive).trimmed();
}

int versionCode(const QString &version)
{
    const QStringList numbers = version.split('.');
    const auto number = [&numbers](int index, int most) { return qBound(0, numbers.value(index).toInt(), most); };
    const int major = number(0, 99);
    return (major / 10) << 12 | (major % 10) << 8 | number(1, 9) << 4 | number(2, 9);
}

QString systemName(int versionCode)
{
    return versionCode >= 0x1000 ? QStringLiteral("MAC OS X") : QString();
}

QString startApplication(const QString &bundlePath)
{
    return "open -a " + quoted(bundlePath);
}

QString openAddress(const QString &browser, const QString &address)
{
    return "open -a " + bare(browser) + ' ' + quoted(address);
}

QStringList installSteps(const QString &folder)
{
    const QString scratch = QStringLiteral("/var/tmp/Vorlane/");
    const QString fresh = scratch + "Kesmira.app";
    const QString archive = scratch + "Kesmira.zip";
    const QString place = folder + "/Kesmira.app";
    return {"rm -R " + fresh,
            "unzip " + archive + " -d" + scratch,
            "rm -R " + archive,
            "rm -R " + quoted(place),
            "ditto -rsrc " + quoted(fresh) + ' ' + quoted(place),
            "rm -R " + fresh};
}

bool isReadOnlyPlace(const QString &version, const QString &folder)
{
    bool isAffected = false;
    for (const char *affected : {"10.15", "10.16", "10.17"}) isAffected |= version.contains(QLatin1String(affected));
    return isAffected && QFileInfo(folder).absolutePath().trimmed() == "/";
}

} // namespace commandText
