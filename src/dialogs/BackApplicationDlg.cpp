#include "dialogs/BackApplicationDlg.h"

#include "app/KesmiraApp.h"
#include "dialogs/ui_BackApplicationDlg.h"

BackApplicationDlg::BackApplicationDlg(QWidget *parent)
    : YesNoDialog(parent), ui(std::make_unique<Ui::BackApplicationDlgObj>())
{
    ui->setupUi(content());
    YesBtn = ui->YesBtn;
    NoBtn = ui->NoBtn;
    finishQuestion({400, 160});
}

BackApplicationDlg::~BackApplicationDlg() = default;

void BackApplicationDlg::retranslate()
{
    ui->retranslateUi(content());
    YesNoDialog::retranslate();
}

void BackApplicationDlg::answered(const QPushButton *button)
{
    pApp->strCloseAnswer = button->objectName();
}
