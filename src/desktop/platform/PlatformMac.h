// The desktop system whose command lines stand in CommandText.
#pragma once

#include "desktop/platform/Platform.h"

class PlatformMac : public Platform
{
public:
    QString systemVersion() override;
    SystemDescription systemDescription() override;
    bool showInFileManager(const QString &path) override;
    bool openAddress(const QUrl &address) override;
    /// Always empty: an address goes to the browser that the system itself chooses.
    QString defaultBrowser() override;
    QList<unsigned int> previewHelpers(const QString &helperPath) override;
    bool startPreviewHelper(const QString &helperPath, const QStringList &arguments) override;
    void endPreviewHelper(unsigned int pid) override;
    bool isApplicationThere(const QString &bundlePath) override;
    bool startApplication(const QString &bundlePath) override;
    void startAnew(const QList<QByteArray> &arguments) override;
    /// The shipped file itself: its system lets an installed bundle be written.
    QString userSettingsFile(const QString &shipped) override;
    /// By the command lines of commandText::installSteps, none of whose results is looked at.
    QString installBundle(const QString &archive, const QString &bundleName, const QString &program,
                          const QString &folder) override;
    QString destinationRefusal(const QString &folder) override;
};
