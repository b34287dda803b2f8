// Inputs of the benchmarks, made once for each process.
#pragma once

#include <QByteArray>
#include <QString>

/// An intact JPEG of about 100 MB (2 MB where KESMIRA_BENCH_SMALL is set): a real head, entropy data with stuffed zeros
/// and restart markers as an encoder leaves them, and an end.
QString largeJpeg();
/// A photograph-like JPEG of 12 megapixels and about 4 MB (0.1 megapixels where KESMIRA_BENCH_SMALL is set).
QString photograph();
/// A raw file of about `megabytes` MB (1 MB where KESMIRA_BENCH_SMALL is set): `head`, and behind it what sensor data looks
/// like to a search, bytes of every value, FF among them as often as any.
QString rawFile(const QByteArray &head, int megabytes);
/// Reads the whole file and counts one byte by memchr: the floor of every search.
qint64 memchrPass(const QByteArray &path, quint8 byte = 0xFF);
/// A private folder for roots and outputs of the process.
QString benchFolder();
