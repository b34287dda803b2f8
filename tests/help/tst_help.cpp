// The help pages as they lie in the tree, which is how they are installed: whole in every language, with links that lead
// somewhere, and with the words that the window shows.
#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

namespace {

const QString helpFolder = QStringLiteral(KESMIRA_SOURCE_DIR "/res/help");
const QStringList languages{"DE", "EN", "ES", "FR", "IT", "JA", "CN"};
const QStringList topics = QStringLiteral("Add_JPEG_files Deep_salvage Extract_Thumbnail Halveon_Repair_for_Photo "
                                          "How_Whole Overview Preview_and_Save_JPEG_Files Raw_and_HEIC "
                                          "Repair_JPEG_files Updates User_Interface")
                               .split(' ');

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString pagePath(const QString &language, const QString &topic)
{
    return helpFolder + "/HelpPhoto_" + language + '/' + topic + ".htm";
}

/// What the first group of `pattern` matched, in the text's order.
QStringList allOf(const QString &text, const QString &pattern)
{
    QStringList found;
    auto match = QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption).globalMatch(text);
    while (match.hasNext()) found << match.next().captured(1);
    return found;
}

QSet<QString> setOf(const QStringList &list)
{
    return {list.begin(), list.end()};
}

QStringList idsOf(const QString &page)
{
    return allOf(page, "\\bid=\"([^\"]*)\"");
}

QStringList picturesOf(const QString &page)
{
    return allOf(page, "<img src=\"([^\"]*)\"");
}

QString mainOf(const QString &page)
{
    return allOf(page, "(<main id=\"content\">.*</main>)").value(0);
}

/// A word of the window without what its place adds: the mark of a key, dots and blanks at its ends.
QString plainWord(QString word)
{
    static const QRegularExpression ends("^\\s+|[\\s.]+$");
    return word.replace("&amp;", "&").remove(QRegularExpression("&(?=\\w)")).remove(ends);
}

QSet<QString> plainWords(const QStringList &words)
{
    QSet<QString> plain;
    for (const QString &word : words) plain.insert(plainWord(word));
    return plain;
}

/// The texts of the window in one language.
QSet<QString> translatedWords(const QString &language)
{
    QStringList words;
    QDirIterator files(KESMIRA_SOURCE_DIR "/PhotoTranslation", {'*' + language + "*.ts"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly)) continue;
        for (QXmlStreamReader reader(&file); !reader.atEnd();)
            if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("translation"))
                words << reader.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    return plainWords(words);
}

/// "" if a link or picture of the page at `from` leads to something in the help, else what is wrong with it.
QString linkProblem(const QString &from, const QString &link)
{
    const QString file = link.section('#', 0, 0);
    const QString fragment = link.section('#', 1);
    if (link.contains(':') || link.startsWith('/')) return link + " leads out of the help";
    const QString target = file.isEmpty() ? from : QDir::cleanPath(QFileInfo(from).path() + '/' + file);
    if (!target.startsWith(helpFolder + '/')) return link + " leads out of the help";
    if (!QFileInfo(target).isFile()) return link + " leads nowhere";
    if (link.contains('#') && !idsOf(textOf(target)).contains(fragment)) return link + " names no section";
    return {};
}

} // namespace

class TestHelp : public QObject
{
    Q_OBJECT

private slots:
    void page_data();
    void page();
    void wordsOfTheWindow_data();
    void wordsOfTheWindow();
    void commonFiles();
};

void TestHelp::page_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("topic");
    for (const QString &language : languages)
        for (const QString &topic : topics)
            QTest::addRow("%s %s", qPrintable(language), qPrintable(topic)) << language << topic;
}

