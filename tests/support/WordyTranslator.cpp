#include "support/WordyTranslator.h"

QString WordyTranslator::translate(const char *, const char *source, const char *, int) const
{
    QString longer;
    int letters = 0;
    for (const QChar letter : QString::fromUtf8(source) + ' ') {
        if (!letter.isLetter()) {
            longer += QString((letters * 9 + 19) / 20, QChar(0xFC)); // 45 %, rounded up; nothing for no letters
            letters = -1;
        }
        ++letters;
        longer += letter;
    }
    return longer.left(longer.size() - 1);
}
