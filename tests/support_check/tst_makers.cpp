// Checks the makers: made pictures are what they claim to be, damage hits what it names, scripts and sources are strict.

#include "save/ConflictPrompt.h"
#include "support/ByteSource.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QSet>
#include <QtTest>

using namespace words;

Q_DECLARE_METATYPE(JpegOptions)

namespace {

const char *markerName(int marker)
{
    switch (marker) {
    case SOI: return "SOI";
    case EOI: return "EOI";
    case DQT: return "DQT";
    case DHT: return "DHT";
    case SOF0: return "SOF0";
    case SOF2: return "SOF2";
    case SOS: return "SOS";
    case DRI: return "DRI";
    case APP0: return "APP0";
    case APP1: return "APP1";
    case COM: return "COM";
    default: return "?";
    }
}

QString structure(const QByteArray &jpeg)
{
    QStringList parts;
    for (const SegmentPlace &place : segmentPlaces(jpeg)) {
        parts << markerName(place.marker);
        if (place.length) parts.last() += QString::number(place.length);
    }
    return parts.join(' ');
}

} // namespace

class TestMakers : public QObject
{
    Q_OBJECT

private slots:
    void madePicturesDecode_data();
    void madePicturesDecode();
    void tablesAreInTheLibrary_data();
    void tablesAreInTheLibrary();
    void exifPointsToItsThumbnail();
    void damageHitsItsPlace();
    void damagedFilesHaveNamesOfTheirOwn();
    void sourceRefuses();
};

void TestMakers::madePicturesDecode_data()
{
    QTest::addColumn<JpegOptions>("options");
    QTest::addColumn<bool>("grey");
    QTest::addColumn<QString>("segments");

    JpegOptions o;
    QTest::newRow("plain") << o << false << "SOI APP016 DQT67 DQT67 SOF017 DHT31 DHT181 DHT31 DHT181 SOS12 EOI";
    QTest::newRow("grey") << o << true << "SOI APP016 DQT67 SOF011 DHT31 DHT181 SOS8 EOI";
    o.sampling = 444;
    o.quantTables = 3;
    QTest::newRow("three tables") << o << false
                                  << "SOI APP016 DQT67 DQT67 DQT67 SOF017 DHT31 DHT181 DHT31 DHT181 SOS12 EOI";
    o.oneDqt = o.oneDht = true;
    QTest::newRow("three together") << o << false << "SOI APP016 DQT197 SOF017 DHT418 SOS12 EOI";
    QTest::newRow("grey together") << o << true << "SOI APP016 DQT67 SOF011 DHT210 SOS8 EOI";
    o = {};
    o.oneDqt = true;
    o.restartMcus = 3;
    o.jfif = false;
    o.segments = {exifSegment("thumbnail"), commentSegment("words")};
    QTest::newRow("camera") << o << false << "SOI APP193 COM7 DQT132 SOF017 DRI4 DHT31 DHT181 DHT31 DHT181 SOS12 EOI";
    o = {};
    o.progressive = true;
    o.trailing = filler(20);
    QTest::newRow("progressive") << o << false << "SOI APP016 DQT67 DQT67 SOF217";
}

void TestMakers::madePicturesDecode()
{
    QFETCH(JpegOptions, options);
    QFETCH(bool, grey);
    QFETCH(QString, segments);
    const QImage drawn = grey ? drawGreyPicture(100, 75) : drawPicture(100, 75);
    const QByteArray made = makeJpeg(drawn, options);

    const QString actual = structure(made);
    QVERIFY2(options.progressive ? actual.startsWith(segments) : actual == segments, qPrintable(actual));
    QCOMPARE(actual.count("SOS") > 1, options.progressive);
    QVERIFY(made.endsWith(word(EOI) + options.trailing));
    const QImage decoded = QImage::fromData(made, "JPG");
    QCOMPARE(decoded.size(), drawn.size());
    QCOMPARE(decoded.isGrayscale(), grey);
    QVERIFY2(meanDifference(decoded, drawn) < 5, qPrintable(QString::number(meanDifference(decoded, drawn))));
    QVERIFY(meanDifference(decoded, drawPicture(100, 75, 1)) > 20);
    QCOMPARE(makeJpeg(drawn, options), made);
}

