#include "dialogs/AdvancedRepairDlg.h"

#include "desktop/Look.h"
#include "dialogs/ReferenceFileDlg.h"
#include "dialogs/ui_AdvancedRepairDlg.h"

AdvancedRepairDlg::AdvancedRepairDlg(QWidget *parent, const QString &text, ReferenceFileDlg *reference)
    : FramelessDialog(parent), ui(std::make_unique<Ui::AdvancedRepairDlgObj>()), m_reference(reference)
{
    setWindowModality(Qt::WindowModal);
    ui->setupUi(content());
    for (QLabel *label : {ui->fileLabel, ui->label, ui->hintLabel})
        label->setFont(look::font("Helvetica neue Medium", 12));
    ui->label->setText(text);
    connect(ui->NextBtn, &QPushButton::clicked, this, &AdvancedRepairDlg::OnclickedNextDialog);
    connect(ui->CancelBtn, &QPushButton::clicked, this, &AdvancedRepairDlg::OnCancle);
    nameDamagedFile();
    finishSetUp({440, 230}, ui->NextBtn);
}

AdvancedRepairDlg::~AdvancedRepairDlg() = default;

void AdvancedRepairDlg::setText(const QString &text)
{
    ui->label->setText(text);
    SetFixedSizeWidget();
}

void AdvancedRepairDlg::setDamagedFile(const QString &name, bool heic)
{
    m_damaged = name;
    m_heic = heic;
    nameDamagedFile();
    SetFixedSizeWidget();
}

void AdvancedRepairDlg::nameDamagedFile()
{
    const bool known = !m_damaged.isEmpty();
    ui->fileLabel->setVisible(known);
    ui->hintLabel->setVisible(known);
    if (!known) return;
    ui->fileLabel->setText(ReferenceFileDlg::damagedText(m_damaged, ui->fileLabel->fontMetrics()));
    ui->fileLabel->setToolTip(m_damaged);
    ui->hintLabel->setText(
        m_heic ? tr("A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: "
                    "with the same camera of it, the same settings, and the phone held the same way.")
               : tr("A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged "
                    "photo was: with the same settings, and the camera held the same way."));
}

QString AdvancedRepairDlg::jpegText()
{
    return tr(
        "Advance Repair\n\nUse this option to repair severely damaged JPEG. \nClick Next to   add a 'sample JPEG' of "
        "the same \nformat, nshot using the same device.The sample and \nthe damaged JPEGs remain unchanged during "
        "\nrepair process.");
}

QString AdvancedRepairDlg::heicText(const QString &kind)
{
    return tr("Advance Repair\n\nUse this option to repair severely damaged HEIC. \nClick Next to add a ' sample HEIC ")
        + kind + tr(" '", "closes the quotation of the sample's kind")
        + tr(" of the same format.The sample and the damaged HEIC remain unchanged during repair process.");
}

void AdvancedRepairDlg::OnclickedNextDialog()
{
    accept();
    m_reference->showForSuffix();
}

void AdvancedRepairDlg::OnCancle()
{
    reject();
}

void AdvancedRepairDlg::retranslate()
{
    const QString shown = ui->label->text();
    ui->retranslateUi(content());
    ui->label->setText(shown);
    nameDamagedFile();
    FramelessDialog::retranslate();
}
