// The search for the header by which the data decode, for a size by their count, and for quantization tables.

#include "Apart.h"

#include "salvage/search/Search.h"
#include "salvage/tables/Quantization.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QPainter>
#include <QTest>

#include <cmath>

using namespace salvage;
using namespace words;

Q_DECLARE_METATYPE(JpegOptions)

namespace {

Apart picture(int width, int height, const JpegOptions &options, bool grey = false)
{
    return takeApart(makeJpeg(grey ? drawGreyPicture(width, height) : drawPicture(width, height), options));
}

/// A draft whose every field is that of the picture.
Draft draftOf(const Apart &apart)
{
    Draft draft;
    draft.header = apart.header;
    draft.header.quant.clear();
    draft.quant = apart.header.quant;
    draft.hasFrame = draft.frameFirm = true;
    for (const auto &[key, table] : apart.header.huffman) draft.options[key] = {{table, TableOrigin::AsFound}};
    return draft;
}

ScanData dataOf(const Apart &apart)
{
    return {apart.data, view(apart.data), apart.header.restartInterval > 0, 0};
}

constexpr quint8 kLuma = 0;
constexpr quint8 kChroma = 1;

/// What becomes of a picture's tables.
struct Spoilt
{
    std::vector<std::pair<size_t, int>> luma; ///< places, and the values that stand there instead
    std::vector<std::pair<size_t, int>> chroma;
    bool lumaLost = false;
    bool chromaLost = false;
};

std::vector<std::pair<size_t, int>> run(size_t from, size_t to, int value)
{
    std::vector<std::pair<size_t, int>> edits;
    for (size_t i = from; i < to; ++i) edits.emplace_back(i, value);
    return edits;
}

/// Values that have nothing to do with their neighbours.
std::vector<std::pair<size_t, int>> noise(size_t from, size_t to)
{
    const QByteArray values = junk(int(to));
    std::vector<std::pair<size_t, int>> edits;
    for (size_t i = from; i < to; ++i) edits.emplace_back(i, std::max(1, int(quint8(values[int(i)]))));
    return edits;
}

void edit(QuantTable &table, const std::vector<std::pair<size_t, int>> &edits)
{
    for (const auto &[place, value] : edits) table.at(place) = quint16(value);
}

} // namespace

Q_DECLARE_METATYPE(Spoilt)

class TestSalvageSearch : public QObject
{
    Q_OBJECT

private slots:
    void firstChoicesComeFirst();
    void scanDataAreCleaned();
    void sizesAreCounted_data();
    void sizesAreCounted();
    void quantizationIsFound_data();
    void quantizationIsFound();
    void lostScaleIsBoundByTheLevels_data();
    void lostScaleIsBoundByTheLevels();
    void setsThatAgreeAlikeAreToldByLooks();
    void unknownTablesAreKept();
    void damagedQuantizationIsTold_data();
    void damagedQuantizationIsTold();
};

void TestSalvageSearch::firstChoicesComeFirst()
{
    Draft draft;
    const auto option = [](int n) { return TableOption{{{quint8(n)}, {}}, TableOrigin::AsFound}; };
    for (const HuffmanKey key : std::array<HuffmanKey, 4>{0x00, 0x10, 0x01, 0x11})
        draft.options[key] = {option(1), option(2), option(3)};
    const std::vector<TableChoice> choices = tableChoices(draft);
    QCOMPARE(int(choices.size()), 48); // of 81
    for (const auto &[key, table] : choices[0]) QCOMPARE(int(table.counts[0]), 1);
    for (const TableChoice &choice : choices) QCOMPARE(int(choice.size()), 4);
    draft.options[0x01].resize(1);
    draft.options[0x11].resize(1);
    QCOMPARE(int(tableChoices(draft).size()), 9);
    QCOMPARE(int(tableChoices({}).size()), 1);
}

