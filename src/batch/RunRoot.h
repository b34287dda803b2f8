// The working root of one run of the batch program.
#pragma once

#include "app/RootLock.h"

#include <QStringList>

#include <memory>

class QTemporaryDir;

/// Owns the root while the run lasts. A temporary one is wiped and removed at the end, one that the user named stays.
class RunRoot
{
public:
    RunRoot();
    ~RunRoot();
    RunRoot(const RunRoot &) = delete;
    RunRoot &operator=(const RunRoot &) = delete;

    /// Makes `named` the working root of the program, or a temporary folder if that is empty. Returns "" or one line that
    /// says why it can't be: unfit, in use by another process, or with folders that aren't an earlier run's and that
    /// this one would empty.
    QString open(const QString &named);

    /// Keeps the files at `paths`, results that found no other place: a temporary root gets another name then, is not
    /// removed, and loses all else. Returns the folder in which they lie.
    QString keep(const QStringList &paths);

    /// Wipes and removes the temporary roots of this user's runs that were ended by force. Originals in them stay.
    static void removeDeadRoots();

private:
    QString openTemporary();
    QString claim();

    std::unique_ptr<QTemporaryDir> m_temporary;
    std::unique_ptr<RootLock> m_lock;
};

/// True if `folder` has been a working root, so that runs empty its folder RepairedFiles.
bool isMarkedAsRoot(const QString &folder);
