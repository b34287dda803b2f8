#include "desktop/platform/DefaultBrowser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace {

constexpr qint64 kLongestFile = 1 << 20; ///< an association file has some kilobytes

/// The folders of a list such as XDG_DATA_DIRS; relative ones don't count.
QStringList folders(const char *variable, const QString &preset)
{
    QString value = qEnvironmentVariable(variable);
    if (value.isEmpty()) value = preset;
    QStringList result;
    for (const QString &folder : value.split(':', Qt::SkipEmptyParts)) {
        if (QDir::isAbsolutePath(folder)) result << folder;
    }
    return result;
}

QStringList dataFolders()
{
    return folders("XDG_DATA_HOME", QDir::homePath() + "/.local/share")
        + folders("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
}

/// The association files, the most important one first.
QStringList associationFiles()
{
    QStringList places =
        folders("XDG_CONFIG_HOME", QDir::homePath() + "/.config") + folders("XDG_CONFIG_DIRS", "/etc/xdg");
    for (const QString &folder : dataFolders()) places << folder + "/applications";
    QStringList names;
    for (const QString &desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(':', Qt::SkipEmptyParts))
        names << desktop.toLower() + "-mimeapps.list";
    names << "mimeapps.list";
    QStringList files;
    for (const QString &place : places) {
        for (const QString &name : names) files << place + '/' + name;
    }
    return files;
}

/// Entries that the file names as the default for http.
QStringList entriesIn(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return {};
    bool isInSection = false;
    for (const QString &line : QString::fromUtf8(file.read(kLongestFile)).split('\n')) {
        const QString text = line.trimmed();
        if (text.startsWith('[')) isInSection = text == "[Default Applications]";
        if (!isInSection || text.section('=', 0, 0).trimmed() != "x-scheme-handler/http") continue;
        return text.section('=', 1).split(';', Qt::SkipEmptyParts);
    }
    return {};
}

bool isInstalled(const QString &entry)
{
    if (entry.contains('/')) return false;
    for (const QString &folder : dataFolders()) {
        if (QFileInfo::exists(folder + "/applications/" + entry)) return true;
    }
    return false;
}

} // namespace

QString browserOfDesktopSettings()
{
    static const QString suffix(".desktop");
    for (const QString &file : associationFiles()) {
        for (const QString &listed : entriesIn(file)) {
            const QString entry = listed.trimmed();
            if (entry.endsWith(suffix) && isInstalled(entry)) return entry.chopped(suffix.size());
        }
    }
    return {};
}
