// A run on a worker thread while another thread asks it to stop: nothing is shared without care, and it ends at once.

#include "app/StopFlag.h"
#include "engine/OutputRows.h"
#include "support/Damage.h"
#include "support/Grammar.h"
#include "support/RunFolder.h"

#include <QTest>

#include <atomic>
#include <thread>

namespace {

/// A stream of pictures, each with illegal codes: long work in every phase of the engine.
QByteArray longWork()
{
    MiniJpeg picture;
    picture.data = (filler(50) + "\xFF\x01").repeated(300);
    return (picture() + bytes({0})).repeated(20);
}

} // namespace

class TestStop : public QObject
{
    Q_OBJECT

private slots:
    void stopEndsTheRun();
    void runAfterAStopIsWhole();
};

void TestStop::stopEndsTheRun()
{
    const RunFolder folder;
    QCOMPARE(prepareWorkingRoot(), QString());
    const QString path = folder.source(QStringLiteral("stream.jpg"), longWork());
    // From before the first byte to somewhere inside: the worker counts its files, and the stop comes at another one
    // each time.
    for (int round = 0; round < 12; ++round) {
        QVERIFY(beginRun());
        std::atomic<int> files{0};
        std::atomic<bool> stoppedSeen{false};
        std::thread worker([&] {
            while (true) {
                const FileOutcome outcome = repairOneFile(path);
                const OutputRows rows = makeRows(outcome);
                ++files;
                if (!stopRequested()) continue;
                stoppedSeen = outcome.statusCode == QLatin1String(status::Stopped)
                    || rows.sourceStatus == QLatin1String(status::Stopped) || !rows.rows.isEmpty();
                return;
            }
        });
        while (files < round / 4) std::this_thread::yield();
        for (int spin = 0; spin < round * 2000; ++spin) std::atomic_signal_fence(std::memory_order_seq_cst);
        setFlag(pApp->bStopRepair, true);
        worker.join(); // a worker that misses the stop never comes here, and the test's limit of time names it
        QVERIFY(stoppedSeen);
        QVERIFY(!pApp->pMainListHead && !pApp->pMainListRawHead && !pApp->pCurrentFile);
    }
}

void TestStop::runAfterAStopIsWhole()
{
    const RunFolder folder;
    QCOMPARE(prepareWorkingRoot(), QString());
    const QString path = folder.source(QStringLiteral("healthy.jpg"), healthyJpeg());
    QVERIFY(beginRun());
    setFlag(pApp->bStopRepair, true);
    QCOMPARE(repairOneFile(path).statusCode, QString::fromLatin1(status::Stopped));
    QVERIFY(beginRun());
    QString statusCode;
    std::thread worker([&] { statusCode = makeRows(repairOneFile(path)).sourceStatus; });
    worker.join();
    QCOMPARE(statusCode, QString::fromLatin1(status::Repaired));
}

QTEST_GUILESS_MAIN(TestStop)
#include "tst_stop.moc"
