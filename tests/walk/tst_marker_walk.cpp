// The engine's hopping walks against the slow ones that look at every position.

#include "engine/FileWindow.h"
#include "support/ByteSource.h"
#include "support/Damage.h"
#include "support/EngineView.h"
#include "support/Files.h"
#include "support/Grammar.h"
#include "support/SteppingWalk.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

#include <ctime>

namespace {

const int kBlockSizes[] = {1, 2, 3, 16, 4096, 256 * 1024};

#define COMPARE_WALKS(actual, expected)                                                                                \
    do {                                                                                                               \
        const QString difference = describeDifference(actual, expected);                                               \
        QVERIFY2(difference.isEmpty(), qPrintable(difference));                                                        \
    } while (false)

} // namespace

class TestMarkerWalk : public QObject
{
    Q_OBJECT

private slots:
    void hoppingEqualsStepping_data();
    void hoppingEqualsStepping();
    void copiesEqualStepping_data() { hoppingEqualsStepping_data(); }
    void copiesEqualStepping();
    void chainGoesOnBehindAnother();
    void soup();
    void refusedPagesReadAsZeros();
    void realFiles();
    void manyImagesAreShared_data();
    void manyImagesAreShared();
};

void TestMarkerWalk::hoppingEqualsStepping_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("blockSize");
    for (const Damaged &damaged : damagedJpegs())
        for (const int block : kBlockSizes)
            QTest::addRow("%s, block %d", damaged.name, block) << damaged.bytes << block;
}

void TestMarkerWalk::hoppingEqualsStepping()
{
    QFETCH(QByteArray, file);
    QFETCH(int, blockSize);
    COMPARE_WALKS(engineWalk(file, blockSize), steppingWalk(file));
}

void TestMarkerWalk::copiesEqualStepping()
{
    QFETCH(QByteArray, file);
    QFETCH(int, blockSize);
    for (const bool container : {false, true}) {
        COMPARE_WALKS(engineTempWalk(file, blockSize, container), steppingTempWalk(file, {container, {}, 3}));
        COMPARE_WALKS(engineRawWalk(file, blockSize, container), steppingRawWalk(file, {container, {}, 3}));
    }
}

void TestMarkerWalk::chainGoesOnBehindAnother()
{
    // A thumbnail's nodes follow those of the picture that it was cut out of, and its counts add to them.
    const auto &cases = damagedJpegs();
    for (size_t i = 0; i + 1 < cases.size(); ++i) {
        const QByteArray &before = cases[i].bytes;
        const QByteArray &copy = cases[i + 1].bytes;
        WalkResult first = steppingWalk(before);
        const bool container = first.bContainerWalk;
        const QString difference = describeDifference(engineTempWalk(copy, 4096, container, &before),
                                                      steppingTempWalk(copy, {container, first, 3}));
        QVERIFY2(difference.isEmpty(), qPrintable(QString::fromLatin1(cases[i].name) + ": " + difference));
    }
}

void TestMarkerWalk::soup()
{
    for (quint32 seed = 1; seed <= 1500; ++seed) {
        const QByteArray file = markerSoup(seed);
        const int block = kBlockSizes[seed % 6];
        const QString difference = describeDifference(engineWalk(file, block), steppingWalk(file));
        QVERIFY2(difference.isEmpty(), qPrintable(QString("seed %1: %2").arg(seed).arg(difference)));
    }
}

void TestMarkerWalk::refusedPagesReadAsZeros()
{
    const QByteArray whole = miniJpeg() + filler(9000) + miniJpeg();
    for (const auto &[begin, end] :
         {std::pair<int, int>{0, 1}, {4095, 4097}, {8192, 12288}, {whole.size() - 3, whole.size()}}) {
        QByteArray seen = whole;
        const int firstPage = begin / 4096 * 4096;
        const int lastPage = qMin((end + 4095) / 4096 * 4096, seen.size());
        for (int i = firstPage; i < lastPage; ++i) seen[i] = 0;
        for (const int block : {4096, 5000, 256 * 1024}) {
            RefusingSource source(whole, {{quint64(firstPage), quint64(lastPage)}});
            COMPARE_WALKS(engineWalk(source, block), steppingWalk(seen));
            QVERIFY(source.refusals() > 0);
        }
    }
}

void TestMarkerWalk::realFiles()
{
    QDirIterator it(QStringLiteral(KESMIRA_CORPUS "/jpeg"), QDir::Files);
    int walked = 0;
    while (it.hasNext()) {
        const QString path = it.next();
        if (QFileInfo(path).size() > 150 * 1024) continue;
        const QByteArray file = contents(path);
        const QString difference = describeDifference(engineWalk(file, 4096), steppingWalk(file));
        QVERIFY2(difference.isEmpty(), qPrintable(path + ": " + difference));
        ++walked;
    }
    if (walked == 0) QSKIP("no real photographs here");
}

void TestMarkerWalk::manyImagesAreShared_data()
{
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<QByteArray>("end");
    const QByteArray soi = word(words::SOI);
    const QByteArray eoi = word(words::EOI);
    QTest::newRow("tiny images one behind the other") << soi + word(words::DQT) + eoi << QByteArray();
    QTest::newRow("tiny images with a gap, a stream") << soi + word(words::DQT) + eoi + bytes({0}) << QByteArray();
    QTest::newRow("starts without an end") << soi + word(words::DQT) << QByteArray();
    QTest::newRow("starts with one end in common") << soi + word(words::DQT) << eoi;
    QTest::newRow("starts inside of metadata") << soi + word(words::APP1) + word(0x3000) + filler(20) << eoi;
    QTest::newRow("bare starts") << soi << eoi;
    QTest::newRow("metadata without content") << word(words::APP1) + word(2) << eoi;
    QTest::newRow("tables without content") << word(words::DQT) + word(2) << eoi;
}

void TestMarkerWalk::manyImagesAreShared()
{
    QFETCH(QByteArray, unit);
    QFETCH(QByteArray, end);
    // What a walk shares must not show in its result ...
    for (const QByteArray &front : {miniJpeg(), miniJpeg() + bytes({0}) + miniJpeg() + bytes({0}) + miniJpeg()}) {
        const QByteArray few = front + unit.repeated(150) + end;
        COMPARE_WALKS(engineWalk(few, 4096), steppingWalk(few));
        // ... and many of them take a moment: looking at each byte once from each start would take hours.
        const QByteArray many = front + unit.repeated(300000) + end;
        const std::clock_t begin = std::clock();
        const WalkResult result = engineWalk(many, FileWindow::kBlockSize);
        const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
        QVERIFY(!result.nodes.empty());
        QVERIFY2(seconds < 20, qPrintable(QString::number(seconds)));
    }
}

QTEST_GUILESS_MAIN(TestMarkerWalk)
#include "tst_marker_walk.moc"
