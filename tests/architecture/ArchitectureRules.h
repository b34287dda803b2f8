// The rules of the house that a compiler can't hold: which way includes point, how long a file may grow, and that the
// tree explains itself.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace architecture {

/// An include against the order of the rooms that is wanted all the same.
struct ListedException
{
    QString from;   ///< file or folder below src/ that may do it
    QString header; ///< as it stands in the include
    QString reason;
};

const QVector<ListedException> &listedExceptions();

/// One line "path:line: what is wrong" for each include of a source under src/ that points the wrong way; `path` counts
/// from the project's folder. Appends the index of every exception that was made use of to `used`.
QStringList wrongIncludes(const QString &path, const QString &text, QVector<int> &used);

/// One line if the source holds more than `most` lines, "" if not.
QString tooLong(const QString &path, const QString &text, int most = 550);

/// One line for each place that leans on a paper or a folder outside of the tree, which its reader doesn't have.
QStringList outsideReferences(const QString &path, const QString &text);

} // namespace architecture
