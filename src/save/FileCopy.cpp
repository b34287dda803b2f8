#include "save/FileCopy.h"

#include "app/Originals.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr size_t kStep = 256 * 1024;

class Descriptor
{
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor()
    {
        if (m_fd >= 0) ::close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int number() const { return m_fd; }
    /// Some file systems report lost bytes no earlier than here.
    bool close()
    {
        const int fd = m_fd;
        m_fd = -1;
        return ::close(fd) == 0;
    }

private:
    int m_fd;
};

/// 0, or the error number of the call that failed.
int writeAll(int out, const char *bytes, qint64 count)
{
    while (count > 0) {
        const ssize_t written = ::write(out, bytes, size_t(count));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes += written;
        count -= written;
    }
    return 0;
}

/// Moves `most` bytes, or all that are left if that is negative. 0, or the error number of the call that failed.
int moveBytes(int in, int out, qint64 most)
{
    const auto buffer = std::make_unique<char[]>(kStep);
    while (most != 0) {
        const size_t wanted = most < 0 ? kStep : size_t(std::min(most, qint64(kStep)));
        const ssize_t got = ::read(in, buffer.get(), wanted);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) return 0;
        if (const int error = writeAll(out, buffer.get(), got)) return error;
        if (most > 0) most -= got;
    }
    return 0;
}

/// 0, or the error number. File systems that can't do it have nothing to report either.
int putOnMedium(int fd)
{
    return ::fsync(fd) == 0 || errno == EINVAL || errno == ENOSYS || errno == EROFS ? 0 : errno;
}

