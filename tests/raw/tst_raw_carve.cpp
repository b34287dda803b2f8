// The hopping carves against the slow ones, and the places where formats differ.

#include "app/StopFlag.h"
#include "engine/raw/RawFormats.h"
#include "support/ByteSource.h"
#include "support/Grammar.h"
#include "support/SteppingCarve.h"

#include <QTest>

namespace {

RawImages carved(const QByteArray &file, const QString &suffix, int blockSize = 16)
{
    ByteSource source(file);
    FileWindow window(source, blockSize);
    return carve(window, rawFormat(suffix)->carve);
}

Cr3Images carvedCr3(const QByteArray &file, int blockSize = 16)
{
    ByteSource source(file);
    FileWindow window(source, blockSize);
    quint32 position = 0;
    return findCr3Images(window, position);
}

/// A picture of 12 bytes.
QByteArray small(int marker = words::DQT)
{
    return word(words::SOI) + word(marker) + filler(6) + word(words::EOI);
}

/// Raises the stop flag when a block that holds the offset is read.
class StoppingSource : public ByteSource
{
public:
    StoppingSource(const QByteArray &bytes, quint64 offset) : ByteSource(bytes), m_offset(offset) {}
    bool read(quint64 offset, char *to, qint64 count) override
    {
        if (offset <= m_offset && m_offset < offset + quint64(count)) setFlag(pApp->bStopRepair, true);
        return ByteSource::read(offset, to, count);
    }

private:
    quint64 m_offset;
};

} // namespace

class TestRawCarve : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setFlag(pApp->bStopRepair, false); }
    void differences_data();
    void differences();
    void hoppingEqualsStepping();
    void startsThatAreNotStored();
    void stopInsideAPicture();
};

void TestRawCarve::differences_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("expected"); // "CR2,NRW: result", "*" for all others
    const QByteArray gap = filler(20);
    const auto row = [](const char *name, const QByteArray &file, const QStringList &expected) {
        QTest::newRow(name) << file << expected;
    };
    const QString none = "0+0 0+0";
    const QString two = "NRW,ARW,SR2,PEF: ";
    row("DQT behind SOI", gap + small() + gap, {"ERF: " + none, "MRW: 21+11 0+0", two + "20+12 0+0", "*: 20+12 0+0"});
    row("DHT", gap + small(words::DHT) + gap, {"ERF: " + none, "MRW: 21+11 0+0", "*: 20+12 0+0"});
    row("APP0", gap + small(words::APP0) + gap, {"CR2: 20+12 0+0", "*: " + none});
    row("SOS", gap + small(words::SOS) + gap, {"NRW: 20+12 0+0", "*: " + none});
    row("APP1", gap + small(words::APP1) + gap, {"*: " + none});
    row("EE D8", gap + bytes({0xEE}) + small().mid(1) + gap, {"ERF: 21+11 0+0", "MRW: 21+11 0+0", "*: " + none});
    row("D8 alone", gap + small().mid(1) + gap, {"MRW: 20+11 0+0", "*: " + none});
    for (const int behind : {0, 1, 3, 4, 5}) {
        const QString kept = "20+12 0+0";
        const QString open = "20+0 0+0";
        QStringList expected{"ERF: " + none, "MRW: 21+11 0+0"};
        expected << "CR2: " + (behind > 0 ? kept : open);
        expected << "NRW,ARW,SR2: " + (behind > 4 ? kept : none) << "NEF,CRW: " + (behind > 4 ? kept : open);
        row(qPrintable(QString("%1 bytes behind the end").arg(behind)), gap + small() + filler(behind),
            expected << "*: " + kept);
    }
    row("no end", gap + small().chopped(2) + gap, {"ERF: " + none, "MRW: 21+0 0+0", two + none, "*: 20+0 0+0"});
    // The first start ends the search, and the first end is its end, nested or not.
    row("a picture in a picture", gap + small().left(6) + small() + small().mid(6) + gap,
        {"ERF: " + none, "MRW: 21+17 0+0", "*: 20+18 0+0"});
    // The second length counts from the first start; one picture at 0 is as good as any other.
    row("two", small() + gap + small() + gap, {"ERF: " + none, "MRW: 1+11 0+0", two + "0+12 32+44", "*: 0+12 0+0"});
    row("two, apart from 0", gap + small() + gap + small() + gap,
        {"ERF: " + none, "MRW: 21+11 0+0", two + "20+12 52+44", "*: 20+12 0+0"});
    row("three", gap + (small() + gap).repeated(3),
        {"ERF: " + none, "MRW: 21+11 0+0", two + "20+12 84+76", "*: 20+12 0+0"});
    row("five", gap + (small() + gap).repeated(5),
        {"ERF: " + none, "MRW: 21+11 0+0", two + "20+12 84+76", "*: 20+12 0+0"});
    row("two, the second open", gap + small() + gap + small().chopped(2) + gap,
        {"ERF: " + none, "MRW: 21+11 0+0", two + "20+12 52+0", "*: 20+12 0+0"});
    row("empty", {}, {"*: " + none});
    row("one byte", bytes({0xFF}), {"*: " + none});
    row("a start and no more", small().left(3), {"*: " + none});
}

