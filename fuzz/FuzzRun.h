// A run of the engine for fuzz targets: a private working root in memory, and files made of the input's bytes.
#pragma once

#include <QByteArray>
#include <QString>

/// Makes the root, the folder of the sources and the application object that plug-ins ask for; once for each process.
void prepareFuzzRun();
/// Writes a source of the run and returns its path.
QString fuzzSource(const QString &name, const QByteArray &bytes);
QByteArray fileBytes(const QString &path);
/// Ends the process with the message unless `holds`.
void demand(bool holds, const char *message);
