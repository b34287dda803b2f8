#include "desktop/Paths.h"

#include "app/KesmiraApp.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

/// The path `levels` folders further up, without trailing "/": "" stands for the root, above which there is nothing.
QString above(QString path, int levels)
{
    for (int i = 0; i < levels; ++i) path.truncate(qMax(path.lastIndexOf('/'), 0));
    return path;
}

QString withoutSlash(QString folder)
{
    while (folder.endsWith('/')) folder.chop(1);
    return folder;
}

/// The folders of the sibling tools' bundles.
struct Siblings
{
    QString near, far;

    explicit Siblings(const QString &programFolder) : near(above(programFolder, 6)), far(above(near, 3)) {}
    QString driveWatch() const { return near + "/TreskenDriveWatch.app"; }
    QString fullRecoverPhoto() const { return near + "/TreskenFullRecoverPhoto.app"; }
    QString clipMender() const { return near + "/TreskenClipMender.app"; }
    QString fullRecover() const { return far + "/TreskenFullRecover.app"; }
};

/// Each tool keeps its settings where this one does: in the resources of its outer bundle, under its own name.
QString settingsOf(const QString &bundle)
{
    return bundle + "/Contents/Resources/" + QFileInfo(bundle).completeBaseName() + ".plist";
}

} // namespace

void KesmiraApp::GetOtherAppsPlistPath()
{
    const Siblings siblings(withoutSlash(QCoreApplication::applicationDirPath()));
    strDriveWatchPlistPath = settingsOf(siblings.driveWatch());
    strFullRecoverPhotoPlistPath = settingsOf(siblings.fullRecoverPhoto());
    strClipMenderPlistPath = settingsOf(siblings.clipMender());
    strFullRecoverPlistPath = settingsOf(siblings.fullRecover());
}

void setApplicationPaths(const QString &applicationDirPath)
{
    const QString folder = withoutSlash(applicationDirPath);
    const Siblings siblings(folder);
    pApp->strDriveWatchPath = siblings.driveWatch();
    pApp->strFullRecoverPhotoPath = siblings.fullRecoverPhoto();
    pApp->strClipMenderPath = siblings.clipMender();
    pApp->strFullRecoverPath = siblings.fullRecover();

    pApp->strResourcesPath = above(folder, 4) + "/Resources";
    pApp->strLinkPlistPath = pApp->strResourcesPath + "/KMJPGLink.plist";
    pApp->strPreviewHelperPath = folder + "/FileUtil.app";
}
