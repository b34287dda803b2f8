#include "support/ScriptedPrompt.h"

#include <QtTest>

namespace {

QString aboutFolder(const QString &name)
{
    return QStringLiteral("folder '%1' exists").arg(name);
}

QString aboutFile(const QString &name)
{
    return QStringLiteral("file '%1' exists").arg(name);
}

} // namespace

ScriptedPrompt::~ScriptedPrompt()
{
    for (const QString &fault : faults()) QTest::qFail(qPrintable(fault), __FILE__, __LINE__);
}

ScriptedPrompt &ScriptedPrompt::folder(const QString &name, FolderAnswer answer)
{
    m_script.push_back({aboutFolder(name), answer, FileAnswer::Skip, {}});
    return *this;
}

ScriptedPrompt &ScriptedPrompt::file(const QString &name, FileAnswer answer, const QString &newName)
{
    m_script.push_back({aboutFile(name), FolderAnswer::Cancel, answer, newName});
    return *this;
}

bool ScriptedPrompt::next(const QString &question, Step &step)
{
    // The script waits at its next answer: one surprise doesn't make surprises of all questions behind it.
    if (m_script.empty() || m_script.front().question != question) {
        m_surprises << "unexpected question: " + question;
        return false;
    }
    step = m_script.front();
    m_script.pop_front();
    return true;
}

FolderAnswer ScriptedPrompt::folderExists(const QString &name, const QString &proposal)
{
    m_proposals << proposal;
    Step step{};
    return next(aboutFolder(name), step) ? step.folderAnswer : FolderAnswer::Cancel;
}

FileAnswer ScriptedPrompt::fileExists(const QString &name, QString &newName)
{
    m_proposals << newName;
    Step step{};
    if (!next(aboutFile(name), step)) return FileAnswer::Skip;
    if (!step.newName.isEmpty()) newName = step.newName;
    return step.fileAnswer;
}

QStringList ScriptedPrompt::faults() const
{
    QStringList all = m_surprises;
    for (const Step &step : m_script) all << "unused answer: " + step.question;
    return all;
}

QStringList ScriptedPrompt::takeFaults()
{
    const QStringList all = faults();
    m_surprises.clear();
    m_script.clear();
    return all;
}
