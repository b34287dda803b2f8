// The judge: what decodes, what it says of it, and what it never tries to load.

#include "engine/Judge.h"
#include "support/Damage.h"
#include "support/Files.h"
#include "support/Pictures.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <sys/resource.h>
#include <thread>

namespace {

constexpr int kSof0 = 0xFFC0;
constexpr int kSof2 = 0xFFC2;

QStringList *heard = nullptr;

void hear(QtMsgType, const QMessageLogContext &, const QString &message)
{
    heard->append(message);
}

QByteArray bigEndian(int value)
{
    return QByteArray(1, char(value >> 8)) + char(value & 0xFF);
}

QByteArray claiming(const JpegOptions &options, int sof, int height, int width)
{
    return healthy(options).put(at(sof) + 3, bigEndian(height) + bigEndian(width));
}

QByteArray pngBytes()
{
    QTemporaryDir dir;
    drawPicture(16, 16).save(dir.filePath("a.png"), "PNG");
    QFile file(dir.filePath("a.png"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestJudge : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_heard.clear(); }

    void verdict_data();
    void verdict();
    void unreadable();
    void hugeClaims_data();
    void hugeClaims();
    void otherMessagesPass();
    void limitKnowsTheMachine();

private:
    Verdict judged(const QByteArray &bytes);

    QTemporaryDir m_dir;
    QStringList m_heard;
    QtMessageHandler m_before = nullptr;
};

// Stands below the judge's own handler from its first judgement on.
void TestJudge::initTestCase()
{
    heard = &m_heard;
    m_before = qInstallMessageHandler(hear);
    QVERIFY(judged(healthyJpeg()).decodes);
}

void TestJudge::cleanupTestCase()
{
    qInstallMessageHandler(m_before);
}

Verdict TestJudge::judged(const QByteArray &bytes)
{
    QFile file(m_dir.filePath("judged.jpg"));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) return {};
    file.close();
    return judgeJpeg(file.fileName());
}

void TestJudge::verdict_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("decodes");
    QTest::addColumn<bool>("warns");
    JpegOptions progressive;
    progressive.progressive = true;
    QTest::newRow("baseline") << healthyJpeg() << true << false;
    QTest::newRow("progressive") << healthyJpeg(progressive) << true << false;
    QTest::newRow("grey") << makeJpeg(drawGreyPicture(48, 32)) << true << false;
    QTest::newRow("cut scan") << healthy().cutAt(inScan(40)).bytes() << true << true;
    QTest::newRow("no frame header") << healthy().zero(at(kSof0) - 2, 2).bytes() << false << true;
    QTest::newRow("another format") << pngBytes() << false << true;
    QTest::newRow("empty") << QByteArray() << false << true;
    QTest::newRow("SOI and EOI") << QByteArray("\xFF\xD8\xFF\xD9") << false << true;
}

void TestJudge::verdict()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, decodes);
    QFETCH(bool, warns);
    const Verdict verdict = judged(bytes);
    QCOMPARE(verdict.decodes, decodes);
    QCOMPARE(verdict.size, decodes ? QSize(48, 32) : QSize(0, 0));
    QCOMPARE(!verdict.warnings.isEmpty(), warns);
    QVERIFY2(m_heard.isEmpty(), qPrintable(m_heard.join(", ")));
}

void TestJudge::unreadable()
{
    for (const QString &path : {m_dir.filePath("missing"), m_dir.path(), QString()}) QVERIFY(!judgeJpeg(path).decodes);
}

void TestJudge::hugeClaims_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("claim");
    JpegOptions progressive;
    progressive.progressive = true;
    QTest::newRow("widest") << claiming({}, kSof0, 65500, 65500) << "65500 x 65500";
    // The picture alone would fit, but not beside the coefficients of all scans.
    QTest::newRow("progressive") << claiming(progressive, kSof2, 20000, 30000) << "30000 x 20000";
}

void TestJudge::hugeClaims()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, claim);
    rusage before = {};
    rusage after = {};
    ::getrusage(RUSAGE_SELF, &before);
    const Verdict verdict = judged(bytes);
    ::getrusage(RUSAGE_SELF, &after);
    QVERIFY(!verdict.decodes);
    QCOMPARE(verdict.size, QSize(0, 0));
    QVERIFY2(verdict.warning().contains(claim), qPrintable(verdict.warning()));
    QVERIFY2(after.ru_maxrss - before.ru_maxrss < 64 * 1024, "the picture was loaded");
}

void TestJudge::otherMessagesPass()
{
    std::thread other([] { qWarning("from another thread"); });
    judged(healthy().cutAt(inScan(40)));
    other.join();
    qWarning("from this one");
    QCOMPARE(m_heard, QStringList({"from another thread", "from this one"}));
}

void TestJudge::limitKnowsTheMachine()
{
    QVERIFY(pictureMemoryLimit() > 0);
    QVERIFY(pictureMemoryLimit() <= quint64(4) << 30);
    QFile info("/proc/meminfo");
    if (!info.open(QIODevice::ReadOnly)) QSKIP("no /proc");
    const QByteArray total = info.readLine().simplified().split(' ').value(1);
    QVERIFY(pictureMemoryLimit() <= total.toULongLong() * 1024 / 2);

    // A lower limit of the program's own holds until it is taken back.
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.jpg");
    write(path, healthyJpeg());
    setPictureMemoryLimit(1000);
    QVERIFY(!judgeJpeg(path).decodes);
    setPictureMemoryLimit(0);
    QVERIFY(judgeJpeg(path).decodes);
}

QTEST_GUILESS_MAIN(TestJudge)
#include "tst_judge.moc"
