#include "engine/BlockSource.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FileSource::FileSource(const QString &path)
{
    // Non-blocking, so that a pipe with a picture's name doesn't hold the run up; it is refused right below.
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (fd < 0) return;
    struct stat info = {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        return;
    }
    m_fd = fd;
    m_size = quint64(info.st_size);
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_SEQUENTIAL);
}

FileSource::~FileSource()
{
    if (m_fd >= 0) ::close(m_fd);
}

bool FileSource::read(quint64 offset, char *to, qint64 count)
{
    while (count > 0) {
        const ssize_t got = ::pread(m_fd, to, size_t(count), off_t(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) { // the file has shrunk since it was opened
            std::memset(to, 0, size_t(count));
            return true;
        }
        to += got;
        offset += quint64(got);
        count -= got;
    }
    return true;
}
