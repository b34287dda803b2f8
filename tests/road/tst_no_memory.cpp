// Memory that runs out in the middle of a file: that file is given up, and the next one comes out as ever.

#include "Road.h"

#include "app/KesmiraApp.h"
#include "engine/OneFile.h"
#include "support/Damage.h"
#include "support/HeicMaker.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"

#include <QDir>
#include <QTest>

#include <cstdlib>
#include <new>

namespace {

/// Smaller blocks are there when larger ones are not, and the toolkit's own objects rely on them.
constexpr std::size_t kLarge = 256;
/// Large allocations of this thread to go until one fails; negative for never.
thread_local long budget = -1;

} // namespace

void *operator new(std::size_t size)
{
    if (size >= kLarge && budget >= 0 && budget-- == 0) throw std::bad_alloc();
    if (void *block = std::malloc(size == 0 ? 1 : size)) return block;
    throw std::bad_alloc();
}

void operator delete(void *block) noexcept
{
    std::free(block);
}

void operator delete(void *block, std::size_t) noexcept
{
    std::free(block);
}

class TestNoMemory : public QObject
{
    Q_OBJECT

private slots:
    void costsOneFile_data();
    void costsOneFile();
};

void TestNoMemory::costsOneFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("file");
    const QByteArray thumbnail = makeJpeg(drawPicture(24, 16), {.oneDqt = true});
    const QByteArray nested = healthyJpeg({.jfif = false, .segments = {exifSegment(thumbnail)}});
    QTest::newRow("a thumbnail inside") << "x.jpg" << nested;
    QTest::newRow("a stream") << "x.jpg" << QByteArray(9, 'x') + nested + nested;
    QTest::newRow("second way")
        << "x.jpg" << QByteArray(Damage(healthyJpeg({.segments = {segment(words::APP2, 9)}})).zero(fromStart(0), 18));
    QTest::newRow("raw") << "x.nef" << QByteArray(50, 'x') + thumbnail + QByteArray(50, 'x');
    QTest::newRow("HEIC") << "x.heic" << makeHeic().bytes;
}

void TestNoMemory::costsOneFile()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, file);
    const Run run;
    const QString path = run.source(name, file);
    const QString next = run.source("next.jpg", healthyJpeg());
    const QStringList whole = repairOneFile(path).results;
    const uint files = QDir("/proc/self/fd").count();
    int refused = 0;
    bool reachedEnd = false;
    for (long n = 0; !reachedEnd; n += 1 + n / 20) {
        budget = n;
        const FileOutcome outcome = repairOneFile(path);
        reachedEnd = budget >= 0;
        budget = -1;
        if (outcome.report.reason == RepairReason::TooLarge) {
            ++refused;
            QCOMPARE(outcome.results, QStringList());
        } else {
            QCOMPARE(outcome.results, whole);
        }
        QVERIFY(!pApp->pMainListHead && !pApp->pMainListRawHead && !pApp->pCurrentFile && !pApp->pHeicSource);
        QCOMPARE(repairOneFile(next).results, QStringList("next.jpg"));
    }
    QVERIFY(refused > 1);
    QCOMPARE(QDir("/proc/self/fd").count(), files);
}

QTEST_GUILESS_MAIN(TestNoMemory)
#include "tst_no_memory.moc"
