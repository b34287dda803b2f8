#include "batch/RunRoot.h"

#include "app/WorkingRoot.h"
#include "save/WipeFolder.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char kMark[] = "/.kesmira-root";
constexpr char kLock[] = "/kesmira.lock";
constexpr char kTemporary[] = "kesmira-";

/// True for a folder of this user's that nobody else can enter.
bool isPrivate(const QString &folder)
{
    struct stat info = {};
    return ::lstat(QFile::encodeName(folder).constData(), &info) == 0 && S_ISDIR(info.st_mode)
        && info.st_uid == ::geteuid() && (info.st_mode & 07777) == 0700;
}

/// True if something stands there that a wipe or a new folder would cost the user.
bool holdsAnything(const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir() && !info.isSymLink()) return !QDir(path).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot);
    return info.exists() || info.isSymLink();
}

} // namespace

bool isMarkedAsRoot(const QString &folder)
{
    return QFileInfo::exists(folder + kMark);
}

RunRoot::RunRoot() = default;

RunRoot::~RunRoot()
{
    if (m_temporary) WipeFolder().removeTree(workingRoot());
    setWorkingRoot({});
}

QString RunRoot::open(const QString &named)
{
    if (named.isEmpty()) return openTemporary();
    setWorkingRoot(named);
    const QString problem = prepareWorkingRoot();
    return problem.isEmpty() ? claim() : problem;
}

QString RunRoot::openTemporary()
{
    constexpr int kTries = 10;
    for (int i = 0; i < kTries; ++i) {
        m_temporary = std::make_unique<QTemporaryDir>(QDir::tempPath() + '/' + kTemporary + "XXXXXX");
        if (!m_temporary->isValid()) {
            const QString reason = m_temporary->errorString();
            m_temporary.reset();
            return QStringLiteral("no temporary folder can be made in '%1': %2").arg(QDir::tempPath(), reason);
        }
        setWorkingRoot(m_temporary->path());
        m_lock = std::make_unique<RootLock>();
        // Another run may take a root for a dead one in the moment before it is locked.
        if (m_lock->tryLock(workingRoot() + kLock) != RootLock::Result::Locked) continue;
        return prepareWorkingRoot();
    }
    return QStringLiteral("no temporary folder in '%1' can be locked").arg(QDir::tempPath());
}

QString RunRoot::keep(const QStringList &paths)
{
    const auto place = [](const QString &root) { return root + "/RepairedFiles"; };
    if (!m_temporary) return place(workingRoot());
    QStringList others;
    for (QDirIterator each(workingRoot(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
         each.hasNext();)
        if (!paths.contains(QDir::cleanPath(each.next()))) others << each.filePath();
    for (const QString &other : qAsConst(others)) WipeFolder().removeTree(other);
    m_temporary->setAutoRemove(false);
    const QString tail = workingRoot().right(6);
    m_temporary.reset();
    const QString kept = QDir::tempPath() + '/' + kTemporary + "unsaved-" + tail;
    // A run that cleans up looks for the other name.
    if (::rename(QFile::encodeName(workingRoot()).constData(), QFile::encodeName(kept).constData()) != 0)
        return place(workingRoot());
    return place(kept);
}

void RunRoot::removeDeadRoots()
{
    const QDir temporary(QDir::tempPath());
    const QStringList names =
        temporary.entryList({kTemporary + QString("??????")}, QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString &name : names) {
        const QString path = temporary.filePath(name);
        if (!isPrivate(path)) continue;
        if (!QFile::exists(path + kLock)) {
            // A run that is just beginning, or one of a program that had no locks.
            constexpr int kHour = 3600;
            if (QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime()) > kHour)
                WipeFolder().removeTree(path);
            continue;
        }
        RootLock lock;
        if (lock.tryLock(path + kLock) == RootLock::Result::Locked) WipeFolder().removeTree(path);
    }
}

QString RunRoot::claim()
{
    const QString root = workingRoot();
    m_lock = std::make_unique<RootLock>();
    const RootLock::Result result = m_lock->tryLock(root + kLock);
    if (result != RootLock::Result::Locked) {
        const bool taken = result == RootLock::Result::Taken;
        return QStringLiteral("the working folder '%1' %2")
            .arg(root, taken ? "is in use by another run" : "can't be locked");
    }
    if (isMarkedAsRoot(root)) return {};
    for (const char *name : {"RepairedFiles", "Vorlane"}) {
        if (!holdsAnything(root + '/' + name)) continue;
        return QStringLiteral("the working folder '%1' holds a '%2' that is not an earlier run's and would be emptied; "
                              "name another folder")
            .arg(root, name);
    }
    QFile mark(root + kMark);
    if (mark.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return {};
    return QStringLiteral("the working folder '%1' can't be written: %2").arg(root, mark.errorString());
}
