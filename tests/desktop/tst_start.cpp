// The start of a desktop program: paths, language, description of the system, version records.

#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/LinkFile.h"
#include "desktop/Paths.h"
#include "desktop/ScreenFit.h"
#include "desktop/platform/PlatformLinux.h"
#include "support/FakeDesktop.h"
#include "support/Files.h"

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

Q_DECLARE_METATYPE(ProcessorFamily)

namespace {

constexpr int kUnset = -2147483647 - 1;

QByteArray number(quint32 value)
{
    QByteArray bytes(4, 0);
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// A compiled translation file with one text, whose source has this ELF hash ("OK": 0x53B, "NO": 0x52F).
QByteArray translationFile(quint32 hash, const QString &text)
{
    QByteArray letters;
    for (const QChar letter : text) letters.append(char(letter.unicode() >> 8)).append(char(letter.unicode()));
    const QByteArray message = '\3' + number(quint32(letters.size())) + letters + '\1';
    return QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd") + '\x42' + number(8) + number(hash) + number(0)
        + '\x69' + number(quint32(message.size())) + message;
}

QStringList setFlags()
{
    QStringList set;
    for (const auto &[name, flag] : QVector<QPair<QString, bool>>{{"English", pApp->bLangEnglish},
                                                                  {"German", pApp->bLangGerman},
                                                                  {"French", pApp->bLangFrench},
                                                                  {"Italian", pApp->bLangItalian},
                                                                  {"Spanish", pApp->bLangSpanish},
                                                                  {"Japanese", pApp->bLangJapanese},
                                                                  {"Chinese", pApp->bLangChinese}}) {
        if (flag) set << name;
    }
    return set;
}

} // namespace

class TestStart : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.filePath("c")); }
    void cleanup();

    void paths_data();
    void paths();
    void storedLanguage_data();
    void storedLanguage();
    void ownSettings();
    void links();
    void language_data();
    void language();
    void description_data();
    void description();
    void versionRecords();
    void fitsTheScreen_data();
    void fitsTheScreen();

private:
    QTemporaryDir m_folder;
};

void TestStart::cleanup()
{
    pApp->bChineseBuild = false;
    setLanguageFlags(kUnset);
    setPlatform(nullptr);
}

void TestStart::paths_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("six");
    QTest::addColumn<QString>("nine");
    QTest::addColumn<QString>("four");
    QTest::newRow("deep") << "/1/2/3/4/5/6/7/8/9/10/11"
                          << "/1/2/3/4/5"
                          << "/1/2"
                          << "/1/2/3/4/5/6/7";
    QTest::newRow("slash at the end") << "/1/2/3/4/5/6/7/8/9/10/"
                                      << "/1/2/3/4"
                                      << "/1"
                                      << "/1/2/3/4/5/6";
    QTest::newRow("not so deep") << "/1/2/3/4/5"
                                 << ""
                                 << ""
                                 << "/1";
    QTest::newRow("flat") << "/opt"
                          << ""
                          << ""
                          << "";
}

void TestStart::paths()
{
    QFETCH(QString, folder);
    QFETCH(QString, six);
    QFETCH(QString, nine);
    QFETCH(QString, four);
    setApplicationPaths(folder);
    QCOMPARE(pApp->strDriveWatchPath, six + "/TreskenDriveWatch.app");
    QCOMPARE(pApp->strFullRecoverPhotoPath, six + "/TreskenFullRecoverPhoto.app");
    QCOMPARE(pApp->strClipMenderPath, six + "/TreskenClipMender.app");
    QCOMPARE(pApp->strFullRecoverPath, nine + "/TreskenFullRecover.app");
    QCOMPARE(pApp->strResourcesPath, four + "/Resources");
    QCOMPARE(pApp->strLinkPlistPath, four + "/Resources/KMJPGLink.plist");
    QCOMPARE(pApp->strPreviewHelperPath, folder + (folder.endsWith('/') ? "" : "/") + "FileUtil.app");
}

