#include "dialogs/MessageBox.h"

#include "desktop/Look.h"
#include "dialogs/ui_MessageBox.h"

MessageBox::MessageBox(QWidget *parent) : FramelessDialog(parent), ui(std::make_unique<Ui::MessageBoxObj>())
{
    ui->setupUi(content());
    connect(ui->OkBtn, &QPushButton::clicked, this, &MessageBox::CloseApplication);
    connect(ui->NoBtn, &QPushButton::clicked, this, &MessageBox::reject);
    setQuestion(false);
    finishSetUp({420, 160}, ui->OkBtn);
}

MessageBox::~MessageBox() = default;

void MessageBox::setPicture(const QString &resource)
{
    ui->PictureLabel->setPixmap(look::picture(resource, devicePixelRatioF()));
}

void MessageBox::setText(const QString &text)
{
    ui->TextLabel->setText(text);
    // The box itself is what is announced when it opens.
    setAccessibleDescription(text);
    SetFixedSizeWidget();
}

QString MessageBox::text() const
{
    return ui->TextLabel->text();
}

void MessageBox::setQuestion(bool question)
{
    ui->NoBtn->setVisible(question);
}

void MessageBox::done(int result)
{
    FramelessDialog::done(result);
    setQuestion(false);
}

void MessageBox::CloseApplication()
{
    accept();
}

void MessageBox::retranslate()
{
    // The form knows no text of the caller's, and would leave none.
    const QString shown = text();
    ui->retranslateUi(content());
    ui->TextLabel->setText(shown);
    FramelessDialog::retranslate();
}