void TestRawCarve::differences()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, expected);
    for (const QString &suffix : carvedSuffixes()) {
        QString wanted;
        for (const QString &line : expected) {
            const QStringList suffixes = line.section(": ", 0, 0).split(',');
            if (wanted.isEmpty() && (suffixes.contains(suffix) || suffixes[0] == "*")) wanted = line.section(": ", 1);
        }
        QCOMPARE(suffix + ' ' + describe(carved(file, suffix)), suffix + ' ' + wanted);
        QCOMPARE(suffix + ' ' + describe(steppingCarve(file, suffix)), suffix + ' ' + wanted);
    }
}

void TestRawCarve::hoppingEqualsStepping()
{
    int pictures = 0;
    for (quint32 seed = 1; seed <= 60; ++seed) {
        QByteArray file = markerSoup(seed);
        if (seed % 3 == 0) file += (small(words::DQT + int(seed % 2)) + bytes({0xEE})).repeated(int(seed % 5));
        for (const int block : {1, 3, 16, 4096}) {
            for (const QString &suffix : carvedSuffixes()) {
                const RawImages expected = steppingCarve(file, suffix);
                QCOMPARE(describe(carved(file, suffix, block)), describe(expected));
                if (expected.first.length != 0) ++pictures;
            }
            QVERIFY(carvedCr3(file, block) == steppingCr3Carve(file));
        }
    }
    QVERIFY(pictures > 500);
}

void TestRawCarve::startsThatAreNotStored()
{
    // No picture can follow such a start, so only the search itself shows it.
    const auto storedWith = [](const char *suffix, int behind) {
        ByteSource source(filler(9) + small().left(4) + filler(behind));
        FileWindow window(source);
        CarveHit hit;
        return findCarveHit(window, rawFormat(suffix)->carve, 0, hit) && hit.startStored;
    };
    for (const char *always : {"ARW", "NEF", "SR2", "SRF", "TIFF", "CRW", "PEF", "ORF", "RAF", "RW2", "DNG"})
        QVERIFY2(storedWith(always, 0), always);
    QVERIFY(!storedWith("CR2", 0) && storedWith("CR2", 1));
    QVERIFY(!storedWith("NRW", 4) && storedWith("NRW", 5));
}

void TestRawCarve::stopInsideAPicture()
{
    // Some take a picture that they have begun to its end.
    const QByteArray file = filler(5000) + small().chopped(2) + filler(9000) + word(words::EOI) + filler(50);
    for (const QString &suffix : carvedSuffixes()) {
        const QByteArray bytes = suffix == "ERF" ? QByteArray(file).replace(5000, 1, "\xEE") : file;
        const auto lengthWithStopAt = [&](quint64 offset) {
            StoppingSource source(bytes, offset);
            FileWindow window(source, 4096);
            const RawImages images = carve(window, rawFormat(suffix)->carve);
            setFlag(pApp->bStopRepair, false);
            return images.first.length;
        };
        const bool goesOn = QString("CR2 ARW CRW DNG ERF MRW").split(' ').contains(suffix);
        QVERIFY2((lengthWithStopAt(10000) != 0) == goesOn, qPrintable(suffix));
        QVERIFY2(lengthWithStopAt(100) == 0, qPrintable(suffix)); // in front of the picture it ends every carve
    }
}

QTEST_GUILESS_MAIN(TestRawCarve)
#include "tst_raw_carve.moc"
