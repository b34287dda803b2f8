// Entropy data that were hit: restart markers, stuffed zeros, single bits; and files that a transfer took for text.

#include "Apart.h"

#include "salvage/Salvage.h"
#include "salvage/Transfer.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

using namespace salvage;

namespace {

const JpegOptions kRestarts = {.quality = 88, .restartMcus = 20};
const JpegOptions kPlain = {.quality = 92};

QByteArray jpeg(const JpegOptions &options)
{
    return makeJpeg(drawPicture(320, 240), options);
}

/// Offset of the `n`-th pair FF and `second` (its lower bits masked off by `mask`) in the entropy data.
int pairInScan(const QByteArray &file, quint8 second, quint8 mask, int n)
{
    int at = file.lastIndexOf("\xFF\xDA") + 14;
    for (; at + 1 < file.size(); ++at)
        if (quint8(file[at]) == 0xFF && (quint8(file[at + 1]) & mask) == second && n-- == 0) return at;
    qFatal("the scan has no such pair");
}

int marker(const QByteArray &file, int n)
{
    return pairInScan(file, 0xD0, 0xF8, n);
}

int stuffedZero(const QByteArray &file, int n)
{
    return pairInScan(file, 0, 0xFF, n) + 1;
}

/// With the first bit turned, from the middle of the data on, that a decoder can notice.
QByteArray withTurnedBit(const QByteArray &file)
{
    const int data = file.lastIndexOf("\xFF\xDA") + 14;
    for (int at = (data + file.size()) / 2; at < file.size() - 200; ++at) {
        QByteArray turned = file;
        turned[at] = char(quint8(turned[at]) ^ 0x10);
        if (turned.count('\xFF') != file.count('\xFF')) continue;
        Budget budget;
        const Reading reading = readAsItStands(view(turned), annexKOnly(), budget);
        if (reading.errors) return turned;
    }
    qFatal("a decoder notices no bit of the file");
}

} // namespace

class TestSalvageHits : public QObject
{
    Q_OBJECT

private slots:
    void hitsAreRepaired_data();
    void hitsAreRepaired();
    void twoHitsComeBackNearly();
    void textTransfersAreUndone_data();
    void textTransfersAreUndone();
};

void TestSalvageHits::hitsAreRepaired_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("healthy");
    QTest::addColumn<int>("step");
    const QByteArray restarts = jpeg(kRestarts);
    const QByteArray plain = jpeg(kPlain);
    const auto row = [&](const char *name, const QByteArray &file, const QByteArray &healthy, Step step) {
        QTest::newRow(name) << file << healthy << int(step);
    };
    const auto put = [](QByteArray file, int at, char byte) {
        file[at] = byte;
        return file;
    };
    const int third = marker(restarts, 3);
    row("FF of a restart marker", put(restarts, third, 'A'), restarts, Step::Resynchronised);
    row("number of a restart marker", put(restarts, third + 1, '\xD6'), restarts, Step::Resynchronised);
    row("a marker made a code", put(restarts, third + 1, '\x47'), restarts, Step::Resynchronised);
    row("three markers in a row",
        put(put(put(restarts, third, 'A'), marker(restarts, 4), 'B'), marker(restarts, 5), 'C'), restarts,
        Step::Resynchronised);
    row("a marker lost", QByteArray(restarts).remove(third, 2), restarts, Step::Resynchronised);
    row("two markers lost", QByteArray(restarts).remove(marker(restarts, 4), 2).remove(third, 2), restarts,
        Step::Resynchronised);
    row("a stuffed zero lost", QByteArray(plain).remove(stuffedZero(plain, 2), 1), plain, Step::HitsRepaired);
    row("one bit turned", withTurnedBit(plain), plain, Step::HitsRepaired);
    row("a stuffed zero hit", put(plain, stuffedZero(plain, 3), '\x47'), plain, Step::HitsRepaired);
}

void TestSalvageHits::hitsAreRepaired()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, healthy);
    QFETCH(int, step);
    Budget budget;
    QVERIFY2(!readAsItStands(view(file), annexKOnly(), budget).clean(), "the damage does nothing");
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(largestDifference(shown(found->file), shown(healthy)), 0);
    QVERIFY(std::find(found->steps.begin(), found->steps.end(), Step(step)) != found->steps.end());
    QCOMPARE(int(found->certainty), int(Certainty::Guess)); // it was chosen by its looks
}

/// Another change may explain an error as well, or moving what lies behind it looks better: a block may be off, no more.
void TestSalvageHits::twoHitsComeBackNearly()
{
    const QByteArray healthy = jpeg(kPlain);
    const int last = healthy.lastIndexOf(QByteArray("\xFF\0", 2)) + 1;
    const QByteArray file = QByteArray(healthy).remove(last, 1).remove(stuffedZero(healthy, 1), 1);
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    const double apart = meanDifference(shown(found->file), shown(healthy));
    QVERIFY2(apart < 1, qPrintable(QString::number(apart)));
}

void TestSalvageHits::textTransfersAreUndone_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("undone"); // null where the file stays
    const QByteArray picture = jpeg(kPlain);
    QTest::newRow("a picture") << QByteArray(picture).replace('\n', "\r\n") << picture;
    QTest::newRow("line ends that were there") << QByteArray("a\r\r\nb\r\n\r\nc\r\n") << QByteArray("a\r\nb\n\nc\n");
    QTest::newRow("a 0D of its own") << QByteArray("\r\r\n\rx\r\n\r\n\r\n\r") << QByteArray("\r\n\rx\n\n\n\r");
    QTest::newRow("a healthy picture") << picture << QByteArray();
    QTest::newRow("one bare 0A") << QByteArray("\r\n\r\n\r\n\r\n\n") << QByteArray();
    QTest::newRow("a 0A in front") << QByteArray("\n\r\n\r\n\r\n\r\n") << QByteArray();
    QTest::newRow("too few to tell") << QByteArray("\r\n\r\n\r\n") << QByteArray();
    QTest::newRow("nothing") << QByteArray("") << QByteArray();
}

void TestSalvageHits::textTransfersAreUndone()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, undone);
    const QByteArray before = file;
    QCOMPARE(undoTextTransfer(file), !undone.isNull());
    QCOMPARE(file, undone.isNull() ? before : undone);
}

QTEST_GUILESS_MAIN(TestSalvageHits)
#include "tst_salvage_hits.moc"