void TestSalvageSearch::scanDataAreCleaned()
{
    const QByteArray file = filler(10) + bytes({0xFF, 0xC0, 1, 0xFF, 0xD0, 2, 0xFF, 0xD1}) + filler(30);
    Scan scan;
    scan.start = 10;
    scan.end = 18;
    Draft draft;
    ScanData data = takeScanData(view(file), scan, draft);
    QCOMPARE(data.bytes, bytes({0xFE, 0xC0, 1, 0xFF, 0xD0, 2, 0xFF, 0xD1})); // the markers run in turn
    QVERIFY(data.hasRestarts);
    QCOMPARE(data.codesMended, 1);
    const QByteArray odd = bytes({0xFF, 0xD4, 1, 0xFF, 0xD0, 2, 0xFF, 0xD7});
    scan.start = 0;
    scan.end = 8;
    data = takeScanData(view(odd), scan, draft);
    QVERIFY(!data.hasRestarts);
    QCOMPARE(data.codesMended, 3);
    draft.header.restartInterval = 4;
    QCOMPARE(takeScanData(view(odd), scan, draft).bytes, odd);
    const QByteArray filled = bytes({1, 2, 0xFF, 0, 3, 0xFF, 0xFF}); // what filled in front of EOI is no code
    scan.end = 7;
    data = takeScanData(view(filled), scan, {});
    QCOMPARE(data.bytes, filled.left(5));
    QCOMPARE(data.codesMended, 0);
}

void TestSalvageSearch::sizesAreCounted_data()
{
    QTest::addColumn<JpegOptions>("options");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("frame"); // as it stands; empty for none
    QTest::addColumn<QSize>("exif");
    QTest::addColumn<bool>("byCount");
    const auto row = [](const char *name, const JpegOptions &options, QSize size, QSize frame, QSize exif,
                        bool byCount) { QTest::newRow(name) << options << size << frame << exif << byCount; };
    row("no frame, 4:2:0", {}, {320, 240}, {}, {}, true);
    row("no frame, 4:4:4", {.sampling = 444}, {320, 240}, {}, {}, true);
    row("no frame, 4:2:2, own tables", {.optimised = true, .sampling = 422}, {320, 240}, {}, {}, true);
    row("no frame, upright", {}, {240, 320}, {}, {}, true);
    row("no frame, restarts", {.restartMcus = 20}, {320, 240}, {}, {}, true);
    row("no frame, 3:2, ends inside MCUs", {.quality = 95}, {300, 200}, {}, {}, true);
    row("no frame, Exif", {}, {333, 222}, {}, {333, 222}, false);
    row("no frame, Exif of another picture", {}, {320, 240}, {}, {640, 479}, true);
    row("the height lost", {}, {400, 300}, {400, 0}, {}, true);
    row("the width lost", {}, {400, 300}, {0, 300}, {}, true);
}

