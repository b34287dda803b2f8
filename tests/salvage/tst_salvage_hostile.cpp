// Files that are made to cost much: some passes over the bytes have to do, and memory goes by what the data hold.

#include "Apart.h"

#include "salvage/Salvage.h"
#include "salvage/entropy/PictureReader.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

#include <sys/resource.h>

using namespace salvage;
using namespace words;

namespace {

const QByteArray kScanHeader("\xFF\xDA\0\x0C\x03\x01\0\x02\x11\x03\x11\0\x3F\0", 14);

/// How often a salvage asks whether to stop: each of its loops does so in proportion to its work.
int asked(const QByteArray &file)
{
    constexpr int kAnHour = 3'600'000;
    int times = 0;
    Budget budget(
        [&times] {
            ++times;
            return false;
        },
        kAnHour);
    salvage::salvage(view(file), annexKOnly(), budget);
    return times;
}

/// Megabytes that the process has held at once so far.
double peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024;
}

QByteArray claiming(const JpegOptions &options, int width, int height)
{
    Damage damage(makeJpeg(drawPicture(64, 48), options));
    return damage.put(at(options.progressive ? SOF2 : SOF0) + 3, word(height) + word(width));
}

} // namespace

class TestSalvageHostile : public QObject
{
    Q_OBJECT

private slots:
    void claimedSizesTakeNoMemory_data(); // first: the peak is the process's
    void claimedSizesTakeNoMemory();
    void fewPassesAreEnough_data();
    void fewPassesAreEnough();
};

void TestSalvageHostile::claimedSizesTakeNoMemory_data()
{
    QTest::addColumn<QByteArray>("file");
    const JpegOptions restarts{.restartMcus = 2};
    QTest::newRow("baseline") << claiming({}, 65'500, 65'500);
    QTest::newRow("restart intervals") << claiming(restarts, 65'500, 65'500);
    QTest::newRow("progressive") << claiming({.progressive = true}, 65'500, 65'500);
    QTest::newRow("one line") << claiming({}, 65'500, 1);
}

void TestSalvageHostile::claimedSizesTakeNoMemory()
{
    constexpr double kMost = 150; // MB; the coefficients of such a size are 12 GB and more
    QFETCH(QByteArray, file);
    const double before = peakMemory();
    Budget budget;
    readAsItStands(view(file), annexKOnly(), budget);
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    if (found) {
        const QByteArray healthy = makeJpeg(drawPicture(64, 48));
        worthShowing(*found, view(healthy), view(file), annexKOnly(), budget);
        worthShowing(*found, view(file), view(file), annexKOnly(), budget);
    }
    QVERIFY2(peakMemory() - before < kMost, qPrintable(QString::number(peakMemory() - before)));
}

void TestSalvageHostile::fewPassesAreEnough_data()
{
    QTest::addColumn<QByteArray>("front");
    QTest::addColumn<QByteArray>("repeated");
    const auto row = [](const char *name, const QByteArray &front, const QByteArray &repeated) {
        QTest::newRow(name) << front << repeated;
    };
    row("SOS markers", {}, word(SOS));
    row("ends of pictures behind a scan header", kScanHeader, word(EOI));
    row("FF alone", {}, "\xFF");
    row("zeros", {}, QByteArray(1, '\0'));
    row("scans", {}, kScanHeader + QByteArray(30, 'Z'));
    row("scan headers without markers", {}, kScanHeader.mid(2) + QByteArray(16, '\xFF'));
    row("scans in a row of comments", {}, kScanHeader + QByteArray(30, 'Z') + segment(COM, {}).repeated(20));
    row("DHT heads", {}, word(DHT) + word(1024));
    row("DQT heads", {}, word(DQT) + word(67) + QByteArray(1, '\0'));
    row("comments", word(SOI), segment(COM, {}));
    row("APP1 with a name", {}, word(APP1) + word(260) + "Exif");
    row("TIFF heads", {}, QByteArray("II*\0", 4));
    row("gaps", {}, word(SOI) + QByteArray("\x43\0\x10\x0B", 4).repeated(100));
}

void TestSalvageHostile::fewPassesAreEnough()
{
    constexpr int kBytes = 1'200'000;
    constexpr int kTurns = 4096; // between two questions
    constexpr int kPasses = 15;
    QFETCH(QByteArray, front);
    QFETCH(QByteArray, repeated);
    const int times = asked(front + repeated.repeated(kBytes / repeated.size()));
    QVERIFY2(times < kPasses * kBytes / kTurns, qPrintable(QString::number(double(times) * kTurns / kBytes)));
}

QTEST_GUILESS_MAIN(TestSalvageHostile)
#include "tst_salvage_hostile.moc"
