// The reader of bits, the baseline decoder and encoder, and what is done to entropy data before they are read.

#include "Apart.h"

#include "salvage/entropy/BitReader.h"
#include "support/Damage.h"
#include "support/Grammar.h"
#include "support/Pictures.h"

#include <QTest>

using namespace salvage;

Q_DECLARE_METATYPE(JpegOptions)

namespace {

/// Large enough for MCUs in several rows and a size that ends inside one.
Apart picture(const JpegOptions &options, bool grey = false)
{
    return takeApart(makeJpeg(grey ? drawGreyPicture(100, 75) : drawPicture(100, 75), options));
}

Coefficients shaped(const Header &header, std::vector<qint16> values)
{
    Coefficients all(header);
    values.resize(all.values.size());
    all.values = std::move(values);
    return all;
}

/// A grey frame of some blocks with Annex K's tables. Their codes: DC 0 is 00, DC of 11 bits 1 1111 1110; AC end of block
/// 1010, sixteen zeros 111 1111 1001, one bit 00.
Header greyHeader(int blocks)
{
    Header header;
    header.width = quint16(8 * blocks);
    header.height = 8;
    header.components = {{1, 1, 1, 0}};
    header.scan = {{1, 0x00}};
    useStandardTables(header);
    return header;
}

} // namespace

class TestSalvageEntropy : public QObject
{
    Q_OBJECT

private slots:
    void bitsAreUnstuffed();
    void bitsHaveSigns();
    void everyCodeIsRead();
    void healthyPicturesAreRead_data();
    void healthyPicturesAreRead();
    void errorsAreNamed_data();
    void errorsAreNamed();
    void restartsAreFollowed();
    void readsOnBehindErrors_data();
    void readsOnBehindErrors();
    void readsOnAtRestarts();
    void whatIsWrittenIsReadAgain_data();
    void whatIsWrittenIsReadAgain();
    void extremesAreCut();
    void cleansCodes_data();
    void cleansCodes();
    void knowsRegularRestarts_data();
    void knowsRegularRestarts();
};

void TestSalvageEntropy::bitsAreUnstuffed()
{
    const QByteArray data = bytes({0xAB, 0xFF, 0x00, 0xCD, 0xFF, 0xD3, 0x12});
    BitReader reader(view(data));
    QCOMPARE(reader.position(), size_t(0));
    QCOMPARE(reader.take(8), 0xAB);
    QCOMPARE(reader.position(), size_t(1));
    QCOMPARE(reader.take(4), 0xF);
    QCOMPARE(reader.position(), size_t(3)); // the stuffed zero belongs to the byte that is taken in part
    QCOMPARE(reader.take(8), 0xFC);
    QCOMPARE(reader.left(), 4);
    QCOMPARE(reader.marker(), 0xD3);
    QCOMPARE(reader.take(4), 0xD);
    QVERIFY(!reader.overrun());
    QCOMPARE(reader.position(), size_t(4));
    QCOMPARE(reader.take(3), 0);
    QVERIFY(reader.overrun());
    reader.passMarker();
    QVERIFY(!reader.overrun());
    QCOMPARE(reader.peek16(), 0x1200U);
    QCOMPARE(reader.take(8), 0x12);
    QCOMPARE(reader.marker(), BitReader::kEnd);
    QCOMPARE(reader.position(), size_t(7));
}

void TestSalvageEntropy::bitsHaveSigns()
{
    for (int size = 1; size <= 15; ++size) {
        const int half = 1 << (size - 1);
        for (const int value : {-2 * half + 1, -half, half, 2 * half - 1}) {
            // Values below zero stand one lower, in the bits of the size (F.1.2.1).
            const int coded = value < 0 ? value + 2 * half - 1 : value;
            const QByteArray data = packBits(QByteArray::number(coded, 2).rightJustified(size, '0'));
            QCOMPARE(BitReader(view(data)).takeValue(size), value);
        }
    }
    QCOMPARE(BitReader(ByteView()).takeValue(0), 0);
}

