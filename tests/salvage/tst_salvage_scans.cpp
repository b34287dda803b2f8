// Progressive pictures: the first scan and the size found from the others, codes and breaks within the scans.

#include "Apart.h"

#include "salvage/Salvage.h"
#include "salvage/entropy/PictureReader.h"
#include "salvage/search/ScansSize.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

#include <cmath>

using namespace salvage;
using namespace words;

Q_DECLARE_METATYPE(JpegOptions)

namespace {

constexpr QSize kSize(320, 240);

JpegOptions progressive(int sampling = 420)
{
    return {.quality = 88, .progressive = true, .sampling = sampling};
}

QByteArray jpeg(const QSize &size = kSize, const JpegOptions &options = progressive())
{
    return makeJpeg(drawPicture(size.width(), size.height()), options);
}

Damage damaged(int sampling = 420)
{
    return Damage(jpeg(kSize, progressive(sampling)));
}

/// Lively up to all of its edges.
QImage waves(const QSize &size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const double fast = 30 * std::sin(x * 0.57 + y * 0.3) + 25 * std::sin(y * 1.1 - x * 0.25);
            const double level = 128 + fast + 35 * std::sin(x * 0.013 + 1) + 30 * std::sin(y * 0.021);
            picture.setPixel(x, y, qRgb(int(level), int(level) / 2 + 60, 255 - int(level)));
        }
    return picture;
}

int offsetOf(const QByteArray &file, int marker, int index)
{
    for (const SegmentPlace &place : segmentPlaces(file))
        if (place.marker == marker && index-- == 0) return int(place.offset);
    qFatal("no such segment");
}

/// In the entropy data of scan `scan`: the zeros behind FF are lost, or become `instead`; at most `count`.
QByteArray withoutZeros(int scan, int count, int instead = -1)
{
    QByteArray file = jpeg();
    const QByteArray stuffed("\xFF\0", 2);
    int at = offsetOf(file, SOS, scan);
    const int end = offsetOf(file, SOS, scan + 1) - 60; // clear of the table in between
    int done = 0;
    for (at = file.indexOf(stuffed, at); at > 0 && at < end && done < count; at = file.indexOf(stuffed, at + 1)) {
        file.replace(at, 2, instead < 0 ? QByteArray("\xFF") : QByteArray("\xFF") + char(instead + done));
        ++done;
    }
    if (done == 0) qFatal("the scan has no FF");
    return file;
}

} // namespace

class TestSalvageScans : public QObject
{
    Q_OBJECT

private slots:
    void comesBackWhole_data();
    void comesBackWhole();
    void sizeEndsWhereFillingBegins_data();
    void sizeEndsWhereFillingBegins();
    void countsLeaveFewSizes();
    void breaksAreCountedFromTheEnd_data();
    void breaksAreCountedFromTheEnd();
    void levelsNeedAScanOfTheirOwn();
};

void TestSalvageScans::comesBackWhole_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("healthy");
    QTest::addColumn<int>("step");
    const auto row = [](const char *name, const QByteArray &file, Step step, int sampling = 420) {
        QTest::newRow(name) << file << jpeg(kSize, progressive(sampling)) << int(step);
    };
    for (const int sampling : {420, 422, 444})
        row(qPrintable(QStringLiteral("no frame, %1").arg(sampling)), damaged(sampling).remove(upTo(SOF2), 19),
            Step::SizeFound, sampling);
    row("height 0", damaged().zero(at(SOF2) + 3, 2), Step::SizeFound);
    row("width spoilt", damaged().put(at(SOF2) + 5, word(777)), Step::SizeFound);
    row("sampling spoilt", damaged().put(at(SOF2) + 9, "\x11"), Step::FrameMended);
    row("first scan's header lost", damaged().remove(upTo(SOS), 14), Step::ScanFound);
    row("first scan's ids and spectral selection hit", damaged().put(at(SOS) + 3, "\x77").put(at(SOS) + 9, "\x31\x02"),
        Step::ScanFound);
    row("FF of a DHT and of the scan header lost",
        damaged().remove(upTo(SOS), 1).remove(upTo(DHT, 1), 1).remove(upTo(DQT, 1), 1), Step::ScanFound);
    row("zeros behind FF lost", withoutZeros(1, 6), Step::CodesMended);
    row("zeros behind FF hit", withoutZeros(4, 3, 0xC1), Step::CodesMended);
}

