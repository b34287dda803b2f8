// Asks what to do about a file that exists at the destination.
#pragma once

#include "dialogs/FramelessDialog.h"
#include "save/ConflictPrompt.h"

#include <memory>

namespace Ui {
class AlreadyExistFileDlgObj;
}

/// Changes nothing in `pApp`: saving draws its conclusions from the answer.
class AlreadyExistFileDlg : public FramelessDialog
{
    Q_OBJECT

public:
    explicit AlreadyExistFileDlg(QWidget *parent = nullptr);
    ~AlreadyExistFileDlg() override;

    /// The file's name, and a free one to start from. The buttons for all files show unless `nResultCounter` is 1.
    void InitStart(const QString &name, const QString &proposal);
    /// Closed until a button was clicked; Escape is no answer either.
    FileAnswer answer() const { return m_answer; }
    /// The name for Rename as it stands in the dialog; "" if the user emptied it.
    QString newName() const;

protected:
    void retranslate() override;

private:
    void answerWith(FileAnswer answer);

    std::unique_ptr<Ui::AlreadyExistFileDlgObj> ui;
    FileAnswer m_answer = FileAnswer::Closed;
};
