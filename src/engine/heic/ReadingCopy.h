// A rewritten HEIC as programs read it. The rewrite keeps the places of its source: its index claims more than it holds,
// its primary item is none, and no data box stands around its tiles. Most readers refuse that. The reading copy says the
// same picture in the strict form, and the rewritten file stays as it is.
#pragma once

#include "engine/FileWindow.h"

#include <QByteArray>
#include <QString>

struct ReadingCopy
{
    QString problem;     ///< one line why there is no copy; else empty
    QByteArray front;    ///< the copy's bytes up to its tiles
    quint64 tilesAt = 0; ///< in the rewritten file: from here on the copy goes on with that file's bytes, to its end
};

/// True for a file that begins as a rewrite does.
bool isRewrittenHeic(FileWindow &file);

/// The copy of a rewritten file: of its items those that its index places, the grid of them as the primary one, and a
/// data box around the tiles.
ReadingCopy makeReadingCopy(FileWindow &file);

/// The whole copy in memory; null with `problem` set if it can't be made.
QByteArray readingCopyBytes(FileWindow &file, QString &problem);

/// The bytes of any HEIC as a reader takes them: of a rewritten one its reading copy, of another the file as it is. Null
/// with `problem` set if they can't be had.
QByteArray readableHeicBytes(FileWindow &file, QString &problem);

/// Writes the reading copy of the file `rewritten` to `target`, anew, in the working folder. Returns "" or one line;
/// `isDiskFault`, if given, tells whether it could be made but not written.
QString writeReadingCopy(const QString &rewritten, const QString &target, bool *isDiskFault = nullptr);
/// The name of that copy beside the result: "a.heic" gives "a_readable.heic".
QString readableName(const QString &name);