void TestStart::storedLanguage_data()
{
    QTest::addColumn<QByteArray>("text"); ///< of the settings file; null: there is none
    QTest::addColumn<int>("expected");
    QTest::newRow("no file") << QByteArray() << kUnset;
    QTest::newRow("no key") << QByteArray("[General]\nKBName=x\n") << kUnset;
    QTest::newRow("Italian") << QByteArray("[General]\nLanguageType=3\n") << 3;
    QTest::newRow("Chinese, not Japanese") << QByteArray("[General]\nLanguageType=5\nChosenLanguage=6\n") << 6;
    QTest::newRow("changed by a sibling") << QByteArray("[General]\nLanguageType=3\nChosenLanguage=6\n") << 3;
    QTest::newRow("no such language") << QByteArray("[General]\nLanguageType=9\n") << 9;
    QTest::newRow("no number") << QByteArray("[General]\nLanguageType=French\n") << kUnset;
    QTest::newRow("rubbish") << QByteArray("\0\xFF[[=\n", 6) << kUnset;
}

void TestStart::storedLanguage()
{
    QFETCH(QByteArray, text);
    pApp->strLinkPlistPath = m_folder.filePath(QTest::currentDataTag());
    if (!text.isNull()) write(pApp->strLinkPlistPath, text);
    QTEST(::storedLanguage(), "expected");
    QCOMPARE(QFileInfo::exists(pApp->strLinkPlistPath), !text.isNull());
}

void TestStart::ownSettings()
{
    // Of an installed program only the user's own copy of the settings can be written.
    PlatformLinux linuxSystem;
    setPlatform(&linuxSystem);
    const QString shipped = m_folder.filePath("shipped/KMJPGLink.plist");
    QDir(m_folder.path()).mkdir("shipped");
    write(shipped, "[General]\nLanguageType=0\nKBName=base\n");
    QFile::setPermissions(shipped, QFile::ReadOwner);
    pApp->strLinkPlistPath = shipped;
    QCOMPARE(::storedLanguage(), 0);
    storeLanguage(languages()[4]);
    QCOMPARE(::storedLanguage(), 4);
    QCOMPARE(linkFile::text("KBName"), QString("base"));
    const QString own = linuxSystem.userSettingsFile(shipped);
    QVERIFY(own.endsWith("/kesmira/KMJPGLink.plist") && QFileInfo::exists(own));
    // A later release moves an address and ships a key.
    QFile::setPermissions(shipped, QFile::ReadOwner | QFile::WriteOwner);
    write(shipped, "[General]\nLanguageType=1\nKBName=another\nWebsiteName=new\n");
    QCOMPARE(::storedLanguage(), 4);
    QCOMPARE(linkFile::text("KBName") + linkFile::text("WebsiteName"), QString("anothernew"));
    QVERIFY(QFile::remove(own));
    setPlatform(nullptr);
}

void TestStart::links()
{
    // Every field has its key in the file that is shipped, and every language has all of its own.
    pApp->strLinkPlistPath = KESMIRA_SOURCE_DIR "/res/KMJPGLink.plist";
    pApp->GetPlistLinks();
    for (const QString *field :
         {&pApp->strContactSalesLink, &pApp->strContactSalesName, &pApp->strEmailToSupport, &pApp->strSupportName,
          &pApp->strKBLink, &pApp->strKBName, &pApp->strSkypeID, &pApp->strSkypeLink, &pApp->strSubmitEnquiryLink,
          &pApp->strSubmitEnquiryName, &pApp->strWebsiteLink, &pApp->strWebsiteName})
        QVERIFY(!field->isEmpty());
    QCOMPARE(::storedLanguage(), 0);
    for (const Language &language : languages()) {
        setLanguageFlags(language.number);
        for (const char *base : {"SupportLink", "SupportName", "EmailToSupport", "SubmitEnquiryLink", "UpdateLink",
                                 "WhatsNewLink", "VisitUpdateLink"}) {
            const QString text = linkFile::languageText(base);
            QVERIFY2(!text.isEmpty(), base);
            QVERIFY2(!text.contains("://") || text.contains(".example.invalid/"), base);
        }
    }
    setLanguageFlags(5);
    QCOMPARE(linkFile::languageText("SupportName"), QString("サポート"));
    setLanguageFlags(-1);
    QCOMPARE(linkFile::languageText("SupportName"), QString());
}

