// What is done about damage in entropy data, step by step: sectors put back, data read on behind it, levels, holes.

#include "Apart.h"

#include "salvage/Salvage.h"
#include "salvage/picture/Mending.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

#include <cmath>

using namespace salvage;

namespace {

constexpr int kSector = 512;

QByteArray finePicture()
{
    return makeJpeg(drawPicture(640, 480), {.quality = 92});
}

/// The first boundary of sectors in the second half of the file's entropy data.
int sectorInData(const QByteArray &file)
{
    const int data = file.lastIndexOf("\xFF\xDA") + 14;
    return (data + (file.size() - data) / 2) / kSector * kSector;
}

QByteArray swapped(QByteArray file, int first, int second)
{
    const QByteArray one = file.mid(first, kSector);
    file.replace(first, kSector, file.mid(second, kSector));
    return file.replace(second, kSector, one);
}

Patchwork wholeOf(const Apart &apart)
{
    Patchwork work;
    work.picture = coefficientsOf(apart);
    work.have.assign(work.picture.mcuCount(), true);
    return work;
}

} // namespace

class TestSalvageMending : public QObject
{
    Q_OBJECT

private slots:
    void sectorsComeBackWhole_data();
    void sectorsComeBackWhole();
    void whatLiesBehindDamageIsFound_data();
    void whatLiesBehindDamageIsFound();
    void intervalsAreReadFromTheirEnds();
    void streamsGoOnBehindJunk_data();
    void streamsGoOnBehindJunk();
    void jumpsOfLevelsAreTakenBack_data();
    void jumpsOfLevelsAreTakenBack();
    void holesLeadFromAboveToBelow();
};

void TestSalvageMending::sectorsComeBackWhole_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("healthy");
    const QByteArray fine = finePicture();
    const int at = sectorInData(fine);
    QTest::newRow("twice") << QByteArray(fine).insert(at, fine.mid(at, kSector)) << fine;
    QTest::newRow("twice, off the boundary") << QByteArray(fine).insert(at + 77, fine.mid(at + 77, kSector)) << fine;
    const QByteArray small = makeJpeg(drawPicture(320, 240), {.quality = 92}); // the search has its time
    const int inSmall = sectorInData(small);
    QTest::newRow("swapped") << swapped(small, inSmall, inSmall + 5 * kSector) << small;
    QTest::newRow("swapped with the next") << swapped(small, inSmall, inSmall + kSector) << small;
}

void TestSalvageMending::sectorsComeBackWhole()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, healthy);
    QVERIFY(largestDifference(shown(file), shown(healthy)) > 0);
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(largestDifference(shown(found->file), shown(healthy)), 0);
}

void TestSalvageMending::whatLiesBehindDamageIsFound_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("healthy");
    const QByteArray plain = finePicture();
    const int at = sectorInData(plain);
    QTest::newRow("a sector zeroed") << QByteArray(plain).replace(at, kSector, QByteArray(kSector, '\0')) << plain;
    QTest::newRow("a sector lost") << QByteArray(plain).remove(at, kSector) << plain;
    QTest::newRow("bytes put in") << QByteArray(plain).insert(at, filler(300)) << plain;
}

/// What was hit is gone, and no more than that: the rows above it, and the lower third that lies behind it.
void TestSalvageMending::whatLiesBehindDamageIsFound()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, healthy);
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    const QImage mended = shown(found->file);
    const QImage truth = shown(healthy);
    QCOMPARE(mended.size(), truth.size());
    const QRect above(0, 0, truth.width(), truth.height() / 4);
    const QRect below(0, truth.height() * 2 / 3, truth.width(), truth.height() / 3);
    QVERIFY(meanDifference(mended.copy(above), truth.copy(above)) < 0.5);
    const double apart = meanDifference(mended.copy(below), truth.copy(below));
    QVERIFY2(apart < 3, qPrintable(QString::number(apart)));
    QVERIFY(meanDifference(shown(file).copy(below), truth.copy(below)) > 5 || shown(file).size() != truth.size());
}

/// Data that can't be read in the middle of an interval of six rows: the last two of them are there again.
void TestSalvageMending::intervalsAreReadFromTheirEnds()
{
    const QByteArray healthy = makeJpeg(drawPicture(640, 480), {.quality = 92, .restartMcus = 240});
    const int begin = healthy.indexOf("\xFF\xD1") + 2; // of the third interval
    const int end = healthy.indexOf("\xFF\xD2");
    QVERIFY(end - begin > 2000);
    const QByteArray junk = QByteArray("\xFF\0\xFF\0\xFF\0\xFF\0", 8).repeated(8);
    const QByteArray file = QByteArray(healthy).replace((begin + end) / 2, junk.size(), junk);
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    const QRect rows(0, (2 * 6 + 4) * 16, 640, 2 * 16);
    const double apart = meanDifference(shown(found->file).copy(rows), shown(healthy).copy(rows));
    QVERIFY2(apart < 3, qPrintable(QString::number(apart)));
    QVERIFY(meanDifference(shown(file).copy(rows), shown(healthy).copy(rows)) > 6);
}

