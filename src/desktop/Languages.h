// The seven languages of the interface: which one is chosen, its texts and its pictures.
#pragma once

#include <QString>
#include <QTranslator>
#include <QVector>

class KesmiraApp;

/// Number of the language as the settings hold it, 0 to 6; any other value means none.
extern qint32 nLanguageType;
/// Folder of the translator last loaded.
extern QString TranslatorPath;
/// The build is fixed to Chinese; twin of `pApp->bChineseBuild`.
extern bool bChineseCustomBuild;

// References to objects that are never destroyed: a translator must not outlive its application only to look for it.
extern QTranslator &trans; ///< scratch
extern QTranslator &trans1;
extern QTranslator &de_qtTranslator; ///< toolkit texts
extern QTranslator &fr_qtTranslator;
extern QTranslator &It_qtTranslator;
extern QTranslator &es_qtTranslator;
extern QTranslator &ch_qtTranslator;
extern QTranslator &en_qtTranslator;
extern QTranslator &ja_qtTranslator;
extern QTranslator &de_myappTranslator; ///< the program's texts
extern QTranslator &fr_myappTranslator;
extern QTranslator &it_myappTranslator;
extern QTranslator &es_myappTranslator;
extern QTranslator &ch_myappTranslator;
extern QTranslator &en_myappTranslator;
extern QTranslator &ja_myappTranslator;

struct Language
{
    int number;             ///< as stored in the settings
    bool KesmiraApp::*flag; ///< set while the language is the current one
    QString folder;         ///< below "/PhotoTranslation/", "FR"
    QString qtFile;         ///< name of the toolkit's texts, without suffix
    QString appFile;        ///< name of the program's texts, without suffix
    QString picture;        ///< suffix of the preview pictures
    QTranslator *qtTranslator;
    QTranslator *appTranslator;
    int chosenNumber; ///< what a choice in the menu stores: Chinese stores the number of Japanese
    QString endonym;  ///< its name in itself

    /// Folder of its translations: `pApp->strResourcesPath`/PhotoTranslation/FR.
    QString translationFolder() const;
};

/// The table, in the order of the numbers.
const QVector<Language> &languages();
/// The one whose flag is set, null if none is.
const Language *currentLanguage();

/// Clears the flags of `pApp` and sets that of language `number`, none outside of 0 to 6. A build fixed to Chinese sets
/// Chinese whatever the number.
void setLanguageFlags(int number);
/// The number of the language that was chosen last, as the file `pApp->strLinkPlistPath` has it under "ChosenLanguage"; the
/// one under "LanguageType", which the sibling tools share, where that was changed since; -2147483648 if there is none.
int storedLanguage();
/// Stores the choice of `language` under both keys of the program's own settings.
void storeLanguage(const Language &language);
/// Stores it in the settings of the sibling tools, so that the family of programs keeps one language.
void LanguageSettingsInOtherApps(int number);
/// Loads and installs the two translators of the current language, and leaves their folder in `TranslatorPath`. A file
/// that is missing leaves the built-in English texts.
void loadTranslators();

/// Takes all translators out, loads and installs those of the current language. Every window is told by its changeEvent.
void changeTranslators();

/// Resource path of the picture that stands where no row has been clicked yet, in the current language, else English.
QString placeholderPicture();
/// Resource path of the picture for a row that can't be shown.
QString noPreviewPicture();
