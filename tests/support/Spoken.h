// A language for as long as the object lives: one of the program's own, or one that no one speaks.
#pragma once

#include "support/WordyTranslator.h"

#include <QCoreApplication>
#include <QStringList>

#include <memory>

class Spoken
{
public:
    /// "" is the language of the source, "long" the made one, else a folder of the catalogues: "DE".
    explicit Spoken(const QString &language)
    {
        if (language.isEmpty()) return;
        if (language == "long")
            m_translator = std::make_unique<WordyTranslator>();
        else
            m_translator = std::make_unique<QTranslator>();
        if (language != "long")
            m_isThere = m_translator->load("LANG_" + language, QStringLiteral(KESMIRA_TRANSLATIONS "/") + language);
        m_isThere = QCoreApplication::installTranslator(m_translator.get()) && m_isThere;
    }
    ~Spoken()
    {
        if (m_translator) QCoreApplication::removeTranslator(m_translator.get());
    }
    Spoken(const Spoken &) = delete;
    Spoken &operator=(const Spoken &) = delete;

    /// False if the catalogue isn't where the build puts it.
    bool isThere() const { return m_isThere; }

    /// The folders in the order of the languages' numbers.
    static QStringList all() { return {"EN", "DE", "FR", "IT", "ES", "JA", "CN"}; }

private:
    std::unique_ptr<QTranslator> m_translator;
    bool m_isThere = true;
};
