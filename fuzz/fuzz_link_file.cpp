// Foreign bytes as the link file. Nothing is fetched but from where it may be, a key is one or none, and a choice of
// language that is stored in the file is read from it again and changes no address.
#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/LinkFile.h"
#include "support/FakeDesktop.h"
#include "support/Files.h"
#include "update/Download.h"
#include "update/UpdateSignature.h"
#include "update/UpdateState.h"

#include <QTemporaryDir>
#include <QUrl>

#include <arpa/inet.h>
#include <cstdlib>
#include <cstring>

namespace {

void demand(bool holds)
{
    if (!holds) std::abort();
}

bool isThisMachine(const QString &host)
{
    in6_addr six{};
    in_addr four{};
    if (::inet_pton(AF_INET, host.toLatin1().constData(), &four) == 1) return ntohl(four.s_addr) >> 24 == 127;
    if (::inet_pton(AF_INET6, host.toLatin1().constData(), &six) != 1) return host == QLatin1String("localhost");
    return std::memcmp(&six, &in6addr_loopback, sizeof six) == 0
        || (IN6_IS_ADDR_V4MAPPED(&six) && six.s6_addr[12] == 127);
}

QStringList allTexts()
{
    QStringList texts;
    for (const char *base : {"UpdateLink", "SupportLink"}) texts << linkFile::languageText(QLatin1String(base));
    for (const char *key : {"KBName", "UpdateKey"}) texts << linkFile::text(QLatin1String(key));
    return texts;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir room;
    static RecordingPlatform platform;
    static quint64 number = 0;
    setPlatform(&platform);
    *pApp = KesmiraApp();
    // A name of its own: the toolkit remembers files that it has read.
    pApp->strLinkPlistPath = room.filePath(QString::number(++number));
    write(pApp->strLinkPlistPath, QByteArray(reinterpret_cast<const char *>(data), int(size)));

    const int language = int(size % 7);
    setLanguageFlags(storedLanguage());
    setLanguageFlags(language);
    const QUrl address(updateAddress(QStringLiteral("Kesmira.zip")));
    if (Download::isSafe(address)) {
        const QString scheme = address.scheme();
        demand(!address.host().isEmpty());
        demand(scheme == QLatin1String("https") || (scheme == QLatin1String("http") && isThisMachine(address.host())));
    }
    demand(updateKey().isEmpty() || updateKey().size() == 32);

    const QStringList texts = allTexts();
    if (linkFile::store(pApp->strLinkPlistPath, QStringLiteral("LanguageType"), language)) {
        storeLanguage(languages()[language]);
        demand(storedLanguage() == language);
        demand(allTexts() == texts);
    }
    QFile::remove(pApp->strLinkPlistPath);
    return 0;
}
