// The folder in which pictures are built before the judge has seen them: one of the run's own, in which nothing else lies.
#pragma once

#include <QString>

/// Its path without trailing "/": "<root>/Vorlane", or with a number behind it where something that stays has this name.
QString scratchFolder();

/// Wipes what runs that were ended by force have left below the root, and makes the folder anew. False, with the system's
/// reason in errno, if it can't be made.
bool makeScratchFolder();

/// Wipes what runs that were ended by force have left, and nothing else; makeScratchFolder does so too.
void wipeScratchLeftovers();

/// Wipes what lies in it; the folder stays.
void wipeScratchFolder();
