// Where the program's companions lie, worked out from its own folder.
#pragma once

#include <QString>

/// Fills the paths of the sibling tools, `strResourcesPath`, `strLinkPlistPath` and `strPreviewHelperPath` of `pApp`. The
/// program is a bundle nested in an outer bundle; its resources lie in the outer one. Nothing needs to exist.
void setApplicationPaths(const QString &applicationDirPath);
