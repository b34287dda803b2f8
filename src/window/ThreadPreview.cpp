#include "window/ThreadPreview.h"

#include "desktop/platform/Platform.h"

void ThreadPreview::SetInitialSettings(const QString &helperPath, const QString &file, const QStringList &files)
{
    const QMutexLocker lock(&mutex);
    strHelperPath = helperPath;
    strPreviewFile = file;
    lstFiles = files;
}

void ThreadPreview::run()
{
    const QMutexLocker lock(&mutex);
    const QString number = QString::number(lstFiles.indexOf(strPreviewFile) + 1);
    platform().startPreviewHelper(strHelperPath, QStringList{"--at", number, "--"} + lstFiles);
}
