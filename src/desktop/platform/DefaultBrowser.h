// The browser that the user's settings name, read from the association files of the free desktops.
#pragma once

#include <QString>

/// Desktop entry for http, without ".desktop": "firefox". Only one that is installed counts; empty if there is none.
/// Reads a few small files and starts no program, so it may be asked on the main thread.
QString browserOfDesktopSettings();
