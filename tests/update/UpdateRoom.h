// A root, a link file and a server for the tests of updates.
#pragma once

#include "app/KesmiraApp.h"
#include "app/WorkingRoot.h"
#include "desktop/Languages.h"
#include "support/FakeDesktop.h"
#include "update/Download.h"
#include "update/LoopbackServer.h"
#include "update/UpdateState.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

class UpdateRoom
{
public:
    UpdateRoom()
    {
        *pApp = KesmiraApp();
        setWorkingRoot(folder.filePath("root"));
        setPlatform(&platform);
        pApp->bLangGerman = true;
        pApp->strLinkPlistPath = folder.filePath("links.plist");
        link("UpdateLink_DE", server.base());
        QSettings("apple", "KMPR.db").clear();
        QSettings("apple", "KMVR.db").clear();
        softwareUpdate = {};
        UpdateVersionAvailable = isMajorUpdate = isMinorUpdate = bCheckForUpdate = false;
        Download::setTimeout(30000);
    }
    ~UpdateRoom()
    {
        qDeleteAll(QApplication::topLevelWidgets());
        setPlatform(nullptr);
        setWorkingRoot({});
    }
    void link(const char *key, const QString &value) const
    {
        QSettings(pApp->strLinkPlistPath, QSettings::NativeFormat).setValue(key, value);
    }
    /// The dialog of this class that is seen, null if there is none.
    template<typename Dialog>
    static Dialog *shown()
    {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *dialog = qobject_cast<Dialog *>(widget); dialog && dialog->isVisible()) return dialog;
        return nullptr;
    }

    QTemporaryDir folder;
    RecordingPlatform platform;
    LoopbackServer server;
};
