// Files of a run: how they are made, how a loss shows, and the copies that keep what a buffer held.

#include "app/KesmiraApp.h"
#include "app/Originals.h"
#include "engine/FileWindow.h"
#include "save/ScratchFile.h"
#include "support/ByteSource.h"
#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

/// `count` bytes in which no two blocks of 1,024 are alike.
QByteArray pattern(int count)
{
    QByteArray bytes(count, '\0');
    for (int i = 0; i < count; ++i) bytes[i] = char(1 + (i * 31 + i / 1021) % 255);
    return bytes;
}

/// The copy as one would do it by hand: read what is there over the buffer, put the block out.
QByteArray copiedByHand(const QByteArray &source, int offset, int count)
{
    QByteArray buffer(1024, '\0');
    QByteArray out;
    for (int size = count % 1024 ? count % 1024 : 1024; out.size() < count; size = 1024) {
        const QByteArray read = source.mid(offset + out.size(), size);
        buffer.replace(0, read.size(), read);
        out += buffer.left(size);
    }
    return out;
}

} // namespace

class TestScratchFile : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir.reset(new QTemporaryDir);
        pApp->report = RepairReport();
    }

    void blockCopyRule_data();
    void blockCopyRule();
    void blockCopyEqualsHandWork_data();
    void blockCopyEqualsHandWork();
    void createsAnew_data();
    void createsAnew();
    void refusesFolders();
    void lostBytesShow();

private:
    QByteArray copied(const QByteArray &source, int blockSize, quint64 offset, qint64 count);

    QScopedPointer<QTemporaryDir> m_dir;
};

QByteArray TestScratchFile::copied(const QByteArray &source, int blockSize, quint64 offset, qint64 count)
{
    ByteSource bytes(source);
    FileWindow window(bytes, blockSize);
    const QString path = m_dir->filePath("copy");
    FILE *out = createOutput(path);
    blockCopy(window, offset, count, out);
    if (fileLength(out) != count || !closeFile(out)) return "(lost)";
    return contents(path);
}

void TestScratchFile::blockCopyRule_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray s = pattern(4000);
    const auto zeros = [](int count) { return QByteArray(count, '\0'); };
    QTest::newRow("nothing") << s << 0 << 0 << QByteArray();
    QTest::newRow("one block") << s << 0 << 1024 << s.left(1024);
    QTest::newRow("a byte and a block") << s << 5 << 1025 << s.mid(5, 1025);
    QTest::newRow("a block short of a byte") << s << 5 << 1023 << s.mid(5, 1023);
    QTest::newRow("two blocks") << s << 1 << 2048 << s.mid(1, 2048);
    // 1,500 bytes are there: 952, then 548 over the first block's head; the third block repeats the second.
    QTest::newRow("ends inside the second block")
        << s.left(1500) << 0 << 3000
        << s.left(952) + s.mid(952, 548) + s.mid(548, 404) + zeros(72) + s.mid(952, 548) + s.mid(548, 404) + zeros(72);
    // 952 bytes and then nothing: each later block is the first one's bytes in front of zeros.
    QTest::newRow("ends behind the remainder")
        << s.left(952) << 0 << 2000 + 1000 << s.left(952) + s.left(952) + zeros(72) + s.left(952) + zeros(72);
    // 10 bytes for a first block of 100; the second is that block again, with the zeros that were never filled.
    QTest::newRow("ends inside the remainder")
        << s.left(10) << 0 << 1124 << s.left(10) + zeros(90) + s.left(10) + zeros(1014);
    QTest::newRow("no remainder, ends inside the second block")
        << s.left(1100) << 0 << 2048 << s.left(1024) + s.mid(1024, 76) + s.mid(76, 948);
    QTest::newRow("begins behind the end") << s.left(10) << 20 << 1500 << zeros(1500);
    QTest::newRow("empty source") << QByteArray() << 0 << 3 << zeros(3);
}

