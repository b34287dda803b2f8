// Answers the questions of saving from a strict script. A question that the script doesn't expect, and an answer that
// nobody asked for, fail the running test by name.
#pragma once

#include "save/ConflictPrompt.h"

#include <QStringList>

#include <deque>

class ScriptedPrompt : public ConflictPrompt
{
public:
    ScriptedPrompt() = default;
    /// Fails the test with each of faults().
    ~ScriptedPrompt() override;
    ScriptedPrompt(const ScriptedPrompt &) = delete;
    ScriptedPrompt &operator=(const ScriptedPrompt &) = delete;

    /// The next question is about the run folder `name`.
    ScriptedPrompt &folder(const QString &name, FolderAnswer answer);
    /// The next question is about the file `name`; for Rename `newName` is taken, "" for the name that is proposed.
    ScriptedPrompt &file(const QString &name, FileAnswer answer, const QString &newName = QString());

    FolderAnswer folderExists(const QString &name, const QString &proposal) override;
    FileAnswer fileExists(const QString &name, QString &newName) override;

    /// The names that were proposed, one for each question.
    QStringList proposals() const { return m_proposals; }
    /// One line for each unexpected question, then one for each unused answer.
    QStringList faults() const;
    /// For tests of the script itself: hands the faults over, so that they fail nothing.
    QStringList takeFaults();

private:
    struct Step
    {
        QString question;
        FolderAnswer folderAnswer;
        FileAnswer fileAnswer;
        QString newName;
    };
    bool next(const QString &question, Step &step);

    std::deque<Step> m_script;
    QStringList m_surprises;
    QStringList m_proposals;
};
