// The slow, obvious carves: every position looked at, each format's ways spelled out once more. They share nothing with
// the engine but the structs of the result.
#pragma once

#include "engine/raw/Cr3Scan.h"
#include "engine/raw/RawFields.h"

#include <QByteArray>
#include <QStringList>

/// Suffixes of the raw formats but for CR3.
const QStringList &carvedSuffixes();
RawImages steppingCarve(const QByteArray &file, const QString &suffix);
Cr3Images steppingCr3Carve(const QByteArray &file);

/// "start+length start+length".
QString describe(const RawImages &images);
