// Real photographs on the whole road. They are no part of the project: without them these tests skip.

#include "Road.h"

#include "engine/jpg_repair.h"
#include "support/Grammar.h"
#include "support/JpegMaker.h"
#include "tables/PlainTableSearch.h"

#include <QDirIterator>
#include <QTest>

#include <algorithm>

using namespace words;

namespace {

/// Larger files take a second and more under the sanitizers.
constexpr qint64 kLargestFile = 1500 * 1024;

/// The segments in front of the first scan, it included; empty where the file isn't laid out as a JPEG.
std::vector<SegmentPlace> headOf(const QByteArray &jpeg)
{
    std::vector<SegmentPlace> head;
    for (const SegmentPlace &place : segmentPlaces(jpeg)) {
        head.push_back(place);
        if (place.marker == SOS) return head;
    }
    return {};
}

std::vector<SegmentPlace> allOf(const std::vector<SegmentPlace> &head, int marker)
{
    std::vector<SegmentPlace> found;
    std::copy_if(head.begin(), head.end(), std::back_inserter(found),
                 [=](const SegmentPlace &p) { return p.marker == marker; });
    return found;
}

/// How the decoder takes the colours of three components: from the metadata where they say, else from the components' ids.
enum class Colours { Grey, YCbCr, Rgb, Other };

Colours coloursOf(const QByteArray &jpeg, const std::vector<SegmentPlace> &head, bool withMetadata)
{
    bool jfif = false;
    int adobe = -1;
    QByteArray ids;
    for (const SegmentPlace &place : head) {
        const QByteArray payload = jpeg.mid(int(place.offset) + 4, place.length - 2);
        if (place.marker == APP0 && payload.startsWith(QByteArray("JFIF\0", 5))) jfif = true;
        if (place.marker == APP14 && payload.startsWith("Adobe") && payload.size() >= 12) adobe = payload[11];
        if (place.marker >= SOF0 && place.marker <= SOF2 && payload.size() > 5)
            for (int i = 0; i < payload[5] && 6 + 3 * i < payload.size(); ++i) ids.append(payload[6 + 3 * i]);
    }
    if (ids.size() == 1) return Colours::Grey;
    if (ids.size() != 3) return Colours::Other;
    if (withMetadata && jfif) return Colours::YCbCr;
    if (withMetadata && adobe >= 0) return adobe == 0 ? Colours::Rgb : Colours::YCbCr;
    return ids == "RGB" ? Colours::Rgb : Colours::YCbCr;
}

/// True if a further image begins behind the end of the first scan.
bool hasImagesBehind(const QByteArray &jpeg, const std::vector<SegmentPlace> &head)
{
    const SegmentPlace &scan = head.back();
    const int end = jpeg.indexOf(word(EOI), int(scan.offset) + 2 + scan.length);
    return end >= 0 && jpeg.indexOf(word(SOI), end) >= 0;
}

struct Photograph
{
    QString path;
    QByteArray bytes;
    std::vector<SegmentPlace> head;
};

/// Repaired, such a picture shows what it showed: one image, whose colours don't hang on metadata that is left behind.
bool isPlain(const Photograph &photo)
{
    return !photo.head.empty() && !hasImagesBehind(photo.bytes, photo.head)
        && coloursOf(photo.bytes, photo.head, true) == coloursOf(photo.bytes, photo.head, false)
        && coloursOf(photo.bytes, photo.head, true) != Colours::Other;
}

/// The obvious search of the table texts, asked for the tables of one file.
class KnownTables
{
public:
    KnownTables()
    {
        const QString folder = QStringLiteral(KESMIRA_SOURCE_DIR "/src/tables/data/");
        m_huffman = plainsearch::rowsOf(RunFolder::bytesOf(folder + "huffman.txt"));
        m_quantization = plainsearch::rowsOf(RunFolder::bytesOf(folder + "quantization.txt"));
    }
    ~KnownTables() { jpg_repair().EmptyMemoryAllocation(); }
    KnownTables(const KnownTables &) = delete;
    KnownTables &operator=(const KnownTables &) = delete;

    /// The file with what the search can bring back overwritten: symbols behind the key of a table's segment, and values
    /// behind the 25th. The file itself where the search gives other tables.
    QByteArray withoutKnown(const Photograph &photo) const
    {
        QByteArray out = photo.bytes;
        hurtHuffman(photo, out);
        hurtQuantization(photo, out);
        return out;
    }

private:
    static constexpr int kLongestKey = 29; // bytes from the marker

    void hurtHuffman(const Photograph &photo, QByteArray &out) const
    {
        const auto places = allOf(photo.head, DHT);
        pApp->nDhtCount = quint32(places.size());
        for (const SegmentPlace &place : places) {
            const QByteArray segment = photo.bytes.mid(int(place.offset), place.length + 2);
            plainsearch::setInnerTables(segment);
            if (plainsearch::findHuffman(m_huffman, segment) != segment) continue;
            for (int table = 4; table + 17 <= segment.size();) {
                int symbols = 0;
                for (int i = 1; i <= 16; ++i) symbols += quint8(segment[table + i]);
                for (int i = qMax(table + 17, kLongestKey); i < table + 17 + symbols; ++i)
                    out[int(place.offset) + i] = 0;
                table += 17 + symbols;
            }
        }
    }

