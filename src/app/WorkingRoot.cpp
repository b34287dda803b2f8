#include "app/WorkingRoot.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString &namedRoot()
{
    static QString path;
    return path;
}

QString withoutTrailingSlash(QString path)
{
    while (path.size() > 1 && path.endsWith('/')) path.chop(1);
    return path;
}

/// Absolute, but not cleaned: "a/link/.." means another folder to the system than to a text function.
QString absolutePath(const QString &path)
{
    return withoutTrailingSlash(QDir::isAbsolutePath(path) ? path : QDir::currentPath() + '/' + path);
}

QString defaultRoot()
{
    const QString overridden = qEnvironmentVariable("KESMIRA_ROOT");
    if (!overridden.isEmpty()) return absolutePath(overridden);
    // The XDG rules have a relative path ignored.
    const QString cache = qEnvironmentVariable("XDG_CACHE_HOME");
    if (QDir::isAbsolutePath(cache)) return withoutTrailingSlash(cache) + "/kesmira";
    return withoutTrailingSlash(QDir::homePath()) + "/.cache/kesmira";
}

/// The reason in the reader's language. In it %1 stands for the folder, and %2, if it is there, for what the system says.
QString problem(const QString &path, const char *reason)
{
    const QString system = QString::fromLocal8Bit(std::strerror(errno));
    const QString text = QCoreApplication::translate("WorkingRoot", reason);
    // Both at once, for the folder's own name may hold a "%2".
    return text.contains("%2") ? text.arg(path, system) : text.arg(path);
}

/// Makes the folder and what is missing above it. True if it was made here; errno tells why not.
bool makePrivateFolder(const QByteArray &path)
{
    if (::mkdir(path.constData(), 0700) == 0) return true;
    const int slash = path.lastIndexOf('/');
    if (errno != ENOENT || slash <= 0) return false;
    makePrivateFolder(path.left(slash));
    return ::mkdir(path.constData(), 0700) == 0;
}

constexpr const char *kForeign = QT_TRANSLATE_NOOP("WorkingRoot", "the working folder '%1' belongs to another user");

/// What makes a folder unfit to be a root, nullptr for nothing.
const char *unfitness(const struct stat &info)
{
    if (info.st_uid != ::geteuid()) return kForeign;
    // The default root holds pictures that nobody else may see. A root that the user named may be an ordinary folder of
    // theirs: its files are private one by one, and it is enough that nobody else can put or swap anything in it.
    const mode_t forbidden = namedRoot().isEmpty() ? mode_t(077) : mode_t(022);
    if (!(info.st_mode & forbidden)) return nullptr;
    if (!namedRoot().isEmpty())
        return QT_TRANSLATE_NOOP("WorkingRoot", "the working folder '%1' can be written by others");
    return QT_TRANSLATE_NOOP("WorkingRoot", "the working folder '%1' can be entered by others; its mode must be 0700");
}

} // namespace

QString workingRoot()
{
    return namedRoot().isEmpty() ? defaultRoot() : namedRoot();
}

void setWorkingRoot(const QString &path)
{
    namedRoot() = path.isEmpty() ? QString() : absolutePath(path);
}

bool rootIsNamed()
{
    return !namedRoot().isEmpty();
}

QString prepareWorkingRoot()
{
    const QString root = workingRoot();
    const QByteArray name = QFile::encodeName(root);
    const bool made = makePrivateFolder(name);
    const int error = errno;
    const int fd = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0) {
        struct stat info = {};
        if (::lstat(name.constData(), &info) != 0) {
            errno = error;
            return problem(root, QT_TRANSLATE_NOOP("WorkingRoot", "the working folder '%1' can't be made: %2"));
        }
        if (S_ISLNK(info.st_mode))
            return problem(root, QT_TRANSLATE_NOOP("WorkingRoot", "the working folder '%1' is a symbolic link"));
        if (!S_ISDIR(info.st_mode))
            return problem(root, QT_TRANSLATE_NOOP("WorkingRoot", "the working folder '%1' is not a folder"));
        if (info.st_uid != ::geteuid()) return problem(root, kForeign);
        return problem(root, QT_TRANSLATE_NOOP("WorkingRoot", "the working folder '%1' can't be opened"));
    }
    if (made) ::fchmod(fd, 0700); // whatever the umask took away
    struct stat info = {};
    ::fstat(fd, &info);
    ::close(fd);
    if (const char *unfit = unfitness(info)) return problem(root, unfit);
    if (::access(name.constData(), R_OK | W_OK | X_OK) != 0)
        return problem(root, QT_TRANSLATE_NOOP("WorkingRoot", "the working folder '%1' can't be used: %2"));
    return {};
}

QString workingFolder()
{
    return workingRoot() + "/RepairedFiles/";
}

QString scratchRoot()
{
    return workingRoot();
}
