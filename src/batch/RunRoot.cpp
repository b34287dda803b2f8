#include "batch/RunRoot.h"

#include "app/WorkingRoot.h"
#include "save/WipeFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

namespace {

constexpr char kMark[] = "/.kesmira-root";

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
    if (m_temporary) WipeFolder().DirFileWipe(workingRoot());
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
    m_temporary = std::make_unique<QTemporaryDir>(QDir::tempPath() + "/kesmira-XXXXXX");
    if (!m_temporary->isValid()) {
        const QString reason = m_temporary->errorString();
        m_temporary.reset();
        return QStringLiteral("no temporary folder can be made in '%1': %2").arg(QDir::tempPath(), reason);
    }
    setWorkingRoot(m_temporary->path());
    return prepareWorkingRoot();
}

QString RunRoot::claim()
{
    const QString root = workingRoot();
    m_lock = std::make_unique<QLockFile>(root + "/kesmira.lock");
    m_lock->setStaleLockTime(0); // a long run isn't a dead one
    if (!m_lock->tryLock(0)) {
        const bool taken = m_lock->error() == QLockFile::LockFailedError;
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
