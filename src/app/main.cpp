// The window program: one source for both builds, the one fixed to Chinese and the international one.
#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/Look.h"
#include "desktop/Paths.h"
#include "desktop/SingleInstance.h"
#include "tables/TableLibrary.h"
#include "window/BrowseRepair.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>

namespace {

/// Paths of the files on the command line, absolute.
QStringList namedFiles()
{
    QStringList paths;
    for (const QString &argument : QCoreApplication::arguments().mid(1))
        if (!argument.startsWith('-')) paths << QFileInfo(argument).absoluteFilePath();
    return paths;
}

int refuse(const QString &why)
{
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Kesmira"), why);
    box.exec();
    return 1;
}

void setUpLanguage()
{
    nLanguageType = storedLanguage();
    setLanguageFlags(nLanguageType);
    loadTranslators();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setSetuidAllowed(true);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Vorlane"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("vorlane.example"));
    QCoreApplication::setApplicationName(QStringLiteral("Kesmira"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESMIRA_VERSION));
    look::apply(application);
    pApp->strDefaultBrowser.clear();
    pApp->strPreviewHelperPath.clear();
    bChineseCustomBuild = KESMIRA_CHINESE_BUILD;
    pApp->bChineseBuild = KESMIRA_CHINESE_BUILD;
    pApp->GetOtherAppsPlistPath();
    setApplicationPaths(QCoreApplication::applicationDirPath());
    setUpLanguage();
    const QSettings preferences(QStringLiteral("vorlane"), QStringLiteral("KMPRepairPreferences"));
    pApp->GetPlistLinks();

    const QString tables = checkBuiltInTables();
    if (!tables.isEmpty()) return refuse(tables);
    SingleInstance instance;
    QString why;
    switch (instance.start(namedFiles(), &why)) {
    case SingleInstance::Start::First: break;
    case SingleInstance::Start::HandedOver: return 0;
    case SingleInstance::Start::Refused: return refuse(why);
    }

    auto *window = new BrowseRepair; // lives as long as the process
    QObject::connect(&instance, &SingleInstance::asked, window, &BrowseRepair::ComeToFront);
    window->show();
    pApp->InitInstance(window);
    window->AddNamedFiles(namedFiles());
    return QApplication::exec();
}
