// Pictures of several scans against libjpeg, the inverse transform against its formula, and what borders of blocks tell.

#include "Apart.h"

#include "salvage/entropy/PictureReader.h"
#include "salvage/picture/Picture.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

#include <cmath>

using namespace salvage;
using namespace words;

Q_DECLARE_METATYPE(JpegOptions)

class TestSalvagePicture : public QObject
{
    Q_OBJECT

private slots:
    void readsWhatLibjpegReads_data();
    void readsWhatLibjpegReads();
    void errorsInScansAreCounted_data();
    void errorsInScansAreCounted();
    void inverseFollowsTheFormula();
    void bordersTellTheRightTable_data();
    void bordersTellTheRightTable();
};

void TestSalvagePicture::readsWhatLibjpegReads_data()
{
    QTest::addColumn<JpegOptions>("options");
    QTest::addColumn<bool>("grey");
    QTest::newRow("progressive") << JpegOptions{.progressive = true} << false;
    QTest::newRow("progressive, the finest")
        << JpegOptions{.quality = 100, .progressive = true, .sampling = 444} << false;
    QTest::newRow("progressive, grey") << JpegOptions{.progressive = true} << true;
    QTest::newRow("progressive, restarts") << JpegOptions{.progressive = true, .restartMcus = 9} << false;
    QTest::newRow("baseline") << JpegOptions{} << false;
    QTest::newRow("baseline, restarts, grey") << JpegOptions{.restartMcus = 4} << true;
}

void TestSalvagePicture::readsWhatLibjpegReads()
{
    QFETCH(JpegOptions, options);
    QFETCH(bool, grey);
    const QByteArray file = makeJpeg(grey ? drawGreyPicture(204, 155) : drawPicture(204, 155), options);
    const Apart apart = takeApart(file);
    quint32 scans = 0;
    for (const SegmentPlace &place : segmentPlaces(file)) scans += place.marker == SOS;
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(view(file), dataAt);
    QVERIFY(header);
    QCOMPARE(file.mid(int(dataAt), 200), apart.data.left(200));
    QVERIFY(header->components == apart.header.components);
    QVERIFY(header->scan == apart.header.scan);
    QVERIFY(header->quant == apart.header.quant);
    QVERIFY(header->huffman == apart.header.huffman);
    QVERIFY(header->spectral == apart.header.spectral);
    QCOMPARE(header->restartInterval, apart.header.restartInterval);
    Budget budget;
    const ScansReading reading = readScans(*header, view(file).subspan(dataAt), budget);
    QCOMPARE(reading.scans, scans);
    QCOMPARE(reading.errors, 0U);
    QVERIFY(reading.complete);
    QCOMPARE(reading.share(), 1.0);
    QCOMPARE(difference(reading.picture, apart), QString());
}

void TestSalvagePicture::errorsInScansAreCounted_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<quint32>("errors"); // at least
    QTest::addColumn<bool>("complete");
    QTest::addColumn<double>("share"); // at most
    const Damage healthy(makeJpeg(drawPicture(204, 155), {.progressive = true}));
    const QByteArray ones = QByteArray("\xFF\0", 2).repeated(30);
    const auto row = [](const char *name, const QByteArray &file, quint32 errors, bool complete, double share) {
        QTest::newRow(name) << file << errors << complete << share;
    };
    row("ones in the first scan", Damage(healthy).put(inScan(40), ones), 1, true, 0.999);
    row("last scan cut", Damage(healthy).cutAt(fromEnd(300)), 1, true, 0.999);
    row("cut behind the first scan", Damage(healthy).cutAt(upTo(DHT, 2)), 0, true, 1);
    row("data left over", Damage(healthy).insert(upTo(DHT, 2), filler(40)), 1, true, 1);
    row("a scan header that can't be", Damage(healthy).put(at(SOS, 1) + 5, "\x3F\x01"), 1, false, 1);
    row("a table that can't be", Damage(healthy).fill(at(DHT, 2) + 3, 9, '\x7F'), 1, false, 1);
    const Damage restarts(makeJpeg(drawPicture(204, 155), {.restartMcus = 13}));
    row("ones in an interval", Damage(restarts).put(inScan(30), ones.left(20)), 1, true, 0.999);
}

void TestSalvagePicture::errorsInScansAreCounted()
{
    QFETCH(QByteArray, file);
    QFETCH(quint32, errors);
    QFETCH(double, share);
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(view(file), dataAt);
    QVERIFY(header);
    Budget budget;
    const ScansReading reading = readScans(*header, view(file).subspan(dataAt), budget);
    QVERIFY2(errors ? reading.errors >= errors : reading.errors == 0, qPrintable(QString::number(reading.errors)));
    QTEST(reading.complete, "complete");
    QVERIFY2(share == 1 ? reading.share() == 1 : reading.share() > 0 && reading.share() <= share,
             qPrintable(QString::number(reading.share())));
}

void TestSalvagePicture::inverseFollowsTheFormula()
{
    QuantTable quant{};
    for (size_t i = 0; i < 64; ++i) quant[i] = quint16(3 + i * 2);
    std::array<qint16, 64> block{};
    const auto compare = [&] {
        const Samples samples = inverseDct(block.data(), quant);
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x) {
                double sum = 0; // A.3.3
                for (int z = 0; z < 64; ++z) {
                    const int u = placeOfZigzag(z) % 8;
                    const int v = placeOfZigzag(z) / 8;
                    const double scale = (u ? 1 : std::sqrt(0.5)) * (v ? 1 : std::sqrt(0.5)) / 4;
                    sum += scale * block[size_t(z)] * quant[size_t(z)] * std::cos((2 * x + 1) * u * M_PI / 16)
                        * std::cos((2 * y + 1) * v * M_PI / 16);
                }
                QVERIFY(std::abs(sum + 128 - double(samples[size_t(y * 8 + x)])) < 0.05);
                if (y % 7) continue;
                QVERIFY(std::abs(sum - double(edgeRow(block.data(), quant, y)[size_t(x)])) < 0.05);
            }
    };
    for (size_t z = 0; z < 64; z += 3) {
        block.fill(0);
        block[z] = 17;
        compare();
    }
    for (size_t z = 0; z < 64; ++z) block[z] = qint16(int(z * 37 % 41) - 20);
    compare();
}

void TestSalvagePicture::bordersTellTheRightTable_data()
{
    QTest::addColumn<int>("wrong"); // the quality whose table is put in the place of the one of 80
    QTest::newRow("three times too coarse") << 40;
    QTest::newRow("far too coarse") << 10;
    QTest::newRow("far too fine") << 99;
}

void TestSalvagePicture::bordersTellTheRightTable()
{
    QFETCH(int, wrong);
    const Apart apart = takeApart(makeJpeg(drawPicture(320, 240), {.quality = 80}));
    const Coefficients picture = coefficientsOf(apart);
    const double right = borderStep(picture, 0, apart.header.quant.at(0), picture.mcusHigh);
    QuantTable levels = apart.header.quant.at(0); // the scale of levels and of what is inside the blocks, apart
    levels[0] = KnownTables::scaled(false, wrong)[0];
    const double other = borderStep(picture, 0, levels, picture.mcusHigh);
    if (wrong < 80) QVERIFY2(right < other, qPrintable(QStringLiteral("%1 %2").arg(right).arg(other)));
    QuantTable inside = KnownTables::scaled(false, wrong);
    inside[0] = apart.header.quant.at(0)[0];
    QVERIFY(right < borderStep(picture, 0, inside, picture.mcusHigh));
}

QTEST_GUILESS_MAIN(TestSalvagePicture)
#include "tst_salvage_picture.moc"
