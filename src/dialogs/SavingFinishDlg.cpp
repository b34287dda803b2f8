#include "dialogs/SavingFinishDlg.h"

#include "desktop/platform/Platform.h"
#include "dialogs/ui_SavingFinishDlg.h"

SavingFinishDlg::SavingFinishDlg(QWidget *parent, const QString &path, const SavingReport &report)
    : FramelessDialog(parent), ui(std::make_unique<Ui::SavingFinishDlgObj>()), m_path(path), m_report(report)
{
    ui->setupUi(content());
    connect(ui->ClickHereBtn, &QPushButton::clicked, this, &SavingFinishDlg::ShowDestPath);
    connect(ui->OkBtn, &QPushButton::clicked, this, &SavingFinishDlg::OnCancle);
    ui->PathText->setText(m_path);
    ui->PathText->setCursorPosition(0);
    for (QWidget *place : {static_cast<QWidget *>(ui->placeLabel), static_cast<QWidget *>(ui->PathText),
                           static_cast<QWidget *>(ui->ClickHereBtn)})
        place->setVisible(m_report.anyThere);
    ui->problems->setPlainText(m_report.problems.join('\n'));
    ui->problems->setVisible(!m_report.problems.isEmpty());
    ui->noteLabel->setText(m_report.note);
    ui->noteLabel->setVisible(!m_report.note.isEmpty());
    const int height = 190 + (m_report.problems.isEmpty() ? 0 : 120) + (m_report.note.isEmpty() ? 0 : 60);
    finishSetUp({m_report.problems.isEmpty() ? 480 : 520, height}, ui->OkBtn);
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
    if (!m_report.shortfall.isEmpty()) {
        ui->label->setText(m_report.shortfall);
        content()->setWindowTitle(tr("Not everything was saved"));
    }
    FramelessDialog::retranslate();
}