void TestScratchFile::blockCopyRule()
{
    QFETCH(QByteArray, source);
    QFETCH(int, offset);
    QFETCH(int, count);
    QFETCH(QByteArray, expected);
    for (const int blockSize : {1, 7, 1024, FileWindow::kBlockSize}) {
        QCOMPARE(copied(source, blockSize, quint64(offset), count), expected);
    }
}

void TestScratchFile::blockCopyEqualsHandWork_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("count");
    for (const int size : {1023, 1024, 1025, 2047, 2048, 2049, 65536, 66560, 200000}) {
        for (const int more : {-1025, -1024, -1, 0, 1, 1023, 1024, 1025, 2500}) {
            if (size + more > 0) QTest::addRow("%d of %d", size + more, size) << size << size + more;
        }
    }
}

void TestScratchFile::blockCopyEqualsHandWork()
{
    QFETCH(int, size);
    QFETCH(int, count);
    const QByteArray source = pattern(size);
    for (const int offset : {0, 3, 1024}) {
        QCOMPARE(copied(source, 4096, quint64(offset), count), copiedByHand(source, offset, count));
    }
}

void TestScratchFile::createsAnew_data()
{
    QTest::addColumn<QString>("before");
    QTest::newRow("nothing") << "";
    QTest::newRow("file") << "file";
    QTest::newRow("link") << "link";
    QTest::newRow("dead link") << "dead";
}

void TestScratchFile::createsAnew()
{
    QFETCH(QString, before);
    const QString path = m_dir->filePath("new");
    const QString target = m_dir->filePath("target");
    QFile standing(before == "file" ? path : target);
    QVERIFY(standing.open(QIODevice::WriteOnly));
    standing.write("stays or goes as a whole");
    standing.close();
    if (before == "link") QVERIFY(QFile::link(target, path));
    if (before == "dead") QVERIFY(QFile::link(m_dir->filePath("nowhere"), path));

    // Scratch is only made where nothing stands, and an original is never replaced.
    if (!before.isEmpty()) {
        QVERIFY(!createFile(path));
        setOriginals({path});
        QVERIFY(!createOutput(path));
        dropFile(path);
        setOriginals({});
    }
    FILE *file = createOutput(path);
    QVERIFY(file);
    writeBytes(file, "abcdef", 6);
    QCOMPARE(std::fseek(file, 2, SEEK_SET), 0);
    writeBytes(file, "XY", 2);
    QCOMPARE(fileLength(file), qint64(6));
    QVERIFY(closeFile(file));

    QCOMPARE(contents(path), QByteArray("abXYef"));
    struct stat info = {};
    QCOMPARE(::lstat(QFile::encodeName(path).constData(), &info), 0);
    QCOMPARE(info.st_mode, mode_t(S_IFREG | 0600));
    if (before != "file") QCOMPARE(contents(target), QByteArray("stays or goes as a whole"));
    QVERIFY(!QFile::exists(m_dir->filePath("nowhere")));
}

void TestScratchFile::refusesFolders()
{
    QVERIFY(QDir(m_dir->path()).mkdir("folder"));
    QVERIFY(!createOutput(m_dir->filePath("folder")));
    QVERIFY(!createFile(m_dir->filePath("missing/file")));
    QVERIFY(!closeFile(nullptr));
    QCOMPARE(pApp->report.reason, RepairReason::None);
}

// A limit on the size of files stands for a disk that is full after so many bytes.
void TestScratchFile::lostBytesShow()
{
    FILE *file = createFile(m_dir->filePath("large"));
    QVERIFY(file);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {100000, before.rlim_max};
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const QByteArray bytes(300000, 'x');
    writeBytes(file, bytes.constData(), bytes.size());
    const bool kept = closeFile(file);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);

    QVERIFY(!kept);
    QCOMPARE(pApp->report.reason, RepairReason::DiskFull);
}

QTEST_GUILESS_MAIN(TestScratchFile)
#include "tst_scratch_file.moc"
