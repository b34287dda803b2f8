#include "desktop/platform/Platform.h"

#include "desktop/platform/BundleInstall.h"

#include <QCoreApplication>

#ifdef Q_OS_MACOS
#include "desktop/platform/PlatformMac.h"
using BuiltInPlatform = PlatformMac;
#else
#include "desktop/platform/PlatformLinux.h"
using BuiltInPlatform = PlatformLinux;
#endif

namespace {
Platform *theReplacement = nullptr;
}

Platform &platform()
{
    static BuiltInPlatform builtIn;
    return theReplacement ? *theReplacement : builtIn;
}

void Platform::clearInstallLeftovers(const QString &bundleName, const QString &folder)
{
    ::clearInstallLeftovers(bundleName, folder);
}

void setPlatform(Platform *replacement)
{
    theReplacement = replacement;
}

QString readOnlyDestinationText()
{
    // The two sentences follow each other directly, and the bracket stays open: so the translations hold them.
    return QCoreApplication::translate("BrowseRepair",
                                       "Selected destination path is read-only (restricted by the operating system")
        + QCoreApplication::translate("BrowseRepair", "Select a different location to proceed.");
}
