// The sibling tools: the button in the strip, and their start, which ends this program.
#include "app/KesmiraApp.h"
#include "desktop/platform/Platform.h"
#include "window/BrowseRepair.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPushButton>

#include <algorithm>

void BrowseRepair::CreateMoreToolsMenu()
{
    pMoreToolsBtn = new QPushButton(this);
    pMoreToolsBtn->setObjectName(QStringLiteral("pMoreToolsBtn"));
    pMoreToolsBtn->setProperty("role", "strip");
    pMoreToolsBtn->setFlat(true);
    auto *menu = new QMenu(pMoreToolsBtn);
    pMoreToolsBtn->setMenu(menu);
    const struct
    {
        const char *icon;
        QString KesmiraApp::*path;
        void (BrowseRepair::*launch)();
    } tools[] = {
        {":/res/Recover-Drive.png", &KesmiraApp::strFullRecoverPath, &BrowseRepair::LaunchDataRecovery},
        {":/res/Moniter-drive.png", &KesmiraApp::strDriveWatchPath, &BrowseRepair::LaunchDriveMonitor},
        {":/res/video-repair.png", &KesmiraApp::strClipMenderPath, &BrowseRepair::LaunchVideoRepair},
        {":/res/Recover-Photo.png", &KesmiraApp::strFullRecoverPhotoPath, &BrowseRepair::LaunchPhotoRecovery},
    };
    for (const auto &[icon, path, launch] : tools) {
        QAction *action = menu->addAction(QIcon(QString::fromLatin1(icon)), QString());
        // A click on a tool that isn't there would do nothing but end this program.
        action->setEnabled(platform().isApplicationThere(pApp->*path));
        connect(action, &QAction::triggered, this, launch);
    }
    retranslateMoreTools();
    pMoreToolsBtn->raise();
}

void BrowseRepair::retranslateMoreTools()
{
    if (!pMoreToolsBtn) return;
    pMoreToolsBtn->setText(tr("More Tools"));
    pMoreToolsBtn->setGeometry(6, 2, std::max(112, pMoreToolsBtn->sizeHint().width() + 8), 24);
    const QString names[] = {tr("Recover Data"), tr("Monitor Drive"), tr("Repair Video"), tr("Recover Photo")};
    const QList<QAction *> actions = pMoreToolsBtn->menu()->actions();
    for (int i = 0; i < actions.size(); ++i) {
        actions[i]->setText(names[i]);
        actions[i]->setToolTip(actions[i]->isEnabled() ? QString() : tr("This tool is not installed."));
    }
    pMoreToolsBtn->menu()->setToolTipsVisible(true);
}

void BrowseRepair::launch(const QString &bundle)
{
    if (mayLeaveUnsaved() && platform().startApplication(bundle)) KillApplication();
}

void BrowseRepair::LaunchDataRecovery()
{
    launch(pApp->strFullRecoverPath);
}

void BrowseRepair::LaunchDriveMonitor()
{
    launch(pApp->strDriveWatchPath);
}

void BrowseRepair::LaunchVideoRepair()
{
    launch(pApp->strClipMenderPath);
}

void BrowseRepair::LaunchPhotoRecovery()
{
    launch(pApp->strFullRecoverPhotoPath);
}

void BrowseRepair::KillApplication()
{
    endWorker();
    QApplication::quit();
}
