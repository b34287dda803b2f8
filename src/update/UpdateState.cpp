#include "update/UpdateState.h"

#include "app/WorkingRoot.h"
#include "desktop/LinkFile.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstring>

bool bCheckForUpdate = false;
bool UpdateVersionAvailable = false;
bool isMajorUpdate = false;
bool isMinorUpdate = false;
QString VersionTxtPath;
QString ApplicationPath;
SoftwareUpdate softwareUpdate{};

namespace {

void fill(char (&field)[32], const QString &text)
{
    const QByteArray bytes = text.toLatin1();
    std::memset(field, 0, sizeof field);
    std::memcpy(field, bytes.constData(), size_t(std::min(bytes.size(), int(sizeof field))));
}

} // namespace

void fillSoftwareUpdate(const QString &kind, const QString &version, const QString &title)
{
    fill(softwareUpdate.kind, kind);
    fill(softwareUpdate.version, version);
    fill(softwareUpdate.title, title);
}

QString fieldText(const char (&field)[32])
{
    return QString::fromLatin1(field, int(qstrnlen(field, sizeof field)));
}

QString updateFolder()
{
    const QString folder = workingRoot() + "/Vorlane/";
    if (prepareWorkingRoot().isEmpty()) QDir().mkdir(folder);
    return folder;
}

QString updateAddress(const QString &name)
{
    const QString base = linkFile::languageText(QStringLiteral("UpdateLink"));
    return base.isEmpty() ? QString() : base + name;
}

QString firstLine(const QString &path)
{
    constexpr int kEnough = 4096;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readLine(kEnough)).trimmed() : QString();
}
