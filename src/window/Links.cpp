// Help, the addresses of the link file, and updates.
#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/LinkFile.h"
#include "desktop/platform/Platform.h"
#include "dialogs/AboutDlg.h"
#include "update/QCheckUpdate.h"
#include "update/QDownloadApp.h"
#include "update/UpdateState.h"
#include "window/BrowseRepair.h"
#include "window/MyTreeWidget.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

/// One that isn't there opens nothing, and nobody is told: the program is used without a deployment's addresses too.
void openAddress(const QString &address)
{
    if (!address.isEmpty()) platform().openAddress(QUrl(address));
}

/// Without a language there is no page.
void openHelpPage(const QString &topic)
{
    static const QStringList written{"DE", "FR", "IT", "ES", "EN", "JA", "CN"};
    const Language *language = currentLanguage();
    if (!language || !written.contains(language->folder)) return;
    const QString page = pApp->strResourcesPath + "/HelpPhoto_" + language->folder + '/' + topic + ".htm";
    if (QFileInfo(page).isFile()) platform().openAddress(QUrl::fromLocalFile(page));
}

} // namespace

void BrowseRepair::GetDefaultBrowser()
{
    pApp->strDefaultBrowser = platform().defaultBrowser();
}

QString BrowseRepair::helpTopic() const
{
    if (pApp->bFirstScreen) return QStringLiteral("Add_JPEG_files");
    if (pApp->bSampleRunState) return QStringLiteral("Repair_JPEG_files");
    if (workerRuns()) return QStringLiteral("User_Interface");
    if (pApp->bRepairScreen) {
        const QTreeWidgetItem *row = pResultTree->currentItem();
        const bool thumbnail = row && row->text(column::Name).contains(QLatin1String("_[T"));
        return thumbnail ? QStringLiteral("Extract_Thumbnail") : QStringLiteral("Preview_and_Save_JPEG_Files");
    }
    return pApp->bFileListActive ? QStringLiteral("Repair_JPEG_files") : QStringLiteral("Halveon_Repair_for_Photo");
}

void BrowseRepair::OnHelp()
{
    openHelpPage(helpTopic());
}

void BrowseRepair::onHelpBtnClick()
{
    openHelpPage(QStringLiteral("Overview"));
}

QString BrowseRepair::GetViewSupport() const
{
    return linkFile::languageText(QStringLiteral("SupportLink"));
}

QString BrowseRepair::GetGenerateTicket() const
{
    return linkFile::languageText(QStringLiteral("SubmitEnquiryLink"));
}

void BrowseRepair::onViewSupport()
{
    openAddress(GetViewSupport());
}

void BrowseRepair::onGenerateTicket()
{
    openAddress(GetGenerateTicket());
}

void BrowseRepair::onViewKB()
{
    openAddress(pApp->strKBLink);
}

void BrowseRepair::onMailVorlaneSupport()
{
    const QString address = linkFile::languageText(QStringLiteral("EmailToSupport"));
    if (!address.isEmpty()) openAddress("mailto:" + address);
}

void BrowseRepair::onAbout()
{
    AboutDlg(this).exec();
}

void BrowseRepair::clearUpdateLeftovers()
{
    QDownloadApp::clearLeftovers(QCoreApplication::applicationDirPath());
}

void BrowseRepair::onUpdateWizard()
{
    // What is fetched lies in a folder that a run wipes.
    afterRun([this] {
        bCheckForUpdate = true;
        QCheckUpdate::begin(this);
    });
}
