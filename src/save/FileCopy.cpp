#include "save/FileCopy.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr size_t kStep = 256 * 1024;

QString systemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

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
int moveBytes(int in, int out)
{
    const auto buffer = std::make_unique<char[]>(kStep);
    for (;;) {
        const ssize_t got = ::read(in, buffer.get(), kStep);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) return 0;
        for (ssize_t done = 0; done < got;) {
            const ssize_t written = ::write(out, buffer.get() + done, size_t(got - done));
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return errno;
            done += written;
        }
    }
}

/// 0, or the error number; then nothing is left at `target` that was not there before.
int copyExclusively(const QByteArray &source, const QByteArray &target)
{
    const Descriptor in(::open(source.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (in.number() < 0) return errno;
    // The user's files get the user's usual mode; only the working folder's are private.
    Descriptor out(::open(target.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (out.number() < 0) return errno;
    int error = moveBytes(in.number(), out.number());
    if (!out.close() && error == 0) error = errno;
    if (error != 0) ::unlink(target.constData());
    return error;
}

} // namespace

QString copyToNewFile(const QString &source, const QString &target)
{
    const int error = copyExclusively(QFile::encodeName(source), QFile::encodeName(target));
    return error == 0 ? QString() : QStringLiteral("'%1': %2").arg(target, systemText(error));
}

QString replaceByCopy(const QString &source, const QString &target)
{
    static int number = 0;
    const QString folder = target.left(target.lastIndexOf('/') + 1);
    // A name of its own length, as one made from the target's could grow past what the file system takes.
    const QString beside = QStringLiteral("%1.kesmira-%2-%3").arg(folder).arg(::getpid()).arg(++number);
    const QByteArray besideName = QFile::encodeName(beside);
    int error = copyExclusively(QFile::encodeName(source), besideName);
    if (error == 0 && ::rename(besideName.constData(), QFile::encodeName(target).constData()) != 0) {
        error = errno;
        ::unlink(besideName.constData());
    }
    return error == 0 ? QString() : QStringLiteral("'%1': %2").arg(target, systemText(error));
}
