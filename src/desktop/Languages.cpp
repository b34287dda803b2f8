#include "desktop/Languages.h"

#include "app/KesmiraApp.h"
#include "desktop/LinkFile.h"

#include <QCoreApplication>

#include <limits>

qint32 nLanguageType = 0;
QString TranslatorPath;
bool bChineseCustomBuild = false;

QTranslator &trans = *new QTranslator;
QTranslator &trans1 = *new QTranslator;
QTranslator &de_qtTranslator = *new QTranslator;
QTranslator &fr_qtTranslator = *new QTranslator;
QTranslator &It_qtTranslator = *new QTranslator;
QTranslator &es_qtTranslator = *new QTranslator;
QTranslator &ch_qtTranslator = *new QTranslator;
QTranslator &en_qtTranslator = *new QTranslator;
QTranslator &ja_qtTranslator = *new QTranslator;
QTranslator &de_myappTranslator = *new QTranslator;
QTranslator &fr_myappTranslator = *new QTranslator;
QTranslator &it_myappTranslator = *new QTranslator;
QTranslator &es_myappTranslator = *new QTranslator;
QTranslator &ch_myappTranslator = *new QTranslator;
QTranslator &en_myappTranslator = *new QTranslator;
QTranslator &ja_myappTranslator = *new QTranslator;

namespace {

constexpr int kNoLanguage = std::numeric_limits<int>::min();

/// A number outside of the table gives null.
const Language *languageOf(int number)
{
    return number >= 0 && number < languages().size() ? &languages()[number] : nullptr;
}

bool isFixedToChinese()
{
    return pApp->bChineseBuild || bChineseCustomBuild;
}

QString picture(const QString &name)
{
    const Language *language = currentLanguage();
    return ":/res/" + name + (language ? language->picture : languages().first().picture) + ".png";
}

void install(const Language &language)
{
    TranslatorPath = language.translationFolder();
    language.qtTranslator->load(language.qtFile, TranslatorPath);
    QCoreApplication::installTranslator(language.qtTranslator);
    language.appTranslator->load(language.appFile, TranslatorPath);
    QCoreApplication::installTranslator(language.appTranslator);
}

const QString kLanguageKey = QStringLiteral("LanguageType");
const QString kChoiceKey = QStringLiteral("ChosenLanguage");

} // namespace

QString Language::translationFolder() const
{
    return pApp->strResourcesPath + "/PhotoTranslation/" + folder;
}

const QVector<Language> &languages()
{
    static const QVector<Language> table{
        {0, &KesmiraApp::bLangEnglish, "EN", "qt_en", "LANG_EN", "en", &en_qtTranslator, &en_myappTranslator, 0,
         "English"},
        {1, &KesmiraApp::bLangGerman, "DE", "qt_de", "LANG_DE", "de", &de_qtTranslator, &de_myappTranslator, 1,
         "Deutsch"},
        {2, &KesmiraApp::bLangFrench, "FR", "qt_fr", "LANG_FR", "fr", &fr_qtTranslator, &fr_myappTranslator, 2,
         "Français"},
        {3, &KesmiraApp::bLangItalian, "IT", "qt_it", "LANG_IT", "it", &It_qtTranslator, &it_myappTranslator, 3,
         "Italiano"},
        {4, &KesmiraApp::bLangSpanish, "ES", "qt_es", "LANG_ES", "es", &es_qtTranslator, &es_myappTranslator, 4,
         "Español"},
        {5, &KesmiraApp::bLangJapanese, "JA", "qt_ja", "LANG_JA", "cja", &ja_qtTranslator, &ja_myappTranslator, 5,
         "日本語"},
        {6, &KesmiraApp::bLangChinese, "CN", "qt_zh_CN", "LANG_CN", "cn", &ch_qtTranslator, &ch_myappTranslator, 5,
         "中文"},
    };
    return table;
}

const Language *currentLanguage()
{
    for (const Language &language : languages()) {
        if (pApp->*language.flag) return &language;
    }
    return nullptr;
}

void setLanguageFlags(int number)
{
    for (const Language &language : languages()) pApp->*language.flag = false;
    if (isFixedToChinese()) {
        pApp->bLangChinese = true;
    } else if (const Language *language = languageOf(number)) {
        pApp->*language->flag = true;
    }
}

int storedLanguage()
{
    bool isNumber = false;
    const int number = linkFile::value(pApp->strLinkPlistPath, kLanguageKey).toInt(&isNumber);
    if (!isNumber) return kNoLanguage;
    // The number doesn't tell Chinese from Japanese. A sibling tool that has changed it since has the last word.
    const Language *chosen = languageOf(linkFile::value(pApp->strLinkPlistPath, kChoiceKey).toInt(&isNumber));
    return isNumber && chosen && chosen->chosenNumber == number ? chosen->number : number;
}

void storeLanguage(const Language &language)
{
    linkFile::store(pApp->strLinkPlistPath, kLanguageKey, language.chosenNumber);
    linkFile::store(pApp->strLinkPlistPath, kChoiceKey, language.number);
}

void LanguageSettingsInOtherApps(int number)
{
    for (const QString &settings : {pApp->strDriveWatchPlistPath, pApp->strFullRecoverPhotoPlistPath,
                                    pApp->strClipMenderPlistPath, pApp->strFullRecoverPlistPath})
        linkFile::store(settings, kLanguageKey, number);
}

void loadTranslators()
{
    const Language *current = currentLanguage();
    for (int number : {2, 1, 3, 4, 5, 6}) {
        const Language &other = languages()[number];
        if (&other == current) continue;
        TranslatorPath = other.translationFolder();
        trans.load(other.appFile, TranslatorPath);
        trans.load(other.qtFile, TranslatorPath);
    }
    if (current) install(*current);
}

void changeTranslators()
{
    for (const Language &language : languages()) {
        QCoreApplication::removeTranslator(language.qtTranslator);
        QCoreApplication::removeTranslator(language.appTranslator);
    }
    if (const Language *current = currentLanguage()) install(*current);
}

QString placeholderPicture()
{
    return picture("preview1");
}

QString noPreviewPicture()
{
    return picture("preview");
}
