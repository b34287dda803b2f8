#include "dialogs/CompletionMsg.h"

#include "dialogs/ui_CompletionMsg.h"

CompletionMsg::CompletionMsg(QWidget *parent) : FramelessDialog(parent), ui(std::make_unique<Ui::CompletionMsgObj>())
{
    ui->setupUi(content());
    connect(ui->OkBtn, &QPushButton::clicked, this, &CompletionMsg::OnCancle);
    finishSetUp({440, 190}, ui->OkBtn);
}

CompletionMsg::~CompletionMsg() = default;

void CompletionMsg::OnCancle()
{
    accept();
}

void CompletionMsg::retranslate()
{
    ui->retranslateUi(content());
    FramelessDialog::retranslate();
}