void TestSalvageSearch::sizesAreCounted()
{
    QFETCH(JpegOptions, options);
    QFETCH(QSize, size);
    QFETCH(QSize, frame);
    QFETCH(QSize, exif);
    QFETCH(bool, byCount);
    const Apart apart = picture(size.width(), size.height(), options);
    Draft draft = draftOf(apart);
    draft.frameFirm = false;
    draft.hasFrame = !frame.isNull();
    draft.header.width = quint16(frame.width());
    draft.header.height = quint16(frame.height());
    if (frame.isNull()) draft.header.components.clear();
    if (!exif.isNull()) draft.exifSizes = {{quint16(exif.width()), quint16(exif.height())}};
    Budget budget;
    const std::optional<Solution> found = solveBaseline(draft, dataOf(apart), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(QSize(found->header.width, found->header.height), size);
    QVERIFY(found->header.components == apart.header.components);
    QCOMPARE(found->header.restartInterval, apart.header.restartInterval);
    QVERIFY(found->fit.perfect);
    QVERIFY(found->sizeFound);
    QCOMPARE(found->sizeByCount, byCount);
    QVERIFY(found->steps.count(Step::SizeFound));
}

void TestSalvageSearch::quantizationIsFound_data()
{
    QTest::addColumn<int>("quality");
    QTest::addColumn<Spoilt>("spoilt");
    QTest::addColumn<int>("replaced");
    QTest::addColumn<int>("sure");
    const auto row = [](const char *name, const Spoilt &spoilt, int replaced, int sure, int quality = 85) {
        QTest::newRow(name) << quality << spoilt << replaced << sure;
    };
    row("sound", {}, 0, 0);
    row("first values of the luminance", {run(0, 3, 160), {}}, 1, 1);
    row("six first values alike", {run(0, 6, 170), {}}, 1, 1);
    row("first values of both", {run(0, 3, 77), run(0, 3, 1)}, 2, 2);
    row("tail of the luminance, zeros", {run(40, 64, 0), {}}, 1, 1);
    row("tail of the chrominance", {{}, noise(30, 64)}, 1, 1);
    row("a third of both", {noise(10, 31), noise(20, 41)}, 2, 2, 60);
    row("most of the luminance, too little for a set", {noise(4, 60), {}}, 1, 0, 75);
    row("chrominance lost", {{}, {}, false, true}, 1, 1, 92);
    row("luminance lost", {{}, {}, true, false}, 1, 0, 50);
}

void TestSalvageSearch::quantizationIsFound()
{
    QFETCH(int, quality);
    QFETCH(Spoilt, spoilt);
    const Apart apart = picture(204, 155, {.quality = quality});
    Draft draft = draftOf(apart);
    edit(draft.quant[kLuma], spoilt.luma);
    edit(draft.quant[kChroma], spoilt.chroma);
    if (spoilt.lumaLost) draft.quant.erase(kLuma);
    if (spoilt.chromaLost) draft.quant.erase(kChroma);
    const Coefficients coefficients = coefficientsOf(apart);
    Header header = draft.header;
    const QuantOutcome outcome =
        chooseQuant(header, draft, annexKOnly(), [&] { return std::pair(&coefficients, coefficients.mcusHigh); });
    QVERIFY(header.quant == apart.header.quant);
    QTEST(outcome.replaced, "replaced");
    QTEST(outcome.sure, "sure");
}

void TestSalvageSearch::lostScaleIsBoundByTheLevels_data()
{
    QTest::addColumn<int>("quality");
    for (const int quality : {40, 50, 75, 90, 95}) QTest::addRow("quality %d", quality) << quality;
}

// Nothing in the file says how large a step is, but a picture from black to white leaves little choice.
void TestSalvageSearch::lostScaleIsBoundByTheLevels()
{
    QFETCH(int, quality);
    QImage drawn = drawPicture(204, 155);
    QPainter(&drawn).fillRect(96, 64, 32, 32, Qt::white);
    const Apart apart = takeApart(makeJpeg(drawn, {.quality = quality}));
    Draft draft = draftOf(apart);
    draft.quant.clear();
    const Coefficients coefficients = coefficientsOf(apart);
    Header header = draft.header;
    const QuantOutcome outcome =
        chooseQuant(header, draft, annexKOnly(), [&] { return std::pair(&coefficients, coefficients.mcusHigh); });
    QCOMPARE(outcome.replaced, 2);
    QCOMPARE(outcome.sure, 0);
    const double scale = double(header.quant.at(kLuma)[0]) / apart.header.quant.at(kLuma)[0];
    QVERIFY2(scale > 0.8 && scale <= 1.1, qPrintable(QString::number(scale)));
}

// Some encoders' sets differ in their first values alone, and these are gone.
void TestSalvageSearch::setsThatAgreeAlikeAreToldByLooks()
{
    const Apart apart = picture(204, 155, {.quality = 75});
    QByteArray segment = bytes({0xFF, 0xDB, 0, 132});
    for (const bool chroma : {false, true}) {
        segment += char(chroma);
        for (const quint16 value : KnownTables::scaled(chroma, 75)) segment += char(value);
    }
    for (const int at : {5, 6, 7, 8}) segment[at] = 1;
    const KnownTables known({}, {segment});
    Draft draft = draftOf(apart);
    edit(draft.quant[kLuma], {{0, 201}, {1, 150}, {2, 85}, {3, 214}});
    const Coefficients coefficients = coefficientsOf(apart);
    Header header = draft.header;
    chooseQuant(header, draft, known, [&] { return std::pair(&coefficients, coefficients.mcusHigh); });
    QVERIFY(header.quant == apart.header.quant);
}

// Tables that no encoder we know of writes stay, and so do single values in them, where they can be right.
void TestSalvageSearch::unknownTablesAreKept()
{
    const Apart apart = picture(204, 155, {.quality = 100});
    Draft draft = draftOf(apart);
    for (size_t i = 0; i < 64; ++i) draft.quant[kLuma][i] = quint16(5 + i / 3 + i % 2);
    for (size_t i = 0; i < 64; ++i) draft.quant[kChroma][i] = quint16(9 + i / 2);
    // Steps of one in the picture become those of the tables.
    Coefficients coefficients = coefficientsOf(apart);
    for (size_t at = 0; at < coefficients.values.size(); ++at) {
        const quint8 key = at / 64 % 6 < 4 ? kLuma : kChroma;
        qint16 &value = coefficients.values[at];
        value = qint16(std::lround(double(value) / draft.quant[key][at % 64]));
    }
    const PictureInHand inHand = [&] { return std::pair(&coefficients, coefficients.mcusHigh); };
    Header header = draft.header;
    QCOMPARE(chooseQuant(header, draft, annexKOnly(), inHand).replaced, 0);
    QVERIFY(header.quant == draft.quant);
    QVERIFY(!quantLooksDamaged(header, annexKOnly()));
    // Zeros can't be; what stands in front of them stays, and they get values like those.
    const QuantTable sound = draft.quant[kLuma];
    edit(draft.quant[kLuma], run(20, 24, 0));
    QCOMPARE(chooseQuant(header, draft, annexKOnly(), inHand).replaced, 1);
    for (size_t i = 0; i < 14; ++i) QCOMPARE(header.quant[kLuma][i], sound[i]);
    for (size_t i = 20; i < 24; ++i) QVERIFY(header.quant[kLuma][i] > 2 && header.quant[kLuma][i] < 60);
    QVERIFY(header.quant[kChroma] == draft.quant[kChroma]);
}

void TestSalvageSearch::damagedQuantizationIsTold_data()
{
    QTest::addColumn<Spoilt>("spoilt");
    QTest::addColumn<bool>("damaged");
    QTest::newRow("sound") << Spoilt{} << false;
    QTest::newRow("first values") << Spoilt{run(0, 3, 120), {}} << true;
    QTest::newRow("a zero") << Spoilt{run(33, 34, 0), {}} << true;
    QTest::newRow("a stretch") << Spoilt{{}, run(30, 40, 1)} << true;
    QTest::newRow("a value one higher") << Spoilt{run(33, 34, 25), {}} << false;
    QTest::newRow("one lost") << Spoilt{{}, {}, false, true} << true;
}

void TestSalvageSearch::damagedQuantizationIsTold()
{
    QFETCH(Spoilt, spoilt);
    Header header = picture(48, 32, {}).header;
    edit(header.quant[kLuma], spoilt.luma);
    edit(header.quant[kChroma], spoilt.chroma);
    if (spoilt.chromaLost) header.quant.erase(kChroma);
    QTEST(quantLooksDamaged(header, annexKOnly()), "damaged");
}

QTEST_GUILESS_MAIN(TestSalvageSearch)
#include "tst_salvage_search.moc"