void TestSalvageMending::streamsGoOnBehindJunk_data()
{
    QTest::addColumn<QByteArray>("junk");
    QTest::newRow("ones") << QByteArray("\xFF\0\xFF\0\xFF\0\xFF\0", 8).repeated(8);
    QTest::newRow("text") << QByteArray("no entropy data at all, but a note of some kind").repeated(3);
    QTest::newRow("zeros of a sector") << QByteArray(kSector, '\0');
}

void TestSalvageMending::streamsGoOnBehindJunk()
{
    QFETCH(QByteArray, junk);
    constexpr qint64 kLast = 200; // MCUs that must come back
    const Apart apart = takeApart(finePicture());
    const Coefficients truth = coefficientsOf(apart);
    const QByteArray data = QByteArray(apart.data).replace(apart.data.size() / 2, junk.size(), junk);
    Budget budget;
    const McuStream stream = readStream(apart.header, view(data), truth.mcuCount() + 500, budget);
    QVERIFY(stream.ended);
    QVERIFY(std::find(stream.bad.begin(), stream.bad.end(), true) != stream.bad.end());
    QVERIFY(stream.mcus() > kLast);
    const size_t size = size_t(truth.blocksPerMcu()) * 64;
    for (qint64 back = 1; back <= kLast; ++back) {
        const qint16 *own = stream.values.data() + (stream.mcus() - quint32(back)) * size;
        const qint16 *other = truth.mcu(truth.mcuCount() - quint32(back));
        for (size_t i = 0; i < size; ++i)
            if (i % 64) QCOMPARE(own[i], other[i]); // levels are by differences, and lost
    }
}

void TestSalvageMending::jumpsOfLevelsAreTakenBack_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<int>("steps"); // of quantization
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("lighter") << 0 << 40;
    QTest::newRow("darker") << 0 << -60;
    QTest::newRow("another colour") << 2 << 45;
}

void TestSalvageMending::jumpsOfLevelsAreTakenBack()
{
    QFETCH(int, component);
    QFETCH(int, steps);
    const Apart apart = takeApart(finePicture());
    Patchwork work = wholeOf(apart);
    const Coefficients truth = work.picture;
    const quint32 from = truth.mcusWide * 12 + 17;
    const int first = truth.firstBlock(size_t(component));
    for (quint32 i = from; i < truth.mcuCount(); ++i)
        for (int block = first; block < truth.firstBlock(size_t(component) + 1); ++block)
            work.picture.mcu(i)[block * 64] = qint16(work.picture.mcu(i)[block * 64] + steps);
    Budget budget;
    QCOMPARE(evenLevels(work, apart.header, budget), steps != 0);
    const double level = double(apart.header.quant.at(apart.header.components[size_t(component)].quant)[0]) / 8;
    // The end of the picture, where all jumps that were taken back or made up add.
    const quint32 last = truth.mcuCount() - 1;
    const double apartBy = std::abs(work.picture.mcu(last)[first * 64] - truth.mcu(last)[first * 64]) * level;
    QVERIFY2(apartBy < 1.5, qPrintable(QString::number(apartBy)));
    QCOMPARE(work.picture.mcu(from - 20)[first * 64], truth.mcu(from - 20)[first * 64]);
}

/// Even shades from top to bottom: each row of a hole is as light as the rows around it say.
void TestSalvageMending::holesLeadFromAboveToBelow()
{
    QImage shades(160, 160, QImage::Format_Grayscale8);
    for (int y = 0; y < 160; ++y)
        for (int x = 0; x < 160; ++x) shades.setPixel(x, y, qRgb(20 + y, 20 + y, 20 + y));
    const Apart apart = takeApart(makeJpeg(shades, {.quality = 95}));
    Patchwork work = wholeOf(apart);
    const Coefficients truth = work.picture;
    for (quint32 i = truth.mcusWide * 8; i < truth.mcusWide * 12; ++i) {
        work.have[i] = false;
        std::fill_n(work.picture.mcu(i), truth.blocksPerMcu() * 64, qint16(99));
    }
    fillHoles(work, apart.header);
    const QuantTable &quant = apart.header.quant.at(apart.header.components[0].quant);
    for (quint32 row = 0; row < truth.mcusHigh; ++row) {
        const Samples own = inverseDct(work.picture.block(0, 3, row), quant);
        const Samples other = inverseDct(truth.block(0, 3, row), quant);
        for (size_t i = 0; i < 64; ++i) QVERIFY(std::abs(own[i] - other[i]) < 2);
    }
}

QTEST_GUILESS_MAIN(TestSalvageMending)
#include "tst_salvage_mending.moc"
