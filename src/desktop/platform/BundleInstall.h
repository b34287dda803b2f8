// The swap of an installed bundle for the one in an archive. Whatever goes wrong, the installed one stays as it was.
#pragma once

#include <QString>

/// Unpacks the zip `archive` into a fresh private folder beside the bundle `folder`/`bundleName`, checks that it holds
/// a bundle of that name with the executable `program` (a path in the bundle, without a link on its way), writes it
/// through to the disk and exchanges it with the installed one in a single step: whenever the process ends, one of the
/// two is in place and whole. The first one that goes stays in the private folder until the process ends, as the
/// process may run from it. A file system without such an exchange keeps the installed bundle. Entries that lead out of
/// the folder, links out of the bundle or to nothing, a link for the bundle itself, hard links and devices make the
/// archive refused, as do more than 2 GiB or 100,000 entries. Returns "" or why nothing was changed; may take seconds
/// and may run on any thread.
QString installBundleFromArchive(const QString &archive, const QString &bundleName, const QString &program,
                                 const QString &folder);

/// Removes from `folder` what an installing that was ended on its way has left beside the bundle `bundleName`, and puts the
/// bundle back where only its old copy is left. What another process is installing is let be.
void clearInstallLeftovers(const QString &bundleName, const QString &folder);
