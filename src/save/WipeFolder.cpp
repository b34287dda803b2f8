#include "save/WipeFolder.h"

#include "app/Originals.h"
#include "app/WorkingRoot.h"

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 kStep = 256 * 1024;

mode_t kindOf(const QByteArray &name)
{
    struct stat info = {};
    return ::lstat(name.constData(), &info) == 0 ? info.st_mode & S_IFMT : 0;
}

/// The next stretch of `fd`, from `at` on, that holds bytes of its own. False if only a hole is left.
bool nextStretch(int fd, qint64 size, qint64 &at, qint64 &end)
{
    end = size;
    const off_t data = ::lseek(fd, at, SEEK_DATA);
    if (data < 0) return errno != ENXIO; // a file system that knows no holes: all is data
    at = data;
    const off_t hole = ::lseek(fd, at, SEEK_HOLE);
    if (hole > at) end = std::min(qint64(hole), size);
    return at < size;
}

} // namespace

void WipeFolder::WipeFile(const QString &name)
{
    if (name.isEmpty()) return;
    DirFileWipe(workingRoot() + "//" + name + "//");
}

bool WipeFolder::DirFileWipe(const QString &path)
{
    // With a slash behind it the system would follow a link's name to its target.
    QString bare = path;
    while (bare.size() > 1 && bare.endsWith('/')) bare.chop(1);
    if (kindOf(QFile::encodeName(bare)) != S_IFDIR) return ActuallyFileWipe(bare);

    // System entries are the dead links among them, which would keep the folder from being removed later.
    const QStringList names = QDir(bare).entryList(
        QDir::Dirs | QDir::Files | QDir::Drives | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString &name : names) DirFileWipe(path.endsWith('/') ? path + name : path + "//" + name);
    return true;
}

bool WipeFolder::removeTree(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (kindOf(name) != S_IFDIR) {
        ActuallyFileWipe(path);
    } else {
        const QStringList names =
            QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
        for (const QString &below : names) removeTree(path + '/' + below);
        ::rmdir(name.constData());
    }
    return kindOf(name) == 0;
}

bool WipeFolder::ActuallyFileWipe(const QString &path)
{
    nWiped = 0;
    const QByteArray name = QFile::encodeName(path);
    const mode_t kind = kindOf(name);
    if (isOriginal(path)) return true;
    if (kind != S_IFREG && kind != S_IFLNK) return true;
    if (kind == S_IFREG) {
        const int fd = ::open(name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        struct stat info = {};
        if (fd >= 0 && ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && info.st_nlink == 1) {
            QFile file;
            if (file.open(fd, QIODevice::ReadWrite | QIODevice::Unbuffered)) fnWriteFile(&file, 0);
        }
        if (fd >= 0) ::close(fd);
    }
    ::unlink(name.constData());
    return true;
}

void WipeFolder::fnWriteFile(QFile *file, int value)
{
    const qint64 size = file->size();
    const QByteArray block(int(std::min(size, kStep)), char(value));
    const int fd = file->handle();
    qint64 at = 0;
    while (at < size) {
        // Holes of a sparse file hold zeros already; filling them could take all of the disk.
        qint64 end = size;
        if (value == 0 && fd >= 0 && !nextStretch(fd, size, at, end)) break;
        if (!file->seek(at)) return;
        while (at < end) {
            const qint64 written = file->write(block.constData(), std::min(end - at, qint64(block.size())));
            if (written <= 0) return;
            at += written;
        }
    }
    file->flush();
}
