// The private folder below which the working folder and the scratch files of a run lie.
#pragma once

#include <QString>

/// Path of the root, without trailing "/". $KESMIRA_ROOT, else $XDG_CACHE_HOME/kesmira, else ~/.cache/kesmira; a path
/// given to setWorkingRoot comes before all of them.
QString workingRoot();
void setWorkingRoot(const QString &path);
/// True for a root given to setWorkingRoot, which may hold files of the user's.
bool rootIsNamed();

/// Makes the root with mode 0700 and checks that it is a folder of this user's that nobody else may enter, and no link.
/// A root given to setWorkingRoot may be a folder that others can enter, but not write.
/// Returns "" or one line in the reader's language that says what is wrong; it begins with a small letter.
QString prepareWorkingRoot();

/// "<root>/RepairedFiles/"; the place of the results.
QString workingFolder();
/// "<root>"; stands where the scratch files are told to lie under the system's temporary path.
QString scratchRoot();
