// Starts the preview helper, which may take a moment, beside the main thread.
#pragma once

#include <QMutex>
#include <QString>
#include <QStringList>
#include <QThread>

class ThreadPreview : public QThread
{
    Q_OBJECT

public:
    /// What the next start shows: `file`, which is one of `files`, among these. Waits while a start is under way.
    void SetInitialSettings(const QString &helperPath, const QString &file, const QStringList &files);

protected:
    void run() override;

private:
    QString strHelperPath;
    QString strPreviewFile;
    QStringList lstFiles;
    QMutex mutex;
};
