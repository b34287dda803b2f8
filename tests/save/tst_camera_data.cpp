// The camera's data in saved copies: what stands sound comes back, what doesn't stays out, and no pixel changes.

#include "save/CameraData.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"

#include <QColorSpace>
#include <QTest>
#include <QtEndian>

namespace {

QByteArray big(quint32 value, int bytes)
{
    QByteArray all(4, '\0');
    qToBigEndian(value, all.data());
    return all.right(bytes);
}

QByteArray segment(quint8 code, const QByteArray &body)
{
    return QByteArray("\xFF", 1) + char(code) + big(quint32(body.size() + 2), 2) + body;
}

struct Field
{
    quint16 tag, type;
    quint32 count;
    QByteArray value; ///< 4 bytes or fewer stand in the field itself
};

/// A list of entries at `offset`, its longer values behind it, and no next one.
QByteArray list(quint32 offset, const QVector<Field> &fields)
{
    QByteArray entries = big(quint32(fields.size()), 2);
    QByteArray values;
    const quint32 behind = offset + 2 + 12 * quint32(fields.size()) + 4;
    for (const Field &field : fields) {
        entries += big(field.tag, 2) + big(field.type, 2) + big(field.count, 4);
        entries +=
            field.value.size() > 4 ? big(behind + quint32(values.size()), 4) : field.value.leftJustified(4, '\0');
        if (field.value.size() > 4) values += field.value;
    }
    return entries + big(0, 4) + values;
}

const QByteArray kMake("Camera co", 10);
const QByteArray kDate("2021:07:04 12:30:59", 20);

/// Make, orientation, and a list of its own with the date and the picture's size. Offsets are worked out by hand.
QByteArray exif(const QByteArray &date = kDate, quint32 width = 48, quint32 orientation = 6)
{
    constexpr quint32 kInner = 8 + 2 + 3 * 12 + 4 + 10;
    const QByteArray outer =
        list(8, {{0x010F, 2, 10, kMake}, {0x0112, 3, 1, big(orientation, 2)}, {0x8769, 4, 1, big(kInner, 4)}});
    const QByteArray inner =
        list(kInner, {{0x9003, 2, 20, date}, {0xA002, 4, 1, big(width, 4)}, {0xA003, 4, 1, big(32, 4)}});
    return segment(0xE1, QByteArray("Exif\0\0MM\0\x2A\0\0\0\x08", 14) + outer + inner);
}

QVector<QByteArray> profile(int parts)
{
    const QByteArray bytes = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    QVector<QByteArray> all;
    const int step = (bytes.size() + parts - 1) / parts;
    for (int i = 0; i < parts; ++i)
        all << segment(0xE2, QByteArray("ICC_PROFILE\0", 12) + char(i + 1) + char(parts) + bytes.mid(i * step, step));
    return all;
}

QByteArray source(const std::vector<QByteArray> &segments, int width = 48)
{
    return makeJpeg(drawPicture(width, 32), {.jfif = false, .segments = segments});
}

} // namespace

class TestCameraData : public QObject
{
    Q_OBJECT

private slots:
    void comesBack_data();
    void comesBack();
    void losesWhatDoesNotStand();
};

