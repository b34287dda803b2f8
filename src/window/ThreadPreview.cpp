#include "window/ThreadPreview.h"

#include "desktop/platform/Platform.h"

void ThreadPreview::SetInitialSettings(const QString &helperPath, const QString &file)
{
    const QMutexLocker lock(&mutex);
    strHelperPath = helperPath;
    strPreviewFile = file;
}

void ThreadPreview::run()
{
    const QMutexLocker lock(&mutex);
    platform().startPreviewHelper(strHelperPath, strPreviewFile);
}
