// Copies that can fail without loss: a new file comes whole or not at all, an old one is replaced as a whole.
#pragma once

#include <QString>

/// Copies the file `source` to `target`, where nothing may stand. Returns "" or one line that says why there is no copy.
QString copyToNewFile(const QString &source, const QString &target);

/// Copies `source` beside `target` and lets the copy take its place; a link there is replaced and its target not touched.
/// Returns "" or one line; then what stood at `target` is as it was.
QString replaceByCopy(const QString &source, const QString &target);