void TestSalvageEntropy::everyCodeIsRead()
{
    const Apart own = picture({.optimised = true});
    std::map<HuffmanKey, HuffmanTable> tables = own.header.huffman;
    for (const HuffmanKey key : std::array<HuffmanKey, 4>{0x00, 0x10, 0x01, 0x11})
        tables[quint8(key | 2)] = KnownTables::standard(key);
    for (const auto &[key, table] : tables) {
        const HuffmanDecoder decoder(table);
        const std::vector<QByteArray> codes = codesOf(table);
        QByteArray text;
        for (const QByteArray &code : codes) text += code;
        const QByteArray data = packBits(text + QByteArray(16, '1'));
        BitReader reader(view(data));
        for (const quint8 symbol : table.symbols) QCOMPARE(decoder.next(reader), int(symbol));
        QCOMPARE(decoder.next(reader), -1); // all ones is nobody's code
        QCOMPARE(reader.take(16), 0xFFFF);  // and stays where it is
    }
    BitReader reader(ByteView{});
    QCOMPARE(HuffmanDecoder().next(reader), -1);
}

void TestSalvageEntropy::healthyPicturesAreRead_data()
{
    QTest::addColumn<JpegOptions>("options");
    QTest::addColumn<bool>("grey");
    QTest::newRow("4:2:0") << JpegOptions{} << false;
    QTest::newRow("4:2:2") << JpegOptions{.sampling = 422} << false;
    QTest::newRow("4:4:4, the finest") << JpegOptions{.quality = 100, .sampling = 444} << false;
    QTest::newRow("grey") << JpegOptions{} << true;
    QTest::newRow("own tables") << JpegOptions{.optimised = true} << false;
    QTest::newRow("restarts") << JpegOptions{.restartMcus = 3} << false;
}

void TestSalvageEntropy::healthyPicturesAreRead()
{
    QFETCH(JpegOptions, options);
    QFETCH(bool, grey);
    const Apart apart = picture(options, grey);
    Budget budget;
    std::vector<qint16> values;
    DecodeWish wish;
    wish.values = &values;
    const Fit fit = decode(apart.header, view(apart.data), budget, wish);
    const quint32 wide = options.sampling == 444 || grey ? 13 : 7; // MCUs of 100 x 75 pixels
    const quint32 high = options.sampling == 420 && !grey ? 5 : 10;
    QVERIFY(fit.perfect);
    QCOMPARE(fit.total, wide * high);
    QCOMPARE(fit.done, fit.total);
    QCOMPARE(int(fit.error), int(Fit::Error::None));
    QCOMPARE(fit.end, size_t(apart.data.size()));
    QCOMPARE(fit.share, 1.0);
    const quint32 interval = quint32(options.restartMcus);
    QCOMPARE(fit.restarts, interval ? (fit.total - 1) / interval : 0);
    QCOMPARE(fit.firstRestart, interval);
    QCOMPARE(difference(shaped(apart.header, values), apart), QString());
    QCOMPARE(budget.decodes(), 1);
}

void TestSalvageEntropy::errorsAreNamed_data()
{
    QTest::addColumn<QByteArray>("bits");
    QTest::addColumn<int>("error");
    QTest::addColumn<quint32>("done");                     // of three blocks
    const QByteArray sound = "00 1010 ";                   // a flat block
    const QByteArray most = "111111110 11111111111 1010 "; // 2047 higher
    const QByteArray zeros = "11111111001 ";
    const auto row = [](const char *name, const QByteArray &bits, Fit::Error error, quint32 done) {
        QTest::newRow(name) << bits << int(error) << done;
    };
    using E = Fit::Error;
    row("three flat blocks", sound + sound + sound, E::None, 3);
    row("no DC code", sound + QByteArray(32, '1'), E::NoCode, 1);
    row("no AC code", sound + sound + "00 " + QByteArray(32, '1'), E::NoCode, 2);
    row("sixty-four zeros", sound + "00 " + zeros + zeros + zeros + zeros + sound + sound, E::Overflow, 1);
    row("forty-eight zeros", sound + "00 " + zeros + zeros + zeros + "1010 " + sound, E::None, 3);
    row("level beyond the range", most + most + sound, E::BadDc, 1);
    row("a block in the last six bits", "00 00 1 1010  00 00 1 1010 " + sound, E::None, 3);
    row("a block short", sound + sound, E::DataEnded, 2);
    row("nothing", "", E::DataEnded, 0);
}

void TestSalvageEntropy::errorsAreNamed()
{
    QFETCH(QByteArray, bits);
    QFETCH(quint32, done);
    const QByteArray data = packBits(bits);
    Budget budget;
    std::vector<qint16> values;
    DecodeWish wish;
    wish.values = &values;
    const Fit fit = decode(greyHeader(3), view(data), budget, wish);
    QTEST(int(fit.error), "error");
    QCOMPARE(fit.done, done);
    QCOMPARE(fit.perfect, done == 3);
    QCOMPARE(values.size(), size_t(done) * 64);
}

