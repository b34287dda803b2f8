// A private place for one test: a working root of its own and a folder for sources. Both vanish with the test.
#pragma once

#include "app/WorkingRoot.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

class RunFolder
{
public:
    /// From here on the working root is one that doesn't exist yet.
    RunFolder()
    {
        if (!m_folder.isValid() || !QDir(m_folder.path()).mkdir("sources")) qFatal("RunFolder: no temporary folder");
        setWorkingRoot(root());
    }
    ~RunFolder()
    {
        setWorkingRoot(QString());
        // A test may have taken rights away, and what can't be entered can't be removed.
        for (const QString &folder : {root(), sources()})
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    RunFolder(const RunFolder &) = delete;
    RunFolder &operator=(const RunFolder &) = delete;

    QString root() const { return m_folder.filePath("root"); }
    QString sources() const { return m_folder.filePath("sources"); }
    /// A further place in the folder, not made yet.
    QString place(const QString &name) const { return m_folder.filePath(name); }

    /// Writes a source and returns its path; folders in `name` are made.
    QString source(const QString &name, const QByteArray &bytes) const
    {
        const QString path = sources() + '/' + name;
        QFile file(path);
        if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly)
            || file.write(bytes) != bytes.size())
            qFatal("RunFolder: can't write %s", qPrintable(path));
        return path;
    }
    /// The bytes of a file that must be there.
    static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) qFatal("RunFolder: can't read %s", qPrintable(path));
        return file.readAll();
    }

private:
    QTemporaryDir m_folder;
};
