// The shipped samples and real photographs: what is healthy stays so. The photographs are no part of the project; without
// them these tests skip.

#include "Apart.h"

#include "app/KesmiraApp.h"
#include "app/WorkingRoot.h"
#include "engine/DeepRoad.h"
#include "salvage/Salvage.h"
#include "support/Damage.h"
#include "support/Files.h"
#include "support/Pictures.h"
#include "support/RunFolder.h"

#include <QDirIterator>
#include <QTest>

using namespace salvage;

namespace {

// Under the sanitizers decoding is slow, and a sample of the photographs has to do.
#ifdef __SANITIZE_ADDRESS__
constexpr int kEachOf = 4;
constexpr qint64 kLargest = 300 * 1024;
#else
constexpr int kEachOf = 1;
constexpr qint64 kLargest = qint64(64) << 20;
#endif

QStringList photographs()
{
    QStringList paths;
    QDirIterator it(QStringLiteral(KESMIRA_CORPUS "/jpeg"), QDir::Files);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString suffix = QFileInfo(path).suffix().toUpper();
        if (suffix == QLatin1String("JPG") || suffix == QLatin1String("JPEG")) paths << path;
    }
    paths.sort();
    QStringList taken;
    for (int i = 0; i < paths.size(); i += kEachOf)
        if (QFileInfo(paths[i]).size() <= kLargest) taken << paths[i];
    return taken;
}

QByteArray healthySample(int variant, const JpegOptions &options = {.quality = 90})
{
    return makeJpeg(drawPicture(320, 240, variant), options);
}

bool sameStamp(const QFileInfo &a, const QFileInfo &b)
{
    return a.size() == b.size() && a.lastModified() == b.lastModified() && a.permissions() == b.permissions();
}

} // namespace

class TestSalvageCorpus : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(prepareWorkingRoot(), QString());
        QVERIFY(beginRun());
    }
    void samplesComeBack_data();
    void samplesComeBack();
    void forcedSalvageKeepsPhotographs();
    void healthyPhotographsAreNotTouched();

private:
    RunFolder m_folder;
};

// Those whose tables are hit too widely for anything but the other ways are not among them.
void TestSalvageCorpus::samplesComeBack_data()
{
    QTest::addColumn<QByteArray>("healthy");
    const auto row = [](const char *name, const QByteArray &healthy) { QTest::newRow(name) << healthy; };
    row("junk-in-front.jpg", healthySample(13));
    row("lost-head-tables-left.jpg", healthySample(4));
    row("lost-head-up-to-dqt.jpg", healthySample(5));
    row("trailing-bytes.jpg", healthySample(14));
    row("three-in-a-row.jpg", makeJpeg(drawPicture(160, 120, 7), {.quality = 90}));
}

void TestSalvageCorpus::samplesComeBack()
{
    QFETCH(QByteArray, healthy);
    const QByteArray file = contents(QStringLiteral(KESMIRA_SOURCE_DIR "/samples/") + QTest::currentDataTag());
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), knownTables(), budget);
    QVERIFY(found);
    QCOMPARE(largestDifference(shown(found->file), shown(healthy)), 0);
}

void TestSalvageCorpus::forcedSalvageKeepsPhotographs()
{
    const QStringList paths = photographs();
    if (paths.isEmpty()) QSKIP("no real photographs here");
    QStringList changed;
    for (const QString &path : paths) {
        const QByteArray file = contents(path);
        Budget budget;
        const std::optional<Result> found = salvage::salvage(view(file), knownTables(), budget);
        if (!found || shown(found->file) != shown(file)) changed << QFileInfo(path).fileName();
    }
    qInfo("%d of %d photographs keep every pixel; not: %s", int(paths.size() - changed.size()), int(paths.size()),
          qPrintable(changed.join(", ")));
    QVERIFY(changed.size() <= std::max(kEachOf > 1 ? 1 : 0, int(paths.size()) / 100));
}

void TestSalvageCorpus::healthyPhotographsAreNotTouched()
{
    const QStringList paths = photographs();
    if (paths.isEmpty()) QSKIP("no real photographs here");
    DeepRoad road(paths);
    QStringList run;
    for (const QString &path : paths) {
        const QFileInfo before(path);
        (void)before.lastModified();
        FileOutcome outcome = repairOneFile(path);
        road.run(outcome);
        QVERIFY2(sameStamp(before, QFileInfo(path)), qPrintable(path));
        if (outcome.report.salvage.ran) run << QFileInfo(path).fileName();
    }
    QVERIFY2(run.isEmpty(), qPrintable(run.join(", ")));
    QVERIFY(QDir(pApp->strTempDir).entryList({"*_salvaged.jpg"}).isEmpty());
}

QTEST_GUILESS_MAIN(TestSalvageCorpus)
#include "tst_salvage_corpus.moc"
