// Starts the preview helper, which may take a moment, beside the main thread.
#pragma once

#include <QMutex>
#include <QString>
#include <QThread>

class ThreadPreview : public QThread
{
    Q_OBJECT

public:
    /// What the next start shows; waits while a start is under way.
    void SetInitialSettings(const QString &helperPath, const QString &file);

protected:
    void run() override;

private:
    QString strHelperPath;
    QString strPreviewFile;
    QMutex mutex;
};
