// The catalogues: every text of the source has its translation, and says it in the form of the source.

#include "app/WorkingRoot.h"
#include "desktop/platform/Platform.h"
#include "dialogs/AdvancedRepairDlg.h"
#include "support/Files.h"
#include "support/Spoken.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

struct Message
{
    QString context, source, state; ///< state: "" finished, "unfinished", "vanished", "obsolete"
    QStringList translations;       ///< several for a text with numbers
};

QList<Message> readMessages(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QList<Message> messages;
    Message message;
    QString context;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("name")) context = xml.readElementText();
        if (xml.name() == QLatin1String("source")) message = {context, xml.readElementText(), {}, {}};
        if (xml.name() != QLatin1String("translation")) continue;
        message.state = xml.attributes().value("type").toString();
        QString text;
        while (xml.readNext() != QXmlStreamReader::EndElement || xml.name() != QLatin1String("translation")) {
            if (xml.isCharacters()) text += xml.text();
            if (xml.isStartElement())
                message.translations << xml.readElementText(QXmlStreamReader::IncludeChildElements);
        }
        if (message.translations.isEmpty()) message.translations << text;
        messages << message;
    }
    return messages;
}

QStringList placeholders(const QString &text)
{
    QStringList found;
    auto it = QRegularExpression("%(\\d|n)").globalMatch(text);
    while (it.hasNext()) found << it.next().captured();
    found.sort();
    return found;
}

int mnemonics(QString text)
{
    return text.remove("&&").count(QRegularExpression("&\\S"));
}

/// What of the form of `source` isn't there in `translation`; "" for nothing. What is half of a bracket or a quotation
/// is judged where it is joined, and Japanese and Chinese set no blanks.
QString difference(const QString &source, const QString &translation, bool setsBlanks)
{
    const auto blanks = [](const QString &text, bool front) {
        static const QRegularExpression head("^[ \\n]*"), tail("[ \\n]*$");
        return (front ? head : tail).match(text).capturedLength() > 0;
    };
    if (translation.isEmpty()) return "empty";
    if (placeholders(source) != placeholders(translation)) return "placeholders";
    // "&" in quoted words is an "and" of the source.
    if (!source.contains(" & ") && mnemonics(source) != mnemonics(translation)) return "mnemonic";
    if (source.count('\n') != translation.count('\n')) return "line breaks";
    if (!setsBlanks || source == " '") return {};
    if (blanks(source, true) != blanks(translation, true)) return "leading blanks";
    if (blanks(source, false) != blanks(translation, false) && source.contains(')') == source.contains('('))
        return "trailing blanks";
    return {};
}

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void everyTextIsTranslated_data() { languages(); }
    void everyTextIsTranslated();
    void formIsKept_data() { languages(); }
    void formIsKept();
    void joinedTexts_data() { languages(); }
    void joinedTexts();
    void catalogueIsBuilt_data() { languages(); }
    void catalogueIsBuilt();
    void reasonsAtTheStart_data() { languages(); }
    void reasonsAtTheStart();
    void reasonsOfTheHeicPanel();

private:
    static void languages()
    {
        QTest::addColumn<QString>("language");
        for (const QString &language : Spoken::all()) QTest::newRow(qPrintable(language)) << language;
    }
    static QString file(const QString &language)
    {
        return QStringLiteral(KESMIRA_SOURCE_DIR "/PhotoTranslation/LANG_%1.ts").arg(language);
    }
};

void TestTranslations::everyTextIsTranslated()
{
    QFETCH(QString, language);
    // A copy is brought up to date with the source: what is new in it has no translation, what is gone says so.
    const QTemporaryDir folder;
    const QString copy = folder.filePath("LANG.ts");
    QVERIFY(QFile::copy(file(language), copy));
    QProcess update;
    update.start(KESMIRA_LUPDATE, {"-silent", "-locations", "none", KESMIRA_SOURCE_DIR "/src", "-ts", copy});
    QVERIFY(update.waitForFinished(60000) && update.exitCode() == 0);
    const QList<Message> messages = readMessages(copy);
    QVERIFY(messages.size() > 150);
    QStringList wrong;
    for (const Message &message : messages)
        if (!message.state.isEmpty()) wrong << message.state + ": " + message.context + " \"" + message.source + '"';
    QCOMPARE(wrong.join("; "), QString());
}

