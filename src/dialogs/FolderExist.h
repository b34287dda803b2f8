// Asks what to do about a run folder that exists at the destination.
#pragma once

#include "dialogs/FramelessDialog.h"
#include "save/ConflictPrompt.h"

#include <memory>

namespace Ui {
class FolderExistObj;
}

/// Changes nothing in `pApp`: saving draws its conclusions from the answer.
class FolderExist : public FramelessDialog
{
    Q_OBJECT

public:
    explicit FolderExist(QWidget *parent = nullptr);
    ~FolderExist() override;

    /// The folder's name, and the free one that Rename would take.
    void Init(const QString &name, const QString &proposal);
    /// Escape gives Cancel; Closed until a button was clicked, and where the dialog was closed by other means.
    FolderAnswer answer() const { return m_answer; }

protected:
    void retranslate() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void answerWith(FolderAnswer answer);

    std::unique_ptr<Ui::FolderExistObj> ui;
    FolderAnswer m_answer = FolderAnswer::Closed;
};
