#include "dialogs/YesNoDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

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

void YesNoDialog::setWarning(const QString &text)
{
    if (!m_warning) {
        m_warning = new QLabel(content());
        m_warning->setObjectName(QStringLiteral("warning"));
        m_warning->setTextFormat(Qt::PlainText);
        m_warning->setWordWrap(true);
        m_warning->setIndent(5);
        static_cast<QVBoxLayout *>(content()->layout())->insertWidget(1, m_warning);
    }
    m_warning->setText(text);
    m_warning->setVisible(!text.isEmpty());
}

void YesNoDialog::reject()
{
    NoBtn->click();
}

void YesNoDialog::answered(const QPushButton *) {}
