#include "dialogs/CloseApplicationDlg.h"

#include "app/KesmiraApp.h"
#include "dialogs/ui_CloseApplicationDlg.h"

CloseApplicationDlg::CloseApplicationDlg(QWidget *parent)
    : YesNoDialog(parent), ui(std::make_unique<Ui::CloseApplicationDlgObj>())
{
    ui->setupUi(content());
    YesBtn = ui->YesBtn;
    NoBtn = ui->NoBtn;
    finishQuestion({360, 150});
}

CloseApplicationDlg::~CloseApplicationDlg() = default;

void CloseApplicationDlg::retranslate()
{
    ui->retranslateUi(content());
    YesNoDialog::retranslate();
}

void CloseApplicationDlg::answered(const QPushButton *button)
{
    pApp->strCloseAnswer = button->objectName();
}