void TestSalvageScans::comesBackWhole()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, healthy);
    QFETCH(int, step);
    Budget budget;
    QVERIFY2(!readAsItStands(view(file), annexKOnly(), budget).clean(), "the damage does nothing");
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(QSize(found->width, found->height), kSize);
    QCOMPARE(largestDifference(shown(found->file), shown(healthy)), 0);
    QVERIFY(found->perfect);
    QVERIFY(std::find(found->steps.begin(), found->steps.end(), Step(step)) != found->steps.end());
}

void TestSalvageScans::sizeEndsWhereFillingBegins_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<JpegOptions>("options");
    for (const QSize &size : {QSize(321, 243), QSize(330, 245), QSize(324, 238), QSize(320, 240)}) {
        const auto name = [&](const char *kind) {
            return QStringLiteral("%1 x %2, %3").arg(size.width()).arg(size.height()).arg(kind).toLatin1();
        };
        QTest::newRow(name("progressive")) << size << progressive();
        QTest::newRow(name("sequential")) << size << JpegOptions{.quality = 88, .optimised = true, .sampling = 444};
    }
}

void TestSalvageScans::sizeEndsWhereFillingBegins()
{
    QFETCH(QSize, size);
    QFETCH(JpegOptions, options);
    const QByteArray file = Damage(makeJpeg(waves(size), options)).remove(upTo(options.progressive ? SOF2 : SOF0), 19);
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(QSize(found->width, found->height), size);
    QCOMPARE(int(found->certainty), int(Certainty::Guess));
}

void TestSalvageScans::countsLeaveFewSizes()
{
    // 41 x 31 blocks of luminance in 21 x 16 MCUs: the shape with one block of padding on both sides.
    const QByteArray file = jpeg(QSize(327, 246));
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(view(file), dataAt);
    QVERIFY(header);
    const ByteView data = view(file).subspan(dataAt);
    Budget budget;
    const std::optional<ScanCounts> counts = countScans(splitScans(*header, data), data, budget);
    QVERIFY(counts);
    QCOMPARE(counts->mcus, 21U * 16);
    QVERIFY(counts->blocks == (std::vector<quint32>{41 * 31, 21 * 16, 21 * 16}));
    QVERIFY(hasCounts(*header, *counts, {327, 246}));
    QVERIFY(!hasCounts(*header, *counts, {329, 246}));
    SizeUnit unit;
    const std::vector<PictureSize> sizes = sizesOf(*header, *counts, unit);
    QCOMPARE(unit.width, 8);
    QVERIFY(sizes == (std::vector<PictureSize>{{31 * 8, 41 * 8}, {41 * 8, 31 * 8}}));

    Header other = *header;
    other.components[0].h = 1;
    QVERIFY(!countScans(splitScans(other, data), data, budget));
}

void TestSalvageScans::breaksAreCountedFromTheEnd_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray file = jpeg();
    const auto middle = [&](int scan) { return (offsetOf(file, SOS, scan) + offsetOf(file, SOS, scan + 1)) / 2; };
    QTest::newRow("bytes lost in coefficients") << QByteArray(file).remove(middle(1), 20);
    QTest::newRow("junk put into coefficients") << QByteArray(file).insert(middle(1), filler(40));
}

void TestSalvageScans::breaksAreCountedFromTheEnd()
{
    QFETCH(QByteArray, file);
    const QImage truth = shown(jpeg());
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QVERIFY(found->realigned);
    QCOMPARE(int(found->certainty), int(Certainty::Guess));
    const double before = meanDifference(shown(file), truth);
    const double after = meanDifference(shown(found->file), truth);
    QVERIFY2(after < 4 && after < 0.7 * before, qPrintable(QStringLiteral("%1, then %2").arg(before).arg(after)));
}

void TestSalvageScans::levelsNeedAScanOfTheirOwn()
{
    // Without the first scan one that refines the levels is left, which gives no picture.
    const QByteArray healthy = jpeg();
    const int first = offsetOf(healthy, SOS, 0);
    const QByteArray file = QByteArray(healthy).remove(first, offsetOf(healthy, DHT, 2) - first);
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(view(file), dataAt);
    QVERIFY(header);
    Budget budget;
    const ScansReading reading = readScans(*header, view(file).subspan(dataAt), budget);
    QCOMPARE(reading.errors, 0U);
    QVERIFY(!reading.complete);
}

QTEST_GUILESS_MAIN(TestSalvageScans)
#include "tst_salvage_scans.moc"
