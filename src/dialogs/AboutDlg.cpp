#include "dialogs/AboutDlg.h"

#include "app/KesmiraApp.h"
#include "dialogs/ui_AboutDlg.h"

#include <QIcon>

AboutDlg::AboutDlg(QWidget *parent) : FramelessDialog(parent), ui(std::make_unique<Ui::AboutDlg>())
{
    ui->setupUi(content());
    ui->picture->setPixmap(QIcon(QStringLiteral(":/res/kesmira-64.png")).pixmap(64));
    connect(ui->OkBtn, &QPushButton::clicked, this, &QDialog::accept);
    finishSetUp({460, 330}, ui->OkBtn);
}

AboutDlg::~AboutDlg() = default;

QString AboutDlg::systemText()
{
    // The fields begin with ": ", as support is used to reading them.
    return tr("Computer") + pApp->strHostName + '\n' + tr("System") + pApp->strOsName + '\n' + tr("System version")
        + pApp->strOsVersion + '\n' + tr("Processor") + pApp->strProcessorName;
}

void AboutDlg::retranslate()
{
    ui->retranslateUi(content());
    ui->version->setText(tr("Version %1").arg(QStringLiteral(KESMIRA_VERSION)));
    ui->system->setText(systemText());
    ui->licences->setText(
        tr("Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the "
           "program's documentation.")
            .arg(QString::fromLatin1(qVersion())));
    FramelessDialog::retranslate();
}
