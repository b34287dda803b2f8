#include "engine/PictureMemory.h"

#include <QFile>

#include <algorithm>
#include <atomic>

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr quint64 kNoLimit = ~quint64(0);

std::atomic<quint64> lowerLimit{0};

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The number behind `key` in lines of a key and a number; `otherwise` if it isn't there.
quint64 valueOf(const QByteArray &text, const QByteArray &key, quint64 otherwise)
{
    for (const QByteArray &line : text.split('\n')) {
        if (!line.startsWith(key)) continue;
        bool ok = false;
        const quint64 value = line.mid(key.size()).simplified().split(' ').first().toULongLong(&ok);
        return ok ? value : otherwise;
    }
    return otherwise;
}

/// What the two versions call the same things.
struct GroupFiles
{
    const char *limit, *usage, *droppable;
};
constexpr GroupFiles kFirstVersion{"/memory.limit_in_bytes", "/memory.usage_in_bytes", "total_inactive_file"};
constexpr GroupFiles kSecondVersion{"/memory.max", "/memory.current", "inactive_file"};

quint64 freeInGroup(const QString &group, const GroupFiles &files)
{
    // "max" is no number, and neither is what isn't there.
    const quint64 limit = valueOf(contentsOf(group + QLatin1String(files.limit)), "", kNoLimit);
    if (limit == kNoLimit) return kNoLimit;
    const quint64 usage = valueOf(contentsOf(group + QLatin1String(files.usage)), "", 0);
    const quint64 droppable = valueOf(contentsOf(group + QStringLiteral("/memory.stat")), files.droppable, 0);
    const quint64 taken = usage - std::min(usage, droppable);
    return limit - std::min(limit, taken);
}

/// The least that a group or one above it leaves.
quint64 freeInGroups(const QString &mount, QString group, const GroupFiles &files)
{
    quint64 least = kNoLimit;
    while (true) {
        least = std::min(least, freeInGroup(mount + group, files));
        if (group.isEmpty()) return least;
        group.truncate(group.lastIndexOf(QLatin1Char('/')));
    }
}

/// Addresses that RLIMIT_AS leaves this program; the decoder process, which inherits the limit, is the smaller of the two.
quint64 freeAddresses()
{
    rlimit limit = {};
    if (::getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return kNoLimit;
    const quint64 used =
        valueOf(contentsOf(QStringLiteral("/proc/self/statm")), "", 0) * quint64(::sysconf(_SC_PAGESIZE));
    return limit.rlim_cur - std::min<quint64>(limit.rlim_cur, used);
}

quint64 machineMemoryFree()
{
    const quint64 kilobytes = valueOf(contentsOf(QStringLiteral("/proc/meminfo")), "MemAvailable:", kNoLimit / 1024);
    return kilobytes * 1024;
}

} // namespace

quint64 groupMemoryFree(const QByteArray &membership, const QString &root)
{
    quint64 least = kNoLimit;
    for (const QByteArray &line : membership.split('\n')) {
        // "4:memory:/group" in the first version, "0::/group" in the second
        const QList<QByteArray> fields = line.split(':');
        if (fields.size() < 3) continue;
        const QString group = QFile::decodeName(line.mid(fields[0].size() + fields[1].size() + 2));
        const QString ownGroup = group == QStringLiteral("/") ? QString() : group;
        if (fields[1].isEmpty()) least = std::min(least, freeInGroups(root, ownGroup, kSecondVersion));
        if (fields[1].split(',').contains("memory"))
            least = std::min(least, freeInGroups(root + QStringLiteral("/memory"), ownGroup, kFirstVersion));
    }
    return least;
}

quint64 pictureMemoryLimit()
{
    static const QByteArray membership = contentsOf(QStringLiteral("/proc/self/cgroup"));
    const quint64 available =
        std::min({machineMemoryFree(), freeAddresses(), groupMemoryFree(membership, QStringLiteral("/sys/fs/cgroup"))});
    const quint64 limit = std::min(available / 2, quint64(4) << 30);
    const quint64 lower = lowerLimit;
    return lower > 0 ? std::min(lower, limit) : limit;
}

void setPictureMemoryLimit(quint64 bytes)
{
    lowerLimit = bytes;
}
