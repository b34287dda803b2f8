// Who may work below a working root: one process at a time.
#pragma once

#include <QString>

/// A lock of the system's on a file, which ends with the process that holds it, however that ends. A file of that name that
/// nobody has locked means nothing.
class RootLock
{
public:
    enum class Result { Locked, Taken, Failed };

    RootLock() = default;
    ~RootLock();
    RootLock(const RootLock &) = delete;
    RootLock &operator=(const RootLock &) = delete;

    /// Tries once, without waiting, to lock the file at `path`, which is made if need be and goes with this object.
    Result tryLock(const QString &path);
    bool isLocked() const { return m_fd >= 0; }

    /// What the holder of the lock at `path` has written about itself. False if that can't be read.
    static bool readHolder(const QString &path, qint64 &pid, QString &program, QString &host);

private:
    QByteArray m_path;
    int m_fd = -1;
};
