#include "save/FileCopy.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
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

/// 0, or the error number; then nothing is left at `target` that was not there before.
int copyExclusively(const QByteArray &source, const QByteArray &target, const InsertedBytes &inserted)
{
    const Descriptor in(::open(source.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (in.number() < 0) return errno;
    // The user's files get the user's usual mode; only the working folder's are private.
    Descriptor out(::open(target.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (out.number() < 0) return errno;
    int error = moveBytes(in.number(), out.number(), inserted.at);
    if (error == 0) error = writeAll(out.number(), inserted.bytes.constData(), inserted.bytes.size());
    if (error == 0) error = moveBytes(in.number(), out.number(), -1);
    if (error == 0) error = putOnMedium(out.number());
    if (!out.close() && error == 0) error = errno;
    if (error != 0) ::unlink(target.constData());
    return error;
}

QString problemAt(const QString &target, int error)
{
    return error == 0 ? QString() : QStringLiteral("'%1': %2").arg(target, writeProblem(error));
}

} // namespace

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

QString copyToNewFile(const QString &source, const QString &target, const InsertedBytes &inserted)
{
    return problemAt(target, copyExclusively(QFile::encodeName(source), QFile::encodeName(target), inserted));
}

QString replaceByCopy(const QString &source, const QString &target, const InsertedBytes &inserted)
{
    static int number = 0;
    const QString folder = target.left(target.lastIndexOf('/') + 1);
    // A name of its own length, as one made from the target's could grow past what the file system takes.
    const QString beside = QStringLiteral("%1.kesmira-%2-%3").arg(folder).arg(::getpid()).arg(++number);
    const QByteArray besideName = QFile::encodeName(beside);
    int error = copyExclusively(QFile::encodeName(source), besideName, inserted);
    if (error == 0 && ::rename(besideName.constData(), QFile::encodeName(target).constData()) != 0) {
        error = errno;
        ::unlink(besideName.constData());
    }
    return problemAt(target, error);
}

bool isCopy(const QString &source, const QString &target, const InsertedBytes &inserted)
{
    const QFileInfo there(target);
    QFile wanted(source);
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
