// The steps of a HEIC on the road of one file.
#pragma once

#include <QString>

class jpg_repair;

/// Offsets are kept in 32 bits; a file of this size or more doesn't open.
constexpr quint64 kHeicSizeLimit = quint64(1) << 32;

/// Where results of the HEIC rewrite lie: a folder of the working folder, with a trailing "/".
QString heicFolder();
/// True for names whose results lie there.
bool isHeicName(const QString &name);

/// Analyses the HEIC and rewrites it from itself. Returns the status code of its row, Unreached where it came through;
/// leaves the result's name in `lstResultNames`, else the reason in the report of `pApp`.
QString repairHeic(jpg_repair &engine, const QString &path);

/// Rewrites the HEIC with the boxes of a healthy sample. The layout is taken from the damaged file, and what the rewrite
/// gives stands in `lstResultNames`, whatever the sample is: nothing but the reader of the result can tell.
void repairHeicWithSample(jpg_repair &engine, const QString &samplePath, const QString &path);