void TestSalvageEntropy::restartsAreFollowed()
{
    Apart apart = picture({.restartMcus = 4});
    apart.header.restartInterval = 0;
    Budget budget;
    std::vector<qint16> values;
    DecodeWish wish;
    wish.followRestarts = true;
    wish.values = &values;
    wish.mcus = 1000; // more than there are: how many is to be found
    const Fit fit = decode(apart.header, view(apart.data), budget, wish);
    QCOMPARE(fit.done, 35U);
    QCOMPARE(fit.firstRestart, 4U);
    QCOMPARE(fit.restarts, 8U);
    QCOMPARE(fit.end, size_t(apart.data.size()));
    QVERIFY(!fit.perfect);
    QCOMPARE(difference(shaped(apart.header, values), apart), QString());
}

void TestSalvageEntropy::readsOnBehindErrors_data()
{
    QTest::addColumn<int>("at"); // of the entropy data, in percent; -1 for no damage
    QTest::newRow("healthy") << -1;
    QTest::newRow("early") << 10;
    QTest::newRow("in the middle") << 50;
}

void TestSalvageEntropy::readsOnBehindErrors()
{
    QFETCH(int, at);
    Apart apart = picture({.quality = 95}, true); // one component: blocks behind an error stay in step
    // Four bytes of ones hold a code that is nobody's, wherever the codes begin.
    if (at >= 0) apart.data.replace(apart.data.size() * at / 100, 8, QByteArray("\xFF\0\xFF\0\xFF\0\xFF\0", 8));
    Budget budget;
    std::vector<qint16> strict;
    DecodeWish wish;
    wish.values = &strict;
    const Fit fit = decode(apart.header, view(apart.data), budget, wish);
    std::vector<qint16> values;
    std::vector<bool> bad;
    const quint32 read = decodeTolerantly(apart.header, view(apart.data), 400, budget, values, bad);
    QCOMPARE(bad.size(), size_t(read));
    QCOMPARE(values.size(), size_t(read) * 64);
    const auto firstBad = std::find(bad.begin(), bad.end(), true) - bad.begin();
    QCOMPARE(quint32(firstBad), fit.done);
    QVERIFY(std::equal(strict.begin(), strict.end(), values.begin()));
    if (at < 0) {
        QCOMPARE(read, 130U); // of the 400 that were allowed
        QCOMPARE(difference(shaped(apart.header, values), apart), QString());
        return;
    }
    QVERIFY(fit.done < 130);
    // The codes are met again, so the last blocks are those of the picture but for their levels.
    const std::vector<qint16> whole = coefficientsOf(apart).values;
    constexpr int kLast = 20;
    QVERIFY(read > kLast);
    for (int block = 1; block <= kLast; ++block)
        QVERIFY(
            std::equal(values.end() - block * 64 + 1, values.end() - block * 64 + 64, whole.end() - block * 64 + 1));
    QVERIFY(std::find(bad.end() - kLast, bad.end(), true) == bad.end());
    QCOMPARE(decodeTolerantly(apart.header, view(apart.data), 5, budget, values, bad), 5U);
}

void TestSalvageEntropy::readsOnAtRestarts()
{
    Apart apart = picture({.restartMcus = 7}); // a row of MCUs
    const int first = apart.data.indexOf("\xFF\xD0");
    const int second = apart.data.indexOf("\xFF\xD1");
    QVERIFY(first > 0 && second > first + 20);
    apart.data.replace(first + 2, second - first - 2, QByteArray("\xFF\0", 2).repeated(8));
    Budget budget;
    std::vector<qint16> values;
    std::vector<bool> bad;
    QCOMPARE(decodeTolerantly(apart.header, view(apart.data), 35, budget, values, bad), 35U);
    const Coefficients whole = coefficientsOf(apart);
    constexpr size_t kMcu = 6 * 64;
    for (size_t mcu = 0; mcu < 35; ++mcu) {
        QCOMPARE(bool(bad[mcu]), mcu / 7 == 1);
        if (mcu / 7 == 1 || mcu % 7 == 6 || mcu / 7 == 4) continue; // at the edges blocks are padding
        QVERIFY(std::equal(values.begin() + qptrdiff(mcu * kMcu), values.begin() + qptrdiff((mcu + 1) * kMcu),
                           whole.values.begin() + qptrdiff(mcu * kMcu)));
    }
}

