#include "save/ScratchFolder.h"

#include "app/Originals.h"
#include "app/WorkingRoot.h"
#include "save/WipeFolder.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QLatin1String kName("Vorlane");
/// In a folder with a number: it isn't the user's own of that name.
const QLatin1String kMark("/.kesmira-scratch");

QString &currentName()
{
    static QString name = kName;
    return name;
}

/// True for what a writer leaves: private, of this user, without a second name, and empty or a JPEG in the writer's own
/// form, which has no metadata in front of its tables. A root that the user named may hold pictures of theirs.
bool looksLeft(const QString &path)
{
    struct stat info = {};
    const bool isPrivate = ::lstat(QFile::encodeName(path).constData(), &info) == 0 && S_ISREG(info.st_mode)
        && (info.st_mode & 07777) == 0600 && info.st_uid == ::geteuid() && info.st_nlink == 1;
    QFile file(path);
    if (!isPrivate || !file.open(QIODevice::ReadOnly)) return false;
    const QByteArray head = file.read(4);
    if (head.size() < 4) return head.isEmpty();
    return head.startsWith("\xFF\xD8\xFF") && QByteArray("\xDB\xC0\xC1\xC2\xC4\xDD\xDA\xD9").contains(head[3]);
}

bool markFolder(const QString &path)
{
    QFile mark(path + kMark);
    return mark.open(QIODevice::WriteOnly | QIODevice::NewOnly);
}

} // namespace

void wipeScratchLeftovers()
{
    const QString root = workingRoot() + '/';
    const QStringList names = QDir(root).entryList(
        {kName + '*'}, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot | QDir::CaseSensitive);
    for (const QString &name : names) {
        const QString path = root + name;
        const bool isOwn = name == kName || !rootIsNamed() || QFile::exists(path + kMark) || looksLeft(path);
        if (isOwn && !isOriginal(path)) WipeFolder().removeTree(path);
    }
}

QString scratchFolder()
{
    return scratchRoot() + '/' + currentName();
}

bool makeScratchFolder()
{
    wipeScratchLeftovers();
    currentName() = kName;
    for (int number = 2; ::mkdir(QFile::encodeName(scratchFolder()).constData(), 0700) != 0; ++number) {
        constexpr int kMost = 1000; // no file system that works has as many in the way
        if (errno != EEXIST || number > kMost) return false;
        currentName() = kName + QStringLiteral("-%1").arg(number);
    }
    return currentName() == kName || markFolder(scratchFolder());
}

void wipeScratchFolder()
{
    WipeFolder().WipeFile(currentName());
}
