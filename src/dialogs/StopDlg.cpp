#include "dialogs/StopDlg.h"

#include "dialogs/ui_StopDlg.h"

StopDlg::StopDlg(QWidget *parent) : YesNoDialog(parent), ui(std::make_unique<Ui::StopDlgObj>())
{
    ui->setupUi(content());
    YesBtn = ui->YesBtn;
    NoBtn = ui->NoBtn;
    finishQuestion({420, 190});
}

StopDlg::~StopDlg() = default;

void StopDlg::retranslate()
{
    ui->retranslateUi(content());
    YesNoDialog::retranslate();
}