void TestCameraData::comesBack_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("own"); // what the output holds already
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const QByteArray &bytes, const QByteArray &expected,
                        const QByteArray &own = {}) { QTest::newRow(name) << bytes << own << expected; };
    const QVector<QByteArray> one = profile(1), two = profile(2);
    const QByteArray block = exif();
    row("Exif and a profile in two parts", source({block, two[0], two[1]}), block + two[0] + two[1]);
    row("parts in another order", source({two[1], two[0]}), two[0] + two[1]);
    row("a part is missing", source({block, two[0]}), block);
    row("the profile is cut", source({segment(0xE2, one[0].mid(4, 300))}), {});
    QByteArray grey = one[0];
    row("a profile for grey pictures", source({grey.replace("RGB ", "GRAY")}), {});
    row("the output has Exif", source({block, one[0]}), one[0], exif("                   ", 48, 1));
    row("the output has a profile", source({block, one[0]}), block, one[0]);
    row("another picture's", source({exif(kDate, 64), one[0]}, 64), {});
    const int tables = source({block}).indexOf("\xFF\xDB");
    row("tables lost, of this size", source({block}).left(tables + 2) + QByteArray(9000, '\0'), block);
    row("tables lost, of another size", source({exif(kDate, 64)}).left(tables + 2) + QByteArray(9000, '\0'), {});
    row("the front is lost", QByteArray(2, '\0') + source({block, one[0]}).mid(2), block + one[0]);
    row("a length leads out of the file", source({block}).left(60), {});
}

void TestCameraData::comesBack()
{
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, own);
    QFETCH(QByteArray, expected);
    const QByteArray output = makeJpeg(drawPicture(48, 32), {.segments = {own}});
    const InsertedBytes data = cameraDataFor(output, source);
    QCOMPARE(data.bytes, expected);
    if (expected.isEmpty()) return;
    QCOMPARE(data.at, qint64(20)); // behind SOI and the 18 bytes of APP0
    const QByteArray copy = output.left(20) + data.bytes + output.mid(20);
    QCOMPARE(largestDifference(QImage::fromData(copy, "JPG"), QImage::fromData(output, "JPG")), 0);
}

/// Each damage is the value to write at an offset of the TIFF block; the tags that must be left are those of exif().
void TestCameraData::losesWhatDoesNotStand()
{
    const struct
    {
        const char *what;
        int at;
        QByteArray bytes;
        QByteArray left; // tags, in their order; "" for no block
    } damages[] = {
        {"value out of bounds", 10 + 8, big(0xFFFF, 4), "\x01\x12\x87\x69\x90\x03\xA0\x02\xA0\x03"},
        {"value over its own list", 10 + 8, big(12, 4), "\x01\x12\x87\x69\x90\x03\xA0\x02\xA0\x03"},
        {"unknown type", 10 + 2, big(99, 2), "\x01\x12\x87\x69\x90\x03\xA0\x02\xA0\x03"},
        {"no orientation", 22 + 8, big(9, 2), "\x01\x0F\x87\x69\x90\x03\xA0\x02\xA0\x03"},
        {"inner list out of bounds", 34 + 8, big(0xFFFF, 4), "\x01\x0F\x01\x12"},
        {"inner list in a ring", 34 + 8, big(8, 4), "\x01\x0F\x01\x12"},
        {"no date", 60 + 2 + 36 + 4 + 5, QByteArray(3, '\xC3'), "\x01\x0F\x01\x12\x87\x69\xA0\x02\xA0\x03"},
        {"no byte order", 0, "XX", ""},
        {"first list out of bounds", 4, big(0x10000, 4), ""},
    };
    const QByteArray output = makeJpeg(drawPicture(48, 32));
    for (const auto &damage : damages) {
        QByteArray block = exif();
        block.replace(10 + damage.at, damage.bytes.size(), damage.bytes);
        const QByteArray saved = cameraDataFor(output, source({block})).bytes;
        QByteArray tags;
        for (int listAt : {10 + 8, 10 + 60}) {
            const int count = saved.isEmpty() ? 0 : quint8(saved[listAt + 1]);
            for (int i = 0; i < count && (listAt == 18 || tags.contains("\x87\x69")); ++i)
                tags += saved.mid(listAt + 2 + 12 * i, 2);
        }
        QVERIFY2(tags == damage.left, (QByteArray(damage.what) + ": " + tags.toHex(' ')).constData());
        QVERIFY2(saved.isEmpty() || saved.size() == block.size(), damage.what);
    }
}

QTEST_GUILESS_MAIN(TestCameraData)
#include "tst_camera_data.moc"