void TestSalvageEntropy::whatIsWrittenIsReadAgain_data()
{
    healthyPicturesAreRead_data();
}

void TestSalvageEntropy::whatIsWrittenIsReadAgain()
{
    QFETCH(JpegOptions, options);
    QFETCH(bool, grey);
    const Apart apart = picture(options, grey);
    Header header = apart.header;
    useStandardTables(header);
    const QByteArray data = encode(coefficientsOf(apart));
    const QByteArray file = header.bytes(false) + data + QByteArray("\xFF\xD9");
    QCOMPARE(difference(coefficientsOf(takeApart(file)), apart), QString());
    QCOMPARE(takeApart(file).header.restartInterval, quint16(0));
    QCOMPARE(shown(file), shown(apart.file));
}

void TestSalvageEntropy::extremesAreCut()
{
    const Header header = greyHeader(3);
    Coefficients made(header);
    made.mcu(0)[0] = 3000;
    made.mcu(1)[0] = -3000;
    made.mcu(1)[63] = -5000; // behind 62 zeros, and with no end of block
    made.mcu(2)[17] = 1023;
    std::vector<qint16> values;
    DecodeWish wish;
    wish.values = &values;
    Budget budget;
    const QByteArray data = encode(made);
    QVERIFY(decode(header, view(data), budget, wish).perfect);
    Coefficients expected(header);
    expected.mcu(0)[0] = 1023;
    expected.mcu(1)[0] = -1024;
    expected.mcu(1)[63] = -1023;
    expected.mcu(2)[17] = 1023;
    QVERIFY(values == expected.values);
}

void TestSalvageEntropy::cleansCodes_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("keep");
    QTest::addColumn<QByteArray>("clean");
    QTest::addColumn<int>("changed");
    const auto row = [](const char *name, const QByteArray &data, bool keep, const QByteArray &clean, int changed) {
        QTest::newRow(name) << data << keep << clean << changed;
    };
    row("stuffed", bytes({0x12, 0xFF, 0, 0x34}), false, bytes({0x12, 0xFF, 0, 0x34}), 0);
    row("a marker", bytes({0x12, 0xFF, 0xC4, 0x34}), true, bytes({0x12, 0xFE, 0xC4, 0x34}), 1);
    row("EOI inside", bytes({0xFF, 0xD9, 0xFF, 0x01}), true, bytes({0xFE, 0xD9, 0xFE, 0x01}), 2);
    row("restart, kept", bytes({0xFF, 0xD0, 0xFF, 0xD7}), true, bytes({0xFF, 0xD0, 0xFF, 0xD7}), 0);
    row("restart, none known", bytes({0xFF, 0xD0, 0xFF, 0xD7}), false, bytes({0xFE, 0xD0, 0xFE, 0xD7}), 2);
    row("FF before a stuffed one", bytes({0xFF, 0xFF, 0}), true, bytes({0xFE, 0xFF, 0}), 1);
    row("FF at the end", bytes({0x12, 0xFF}), true, bytes({0x12, 0xFE}), 1);
    row("nothing", {}, true, {}, 0);
}

void TestSalvageEntropy::cleansCodes()
{
    QFETCH(QByteArray, data);
    QFETCH(bool, keep);
    int changed = -1;
    QTEST(cleanScan(view(data), keep, changed), "clean");
    QTEST(changed, "changed");
}

void TestSalvageEntropy::knowsRegularRestarts_data()
{
    QTest::addColumn<QByteArray>("numbers"); // of the markers, in file order
    QTest::addColumn<bool>("regular");
    QTest::newRow("none") << QByteArray() << false;
    QTest::newRow("the first alone") << QByteArray("0") << true;
    QTest::newRow("another alone") << QByteArray("3") << false;
    QTest::newRow("in turn") << QByteArray("01234567012") << true;
    QTest::newRow("in turn but for one") << QByteArray("012345670x2345670123") << true;
    QTest::newRow("by chance") << QByteArray("41736205") << false;
}

void TestSalvageEntropy::knowsRegularRestarts()
{
    QFETCH(QByteArray, numbers);
    QByteArray data = bytes({0x11, 0xFF, 0x00, 0xD3, 0x22});
    for (const char number : numbers) {
        if (number == 'x') continue;
        data += bytes({0xFF, 0xD0 + number - '0'}) + filler(20);
    }
    QTEST(restartsAreRegular(view(data)), "regular");
}

QTEST_GUILESS_MAIN(TestSalvageEntropy)
#include "tst_salvage_entropy.moc"
