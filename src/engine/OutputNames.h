// The names of a run's files in the working folder. Each belongs to one source for the whole run, so that no result
// replaces another's and no two are called alike where they are saved.
#pragma once

#include <QString>
#include <QStringList>

/// Forgets all names and gives each source its working name, in their order, before any result is named. What lies in the
/// working folder by then, and must stay, keeps its name.
void reserveNames(const QStringList &sources);

/// The name of a source in the working folder: its file name, with the prefix "Copy(n)_" where an earlier source of
/// this run had the same name.
QString workingName(const QString &path);

/// The name for an output of `source` that would be called `wanted`: that, unless it belongs to another source; then with
/// the prefix "Copy(n)_". With `front`, the file's name in the working folder has that in front. It is the source's from
/// now on.
QString outputName(const QString &source, const QString &wanted, const QString &front = {});
/// As long as it lives, a source has a working name that none of its results has, with the prefix "Copy(n)_".
class FurtherName
{
public:
    explicit FurtherName(const QString &source);
    /// The source has its working name again; a name that wasn't kept is free.
    ~FurtherName();
    FurtherName(const FurtherName &) = delete;
    FurtherName &operator=(const FurtherName &) = delete;

    const QString &told() const { return m_told; }
    void keep() { m_kept = true; }

private:
    const QString m_source;
    const QString m_told;
    QString m_name;
    bool m_kept = false;
};

/// The source whose output `name` is, "" if none of this run's.
QString sourceOfOutput(const QString &name);

/// `prefix` + `name` as a name that a file system takes: where it would be longer than 255 bytes, the end of the name's
/// stem goes, and what tells the kind of the file ("_[T1]", "_1", the suffix) stays.
QString fittingName(const QString &prefix, const QString &name, const QString &front = {});
