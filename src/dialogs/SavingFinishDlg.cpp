#include "dialogs/SavingFinishDlg.h"

#include "desktop/platform/Platform.h"
#include "dialogs/ui_SavingFinishDlg.h"

SavingFinishDlg::SavingFinishDlg(QWidget *parent, const QString &path, const QString &shortfall)
    : FramelessDialog(parent), ui(std::make_unique<Ui::SavingFinishDlgObj>()), m_path(path), m_shortfall(shortfall)
{
    ui->setupUi(content());
    connect(ui->ClickHereBtn, &QPushButton::clicked, this, &SavingFinishDlg::ShowDestPath);
    connect(ui->OkBtn, &QPushButton::clicked, this, &SavingFinishDlg::OnCancle);
    if (!m_shortfall.isEmpty()) ui->label->setText(m_shortfall);
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
    if (!m_shortfall.isEmpty()) ui->label->setText(m_shortfall);
    FramelessDialog::retranslate();
}
