// The command line of the window program.
#pragma once

#include <QString>
#include <QStringList>

struct CommandLine
{
    QString text;           ///< --help or --version: to print on standard output, then the program ends
    QString wrong;          ///< "" or one line that says what is wrong with the options
    QStringList files;      ///< absolute paths of the files to add to the list
    QStringList passedOver; ///< one line for each argument that names no file that is there
};

/// Reads the arguments, the program's name first. Relative paths count from the current folder; an address that begins
/// with "file:" is taken as well, as file managers hand them over. Needs an application object.
///
/// The toolkit's own options ("-platform" and the like) are wrong here until the toolkit has taken them out. Before that
/// only `text` counts.
CommandLine readCommandLine(const QStringList &arguments);
