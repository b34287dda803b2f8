#include "desktop/LinkFile.h"

#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/platform/Platform.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <utility>

QVariant linkFile::value(const QString &path, const QString &key)
{
    if (path.isEmpty()) return {};
    for (const QString &file : {platform().userSettingsFile(path), path}) {
        if (file.isEmpty() || !QFileInfo(file).isFile()) continue;
        const QVariant value = QSettings(file, QSettings::NativeFormat).value(key);
        if (value.isValid()) return value;
    }
    return {};
}

QString linkFile::text(const QString &key)
{
    const QVariant found = value(pApp->strLinkPlistPath, key);
    // An unquoted comma in the file makes a list of the text.
    return found.type() == QVariant::StringList ? found.toStringList().join(QStringLiteral(", ")) : found.toString();
}

QString linkFile::languageText(const QString &base)
{
    const Language *language = currentLanguage();
    return language ? text(base + '_' + language->folder) : QString();
}

void KesmiraApp::GetPlistLinks()
{
    const std::pair<const char *, QString KesmiraApp::*> fields[] = {
        {"ContactSalesLink", &KesmiraApp::strContactSalesLink},
        {"ContactSalesName", &KesmiraApp::strContactSalesName},
        {"EmailToSupport", &KesmiraApp::strEmailToSupport},
        {"SupportName", &KesmiraApp::strSupportName},
        {"KBLink", &KesmiraApp::strKBLink},
        {"KBName", &KesmiraApp::strKBName},
        {"SkypeID", &KesmiraApp::strSkypeID},
        {"SkypeLink", &KesmiraApp::strSkypeLink},
        {"SubmitEnquiryLink", &KesmiraApp::strSubmitEnquiryLink},
        {"SubmitEnquiryName", &KesmiraApp::strSubmitEnquiryName},
        {"WebsiteLink", &KesmiraApp::strWebsiteLink},
        {"WebsiteName", &KesmiraApp::strWebsiteName},
    };
    for (const auto &[key, field] : fields) this->*field = linkFile::text(QLatin1String(key));
}

bool linkFile::store(const QString &path, const QString &key, const QVariant &value)
{
    const QString own = path.isEmpty() ? QString() : platform().userSettingsFile(path);
    if (own.isEmpty()) return false;
    // Nothing else is put there: a later release's addresses and key would stay hidden behind their copies.
    QDir().mkpath(QFileInfo(own).path());
    QSettings settings(own, QSettings::NativeFormat);
    settings.setValue(key, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}
