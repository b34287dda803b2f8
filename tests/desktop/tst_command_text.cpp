// The command lines of the other desktop system, letter by letter, and the reading of its answers.

#include "desktop/platform/CommandText.h"

#include <QProcess>
#include <QTest>

class TestCommandText : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void revealScript_data();
    void revealScript();
    void namesReachTheShellWhole_data();
    void namesReachTheShellWhole();
    void helperIds();
    void version_data();
    void version();
    void readOnlyPlace_data();
    void readOnlyPlace();
    void installSteps();
};

void TestCommandText::lines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("list") << commandText::listHelpers()
                          << "ps -A | grep /FileUtil.app/Contents/MacOS/FileUtil > /var/tmp/TempFile";
    QTest::newRow("end") << commandText::endProcess(4711) << "kill -9 4711";
    QTest::newRow("version") << commandText::askVersion() << "sw_vers | grep 'ProductVersion:' >> /var/tmp/TempFile";
    QTest::newRow("runnable") << commandText::makeRevealScriptRunnable() << "chmod 777 /var/tmp/slpScpt";
    QTest::newRow("application") << commandText::startApplication("/Apps/A b.app") << "open -a '/Apps/A b.app'";
    QTest::newRow("address") << commandText::openAddress("Google Chrome", "http://x.org/?a=1&b=2")
                             << "open -a Google Chrome 'http://x.org/?a=1&b=2'";
}

void TestCommandText::lines()
{
    QFETCH(QString, line);
    QTEST(line, "expected");
}

void TestCommandText::revealScript_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("written");
    QTest::newRow("plain") << "/Users/x/My Photos"
                           << "/Users/x/My Photos";
    QTest::newRow("double quotes") << "/p/\"a\""
                                   << "/p/\\\"a\\\"";
    QTest::newRow("the shell's letters") << "/p/$HOME`x`"
                                         << "/p/\\$HOME\\`x\\`";
    QTest::newRow("backslash") << "/p/a\\b"
                               << "/p/a\\\\\\\\b";
    QTest::newRow("line end") << "/p/a\nEOT\nb"
                              << "/p/a EOT b";
}

void TestCommandText::revealScript()
{
    QFETCH(QString, path);
    QFETCH(QString, written);
    QCOMPARE(commandText::revealScript(path),
             "#!/bin/bash\nosascript << EOT\nset theFile to \"" + written
                 + "\"\nset a to POSIX file thefile\ntell application \"Finder\" to activate\n"
                   "tell application \"Finder\"\nreveal a\nend\nEOT");
}

void TestCommandText::namesReachTheShellWhole_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("argument");
    QTest::newRow("plain") << "/t/a.heic"
                           << "/t/a.heic";
    QTest::newRow("blank ends it") << "/t/a b.heic"
                                   << "/t/a";
    QTest::newRow("command") << "/t/a;exit"
                             << "/t/a;exit";
    QTest::newRow("substitution") << "/t/$(exit)`exit`$HOME"
                                  << "/t/$(exit)`exit`$HOME";
    QTest::newRow("quotes") << "/t/it's\"\\"
                            << "/t/it's\"\\";
    QTest::newRow("redirection") << "/t/a>&2|b&c<d"
                                 << "/t/a>&2|b&c<d";
    QTest::newRow("patterns") << "/*?[a-z]{a,b}~#!"
                              << "/*?[a-z]{a,b}~#!";
    QTest::newRow("second line") << "/t/a\nexit"
                                 << "/t/a";
}

/// A real shell reads the line, with a function in the place of "open" that prints its words.
void TestCommandText::namesReachTheShellWhole()
{
    QFETCH(QString, file);
    QFETCH(QString, argument);
    const QString line = commandText::openAddress(file, "http://x.org");
    QProcess shell;
    shell.start("/bin/sh", {"-c", "open() { printf '%s\\n' \"$1\" \"$2\"; }\n" + line});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()), "-a\n" + argument + '\n');
}

void TestCommandText::helperIds()
{
    const QString answer = "  501 ??         0:00.11 /A/FileUtil.app/Contents/MacOS/FileUtil /t/a.heic\n"
                           " 4242 ttys000    0:00.00 grep /FileUtil.app/Contents/MacOS/FileUtil\n"
                           "  777 ??         0:09.00 /A/Other.app/Contents/MacOS/Other\n"
                           "nothing /FileUtil.app/Contents/MacOS/FileUtil\n\n";
    QCOMPARE(commandText::helperIds(answer), (QList<unsigned int>{501, 4242}));
    QVERIFY(commandText::helperIds({}).isEmpty());
}

void TestCommandText::version_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("version");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("system");
    QTest::newRow("three numbers") << "ProductVersion:\t10.15.7\n"
                                   << "10.15.7" << 0x1097 << "MAC OS X";
    QTest::newRow("two numbers, later lines") << "productversion: 12.6\nProductVersion: 9\n"
                                              << "12.6" << 0x1260 << "MAC OS X";
    QTest::newRow("old") << "ProductVersion: 9.2.2"
                         << "9.2.2" << 0x0922 << "";
    QTest::newRow("no answer") << ""
                               << "" << 0 << "";
    QTest::newRow("rubbish") << "x.-4.999999999999"
                             << "x.-4.999999999999" << 0 << "";
}

void TestCommandText::version()
{
    QFETCH(QString, answer);
    QFETCH(int, code);
    const QString version = commandText::versionIn(answer);
    QTEST(version, "version");
    QCOMPARE(commandText::versionCode(version), code);
    QTEST(commandText::systemName(code), "system");
}

void TestCommandText::readOnlyPlace_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("isReadOnly");
    for (const char *version : {"10.15", "10.16.1", "10.17.2"}) {
        QTest::addRow("%s, below the root", version) << version << "/Photos" << true;
        QTest::addRow("%s, deeper", version) << version << "/Users/x/Photos" << false;
    }
    for (const char *version : {"10.14.6", "10.18", "11", "12.6", ""})
        QTest::addRow("other version \"%s\"", version) << version << "/Photos" << false;
}

void TestCommandText::readOnlyPlace()
{
    QFETCH(QString, version);
    QFETCH(QString, folder);
    QTEST(commandText::isReadOnlyPlace(version, folder), "isReadOnly");
}

void TestCommandText::installSteps()
{
    QCOMPARE(
        commandText::installSteps("/Applications/My tools"),
        (QStringList{"rm -R /var/tmp/Vorlane/Kesmira.app", "unzip /var/tmp/Vorlane/Kesmira.zip -d/var/tmp/Vorlane/",
                     "rm -R /var/tmp/Vorlane/Kesmira.zip", "rm -R '/Applications/My tools/Kesmira.app'",
                     "ditto -rsrc '/var/tmp/Vorlane/Kesmira.app' '/Applications/My tools/Kesmira.app'",
                     "rm -R /var/tmp/Vorlane/Kesmira.app"}));
}

QTEST_APPLESS_MAIN(TestCommandText)
#include "tst_command_text.moc"
