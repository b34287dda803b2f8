// The shipped samples give what their README promises.

#include "engine/OutputRows.h"
#include "support/Damage.h"
#include "support/Pictures.h"
#include "support/RunFolder.h"

#include <QImage>
#include <QTest>

namespace {

QImage decoded(const QByteArray &jpeg)
{
    return QImage::fromData(jpeg, "JPG").convertToFormat(QImage::Format_RGB32);
}

QImage healthyPicture(int variant, const JpegOptions &options = {.quality = 90}, int width = 320, int height = 240)
{
    return decoded(makeJpeg(drawPicture(width, height, variant), options));
}

QImage healthyStreamPicture(int variant)
{
    return healthyPicture(variant, {.quality = 90, .oneDqt = true}, 160, 120);
}

} // namespace

class TestSamples : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(prepareWorkingRoot(), QString());
        QVERIFY(beginRun());
    }
    void comesOutWhole_data();
    void comesOutWhole();
    void comesOutInPart_data();
    void comesOutInPart();

private:
    OutputRows repaired(const QString &sample) const
    {
        return makeRows(repairOneFile(QStringLiteral(KESMIRA_SOURCE_DIR "/samples/") + sample));
    }
    RunFolder m_folder;
};

void TestSamples::comesOutWhole_data()
{
    QTest::addColumn<QString>("output"); // name of the row
    QTest::addColumn<QImage>("healthy");
    const auto row = [](const char *sample, const char *output, const QImage &healthy) {
        QTest::newRow(sample) << QString::fromLatin1(output) << healthy;
    };
    row("damaged-dht-symbols.jpg", "damaged-dht-symbols.jpg", healthyPicture(0));
    row("damaged-dqt-tail.jpg", "damaged-dqt-tail.jpg", healthyPicture(1, {.quality = 90, .oneDqt = true}));
    row("damaged-three-tables.jpg", "damaged-three-tables.jpg",
        healthyPicture(2, {.quality = 88, .quantTables = 3, .oneDqt = true, .oneDht = true}));
    row("grey-damaged-dht.jpg", "grey-damaged-dht.jpg",
        decoded(makeJpeg(drawGreyPicture(320, 240, 11), {.quality = 90, .oneDht = true})));
    row("junk-in-front.jpg", "junk-in-front.jpg", healthyPicture(13));
    row("lost-head-tables-left.jpg", "lost-head-tables-left.jpg", healthyPicture(4));
    row("lost-head-up-to-dqt.jpg", "lost-head-up-to-dqt.jpg", healthyPicture(5));
    row("progressive-damaged-dqt.jpg", "progressive-damaged-dqt.jpg",
        healthyPicture(10, {.quality = 90, .progressive = true}));
    row("thumbnail-broken-main.jpg", "thumbnail-broken-main_[T1].jpg",
        healthyPicture(6, {.quality = 75, .oneDqt = true}, 80, 60));
    row("trailing-bytes.jpg", "trailing-bytes.jpg", healthyPicture(14));
    row("three-in-a-row.jpg", "three-in-a-row.jpg", healthyStreamPicture(7));
    QTest::newRow("three-in-a-row.jpg: second") << "three-in-a-row_[T1].jpg" << healthyStreamPicture(8);
    QTest::newRow("three-in-a-row.jpg: second again") << "three-in-a-row_[T2].jpg" << healthyStreamPicture(8);
    QTest::newRow("three-in-a-row.jpg: third") << "three-in-a-row_[T3].jpg" << healthyStreamPicture(9);
}

void TestSamples::comesOutWhole()
{
    QFETCH(QString, output);
    QFETCH(QImage, healthy);
    const QString sample = QString::fromLatin1(QTest::currentDataTag()).section(QLatin1Char(':'), 0, 0);
    const OutputRows rows = repaired(sample);
    for (const OutputRow &row : rows.rows) {
        if (row.name != output) continue;
        QCOMPARE(row.resolution, QStringLiteral("%1x%2").arg(healthy.height()).arg(healthy.width()));
        QCOMPARE(largestDifference(decoded(RunFolder::bytesOf(row.path)), healthy), 0);
        return;
    }
    QFAIL("the output has no row");
}

void TestSamples::comesOutInPart_data()
{
    QTest::addColumn<QImage>("healthy");
    QTest::addColumn<int>("wholeLines"); // from the top
    QTest::newRow("illegal-codes-in-scan.jpg") << healthyPicture(3, {.quality = 90, .restartMcus = 20}) << 16;
    QTest::newRow("lost-tail.jpg") << healthyPicture(12) << 120;
}

void TestSamples::comesOutInPart()
{
    QFETCH(QImage, healthy);
    QFETCH(int, wholeLines);
    const OutputRows rows = repaired(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(rows.rows.size(), 1);
    const QImage made = decoded(RunFolder::bytesOf(rows.rows.first().path));
    const QRect whole(0, 0, healthy.width(), wholeLines);
    QCOMPARE(made.size(), healthy.size());
    QCOMPARE(largestDifference(made.copy(whole), healthy.copy(whole)), 0);
    QVERIFY(largestDifference(made, healthy) > 0); // what is lost can't be there
}

QTEST_GUILESS_MAIN(TestSamples)
#include "tst_samples.moc"
