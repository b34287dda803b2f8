// What must hold for the pictures that a raw file gives, whatever its bytes are.
#pragma once

#include <QByteArray>
#include <QStringList>

/// Takes the bytes for each of these formats: no result depends on the block size, pointers lead to a picture's start, and
/// a carve finds what the slow one finds. Ends the process otherwise.
void checkRaw(const QByteArray &file, const QStringList &suffixes);
