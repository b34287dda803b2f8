#include "update/UpdateOffer.h"

#include "desktop/LinkFile.h"
#include "desktop/platform/Platform.h"
#include "update/QDownloadApp.h"
#include "update/UpdateSignature.h"
#include "update/UpdateState.h"
#include "update/ui_UpdateOffer.h"

UpdateOffer::UpdateOffer(QWidget *parent, bool withPage)
    : FramelessDialog(parent), ui(std::make_unique<Ui::UpdateOffer>()), m_withPage(withPage)
{
    ui->setupUi(content());
    setWindowModality(Qt::WindowModal);
    ui->VisitBtn->setVisible(m_withPage);
    // What can't be told from somebody else's archive isn't fetched.
    ui->DownloadBtn->setVisible(!updateKey().isEmpty());
    connect(ui->DownloadBtn, &QPushButton::clicked, this, &UpdateOffer::DownloadApp);
    connect(ui->CancelBtn, &QPushButton::clicked, this, &UpdateOffer::CancelDownload);
    connect(ui->WhatNewBtn, &QPushButton::clicked, this, &UpdateOffer::WhatNewInUpdate);
}

UpdateOffer::~UpdateOffer() = default;

QPushButton *UpdateOffer::firstButton() const
{
    return ui->DownloadBtn->isHidden() ? ui->CancelBtn : ui->DownloadBtn;
}

QString UpdateOffer::GetVersion()
{
    return firstLine(updateFolder() + "Kesmira.txt");
}

void UpdateOffer::ShowNewVersionDetails()
{
    ui->label->setText(tr("New version details: \n") + tr("Update: Kesmira ") + GetVersion() + '\n');
}

void UpdateOffer::DownloadApp()
{
    auto *download = new QDownloadApp(parentWidget());
    download->setAttribute(Qt::WA_DeleteOnClose);
    close();
    download->show();
    emit downloadShown(download);
}

void UpdateOffer::CancelDownload()
{
    close();
}

void UpdateOffer::WhatNewInUpdate()
{
    openLink("WhatsNewLink");
}

void UpdateOffer::openLink(const char *base)
{
    const QString address = linkFile::languageText(QLatin1String(base));
    if (!address.isEmpty()) platform().openAddress(QUrl(address));
}

void UpdateOffer::retranslate()
{
    ui->retranslateUi(content());
    content()->setWindowTitle(m_withPage ? tr("Major Update") : tr("Minor Update"));
    ShowNewVersionDetails();
    FramelessDialog::retranslate();
}
