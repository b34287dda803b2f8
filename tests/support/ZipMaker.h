// Zip archives made in code, as updates are.
#pragma once

#include <QByteArray>
#include <QList>

struct ZipEntry
{
    enum Kind { Program, Plain, Link };
    QByteArray path;
    QByteArray bytes = {};
    Kind kind = Program;
    QByteArray link = {}; ///< where it leads
};
using ZipEntries = QList<ZipEntry>;

/// A bundle as the update server has it, its program of these bytes.
ZipEntries madeBundle(const QByteArray &program = "new program");
QByteArray zipOf(const ZipEntries &entries);
