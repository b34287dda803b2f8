// The general box of the program: a picture, a text, OK and, for a question, No.
#pragma once

#include "dialogs/FramelessDialog.h"

#include <memory>

namespace Ui {
class MessageBoxObj;
}

/// One instance serves all callers: each sets picture and text and then calls exec(), which gives QDialog::Accepted for OK
/// and QDialog::Rejected for any other way of closing.
class MessageBox : public FramelessDialog
{
    Q_OBJECT

public:
    explicit MessageBox(QWidget *parent = nullptr);
    ~MessageBox() override;

    /// A resource, for instance ":/res/info.png". A picture that isn't there leaves its place empty.
    void setPicture(const QString &resource);
    void setText(const QString &text);
    QString text() const;
    /// Shows the No button for the next exec() alone.
    void setQuestion(bool question);

    void done(int result) override;

public slots:
    void CloseApplication();

protected:
    void retranslate() override;

private:
    std::unique_ptr<Ui::MessageBoxObj> ui;
};
