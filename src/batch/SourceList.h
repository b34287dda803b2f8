// From the files and folders of the command line to the files of a run.
#pragma once

#include <QString>
#include <QStringList>

struct SourceList
{
    QStringList files;    ///< in the order in which they are repaired
    QStringList problems; ///< one line for each source that was passed over or can't be found
    int passedOver = 0;   ///< sources that are not among the files though they were meant
};

/// Files stay as they are; a folder becomes the files below it that have a suffix the engine knows, in the order of their
/// names' bytes. Links to files count, links to folders aren't followed, hidden entries are left out. What lies where the
/// run works, and would be wiped, is passed over, and so is every name that isn't valid UTF-8.
SourceList collectSources(const QStringList &arguments);
