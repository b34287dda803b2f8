#include "dialogs/YesNoDialog.h"

#include <QPushButton>

void YesNoDialog::finishQuestion(const QSize &size)
{
    connect(YesBtn, &QPushButton::clicked, this, [this] { closeWith(YesBtn, QDialog::Accepted); });
    connect(NoBtn, &QPushButton::clicked, this, [this] { closeWith(NoBtn, QDialog::Rejected); });
    NoBtn->setDefault(true);
    finishSetUp(size, NoBtn);
}

void YesNoDialog::closeWith(const QPushButton *button, int result)
{
    answered(button);
    done(result);
}

void YesNoDialog::reject()
{
    NoBtn->click();
}

void YesNoDialog::answered(const QPushButton *) {}
