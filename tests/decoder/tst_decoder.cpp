// The decoder process: its answers are those of a decoding in place, nothing escapes from it, and what breaks it, holds
// it up or asks for too much costs one file.

#include "decoder/Client.h"
#include "engine/BlockSource.h"
#include "engine/PictureMemory.h"
#include "support/Damage.h"
#include "support/Files.h"
#include "support/Pictures.h"

#include <QBuffer>
#include <QColorSpace>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <ctime>

using namespace decoder;

namespace {

#ifdef KESMIRA_SANITIZED
constexpr double kSlowdown = 10;
#else
constexpr double kSlowdown = 1;
#endif

QStringList heard;

void hear(QtMsgType, const QMessageLogContext &, const QString &message)
{
    heard.append(message.simplified());
}

/// The start of a frame of any kind that claims so many pixels of `precision` bits.
QByteArray frame(int marker, int side, int precision)
{
    return segment(marker,
                   bytes({precision}) + word(side) + word(side) + bytes({3, 1, 0x22, 0, 2, 0x11, 1, 3, 0x11, 1}));
}

/// One of a progressive picture's later scans, which brings nothing.
QByteArray emptyScan()
{
    return segment(words::SOS, bytes({1, 1, 0, 1, 5, 0})) + bytes({0});
}

QByteArray asJpeg(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG", 95);
    return bytes;
}

double processorSeconds(pid_t process)
{
    clockid_t clock = {};
    timespec time = {};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0) return -1;
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// KiB of memory that a process has had at the most.
qint64 mostMemory(pid_t process)
{
    const QByteArray status = contents(QStringLiteral("/proc/%1/status").arg(process));
    return status.mid(status.indexOf("VmHWM:") + 6).simplified().split(' ').first().toLongLong();
}

} // namespace

class TestDecoder : public QObject
{
    Q_OBJECT

private slots:
    void sameAsInPlace();
    void upright_data();
    void upright();
    void coloursComeAlong();
    void bombs_data();
    void bombs();
    void nothingEscapes();
    void trialsCostOneQuestion_data();
    void trialsCostOneQuestion();

private:
    Answer ask(Answer (Client::*question)(int, const Terms &), const QByteArray &file);
    Answer show(const QByteArray &file);

    QTemporaryDir m_dir;
    Client m_client;
    const Terms m_terms{pictureMemoryLimit(), {}, 0};
};

Answer TestDecoder::ask(Answer (Client::*question)(int, const Terms &), const QByteArray &file)
{
    write(m_dir.filePath("a.jpg"), file);
    return (m_client.*question)(FileSource(m_dir.filePath("a.jpg")).descriptor(), m_terms);
}

Answer TestDecoder::show(const QByteArray &file)
{
    write(m_dir.filePath("a.jpg"), file);
    return m_client.show(FileSource(m_dir.filePath("a.jpg")).descriptor(), QSize(), m_terms);
}

void TestDecoder::sameAsInPlace()
{
    const QDir samples(KESMIRA_SOURCE_DIR "/samples");
    for (const QString &name : samples.entryList({"*.jpg"})) {
        const FileSource file(samples.filePath(name));
        heard.clear();
        const QtMessageHandler before = qInstallMessageHandler(hear);
        QImage image;
        const bool opens = image.load(samples.filePath(name), "JPG");
        qInstallMessageHandler(before);
        const Answer judged = m_client.judge(file.descriptor(), m_terms);
        QVERIFY2(judged.opens == opens && judged.size == image.size(), qPrintable(name));
        QVERIFY2(!opens || judged.warnings == heard,
                 qPrintable(name)); // the toolkit asks no decoder about what it isn't
        const Answer viewed = m_client.view(file.descriptor(), QSize(), m_terms);
        QVERIFY2(viewed.picture == image.convertToFormat(QImage::Format_ARGB32_Premultiplied), qPrintable(name));
    }
}

void TestDecoder::upright_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QString>(
        "upper"); // what stands in the upper corners, left and right: a corner of the stored picture
    // CIPA DC-008 tells which sides of the scene the first row and the first column are.
    const char *const uppers[] = {"ab", "ba", "dc", "cd", "ac", "ca", "db", "bd"};
    for (int i = 0; i < 8; ++i) QTest::newRow(uppers[i]) << i + 1 << uppers[i];
}

