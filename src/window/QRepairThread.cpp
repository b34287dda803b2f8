#include "window/QRepairThread.h"

#include "app/StopFlag.h"
#include "window/BrowseRepair.h"

void QRepairThread::Init()
{
    const QMutexLocker lock(&mutex);
    if (isRunning())
        condition.wakeAll();
    else
        start(QThread::LowPriority);
}

void QRepairThread::run()
{
    {
        const QMutexLocker lock(&mutex);
        pBrowseRepair->runDriver();
        if (stopRequested())
            quit();
        else
            pBrowseRepair->postToRun([this] { emit ProcessCompleted(); });
    }
    pBrowseRepair->postWorkerLeft();
}