void TestHelp::page()
{
    QFETCH(QString, language);
    QFETCH(QString, topic);
    const QString path = pagePath(language, topic);
    const QString page = textOf(path);
    const QString tag = language == "CN" ? "zh-CN" : language.toLower(); // the folder has the name of the catalogue
    QVERIFY2(page.startsWith("<!DOCTYPE html>\n<html lang=\"" + tag + "\">\n"), "no page of its language");
    QCOMPARE(allOf(page, "<title>([^<]+) – Kesmira</title>"), allOf(page, "<h1>([^<]+)</h1>"));
    QCOMPARE(allOf(page, "<h1>([^<]+)</h1>").size(), 1);
    QCOMPARE(setOf(idsOf(page)).size(), idsOf(page).size());

    const QString topicLinks = allOf(page, "<nav class=\"topics\"(.*?)</nav>").value(0);
    QCOMPARE(setOf(allOf(topicLinks, "href=\"(\\w+)\\.htm\"")), setOf(topics));
    QCOMPARE(allOf(topicLinks, "href=\"(\\w+)\\.htm\" aria-current=\"page\""), QStringList{topic});
    QStringList elsewhere;
    for (const QString &other : languages) elsewhere << "../HelpPhoto_" + other + '/' + topic + ".htm";
    QCOMPARE(allOf(allOf(page, "<nav class=\"languages\"(.*?)</nav>").value(0), "href=\"([^\"]*)\""), elsewhere);

    for (const QString &link : allOf(page, "\\b(?:href|src)=\"([^\"]*)\""))
        QVERIFY2(linkProblem(path, link).isEmpty(), qPrintable(linkProblem(path, link)));
    QCOMPARE(allOf(page, "<img [^>]*\\balt=\"([^\"]{20,})\"").size(), picturesOf(page).size());
    for (const char *unwanted : {"://", "<script", "<style", "mailto:", "style=", "[[", "]]"})
        QVERIFY2(!page.contains(unwanted), unwanted);

    // The sections are those of the English page.
    const QString content = mainOf(page);
    const QString english = mainOf(textOf(pagePath("EN", topic)));
    QVERIFY(idsOf(english).size() > 2);
    QCOMPARE(idsOf(content), idsOf(english));
    QCOMPARE(picturesOf(content), picturesOf(english));
    for (const char *element : {"<li>", "<dt>", "<tr>", "<p", "<kbd>", "<code>", "<b class"})
        QVERIFY2(content.count(element) == english.count(element), element);
    if (language != "EN")
        QVERIFY(setOf(allOf(content, "<p>([^<]{40,})")).intersect(setOf(allOf(english, "<p>([^<]{40,})"))).isEmpty());
}

void TestHelp::wordsOfTheWindow_data()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : languages) QTest::newRow(qPrintable(language)) << language;
}

void TestHelp::wordsOfTheWindow()
{
    QFETCH(QString, language);
    const QSet<QString> known = translatedWords(language);
    for (const QString &topic : topics)
        for (const QString &word : allOf(textOf(pagePath(language, topic)), "<b class=\"ui\">([^<]*)</b>"))
            QVERIFY2(known.contains(plainWord(word.simplified())),
                     qPrintable(topic + ": the window says nothing like '" + word + '\''));
}

void TestHelp::commonFiles()
{
    const QString folder = helpFolder + "/HelpPhoto_common";
    const QString sheet = textOf(folder + "/help.css");
    QVERIFY(!sheet.isEmpty());
    for (const char *unwanted : {"url(", "@import", "@font-face"}) QVERIFY2(!sheet.contains(unwanted), unwanted);
    QSet<QString> shown;
    for (const QString &topic : topics)
        for (const QString &picture : picturesOf(textOf(pagePath("EN", topic)))) shown << QFileInfo(picture).fileName();
    const QFileInfoList pictures = QDir(folder + "/pictures").entryInfoList(QDir::Files);
    QCOMPARE(pictures.size(), shown.size());
    for (const QFileInfo &picture : pictures) {
        QVERIFY2(shown.contains(picture.fileName()), qPrintable(picture.fileName()));
        QVERIFY2(picture.size() < 80 * 1024, qPrintable(picture.fileName()));
    }
}

QTEST_GUILESS_MAIN(TestHelp)
#include "tst_help.moc"
