// The command lines that one desktop system is driven by, and the reading of their answers: plain texts, the same
// everywhere, so that they are tested where that system isn't at hand.
// A file name goes into a line so that no letter of it can end its word or start a command; where it stands without
// quotes a blank still ends it.
#pragma once

#include <QList>
#include <QString>

namespace commandText {

/// Place of the script that shows a file in the file manager.
QString revealScriptPath();
/// Whole text of that script for a file or folder.
QString revealScript(const QString &path);
QString makeRevealScriptRunnable();

/// Place where a command leaves its answer.
QString answerPath();
/// Leaves the processes of the preview helper at `answerPath`.
QString listHelpers();
/// Process ids in the answer to `listHelpers`, that of the search itself included.
QList<unsigned int> helperIds(const QString &answer);
QString endProcess(unsigned int pid);

/// Appends the system's version to `answerPath`.
QString askVersion();
/// The version in the first line of that answer, "10.15.7"; empty if it holds none.
QString versionIn(const QString &answer);
/// Four hexadecimal digits: two for the first number, one each for the next two. 0x1260 for "12.6", 0 for no version.
int versionCode(const QString &version);
/// "MAC OS X" from version 0x1000 on, else empty.
QString systemName(int versionCode);

QString startApplication(const QString &bundlePath);
/// Opens an address with a browser, whose name stands bare.
QString openAddress(const QString &browser, const QString &address);

/// The commands that put the downloaded bundle in the place of the one in `folder`, in their order.
QStringList installSteps(const QString &folder);

/// True for a folder directly below "/" on the versions that keep the root read-only.
bool isReadOnlyPlace(const QString &version, const QString &folder);

} // namespace commandText
