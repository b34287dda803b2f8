// A file under analysis as bytes in memory, for the parts that look at all of it at once.
#pragma once

#include <QByteArray>
#include <QString>

/// The bytes of the file at `path`; null if it can't be opened or has more than `limit` bytes. What the medium refuses
/// reads as zeros.
QByteArray readWhole(const QString &path, qint64 limit);
