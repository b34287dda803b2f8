// Help and updates, as far as this program has them.
#include "dialogs/MessageBox.h"
#include "window/BrowseRepair.h"

void BrowseRepair::OnHelp()
{
    pMessageBox->setPicture(QStringLiteral(":/res/info.png"));
    pMessageBox->setText(tr("The help pages are not installed."));
    pMessageBox->exec();
}

void BrowseRepair::onUpdateWizard()
{
    pMessageBox->setPicture(QStringLiteral(":/res/info.png"));
    pMessageBox->setText(tr("This program is updated by the system that installed it."));
    pMessageBox->exec();
}
