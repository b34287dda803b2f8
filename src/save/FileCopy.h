// Copies that can fail without loss: a new file comes whole or not at all, an old one is replaced as a whole.
#pragma once

#include <QByteArray>
#include <QString>

/// Bytes that a copy has and its source hasn't.
struct InsertedBytes
{
    qint64 at = 0; ///< offset in the source of the byte that follows them
    QByteArray bytes;
};

/// Copies the file `source` to `target`, where nothing may stand, and has the system put it on the medium: what a full
/// or lost one refuses is known on return. Returns "" or one line that says why there is no copy.
QString copyToNewFile(const QString &source, const QString &target, const InsertedBytes &inserted = {});

/// Copies `source` beside `target` and lets the copy take its place; a link there is replaced and its target not touched.
/// Returns "" or one line; then what stood at `target` is as it was.
QString replaceByCopy(const QString &source, const QString &target, const InsertedBytes &inserted = {});

/// True if `target` is a file with the very bytes that a copy would have.
bool isCopy(const QString &source, const QString &target, const InsertedBytes &inserted = {});

/// Why the system refused to write, for a person; for what everybody may meet in the language of the interface.
QString writeProblem(int error);