/// 0, or the error number; EIO where the source ends early.
int moveAll(const CopySource &source, int out)
{
    const Descriptor in(::open(QFile::encodeName(source.path).constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    struct stat before = {};
    if (in.number() < 0 || ::fstat(in.number(), &before) != 0) return errno;
    const InsertedBytes &more = source.inserted;
    int error = moveBytes(in.number(), out, more.at);
    if (error == 0) error = writeAll(out, more.bytes.constData(), more.bytes.size());
    if (error == 0) error = moveBytes(in.number(), out, -1);
    if (error == 0) error = putOnMedium(out);
    struct stat after = {};
    if (error == 0 && ::fstat(out, &after) != 0) error = errno;
    return error == 0 && after.st_size != before.st_size + more.bytes.size() ? EIO : error;
}

/// True if another process is writing the file, or where the file system knows no locks.
bool isLockedElsewhere(int fd)
{
    return ::flock(fd, LOCK_EX | LOCK_NB) != 0;
}

/// A copy on its way, beside its place. The lock on it tells others that it is no leftover; whatever becomes of it, the
/// name goes with this object.
class PartFile
{
public:
    ~PartFile()
    {
        if (!m_name.isEmpty()) ::unlink(m_name.constData());
    }
    PartFile(const PartFile &) = delete;
    PartFile &operator=(const PartFile &) = delete;
    explicit PartFile(const QString &target) : m_folder(target.left(target.lastIndexOf('/') + 1)) {}

    /// 0, or the error number.
    int write(const CopySource &source)
    {
        Descriptor out(create(source.mode));
        if (out.number() < 0) return errno;
        m_lock = std::make_unique<Descriptor>(::dup(out.number()));
        int error = moveAll(source, out.number());
        if (!out.close() && error == 0) error = errno;
        return error;
    }

    /// Gives it the name `target`, where nothing may stand.
    int moveTo(const QByteArray &target)
    {
        if (::renameat2(AT_FDCWD, m_name.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0)
            return moved();
        if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) return errno;
        // A second name, where the file system can't refuse to replace.
        if (::link(m_name.constData(), target.constData()) == 0) return 0;
        if (errno == EEXIST) return errno;
        // One that has no second names either: the place is taken first, and what is replaced is this program's own.
        const Descriptor place(::open(target.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (place.number() < 0) return errno;
        const int error = replace(target);
        if (error != 0) ::unlink(target.constData());
        return error;
    }

    int replace(const QByteArray &target)
    {
        return ::rename(m_name.constData(), target.constData()) == 0 ? moved() : errno;
    }

private:
    int create(mode_t mode)
    {
        static std::atomic<int> number = 0;
        constexpr int kTries = 1000;
        for (int i = 0; i < kTries; ++i) {
            // A name of its own length, as one made from the target's could grow past what the file system takes.
            const QString name = QStringLiteral("%1.kesmira-%2-%3.part").arg(m_folder).arg(::getpid()).arg(++number);
            m_name = QFile::encodeName(name);
            const int fd = ::open(m_name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
            if (fd >= 0) {
                // Another run may have taken it for a leftover, in the moment before it was locked.
                struct stat info = {};
                ::flock(fd, LOCK_EX | LOCK_NB);
                if (::fstat(fd, &info) == 0 && info.st_nlink > 0) return fd;
                ::close(fd);
                continue;
            }
            m_name.clear(); // another's
            if (errno != EEXIST) return -1;
        }
        return -1;
    }

    int moved()
    {
        m_name.clear();
        return 0;
    }

    const QString m_folder;
    QByteArray m_name;
    std::unique_ptr<Descriptor> m_lock;
};

bool isPartName(const QString &name)
{
    static const QRegularExpression form(QStringLiteral("^\\.kesmira-\\d+-\\d+\\.part$"));
    return form.match(name).hasMatch();
}

} // namespace

QString copyProblem(const QString &target, int error)
{
    return error == 0 ? QString() : QStringLiteral("'%1': %2").arg(target, writeProblem(error));
}

QString writeProblem(int error)
{
    const auto say = [](const char *text) { return QCoreApplication::translate("Saving", text); };
    switch (error) {
    case ENOSPC: return say(QT_TRANSLATE_NOOP("Saving", "the disk is full"));
    case EDQUOT: return say(QT_TRANSLATE_NOOP("Saving", "your share of the disk (quota) is used up"));
    case EROFS: return say(QT_TRANSLATE_NOOP("Saving", "the disk can only be read"));
    case EACCES:
    case EPERM: return say(QT_TRANSLATE_NOOP("Saving", "you have no right to write there"));
    case ENOENT:
    case ENOTDIR: return say(QT_TRANSLATE_NOOP("Saving", "the folder is gone"));
    case EEXIST: return say(QT_TRANSLATE_NOOP("Saving", "a file with this name is there already"));
    case EFBIG: return say(QT_TRANSLATE_NOOP("Saving", "the file is larger than may be written there"));
    case ENAMETOOLONG: return say(QT_TRANSLATE_NOOP("Saving", "the name is too long"));
    case EIO:
    case ENODEV:
    case ENXIO: return say(QT_TRANSLATE_NOOP("Saving", "the disk failed or was removed"));
    default: return QString::fromLocal8Bit(std::strerror(error));
    }
}

int copyToNewFile(const CopySource &source, const QString &target)
{
    PartFile part(target);
    const int error = part.write(source);
    return error != 0 ? error : part.moveTo(QFile::encodeName(target));
}

int replaceByCopy(const CopySource &source, const QString &target)
{
    PartFile part(target);
    const int error = part.write(source);
    if (error != 0) return error;
    return isOriginal(target) ? EEXIST : part.replace(QFile::encodeName(target));
}

int syncFolder(const QString &folder)
{
    const Descriptor opened(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.number() < 0) return errno == EACCES ? 0 : errno; // one may be written in, but not read
    return putOnMedium(opened.number());
}

void removeLeftParts(const QString &folder)
{
    const QStringList names =
        QDir(folder).entryList({QStringLiteral(".kesmira-*.part")}, QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const QString path = folder + '/' + name;
        const QByteArray encoded = QFile::encodeName(path);
        if (!isPartName(name) || isOriginal(path)) continue;
        const Descriptor file(::open(encoded.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        struct stat info = {};
        if (file.number() < 0 || ::fstat(file.number(), &info) != 0 || info.st_uid != ::geteuid()) continue;
        if (!isLockedElsewhere(file.number())) ::unlink(encoded.constData());
    }
}

bool isCopy(const CopySource &source, const QString &target)
{
    const InsertedBytes &inserted = source.inserted;
    const QFileInfo there(target);
    QFile wanted(source.path);
    QFile other(target);
    // Neither a pipe, which would be waited for, nor a link, which may change its aim.
    if (!there.isFile() || there.isSymLink() || there.size() != wanted.size() + inserted.bytes.size()) return false;
    if (!wanted.open(QIODevice::ReadOnly) || !other.open(QIODevice::ReadOnly)) return false;
    const auto agree = [&](qint64 most) {
        while (most != 0) {
            const QByteArray bytes = wanted.read(most < 0 ? qint64(kStep) : std::min(most, qint64(kStep)));
            if (bytes.isEmpty()) return wanted.atEnd();
            if (other.read(bytes.size()) != bytes) return false;
            if (most > 0) most -= bytes.size();
        }
        return true;
    };
    return agree(inserted.at) && other.read(inserted.bytes.size()) == inserted.bytes && agree(-1)
        && wanted.error() == QFileDevice::NoError && other.error() == QFileDevice::NoError;
}
