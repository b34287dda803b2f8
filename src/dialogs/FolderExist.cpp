#include "dialogs/FolderExist.h"

#include "desktop/Look.h"
#include "dialogs/ui_FolderExist.h"

#include <QKeyEvent>

FolderExist::FolderExist(QWidget *parent) : FramelessDialog(parent), ui(std::make_unique<Ui::FolderExistObj>())
{
    ui->setupUi(content());
    ui->label_3->setFont(look::font("Helvetica neue Medium", 14));
    connect(ui->RenameBtn, &QPushButton::clicked, this, [this] { answerWith(FolderAnswer::Rename); });
    connect(ui->OverwriteBtn, &QPushButton::clicked, this, [this] { answerWith(FolderAnswer::Overwrite); });
    connect(ui->CancelBtn, &QPushButton::clicked, this, [this] { answerWith(FolderAnswer::Cancel); });
    finishSetUp({360, 200}, ui->RenameBtn);
}

FolderExist::~FolderExist() = default;

void FolderExist::Init(const QString &name, const QString &proposal)
{
    m_answer = FolderAnswer::Closed;
    ui->FolderNameTxt->setText(name);
    ui->FolderNameTxt->setCursorPosition(0);
    ui->RenameToText->setText(proposal);
    ui->RenameToText->setCursorPosition(0);
}

void FolderExist::retranslate()
{
    ui->retranslateUi(content());
    FramelessDialog::retranslate();
}

void FolderExist::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel)) return answerWith(FolderAnswer::Cancel);
    FramelessDialog::keyPressEvent(event);
}

void FolderExist::answerWith(FolderAnswer answer)
{
    m_answer = answer;
    done(answer == FolderAnswer::Cancel ? QDialog::Rejected : QDialog::Accepted);
}