void TestMakers::tablesAreInTheLibrary_data()
{
    QTest::addColumn<int>("quality");
    for (int quality : {58, 60, 75, 80, 85, 88, 90, 98}) QTest::addRow("quality %d", quality) << quality;
}

void TestMakers::tablesAreInTheLibrary()
{
    QFETCH(int, quality);
    QFile file(KESMIRA_SOURCE_DIR "/src/tables/data/quantization.txt");
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray library = file.readAll();
    for (int tables : {2, 3}) {
        const QByteArray jpeg = healthyJpeg({.quality = quality, .quantTables = tables, .oneDqt = true, .jfif = false});
        const QByteArray segment = jpeg.mid(2, 4 + 65 * tables);
        QVERIFY(segment.startsWith(word(DQT)));
        QVERIFY2(library.contains(' ' + segment.toHex() + '\n'), segment.toHex());
    }
}

void TestMakers::exifPointsToItsThumbnail()
{
    const QByteArray thumbnail = nestedImage(APP0, 16, 33);
    const QByteArray tiff = exifSegment(thumbnail).mid(2 + 2 + 6);
    const auto number = [&tiff](int at, int count) { return tiff.mid(at, count).toHex().toInt(nullptr, 16); };
    QCOMPARE(tiff.left(4), QByteArray("MM\0*", 4));
    const int first = number(4, 4);
    const int second = number(first + 2 + 12 * number(first, 2), 4);
    int start = 0;
    int length = 0;
    for (int i = 0; i < number(second, 2); ++i) {
        const int entry = second + 2 + 12 * i;
        if (number(entry, 2) == 0x0201) start = number(entry + 8, 4);
        if (number(entry, 2) == 0x0202) length = number(entry + 8, 4);
    }
    QCOMPARE(tiff.mid(start, length), thumbnail);
    QCOMPARE(tiff.size(), start + length);
}

void TestMakers::damageHitsItsPlace()
{
    // DQT at 20 and 89, SOF0 at 158, DHT at 177, data from 224, 266 bytes.
    const QByteArray mini = miniJpeg();
    const Damage fresh(mini);
    QCOMPARE(fresh.offsetOf(at(DQT, 1)), 91);
    QCOMPARE(fresh.offsetOf(upTo(SOF0) + 3), 161);
    QCOMPARE(fresh.offsetOf(inScan(5)), 229);
    QCOMPARE(fresh.offsetOf(fromEnd(2)), 264);

    QCOMPARE(Damage(mini).zero(at(DHT), 2).bytes(), mini.left(179) + QByteArray(2, '\0') + mini.mid(181));
    QCOMPARE(Damage(mini).put(inScan(3), "\xFF\x00\x07").bytes(), mini.left(227) + bytes({0xFF, 0, 7}) + mini.mid(230));
    QCOMPARE(Damage(mini).cutAt(at(DQT, 1) + 10).bytes(), mini.left(101));
    QCOMPARE(Damage(mini).dropHead(upTo(DQT)).zero(at(SOF0), 1).bytes(), mini.mid(20, 140) + '\0' + mini.mid(161));
    QCOMPARE(Damage(mini).junkInFront(9).remove(upTo(DHT), 33).bytes(), junk(9) + mini.left(177) + mini.mid(210));
    QCOMPARE(Damage(mini).insert(at(DQT), "ab").append("c").offsetOf(at(SOF0)), 162);
    QVERIFY(!junk(3000).contains(char(0xFF)));
}

void TestMakers::damagedFilesHaveNamesOfTheirOwn()
{
    QSet<QString> names;
    for (const Damaged &file : damagedJpegs()) {
        QVERIFY2(!names.contains(file.name), file.name);
        names << file.name;
    }
    QVERIFY(names.size() >= 40);
}

void TestMakers::sourceRefuses()
{
    RefusingSource source(filler(20), {{5, 7}});
    char to[4];
    QVERIFY(source.read(1, to, 4));
    QCOMPARE(QByteArray(to, 4), bytes({2, 3, 4, 5}));
    QVERIFY(!source.read(4, to, 2));
    QVERIFY(!source.read(6, to, 4));
    QVERIFY(source.read(7, to, 1));
    QCOMPARE(source.refusals(), 2);
}

QTEST_GUILESS_MAIN(TestMakers)
#include "tst_makers.moc"
