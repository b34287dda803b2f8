// The picture of the panel as a file.
#pragma once

#include "fileutil/DecodeProcess.h"

#include <QByteArray>
#include <QString>

enum class ExportKind { None, Png, Jpeg, Heic };

/// By the suffix of the name; None for one that isn't known.
ExportKind exportKind(const QString &target);

/// The bytes to write: the decoded picture with its colour profile, of a JPEG as Jpeg the file as it is, or for Heic the
/// readable file itself, for which `decoded` isn't looked at. Null with `problem` set if they can't be had.
QByteArray exportBytes(ExportKind kind, const QString &source, const DecodedPicture &decoded, QString &problem);

/// Writes a file where none may stand. Returns "" or one line.
QString writeNewFile(const QString &target, const QByteArray &bytes);
/// Writes a file in the place of what may stand there, as a whole or not at all, but never over `source`.
QString replaceFile(const QString &target, const QByteArray &bytes, const QString &source);

/// The picture with its profile attached, so that whoever reads or shows it can tell its colours.
QImage withProfile(const DecodedPicture &decoded);
