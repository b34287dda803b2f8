#include "dialogs/ReferenceFileDlg.h"

#include "app/KesmiraApp.h"
#include "desktop/FileChooser.h"
#include "dialogs/ui_ReferenceFileDlg.h"

#include <QFontMetrics>

namespace {

bool takesHeic()
{
    const QString suffix = pApp->strFileSuffix.toUpper();
    return suffix == "HEIC" || suffix == "HEIF";
}

} // namespace

ReferenceFileDlg::ReferenceFileDlg(QWidget *parent, const QString &labelText)
    : FramelessDialog(parent), ui(std::make_unique<Ui::ReferenceFileDlgObj>())
{
    setWindowModality(Qt::WindowModal);
    ui->setupUi(content());
    textEdit = ui->textEdit;
    checkBox = ui->checkBox;
    BrowseBtn = ui->BrowseBtn;
    RepairBtn = ui->RepairBtn;
    CancelBtn = ui->CancelBtn;
    connect(BrowseBtn, &QPushButton::clicked, this, &ReferenceFileDlg::OnBrowseRefrenceFile);
    connect(RepairBtn, &QPushButton::clicked, this, &ReferenceFileDlg::OnHideDialog);
    connect(CancelBtn, &QPushButton::clicked, this, &ReferenceFileDlg::OnCancle);
    nameDamagedFile();
    finishSetUp({440, 240}, BrowseBtn);
    reset();
    if (!labelText.isEmpty()) ui->label->setText(labelText);
}

ReferenceFileDlg::~ReferenceFileDlg() = default;

void ReferenceFileDlg::reset()
{
    textEdit->clear();
    checkBox->setChecked(false);
    checkBox->setEnabled(false);
    setReady(false);
}

void ReferenceFileDlg::showForSuffix()
{
    retranslate();
    show();
    raise();
    activateWindow();
}

void ReferenceFileDlg::setDamagedFile(const QString &name)
{
    m_damaged = name;
    nameDamagedFile();
}

QString ReferenceFileDlg::damagedText(const QString &name, const QFontMetrics &metrics)
{
    constexpr int kRoom = 400; // between the margins of the dialogs as they were designed
    const QString text = tr("Damaged file: %1");
    return text.arg(metrics.elidedText(name, Qt::ElideMiddle, kRoom - metrics.horizontalAdvance(text.arg(QString()))));
}

void ReferenceFileDlg::nameDamagedFile()
{
    ui->fileLabel->setVisible(!m_damaged.isEmpty());
    ui->fileLabel->setText(damagedText(m_damaged, ui->fileLabel->fontMetrics()));
    ui->fileLabel->setToolTip(m_damaged);
}

void ReferenceFileDlg::OnBrowseRefrenceFile()
{
    const bool heic = takesHeic();
    const QString filter = tr("Images") + (heic ? " (*.HEIC *.HEIF *.heic *.heif)" : " (*.JPEG *.JPG *.jpg *.jpeg )");
    const QString file = fileChooser().openFile(this, tr("Add File"), "/home", filter);
    if (file.isEmpty()) return;

    pApp->strSamplePath = file;
    textEdit->setPlainText(file);
    // The box shows what the flag says, and both begin anew with each sample.
    pApp->bApplyToAllSameFormat = false;
    checkBox->setChecked(false);
    checkBox->setEnabled(true);
    // A sample of the one kind that was taken and given up must not turn the next run of the other kind.
    pApp->bReferenceRepair = !heic;
    pApp->bHeicReferenceRepair = heic;
    setLabel();
    setReady(true);
}

void ReferenceFileDlg::OnCancle()
{
    reject();
}

void ReferenceFileDlg::reject()
{
    pApp->bApplyToAllSameFormat = false;
    setReady(false);
    FramelessDialog::reject();
}

void ReferenceFileDlg::OnHideDialog()
{
    accept();
}

void ReferenceFileDlg::retranslate()
{
    ui->retranslateUi(content());
    FramelessDialog::retranslate();
    setLabel();
    nameDamagedFile();
}

void ReferenceFileDlg::setLabel()
{
    ui->label->setText(takesHeic() ? tr("Add a sample HEIC :") : tr("Add a sample JPEG :"));
}

void ReferenceFileDlg::setReady(bool ready)
{
    RepairBtn->setEnabled(ready);
    // Enter does what comes next.
    QPushButton *next = ready ? RepairBtn : BrowseBtn;
    next->setDefault(true);
    next->setFocus();
    setFirstFocus(next);
}
