// kesmira-batch: the whole program but for its start, so that a test can run it in its own process.
#pragma once

#include <QStringList>
#include <QTextStream>

/// Exit statuses of the program.
namespace exitStatus {
constexpr int AllGave = 0; ///< every source gave something
constexpr int SomeGaveNothing = 1;
constexpr int WrongUsage = 2;   ///< with one line on `err`
constexpr int CouldNotWork = 3; ///< no working folder, bad built-in tables, or output that could not be written
} // namespace exitStatus

/// Runs the program with its command line, the program's name first, and returns the exit status. Results go to `out`,
/// everything else to `err`; both should be UTF-8.
int runBatch(const QStringList &arguments, QTextStream &out, QTextStream &err);

/// Has file names read and written as UTF-8 whatever the locale, as a bare "C" locale would lose every letter beyond
/// ASCII. Call it before the command line is decoded.
void useUtf8Names();