    void hurtQuantization(const Photograph &photo, QByteArray &out) const
    {
        const auto places = allOf(photo.head, DQT);
        const bool single = !places.empty() && places[0].length == 67;
        if (places.empty() || places.size() > 3 || (!single && places.size() > 1)) return;
        quint8 *const heads[] = {pApp->aQuantHead1, pApp->aQuantHead2, pApp->aQuantHead3};
        QVector<int> tables; // offsets of the values
        for (const SegmentPlace &place : places)
            for (int i = 0; i < place.length / 65; ++i) tables << int(place.offset) + 5 + 65 * i;
        if (tables.size() > 3) return;
        for (int i = 0; i < tables.size(); ++i) std::copy_n(photo.bytes.constData() + tables[i], 25, heads[i]);
        pApp->nDqtLength = quint32(places[0].length);
        pApp->bQuantPairPatched = pApp->bQuantTriplePatched = false;
        for (int i = 0; i < tables.size(); ++i) {
            pApp->nDqtIndex = single ? quint32(i) : 0;
            const QByteArray found = plainsearch::findQuantization(m_quantization);
            const QByteArray values = photo.bytes.mid(tables[i], 64);
            const bool inOrder = photo.bytes[tables[i] - 1] == char(i); // a replaced table is numbered anew
            const QByteArray own = single ? values : photo.bytes.mid(int(places[0].offset), places[0].length + 2);
            if (!inOrder || found.right(own.size()) != own) return;
        }
        for (const int table : tables)
            for (int i = 25; i < 64; ++i) out[table + i] = 0;
    }

    QVector<plainsearch::Row> m_huffman;
    QVector<plainsearch::Row> m_quantization;
};

const OutputReport *mainOutput(const FileOutcome &outcome)
{
    for (const OutputReport &output : outcome.report.outputs)
        if (output.way == RepairWay::Main) return &output;
    return nullptr;
}

} // namespace

class TestCorpus : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void healthyFilesKeepTheirPixels();
    void damagedTablesComeBack();

private:
    std::vector<Photograph> m_photographs;
};

void TestCorpus::initTestCase()
{
    QDirIterator it(QStringLiteral(KESMIRA_CORPUS "/jpeg"), QDir::Files);
    QStringList paths;
    while (it.hasNext()) paths << it.next();
    paths.sort();
    for (const QString &path : qAsConst(paths)) {
        const QString suffix = QFileInfo(path).suffix().toUpper();
        if (suffix != "JPG" && suffix != "JPEG") continue;
        if (QFileInfo(path).size() > kLargestFile) continue;
        const QByteArray bytes = RunFolder::bytesOf(path);
        m_photographs.push_back({path, bytes, headOf(bytes)});
    }
    if (m_photographs.empty()) QSKIP("no real photographs here");
    QVERIFY(m_photographs.size() > 100);
}

void TestCorpus::healthyFilesKeepTheirPixels()
{
    const Run run;
    int compared = 0;
    int plain = 0;
    for (const Photograph &photo : m_photographs) {
        const QByteArray name = QFileInfo(photo.path).fileName().toUtf8();
        const Footprint before = footprint(photo.path);
        const FileOutcome outcome = repairOneFile(photo.path);
        QVERIFY2(footprint(photo.path) == before, name);
        const OutputRows rows = makeRows(outcome);
        for (const OutputRow &row : rows.rows) {
            QVERIFY2(QFileInfo::exists(row.path), name);
            if (!row.thumbnail) QVERIFY2(rows.sourceStatus == status::Repaired, name);
            if (row.thumbnail)
                QVERIFY2(row.resolution
                             == QString("%1x%2").arg(decodedFile(row.path).height()).arg(decodedFile(row.path).width()),
                         name);
        }
        QVERIFY2(!rows.rows.isEmpty() || outcome.report.reason != RepairReason::None, name);
        if (!isPlain(photo)) continue;
        ++plain;
        const OutputReport *output = mainOutput(outcome);
        if (!output || outcome.report.dqtReplaced > 0 || outcome.report.dhtReplaced > 0) continue;
        const QImage image = decodedFile(output->path);
        QVERIFY2(image == decoded(photo.bytes), name);
        QVERIFY2(image.size() == output->size, name);
        ++compared;
    }
    qInfo("%d of %d plain pictures keep their tables and their pixels, of %d files", compared, plain,
          int(m_photographs.size()));
    QVERIFY(compared > 100);
}

void TestCorpus::damagedTablesComeBack()
{
    const Run run;
    const KnownTables known;
    int compared = 0;
    for (const Photograph &photo : m_photographs) {
        if (!isPlain(photo)) continue;
        const QByteArray name = QFileInfo(photo.path).fileName().toUtf8();
        const QByteArray damaged = known.withoutKnown(photo);
        if (damaged == photo.bytes) continue;
        // Only where the healthy file keeps its tables: others give way to ones that begin alike.
        const FileOutcome healthy = run.repair("healthy.jpg", photo.bytes);
        if (!mainOutput(healthy) || healthy.report.dqtReplaced > 0 || healthy.report.dhtReplaced > 0) continue;
        const FileOutcome outcome = run.repair("damaged.jpg", damaged);
        QVERIFY2(mainOutput(outcome), name);
        QVERIFY2(outcome.report.dqtReplaced + outcome.report.dhtReplaced > 0, name);
        QVERIFY2(decodedFile(mainOutput(outcome)->path) == decoded(photo.bytes), name);
        ++compared;
    }
    qInfo("%d pictures with damaged tables came back whole", compared);
    QVERIFY(compared > 30);
}

QTEST_GUILESS_MAIN(TestCorpus)
#include "tst_corpus.moc"