void TestDecoder::upright()
{
    QFETCH(int, orientation);
    QFETCH(QString, upper);
    // a b
    // c d
    QImage stored(64, 32, QImage::Format_RGB32);
    const QMap<QChar, QRgb> colours{{'a', 0xFF202020}, {'b', 0xFF606060}, {'c', 0xFFA0A0A0}, {'d', 0xFFE0E0E0}};
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 64; ++x) stored.setPixel(x, y, colours["abcd"[y / 16 * 2 + x / 32]]);
    JpegOptions options;
    options.segments = {exifSegment({}, orientation)};
    const Answer answer = show(makeJpeg(stored, options));
    QCOMPARE(answer.size, orientation > 4 ? QSize(32, 64) : QSize(64, 32));
    QCOMPARE(answer.picture.size(), answer.size);
    const int right = answer.size.width() - 3;
    QVERIFY(qAbs(qGray(answer.picture.pixel(2, 2)) - qGray(colours[upper[0]])) < 8);
    QVERIFY(qAbs(qGray(answer.picture.pixel(right, 2)) - qGray(colours[upper[1]])) < 8);
    const Answer told = ask(&Client::judge, makeJpeg(stored, options));
    QCOMPARE(told.size, stored.size());
}

void TestDecoder::coloursComeAlong()
{
    QImage image = drawPicture(32, 32);
    QVERIFY(show(asJpeg(image)).profile.isEmpty());
    image.setColorSpace(QColorSpace::DisplayP3);
    QCOMPARE(QColorSpace::fromIccProfile(show(asJpeg(image)).profile), QColorSpace(QColorSpace::DisplayP3));
}

void TestDecoder::bombs_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray soi = bytes({0xFF, 0xD8});
    const QByteArray behind = healthyJpeg().mid(2);
    const auto bomb = [&](int marker, int side, int precision) {
        return soi + frame(marker, side, precision) + segment(words::DHT, 420) + sos() + filler(250);
    };
    QTest::newRow("baseline") << bomb(0xFFC0, 65500, 8);
    QTest::newRow("12 bit") << bomb(0xFFC1, 65500, 12);
    QTest::newRow("progressive") << bomb(0xFFC2, 30000, 8);
    QTest::newRow("lossless") << bomb(0xFFC3, 65500, 16);
    QTest::newRow("arithmetic") << bomb(0xFFC9, 65500, 8);
    QTest::newRow("arithmetic, progressive") << bomb(0xFFCA, 65500, 8);
    QTest::newRow("scans") << healthy({85, true}).put(at(0xFFC2) + 3, word(8000) + word(8000)).bytes().chopped(2)
            + emptyScan().repeated(20000);
    QTest::newRow("notes") << soi + segment(words::APP1, QByteArray()).repeated(256 * 1024) + behind;
}

void TestDecoder::bombs()
{
    QFETCH(QByteArray, file);
    QVERIFY(ask(&Client::judge, healthyJpeg()).opens);
    const pid_t process = m_client.pid();
    const double seconds = processorSeconds(process);
    const qint64 memory = mostMemory(process);
    const Answer answer = ask(&Client::judge, file);
    QVERIFY(!answer.opens && answer.ending == Ending::Told && !answer.warnings.isEmpty());
    QCOMPARE(m_client.pid(), process);
    QVERIFY(processorSeconds(process) - seconds < 0.05 * kSlowdown);
    QVERIFY(mostMemory(process) - memory < 32 * 1024);
}

void TestDecoder::nothingEscapes()
{
    const Answer answer = m_client.trial(Trial::Escape, m_terms);
    QCOMPARE(answer.ending, Ending::Told);
    QCOMPARE(answer.warnings, QStringList());
}

void TestDecoder::trialsCostOneQuestion_data()
{
    QTest::addColumn<int>("trial");
    QTest::addColumn<int>("ending");
    QTest::newRow("breaks") << int(Trial::Break) << int(Ending::BrokeOff);
    QTest::newRow("lies") << int(Trial::Lie) << int(Ending::BrokeOff);
    QTest::newRow("is stopped") << int(Trial::Spin) << int(Ending::Stopped);
#ifndef KESMIRA_SHADOW_MEMORY // which leaves it without a limit
    QTest::newRow("takes all memory") << int(Trial::Hoard) << int(Ending::BrokeOff);
#endif
}

void TestDecoder::trialsCostOneQuestion()
{
    QFETCH(int, trial);
    QFETCH(int, ending);
    QVERIFY(ask(&Client::judge, healthyJpeg()).opens);
    const pid_t process = m_client.pid();
    QElapsedTimer sinceStop;
    const auto stopped = [&] {
        if (!sinceStop.isValid()) sinceStop.start();
        return Trial(trial) == Trial::Spin;
    };
    const Answer answer = m_client.trial(Trial(trial), {quint64(64) << 20, stopped, 0});
    QVERIFY(Trial(trial) != Trial::Spin || sinceStop.elapsed() < 200);
    QCOMPARE(int(answer.ending), ending);
    QVERIFY(ask(&Client::judge, healthyJpeg()).opens);
    QVERIFY(m_client.pid() != process);
}

QTEST_GUILESS_MAIN(TestDecoder)
#include "tst_decoder.moc"
