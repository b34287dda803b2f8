#include "dialogs/SavingFinishDlg.h"

#include "desktop/platform/Platform.h"
#include "dialogs/ui_SavingFinishDlg.h"

SavingFinishDlg::SavingFinishDlg(QWidget *parent, const QString &path)
    : FramelessDialog(parent), ui(std::make_unique<Ui::SavingFinishDlgObj>()), m_path(path)
{
    ui->setupUi(content());
    connect(ui->ClickHereBtn, &QPushButton::clicked, this, &SavingFinishDlg::ShowDestPath);
    connect(ui->OkBtn, &QPushButton::clicked, this, &SavingFinishDlg::OnCancle);
    finishSetUp({360, 160}, ui->OkBtn);
}

SavingFinishDlg::~SavingFinishDlg() = default;

void SavingFinishDlg::ShowDestPath()
{
    platform().showInFileManager(m_path);
}

void SavingFinishDlg::OnCancle()
{
    accept();
}

void SavingFinishDlg::retranslate()
{
    ui->retranslateUi(content());
    FramelessDialog::retranslate();
}
