// The command line of the window program: which files it names, and what it says about the rest.

#include "desktop/CommandLine.h"
#include "support/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { QDir::setCurrent(m_before); }
    void files_data();
    void files();
    void options_data();
    void options();

private:
    QString m_before = QDir::currentPath();
    QTemporaryDir m_folder;
};

void TestCommandLine::initTestCase()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    for (const char *name : {"a.jpg", "b c.CR2", "Straße.jpg", "-v.jpg", "file:x.jpg", "100%41.jpg"})
        write(m_folder.filePath(QString::fromUtf8(name)), "x");
    QDir(m_folder.path()).mkpath("folder.jpg/below");
    QVERIFY(QDir::setCurrent(m_folder.filePath("folder.jpg/below")));
}

void TestCommandLine::files_data()
{
    QTest::addColumn<QStringList>("arguments"); ///< "@" stands for the folder
    QTest::addColumn<QStringList>("expected");  ///< names in the folder
    QTest::addColumn<int>("passedOver");
    const auto row = [](const char *name, const QStringList &arguments, const QStringList &expected,
                        int passedOver = 0) { QTest::newRow(name) << arguments << expected << passedOver; };
    row("none", {}, {});
    row("absolute", {"@/a.jpg"}, {"a.jpg"});
    row("relative, in their order", {"../../b c.CR2", "../../a.jpg"}, {"b c.CR2", "a.jpg"});
    row("umlaut", {QString::fromUtf8("@/Straße.jpg")}, {QString::fromUtf8("Straße.jpg")});
    row("behind two dashes", {"--", "@/-v.jpg"}, {"-v.jpg"});
    row("address", {"file://@/b%20c.CR2"}, {"b c.CR2"});
    row("address, umlaut and percent", {"file://@/Stra%C3%9Fe.jpg", "FILE://@/100%2541.jpg"},
        {QString::fromUtf8("Straße.jpg"), "100%41.jpg"});
    row("address with this host", {"file://localhost@/a.jpg"}, {"a.jpg"});
    row("address with one slash", {"file:@/a.jpg"}, {"a.jpg"});
    row("address of another host", {"file://elsewhere@/a.jpg", "@/a.jpg"}, {"a.jpg"}, 1);
    row("a path isn't decoded", {"@/100%41.jpg"}, {"100%41.jpg"});
    row("a file that is called so", {"@/file:x.jpg"}, {"file:x.jpg"});
    row("folder", {"@/folder.jpg", "@"}, {}, 2);
    row("nothing there", {"@/missing.jpg", "", "file:", "http://localhost/a.jpg", "@/a.jpg"}, {"a.jpg"}, 4);
}

void TestCommandLine::files()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, expected);
    QFETCH(int, passedOver);
    arguments.replaceInStrings("@", m_folder.path());
    const CommandLine line = readCommandLine(QStringList{"kesmira"} + arguments);
    for (QString &name : expected) name = m_folder.filePath(name);
    QStringList found;
    for (const QString &path : line.files) {
        QVERIFY2(QDir::isAbsolutePath(path), qPrintable(path));
        found << QDir::cleanPath(path);
    }
    QCOMPARE(found, expected);
    QCOMPARE(line.passedOver.size(), passedOver);
    for (const QString &complaint : line.passedOver)
        QVERIFY(std::any_of(arguments.begin(), arguments.end(),
                            [&](const QString &argument) { return complaint.contains('\'' + argument + '\''); }));
    QCOMPARE(line.wrong + line.text, QString());
}

void TestCommandLine::options_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("text");  ///< begin of it
    QTest::addColumn<QString>("wrong"); ///< a part of it
    QTest::newRow("-h") << QStringList{"-h"} << "Usage: "
                        << "";
    QTest::newRow("help is above version") << QStringList{"-v", "a.jpg", "--help"} << "Usage: "
                                           << "";
    QTest::newRow("-v") << QStringList{"-v"} << "Kesmira 7."
                        << "";
    QTest::newRow("unknown") << QStringList{"--verbose"} << ""
                             << "verbose";
    QTest::newRow("the toolkit's, which holds a v") << QStringList{"-reverse"} << ""
                                                    << "reverse";
    QTest::newRow("a value where none belongs") << QStringList{"--json=x"} << ""
                                                << "json";
}

void TestCommandLine::options()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, text);
    QFETCH(QString, wrong);
    const CommandLine line = readCommandLine(QStringList{"kesmira"} + arguments);
    QCOMPARE(line.text.left(qMax(text.size(), 1)).left(text.size()), text);
    QCOMPARE(line.text.isEmpty(), text.isEmpty());
    QCOMPARE(line.wrong.isEmpty(), wrong.isEmpty());
    QVERIFY(line.wrong.contains(wrong));
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_command_line.moc"
