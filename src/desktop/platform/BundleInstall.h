// The swap of an installed bundle for the one in an archive. Whatever goes wrong, the installed one stays as it was.
#pragma once

#include <QString>

/// Unpacks the zip `archive` into a fresh private folder beside the bundle `folder`/`bundleName`, checks that it holds a
/// bundle of that name with the executable `program` (a path in the bundle), and renames it into place. The old bundle is
/// kept until the new one stands. Entries that lead out of the folder, links out of it, hard links and devices make the
/// archive refused, as do more than 2 GiB or 100,000 entries. Returns "" or why nothing was changed; may take seconds and
/// may run on any thread.
QString installBundleFromArchive(const QString &archive, const QString &bundleName, const QString &program,
                                 const QString &folder);
