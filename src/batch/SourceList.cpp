#include "batch/SourceList.h"

#include "app/WorkingRoot.h"
#include "engine/OneFile.h"

#include <QByteArray>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <vector>

namespace {

QString systemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

bool isUtf8(const QByteArray &name)
{
    return QString::fromUtf8(name).toUtf8() == name;
}

/// A name to show: as text, or with its foreign bytes written out where it is none.
QString shownName(const QByteArray &name)
{
    if (isUtf8(name)) return QString::fromUtf8(name);
    QString shown;
    for (const char letter : name) {
        const auto code = uchar(letter);
        shown +=
            code < 0x80 ? QString(QLatin1Char(letter)) : QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
    }
    return shown;
}

bool hasKnownSuffix(const QByteArray &name)
{
    const int dot = name.lastIndexOf('.');
    return dot >= 0 && repairableSuffixes().contains(QString::fromLatin1(name.mid(dot + 1)).toUpper());
}

class Collector
{
public:
    explicit Collector(SourceList &list)
        : m_list(list), m_wiped{QFileInfo(workingFolder()).canonicalFilePath(),
                                QFileInfo(scratchRoot() + "/Vorlane").canonicalFilePath()}
    {
    }

    void addArgument(const QString &argument)
    {
        const QByteArray name = argument.toUtf8();
        struct stat info = {};
        if (::stat(name.constData(), &info) != 0) {
            addMissing(argument, errno);
        } else if (isWiped(argument)) {
            passOver(argument, "lies in the working folder, which the run empties");
        } else if (S_ISDIR(info.st_mode)) {
            const int before = m_list.files.size() + m_list.passedOver;
            addFolder(name.size() > 1 && name.endsWith('/') ? name.left(name.size() - 1) : name);
            if (m_list.files.size() + m_list.passedOver == before) passOver(argument, "holds no picture to repair");
        } else {
            m_list.files.append(argument);
        }
    }

private:
    void passOver(const QString &name, const QString &why)
    {
        m_list.problems.append(QStringLiteral("'%1' %2; passed over").arg(name, why));
        ++m_list.passedOver;
    }

    void addMissing(const QString &argument, int error)
    {
        // A byte that is no UTF-8 has become a replacement character on its way from the command line, and the name that
        // is left doesn't exist.
        if (argument.contains(QChar::ReplacementCharacter)) {
            passOver(argument, "is not a valid UTF-8 name");
            return;
        }
        // It stays a source, so that the results name it with its reason.
        m_list.problems.append(QStringLiteral("'%1': %2").arg(argument, systemText(error)));
        m_list.files.append(argument);
    }

    /// True for what a run deletes before it begins, or holds.
    bool isWiped(const QString &path) const
    {
        const QString resolved = QFileInfo(path).canonicalFilePath();
        return std::any_of(m_wiped.begin(), m_wiped.end(), [&resolved](const QString &folder) {
            return !folder.isEmpty() && (resolved == folder || resolved.startsWith(folder + '/'));
        });
    }

    void addFolder(const QByteArray &folder)
    {
        std::vector<QByteArray> names;
        // What could be read of a failing folder is taken.
        if (!readNames(folder, names)) passOver(QString::fromUtf8(folder), "can't be read: " + systemText(errno));
        for (const QByteArray &name : names) addEntry(folder == "/" ? folder + name : folder + '/' + name, name);
    }

    /// The visible names of a folder, sorted. The folder is closed again before anything below it is opened, so depth
    /// costs no descriptors.
    static bool readNames(const QByteArray &folder, std::vector<QByteArray> &names)
    {
        const std::unique_ptr<DIR, int (*)(DIR *)> stream(::opendir(folder.constData()), ::closedir);
        if (!stream) return false;
        int error = 0;
        for (;;) {
            errno = 0;
            const dirent *entry = ::readdir(stream.get());
            error = errno;
            if (!entry) break;
            if (entry->d_name[0] != '.') names.emplace_back(entry->d_name);
        }
        std::sort(names.begin(), names.end());
        errno = error;
        return error == 0;
    }

    void addEntry(const QByteArray &path, const QByteArray &name)
    {
        struct stat info = {};
        if (::lstat(path.constData(), &info) != 0) {
            passOver(shownName(path), "can't be looked at: " + systemText(errno));
            return;
        }
        const bool isFolder = S_ISDIR(info.st_mode);
        if (!isFolder && !hasKnownSuffix(name)) return;
        const bool isDeadLink = S_ISLNK(info.st_mode) && ::stat(path.constData(), &info) != 0;
        const int error = errno;
        if (!isFolder && !isDeadLink && !S_ISREG(info.st_mode)) return;

        const QString text = QString::fromUtf8(path);
        if (!isUtf8(path)) {
            passOver(shownName(path), "is not a valid UTF-8 name");
        } else if (isDeadLink) {
            addMissing(text, error);
        } else if (isWiped(text)) {
            passOver(text, "lies in the working folder, which the run empties");
        } else if (isFolder) {
            addFolder(path);
        } else {
            m_list.files.append(text);
        }
    }

    SourceList &m_list;
    const std::vector<QString> m_wiped;
};

} // namespace

SourceList collectSources(const QStringList &arguments)
{
    SourceList list;
    Collector collector(list);
    for (const QString &argument : arguments) collector.addArgument(argument);
    return list;
}