void TestTranslations::formIsKept()
{
    QFETCH(QString, language);
    QStringList wrong;
    const bool setsBlanks = language != "JA" && language != "CN";
    // French sets a blank in front of these signs and inside its quotes, where no line may end.
    static const QRegularExpression breakable(" [:;!?»]|« ");
    for (const Message &message : readMessages(file(language))) {
        for (const QString &translation : message.translations) {
            QString what = difference(message.source, translation, setsBlanks);
            if (language == "FR" && translation.contains(breakable)) what = "blank that may break a line";
            if (!what.isEmpty()) wrong << what + ": \"" + translation + '"';
        }
    }
    QCOMPARE(wrong.join("; "), QString());
}

/// Texts that the program puts together from two read as one, English with its misprints mended.
void TestTranslations::joinedTexts()
{
    QFETCH(QString, language);
    const Spoken spoken(language);
    static const QRegularExpression seam("[.)]\\p{L}|\\([^)]*$| ' |  ");
    for (const QString &text : {readOnlyDestinationText(), AdvancedRepairDlg::heicText("standard")})
        QVERIFY2(!text.contains(seam), qPrintable(text));
}

void TestTranslations::catalogueIsBuilt()
{
    QFETCH(QString, language);
    const Spoken spoken(language);
    QVERIFY(spoken.isThere());
    const QString stop = QCoreApplication::translate("BrowseRepairObj", "Show Thumbnail");
    QCOMPARE(stop == "Show Thumbnail", language == "EN");
    // The toolkit's own words, as its dialogs show them.
    const QString locale = language == "CN" ? QString("zh_CN") : language.toLower();
    QTranslator toolkit;
    QVERIFY(toolkit.load("qt_" + locale, QStringLiteral(KESMIRA_TRANSLATIONS "/") + language));
    QCOMPARE(toolkit.translate("QPlatformTheme", "Cancel").isEmpty(), language == "EN");
}

/// The reason why the working folder is unfit: one with the folder alone, one with the system's words too.
void TestTranslations::reasonsAtTheStart()
{
    QFETCH(QString, language);
    const Spoken spoken(language);
    const QTemporaryDir folder;
    const QString file = folder.filePath("50%2 off");
    write(file, "no folder");
    for (const QString &root : {file, file + "/below"}) {
        setWorkingRoot(root);
        const QString reason = prepareWorkingRoot();
        setWorkingRoot({});
        QVERIFY2(reason.contains(root), qPrintable(reason));
        QCOMPARE(reason.contains("Not a directory"), root != file);
        QCOMPARE(reason.startsWith("the working folder '"), language == "EN");
    }
}

/// The parts of the panel give their reasons in English, and a list in the panel makes them translatable: none is missing.
void TestTranslations::reasonsOfTheHeicPanel()
{
    QStringList known;
    for (const Message &message : readMessages(file("DE")))
        if (message.context == "HeicProblem") known << message.source;
    QStringList sources{KESMIRA_SOURCE_DIR "/src/engine/heic/ReadingCopy.cpp"};
    const QDir panel(KESMIRA_SOURCE_DIR "/src/fileutil");
    for (const QString &name : panel.entryList({"*.cpp"})) sources << panel.filePath(name);
    int found = 0;
    for (const QString &source : sources) {
        const QString code = QString::fromUtf8(contents(source));
        auto it = QRegularExpression("(?:problem =|return) QStringLiteral\\(\\s*\"([a-z][^\"]+)\"").globalMatch(code);
        while (it.hasNext()) {
            const QString reason = it.next().captured(1);
            if (reason == "the reading copy can't be written") continue; // the batch program's alone
            QVERIFY2(known.contains(reason), qPrintable(source + ": " + reason));
            ++found;
        }
    }
    QVERIFY(found > 10);
}

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
