#include "app/Originals.h"

#include <QFile>

#include <mutex>
#include <set>
#include <sys/stat.h>
#include <utility>

namespace {

using Identity = std::pair<dev_t, ino_t>;

struct Known
{
    std::mutex guard;
    std::set<Identity> files;

    void add(const QString &path)
    {
        const QByteArray name = QFile::encodeName(path);
        struct stat info = {};
        if (::stat(name.constData(), &info) == 0) files.insert({info.st_dev, info.st_ino});
        if (::lstat(name.constData(), &info) == 0 && S_ISLNK(info.st_mode)) files.insert({info.st_dev, info.st_ino});
    }
};

Known &known()
{
    static Known files;
    return files;
}

} // namespace

void setOriginals(const QStringList &paths)
{
    const std::lock_guard lock(known().guard);
    known().files.clear();
    for (const QString &path : paths) known().add(path);
}

void addOriginal(const QString &path)
{
    const std::lock_guard lock(known().guard);
    known().add(path);
}

bool isOriginal(const QString &path)
{
    struct stat info = {};
    if (::lstat(QFile::encodeName(path).constData(), &info) != 0) return false;
    const std::lock_guard lock(known().guard);
    return known().files.count({info.st_dev, info.st_ino}) > 0;
}
