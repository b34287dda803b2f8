// Answers the questions of saving from a script. A question that the script doesn't expect, with these very words, and an
// answer that nobody asked for both fail the test by name.
#pragma once

#include "save/ConflictPrompt.h"

#include <QStringList>
#include <QVector>

struct ScriptLine
{
    QString question; ///< "folder NAME, PROPOSAL" or "file NAME, PROPOSAL"
    FolderAnswer folder = FolderAnswer::Closed;
    FileAnswer file = FileAnswer::Closed;
    QString newName = {}; ///< what the person types over the proposal
};

inline ScriptLine folderLine(const QString &question, FolderAnswer answer)
{
    return {"folder " + question, answer};
}

inline ScriptLine fileLine(const QString &question, FileAnswer answer, const QString &newName = {})
{
    return {"file " + question, FolderAnswer::Closed, answer, newName};
}

class StrictPrompt : public ConflictPrompt
{
public:
    explicit StrictPrompt(QVector<ScriptLine> script) : m_script(std::move(script)) {}

    FolderAnswer folderExists(const QString &name, const QString &proposal) override
    {
        return next("folder " + name + ", " + proposal).folder;
    }
    FileAnswer fileExists(const QString &name, QString &newName) override
    {
        const ScriptLine line = next("file " + name + ", " + newName);
        if (!line.newName.isNull()) newName = line.newName;
        return line.file;
    }

    /// "" if every question was expected and every answer was used.
    QString complaint() const
    {
        QStringList lines = m_surprises;
        for (const ScriptLine &line : m_script) lines << "not asked: " + line.question;
        return lines.join("; ");
    }

private:
    ScriptLine next(const QString &question)
    {
        if (m_script.isEmpty() || m_script.first().question != question) {
            m_surprises << "unexpected: " + question;
            return {question, FolderAnswer::Cancel, FileAnswer::Skip};
        }
        return m_script.takeFirst();
    }

    QVector<ScriptLine> m_script;
    QStringList m_surprises;
};