void TestStart::language_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("isChineseBuild");
    QTest::addColumn<QStringList>("flags");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("qtFile");
    QTest::addColumn<QString>("picture");
    const auto row = [](const char *name, int number, const char *folder, const char *qtFile, const char *picture) {
        QTest::newRow(name) << number << false << QStringList{name} << folder << qtFile << picture;
    };
    row("English", 0, "EN", "qt_en", "en");
    row("German", 1, "DE", "qt_de", "de");
    row("French", 2, "FR", "qt_fr", "fr");
    row("Italian", 3, "IT", "qt_it", "it");
    row("Spanish", 4, "ES", "qt_es", "es");
    row("Japanese", 5, "JA", "qt_ja", "cja");
    row("Chinese", 6, "CN", "qt_zh_CN", "cn");
    for (int number : {7, -1, kUnset}) {
        QTest::addRow("%d", number) << number << false << QStringList() << ""
                                    << ""
                                    << "en";
        QTest::addRow("Chinese build, %d", number) << number << true << QStringList{"Chinese"} << "CN"
                                                   << "qt_zh_CN"
                                                   << "cn";
    }
    QTest::newRow("Chinese build, French chosen") << 2 << true << QStringList{"Chinese"} << "CN"
                                                  << "qt_zh_CN"
                                                  << "cn";
}

void TestStart::language()
{
    QFETCH(int, number);
    QFETCH(bool, isChineseBuild);
    QFETCH(QString, folder);
    QFETCH(QString, qtFile);
    QFETCH(QString, picture);
    pApp->strResourcesPath = m_folder.filePath("Resources");
    const QString place = pApp->strResourcesPath + "/PhotoTranslation/" + folder;
    // Spanish lies there as well: a language that isn't the current one must not show.
    for (const QString &name : {folder, QString("ES")}) {
        if (folder.isEmpty()) continue;
        const QString path = pApp->strResourcesPath + "/PhotoTranslation/" + name + '/';
        write(path + "LANG_" + name + ".qm", translationFile(0x53B, "program " + name));
        write(path + (name == folder ? qtFile : "qt_es") + ".qm", translationFile(0x52F, "toolkit " + name));
    }
    setLanguageFlags(5); // something to be cleared
    pApp->bChineseBuild = isChineseBuild;
    setLanguageFlags(number);
    QTEST(setFlags(), "flags");
    QCOMPARE(placeholderPicture(), ":/res/preview1" + picture + ".png");
    QCOMPARE(noPreviewPicture(), ":/res/preview" + picture + ".png");

    loadTranslators();
    const QString program = QCoreApplication::translate("x", "OK");
    const QString toolkit = QCoreApplication::translate("x", "NO");
    for (const Language &language : languages()) {
        QCoreApplication::removeTranslator(language.qtTranslator);
        QCoreApplication::removeTranslator(language.appTranslator);
    }
    QDir(pApp->strResourcesPath).removeRecursively();
    QCOMPARE(program, folder.isEmpty() ? "OK" : "program " + folder);
    QCOMPARE(toolkit, folder.isEmpty() ? "NO" : "toolkit " + folder);
    if (!folder.isEmpty()) QCOMPARE(TranslatorPath, place);
}

void TestStart::description_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("processor");
    QTest::addColumn<ProcessorFamily>("family");
    QTest::addColumn<QStringList>("expected"); ///< version in hexadecimal, version, processor
    using Family = ProcessorFamily;
    QTest::newRow("named processor") << 0x1068 << 0x013C << Family::PowerPc
                                     << QStringList{"1068", ": 10.6.8", ": Power Mac G5(970 FX)"};
    QTest::newRow("four letters") << 0x1260 << 0x69356976 << Family::Intel
                                  << QStringList{"1260", ": 12.6.0", ": Intel Pentium 4"};
    QTest::newRow("family") << 0x0922 << 0 << Family::Intel << QStringList{"922", ": 09.2.2", ": Intel x86"};
    QTest::newRow("family, unknown code") << 0 << 7 << Family::PowerPc << QStringList{"0", ": 00.0.0", ": IBM PowerPC"};
    QTest::newRow("old family") << 0x1000 << 0 << Family::Motorola << QStringList{"1000", ": 10.0.0", ": Motorola"};
}

