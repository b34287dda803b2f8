// What the check for updates knows, and where it keeps what it fetches.
#pragma once

#include <QString>

/// The user asked: that there is no update, or that the server couldn't be reached, is then said.
extern bool bCheckForUpdate;
/// Result of the last check.
extern bool UpdateVersionAvailable;
extern bool isMajorUpdate;
extern bool isMinorUpdate;
/// The fetched version text.
extern QString VersionTxtPath;
/// Folder of the running program.
extern QString ApplicationPath;

/// The update on offer, in Latin-1; a field that is filled to its end has no closing zero.
struct SoftwareUpdate
{
    char kind[32];    ///< "Major" or "Minor", in the language of the interface
    char version[32]; ///< as it was fetched
    char title[32];
};
extern SoftwareUpdate softwareUpdate;

/// Fills all three fields anew; what is longer than a field is cut.
void fillSoftwareUpdate(const QString &kind, const QString &version, const QString &title);
/// Text of a field.
QString fieldText(const char (&field)[32]);

/// "<root>/Vorlane/", the scratch folder of updates; made if need be. A run wipes what lies there: the dialogs that use it
/// keep the window from beginning one, and none of them opens during a run.
QString updateFolder();
/// Base address of updates in the current language with `name` appended, "" if the link file has none.
QString updateAddress(const QString &name);
/// First line of a fetched version text, trimmed; at most 4,096 bytes are looked at. "" if there is none.
QString firstLine(const QString &path);
