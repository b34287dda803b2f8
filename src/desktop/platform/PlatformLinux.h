// The desktop system of the free desktops: XDG folders, D-Bus, /proc. No command line is built from a file's name.
#pragma once

#include "desktop/platform/Platform.h"

#include <QHash>
#include <QObject>

class PlatformLinux : public Platform
{
public:
    QString systemVersion() override;
    SystemDescription systemDescription() override;
    /// Asks the file manager over D-Bus and doesn't wait for it: true means that it was asked. If it answers with an error
    /// later, the folder is opened then.
    bool showInFileManager(const QString &path) override;
    bool openAddress(const QUrl &address) override;
    /// Name of the desktop entry that the user's settings give for http, without suffix: "firefox".
    QString defaultBrowser() override;
    QList<unsigned int> previewHelpers(const QString &helperPath) override;
    bool startPreviewHelper(const QString &helperPath, const QStringList &arguments) override;
    /// Ends a process that `previewHelpers` listed, if it still is that helper.
    void endPreviewHelper(unsigned int pid) override;
    bool isApplicationThere(const QString &bundlePath) override;
    bool startApplication(const QString &bundlePath) override;
    void startAnew(const QList<QByteArray> &arguments) override;
    /// The file of the same name in the folder "kesmira" of the user's configuration.
    QString userSettingsFile(const QString &shipped) override;
    /// A failed step leaves the installed program as it was.
    QString installBundle(const QString &archive, const QString &bundleName, const QString &program,
                          const QString &folder) override;
    QString destinationRefusal(const QString &folder) override;

    /// The program behind a bundle ("X.app", a folder) or beside where the bundle would lie ("X"); empty if there is none.
    static QString programOf(const QString &bundlePath);

protected:
    /// Opens a folder with the program that the user has chosen for folders.
    virtual bool openFolder(const QString &folder);

private:
    QObject m_guard; ///< an answer of the file manager that comes after this object's end finds nobody
    QHash<unsigned int, QString> m_helpers; ///< process id -> program, as last listed
};
