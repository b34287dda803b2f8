#include "app/RootLock.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// False if the file at `path` is another one by now: who held it last has removed it.
bool isStillThere(int fd, const QByteArray &path)
{
    struct stat own = {};
    struct stat there = {};
    return ::fstat(fd, &own) == 0 && ::lstat(path.constData(), &there) == 0 && own.st_dev == there.st_dev
        && own.st_ino == there.st_ino;
}

QByteArray selfDescription()
{
    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    return QByteArray::number(::getpid()) + '\n' + program.toUtf8() + '\n' + QSysInfo::machineHostName().toUtf8()
        + '\n';
}

} // namespace

RootLock::~RootLock()
{
    if (m_fd < 0) return;
    ::unlink(m_path.constData()); // before the lock goes: who waits for it looks whether this is still the file
    ::close(m_fd);
}

RootLock::Result RootLock::tryLock(const QString &path)
{
    m_path = QFile::encodeName(path);
    constexpr int kTries = 100;
    for (int i = 0; i < kTries; ++i) {
        const int fd = ::open(m_path.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
        if (fd < 0) return Result::Failed;
        if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
            const bool taken = errno == EWOULDBLOCK;
            ::close(fd);
            return taken ? Result::Taken : Result::Failed;
        }
        if (isStillThere(fd, m_path)) {
            m_fd = fd;
            const QByteArray self = selfDescription();
            // For a person alone; the lock holds without it, on a full disk too.
            if (::ftruncate(fd, 0) == 0 && ::write(fd, self.constData(), size_t(self.size())) < 0) errno = 0;
            return Result::Locked;
        }
        ::close(fd);
    }
    return Result::Failed;
}

bool RootLock::readHolder(const QString &path, qint64 &pid, QString &program, QString &host)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QList<QByteArray> lines = file.read(4096).split('\n');
    bool ok = false;
    pid = lines.value(0).toLongLong(&ok);
    program = QString::fromUtf8(lines.value(1));
    host = QString::fromUtf8(lines.value(2));
    return ok && pid > 0;
}
