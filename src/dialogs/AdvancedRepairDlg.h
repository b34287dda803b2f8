// First step of a repair with a sample file: says what it is for.
#pragma once

#include "dialogs/FramelessDialog.h"

#include <memory>

class ReferenceFileDlg;

namespace Ui {
class AdvancedRepairDlgObj;
}

/// Next hides it and shows the dialog of the second step. The caller owns it; window modal, so that show() is enough.
class AdvancedRepairDlg : public FramelessDialog
{
    Q_OBJECT

public:
    /// `text` is one of the two below. `reference` must outlive this dialog.
    AdvancedRepairDlg(QWidget *parent, const QString &text, ReferenceFileDlg *reference);
    ~AdvancedRepairDlg() override;

    /// For a caller that has built the text again after a change of language.
    void setText(const QString &text);

    /// Names the file that the sample is for, above the text, and says below it what a good sample is.
    void setDamagedFile(const QString &name, bool heic);

    static QString jpegText();
    /// `kind` names the layout that the sample must have, for instance "standard_selfie".
    static QString heicText(const QString &kind);

public slots:
    void OnclickedNextDialog();
    void OnCancle();

protected:
    void retranslate() override;

private:
    void nameDamagedFile();

    std::unique_ptr<Ui::AdvancedRepairDlgObj> ui;
    ReferenceFileDlg *m_reference;
    QString m_damaged; ///< empty until it is known
    bool m_heic = false;
};
