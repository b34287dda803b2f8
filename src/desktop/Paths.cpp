#include "desktop/Paths.h"

#include "app/KesmiraApp.h"

namespace {

/// The path `levels` folders further up, without trailing "/": "" stands for the root, above which there is nothing.
QString above(QString path, int levels)
{
    for (int i = 0; i < levels; ++i) path.truncate(qMax(path.lastIndexOf('/'), 0));
    return path;
}

} // namespace

void setApplicationPaths(const QString &applicationDirPath)
{
    QString folder = applicationDirPath;
    while (folder.endsWith('/')) folder.chop(1);

    const QString siblings = above(folder, 6);
    pApp->strDriveWatchPath = siblings + "/TreskenDriveWatch.app";
    pApp->strFullRecoverPhotoPath = siblings + "/TreskenFullRecoverPhoto.app";
    pApp->strClipMenderPath = siblings + "/TreskenClipMender.app";
    pApp->strFullRecoverPath = above(siblings, 3) + "/TreskenFullRecover.app";

    pApp->strResourcesPath = above(folder, 4) + "/Resources";
    pApp->strLinkPlistPath = pApp->strResourcesPath + "/KMJPGLink.plist";
    pApp->strPreviewHelperPath = folder + "/FileUtil.app";
}
