#include "save/ScratchFile.h"

#include "app/KesmiraApp.h"
#include "engine/FileWindow.h"
#include "save/WipeFolder.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr size_t kStreamBuffer = 64 * 1024;
constexpr qint64 kBlock = 1024;

void noteLoss(int error)
{
    if (error == ENOSPC || error == EDQUOT || error == EFBIG) pApp->report.reason = RepairReason::DiskFull;
}

} // namespace

FILE *createFile(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const int fd = ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0) {
        noteLoss(errno);
        return nullptr;
    }
    FILE *file = ::fdopen(fd, "wb+");
    if (!file) {
        ::close(fd);
        return nullptr;
    }
    std::setvbuf(file, nullptr, _IOFBF, kStreamBuffer);
    return file;
}

FILE *createOutput(const QString &path)
{
    dropFile(path);
    return createFile(path);
}

void dropFile(const QString &path)
{
    WipeFolder().ActuallyFileWipe(path);
}

bool closeFile(FILE *file)
{
    if (!file) return false;
    bool lost = std::ferror(file) != 0;
    if (std::fflush(file) != 0) lost = true;
    if (std::fclose(file) != 0) lost = true;
    // Whatever the medium gave as its reason, the bytes found no room on it.
    if (lost) pApp->report.reason = RepairReason::DiskFull;
    return !lost;
}

void writeBytes(FILE *out, const void *bytes, qint64 count)
{
    if (count <= 0) return;
    if (std::fwrite(bytes, 1, size_t(count), out) != size_t(count)) noteLoss(errno);
}

qint64 fileLength(FILE *out)
{
    struct stat info = {};
    if (std::fflush(out) != 0 || ::fstat(::fileno(out), &info) != 0) return 0;
    return info.st_size;
}

void blockCopy(FileWindow &in, quint64 offset, qint64 count, FILE *out)
{
    if (count <= 0) return;
    const quint64 available = in.size() > offset ? in.size() - offset : 0;
    const qint64 first = count % kBlock ? count % kBlock : kBlock;
    quint8 block[kBlock] = {};
    qint64 done = 0;
    qint64 size = first;

    // Blocks that the source fills give its bytes as they stand, so they may go in larger steps; the last of them is
    // left to the loop below, whose buffer must hold what it leaves behind.
    const qint64 whole = available >= quint64(count) ? count : qint64(available);
    if (whole >= first + kBlock) {
        const auto large = std::make_unique<char[]>(kStreamBuffer);
        const qint64 end = first + (whole - first) / kBlock * kBlock - kBlock;
        while (done < end) {
            const qint64 step = std::min(end - done, qint64(kStreamBuffer));
            in.read(offset + quint64(done), large.get(), quint64(step));
            writeBytes(out, large.get(), step);
            done += step;
        }
        size = kBlock;
    }
    while (done < count) {
        const quint64 left = available > quint64(done) ? available - quint64(done) : 0;
        const quint64 filled = std::min(quint64(size), left);
        if (filled > 0) in.read(offset + quint64(done), block, filled);
        writeBytes(out, block, size);
        done += size;
        size = kBlock;
    }
}
