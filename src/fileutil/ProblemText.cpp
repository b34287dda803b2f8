#include "fileutil/ProblemText.h"

#include <QCoreApplication>

QString problemText(const QString &problem)
{
    static const char *const known[] = {
        QT_TRANSLATE_NOOP("HeicProblem", "the file can't be read"),
        QT_TRANSLATE_NOOP("HeicProblem", "the file is too large"),
        QT_TRANSLATE_NOOP("HeicProblem", "it isn't a HEIC, or holds image tiles alone"),
        QT_TRANSLATE_NOOP("HeicProblem", "the file holds image tiles alone, or isn't a rewritten one"),
        QT_TRANSLATE_NOOP("HeicProblem", "the index of the picture's tiles is broken"),
        QT_TRANSLATE_NOOP("HeicProblem", "a box that describes the picture is broken"),
        QT_TRANSLATE_NOOP("HeicProblem", "no item of the file puts the picture's tiles together"),
        QT_TRANSLATE_NOOP("HeicProblem", "the picture can't be decoded"),
        QT_TRANSLATE_NOOP("HeicProblem", "the picture can't be written in this format"),
        QT_TRANSLATE_NOOP("HeicProblem", "the picture has more pixels than can be shown"),
        QT_TRANSLATE_NOOP("HeicProblem", "there is no memory for the picture"),
        QT_TRANSLATE_NOOP("HeicProblem", "the decoder can't be started"),
        QT_TRANSLATE_NOOP("HeicProblem", "the decoder broke off: the file is damaged, or asks for too much"),
        QT_TRANSLATE_NOOP("HeicProblem", "the decoder took too long"),
        QT_TRANSLATE_NOOP("HeicProblem", "the decoder was stopped"),
    };
    for (const char *text : known)
        if (problem == QLatin1String(text)) return QCoreApplication::translate("HeicProblem", text);
    return problem;
}
