// What the questions of Stop, Back and Exit have in common.
#pragma once

#include "dialogs/FramelessDialog.h"

class QLabel;
class QPushButton;

/// No is the safe answer: Enter, Escape and any other way of closing click it. Either button closes the dialog; exec()
/// gives QDialog::Accepted for Yes.
class YesNoDialog : public FramelessDialog
{
    Q_OBJECT

public:
    explicit YesNoDialog(QWidget *parent) : FramelessDialog(parent) {}

    QPushButton *YesBtn = nullptr; ///< set by the form; live as long as the dialog
    QPushButton *NoBtn = nullptr;

    void reject() override;
    /// A line behind the question, in plain text; "" takes it back.
    void setWarning(const QString &text);

protected:
    /// Call it in place of finishSetUp().
    void finishQuestion(const QSize &size);
    /// A button was clicked; runs before the dialog closes and before the slots of others.
    virtual void answered(const QPushButton *button);

private:
    void closeWith(const QPushButton *button, int result);

    QLabel *m_warning = nullptr;
};
