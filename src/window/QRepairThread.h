// The one worker of the window: runs one driver for each start.
#pragma once

#include "save/SaveFile.h"

#include <QMutex>
#include <QThread>
#include <QWaitCondition>

class BrowseRepair;

class QRepairThread : public QThread
{
    Q_OBJECT

public:
    /// Starts the driver of the window, at low priority, unless the thread is running. The window calls it only once an
    /// earlier run has left, so the mutex is free.
    void Init();

    QMutex mutex; ///< held for the whole of a run
    QWaitCondition condition;
    BrowseRepair *pBrowseRepair = nullptr; ///< set by the window before each start
    SaveFile saveFile;                     ///< used by nothing

signals:
    void InitPrgBar();
    void ClosePrgBar();
    void StepPrgValue();
    void SetProgressRange(unsigned long range);
    void SetProgressValue(unsigned long value);
    void SetStopButton(bool enabled);
    void ImageShow(int index);
    /// A run came to its normal end. The only one that is emitted, on the main thread, behind the run's last effect.
    void ProcessCompleted();

protected:
    void run() override;
};
