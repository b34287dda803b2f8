// Wiping: what is overwritten, what goes, what stays.

#include "app/WorkingRoot.h"
#include "save/WipeFolder.h"
#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

class TestWipe : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_root.reset(new QTemporaryDir);
        m_outside.reset(new QTemporaryDir);
        setWorkingRoot(m_root->path());
    }
    void cleanup() { setWorkingRoot({}); }

    void overwritesBeforeDeleting_data();
    void overwritesBeforeDeleting();
    void otherValuesFillHolesToo();
    void sparseFileStaysSparse();
    void treeLosesItsVisibleFiles();
    void linksGoAndTargetsStay();
    void secondNameKeepsItsBytes();
    void namesThatAreNothing_data();
    void namesThatAreNothing();

private:
    QScopedPointer<QTemporaryDir> m_root;
    QScopedPointer<QTemporaryDir> m_outside;
};

void TestWipe::overwritesBeforeDeleting_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 511, 512, 513, 256 * 1024, 256 * 1024 + 1, 5 * 1024 * 1024})
        QTest::addRow("%d", size) << size;
}

// The deleted file is looked at through a descriptor that was open before.
void TestWipe::overwritesBeforeDeleting()
{
    QFETCH(int, size);
    const QString path = m_root->filePath("picture.jpg");
    write(path, QByteArray(size, 'p'));
    QFile kept(path);
    QVERIFY(kept.open(QIODevice::ReadOnly));

    WipeFolder().ActuallyFileWipe(path);

    QVERIFY(!QFile::exists(path));
    QCOMPARE(kept.readAll(), QByteArray(size, '\0'));
}

void TestWipe::otherValuesFillHolesToo()
{
    QFile file(m_root->filePath("sparse"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.resize(300000));
    WipeFolder().fnWriteFile(&file, 0x5A);
    file.close();
    QCOMPARE(contents(file.fileName()), QByteArray(300000, '\x5A'));
}

// A terabyte of holes with one picture's bytes in the middle: only those are written.
void TestWipe::sparseFileStaysSparse()
{
    const QString path = m_root->filePath("sparse");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const qint64 size = qint64(1) << 40;
    if (!file.resize(size)) QSKIP("the file system takes no large sparse files");
    QVERIFY(file.seek(size / 2));
    QCOMPARE(file.write(QByteArray(10000, 'p')), qint64(10000));
    QVERIFY(file.flush());

    WipeFolder().fnWriteFile(&file, 0);

    QCOMPARE(file.size(), size);
    QVERIFY(file.seek(size / 2));
    QCOMPARE(file.read(10000), QByteArray(10000, '\0'));
    struct stat info = {};
    QCOMPARE(::fstat(file.handle(), &info), 0);
    QVERIFY2(info.st_blocks * 512 < 1 << 20, "holes were filled");
}

void TestWipe::treeLosesItsVisibleFiles()
{
    const QDir root(m_root->path());
    QVERIFY(root.mkpath("RepairedFiles/Thumbnail Repaired/deep"));
    for (const char *name : {"a.jpg", ".hidden", "Thumbnail Repaired/b c.jpg", "Thumbnail Repaired/deep/\xC3\xA9\n.jpg",
                             "Thumbnail Repaired/.kept"})
        write(root.filePath("RepairedFiles/" + QString::fromUtf8(name)), "x");
    write(root.filePath("beside.jpg"), "x");

    WipeFolder().WipeFile("RepairedFiles");

    QCOMPARE(QDir(root.filePath("RepairedFiles")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({".hidden", "Thumbnail Repaired"}));
    QCOMPARE(QDir(root.filePath("RepairedFiles/Thumbnail Repaired"))
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({".kept", "deep"}));
    QVERIFY(QDir(root.filePath("RepairedFiles/Thumbnail Repaired/deep")).isEmpty());
    QVERIFY(root.exists("beside.jpg"));
}

void TestWipe::linksGoAndTargetsStay()
{
    const QString picture = m_outside->filePath("picture.jpg");
    write(picture, "mine");
    const QDir work(m_root->path());
    QVERIFY(work.mkpath("RepairedFiles"));
    QVERIFY(QFile::link(picture, work.filePath("RepairedFiles/file")));
    QVERIFY(QFile::link(m_outside->path(), work.filePath("RepairedFiles/folder")));
    QVERIFY(QFile::link("nowhere", work.filePath("RepairedFiles/dead")));
    QVERIFY(QFile::link(m_outside->path(), work.filePath("whole")));

    WipeFolder().WipeFile("RepairedFiles");
    WipeFolder().WipeFile("whole");

    QCOMPARE(contents(picture), QByteArray("mine"));
    QVERIFY(QDir(work.filePath("RepairedFiles")).isEmpty(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot));
    QVERIFY(!QFileInfo(work.filePath("whole")).isSymLink());
}

void TestWipe::secondNameKeepsItsBytes()
{
    const QString picture = m_outside->filePath("picture.jpg");
    write(picture, "mine");
    const QString name = m_root->filePath("picture.jpg");
    QCOMPARE(::link(QFile::encodeName(picture).constData(), QFile::encodeName(name).constData()), 0);
    WipeFolder().ActuallyFileWipe(name);
    QCOMPARE(contents(picture), QByteArray("mine"));
    QVERIFY(!QFile::exists(name));
}

void TestWipe::namesThatAreNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "";
    QTest::newRow("missing") << "RepairedFiles/Thumbnail_Repaired/";
}

void TestWipe::namesThatAreNothing()
{
    QFETCH(QString, name);
    write(m_root->filePath("a.jpg"), "x");
    WipeFolder().WipeFile(name);
    QCOMPARE(contents(m_root->filePath("a.jpg")), QByteArray("x"));
}

QTEST_GUILESS_MAIN(TestWipe)
#include "tst_wipe.moc"
