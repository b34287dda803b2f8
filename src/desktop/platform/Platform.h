// What the desktop side asks of the operating system, as intents. Only the files of this folder know one.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

/// Kind of processor; names it where its exact code says nothing.
enum class ProcessorFamily { Other, Intel, PowerPc, Motorola };

/// Texts about the machine, for support.
struct SystemDescription
{
    QString hostName;  ///< without domain
    QString osName;    ///< for instance "Debian GNU/Linux 12 (bookworm)"
    int version = 0;   ///< of the told kind: four hexadecimal digits, 0x1260 for 12.6.0
    int processor = 0; ///< processor code; 0 where the system gives none
    ProcessorFamily family = ProcessorFamily::Other;
};

class Platform
{
public:
    virtual ~Platform() = default;

    /// Version of the system as a person writes it, "12.5"; empty if it can't be learnt.
    virtual QString systemVersion() = 0;
    virtual SystemDescription systemDescription() = 0;

    /// Shows the folder or file at `path` in the file manager; where that fails, opens the folder. False if neither worked.
    virtual bool showInFileManager(const QString &path) = 0;
    /// Opens an address with the browser or mail program that the user has chosen.
    virtual bool openAddress(const QUrl &address) = 0;
    /// Path or name of the browser for http, empty if unknown.
    virtual QString defaultBrowser() = 0;

    /// Process ids of the running copies of the helper at `helperPath` that belong to this user.
    virtual QList<unsigned int> previewHelpers(const QString &helperPath) = 0;
    /// Starts the helper with these arguments, each of which reaches it as it is, and returns at once; may be called from
    /// another thread than the others. False where there is no helper.
    virtual bool startPreviewHelper(const QString &helperPath, const QStringList &arguments) = 0;
    virtual void endPreviewHelper(unsigned int pid) = 0;

    /// True if there is an application at this bundle's path.
    virtual bool isApplicationThere(const QString &bundlePath) = 0;
    /// Starts another application, given by its bundle's path.
    virtual bool startApplication(const QString &bundlePath) = 0;

    /// Starts this very program in the place of the running one, with these arguments, the program's name in front, and the
    /// environment as it stands. Returns only where that fails.
    virtual void startAnew(const QList<QByteArray> &arguments) = 0;

    /// Where the user's own changes of the settings file shipped as `shipped` are kept: `shipped` itself, or a file of the
    /// user's that need not exist yet.
    virtual QString userSettingsFile(const QString &shipped) = 0;

    /// Puts the bundle `bundleName` of the zip `archive` in the place of the one in `folder`. `program` is the running
    /// program's path in the bundle. Returns "" or what a person is told. May be called from another thread.
    virtual QString installBundle(const QString &archive, const QString &bundleName, const QString &program,
                                  const QString &folder) = 0;
    /// Tidies up after an installing of `bundleName` in `folder` that was ended on its way.
    virtual void clearInstallLeftovers(const QString &bundleName, const QString &folder);

    /// "" if results may be saved below `folder`, else the text to show a person.
    virtual QString destinationRefusal(const QString &folder) = 0;
};

/// The one that this program was built for, until another one is set.
Platform &platform();
/// For tests; null brings the built-in one back. The caller keeps it alive.
void setPlatform(Platform *replacement);

/// What a person is told about a destination that can't be written.
QString readOnlyDestinationText();