void TestStart::description()
{
    RecordingPlatform fake;
    QFETCH(QStringList, expected);
    QFETCH(int, version);
    QFETCH(int, processor);
    QFETCH(ProcessorFamily, family);
    fake.description = {"host", "An OS", version, processor, family};
    setPlatform(&fake);
    pApp->GetMySystemInfo();
    QCOMPARE(QStringList({pApp->strHostName, pApp->strOsName}), QStringList({": host", ": An OS"}));
    QCOMPARE(QStringList({pApp->strOsVersionHex, pApp->strOsVersion, pApp->strProcessorName}), expected);
}

void TestStart::versionRecords()
{
    const auto records = [] {
        const QSettings store("apple", "KMPR.db");
        return QStringList{store.value("VInfoType", "-").toString(), store.value("VNo", "-").toString(),
                           store.value("VUpdate", "-").toString()};
    };
    const QStringList fresh{"Major", "7.0.0.0", ""};
    int window = 0;
    QCOMPARE(records(), (QStringList{"-", "-", "-"}));
    pApp->InitInstance(&window);
    QCOMPARE(records(), fresh);
    QCOMPARE(pApp->pWindow, static_cast<void *>(&window));

    QSettings("apple", "KMPR.db").setValue("VNo", "8.1");
    pApp->InitInstance(nullptr);
    QCOMPARE(records(), (QStringList{"Major", "8.1", ""}));
    pApp->ApplicationInfoSettings();
    QCOMPARE(records(), fresh);
}

void TestStart::fitsTheScreen_data()
{
    QTest::addColumn<QSize>("screen"); ///< the screen's own pixels, less what panels take
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("fitting"); ///< the scale that is started anew with; empty: it fits as it is
    QTest::newRow("ample") << QSize(1920, 1080) << QByteArray() << QByteArray();
    QTest::newRow("to the pixel") << QSize(849, 598) << QByteArray("1") << QByteArray();
    QTest::newRow("wide and low") << QSize(1280, 720) << QByteArray("1.5") << QByteArray("1.204");
    QTest::newRow("the common small one") << QSize(1366, 768) << QByteArray("1.5") << QByteArray("1.284");
    QTest::newRow("at twice the size") << QSize(1920, 1080) << QByteArray("2") << QByteArray("1.806");
    QTest::newRow("a line is missing") << QSize(849, 597) << QByteArray() << QByteArray("0.998");
    QTest::newRow("high and narrow") << QSize(720, 1280) << QByteArray() << QByteArray("0.848");
    QTest::newRow("unknown") << QSize() << QByteArray("3") << QByteArray();
}

void TestStart::fitsTheScreen()
{
    QFETCH(QSize, screen);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, fitting);
    RecordingPlatform platform;
    setPlatform(&platform);
    before.isEmpty() ? qunsetenv("QT_SCALE_FACTOR") : qputenv("QT_SCALE_FACTOR", before);
    char name[] = "kesmira", file[] = "a b.jpg";
    char *words[] = {name, file};
    ScreenFit fit(2, words);
    const double scale = before.isEmpty() ? 1.0 : before.toDouble();
    fit.fit({849, 598}, (QSizeF(screen) / scale).toSize());
    QCOMPARE(platform.calls, fitting.isEmpty() ? QStringList() : QStringList("anew kesmira a b.jpg at " + fitting));
    if (!fitting.isEmpty()) {
        QVERIFY(screen.width() / fitting.toDouble() >= 849 && screen.height() / fitting.toDouble() >= 598);
        // In the program that was started so: not once more, however small the screen, and its children scale as before.
        qputenv("KESMIRA_SCALE_BEFORE", before);
        qputenv("QT_SCALE_FACTOR", fitting);
        fit.fit({849, 598}, {100, 100});
        QCOMPARE(platform.calls.size(), 1);
    }
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), before);
    QVERIFY(!qEnvironmentVariableIsSet("KESMIRA_SCALE_BEFORE"));
    qunsetenv("QT_SCALE_FACTOR");
    setPlatform(nullptr);
}

QTEST_GUILESS_MAIN(TestStart)
#include "tst_start.moc"
