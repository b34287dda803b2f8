// Runs programs over groups of damaged files and outlives what these do: crashes and hangs are named by file.
#pragma once

#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace soak {

/// What one program left of one file.
struct Leaving
{
    QJsonObject json; ///< the line that the program printed for it; empty if there is none
    QHash<QString, QString>
        outputs;    ///< paths of all files named after the source, by their place in the working folder
    QString mishap; ///< "crashed" or "hangs", empty if all went well
    /// Path of the output of that name, empty if it isn't there.
    QString pathOf(const QString &name) const;
};

/// Runs `program arguments... --work WORK FILES...`, which prints one JSON object a line with its `source`, as often as
/// crashes ask for. `work` is a folder for the working folders, which stay. An answer for each of `files`, in order.
/// A file that keeps a program busy for `seconds` without a line hangs; the program is killed, the next files go on.
QList<Leaving> runOver(const QString &program, const QStringList &arguments, const QString &work,
                       const QStringList &files, int seconds = 120);

/// Runs a decoder on one file, `arguments` holding the paths; false if it fails, crashes or takes over 20 s. Whatever it
/// says is thrown away.
bool runDecoder(const QString &program, const QStringList &arguments);

} // namespace soak
