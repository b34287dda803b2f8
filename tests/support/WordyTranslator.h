// A language that no one speaks, for the question whether a longer one than English fits.
#pragma once

#include <QTranslator>

/// Every word is a good 40 % longer than in English, and ends in accented letters.
class WordyTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override;
};
