// The members of the application object that ask the system something.

#include "app/KesmiraApp.h"
#include "desktop/platform/Platform.h"

#include <QFileInfo>
#include <QSettings>
#include <QSysInfo>

namespace {

const char kOrganisation[] = "apple";
const char kApplication[] = "KMPR.db";

struct Processor
{
    int code;
    const char *text;
};

/// The codes are those that the system's own interface publishes; four letters in the later ones.
constexpr Processor kProcessors[] = {
    {0x0101, "PowerPC 601"},           {0x0103, "PowerPC 603"},          {0x0106, "PowerPC 603e"},
    {0x0107, "PowerPC 603ev"},         {0x0104, "PowerPC 604"},          {0x0109, "PowerPC 604e"},
    {0x010A, "PowerPC 604ev"},         {0x0108, "Power Mac G3"},         {0x010C, "Power Mac G4"},
    {0x0139, "Power Mac G5"},          {0x013C, "Power Mac G5(970 FX)"}, {0x69343836, "Intel 486"}, // i486
    {0x69353836, "Intel Pentium"},                                                                  // i586
    {0x69357072, "Intel Pentium Pro"},                                                              // i5pr
    {0x69356969, "Intel Pentium II"},                                                               // i5ii
    {0x69356976, "Intel Pentium 4"},                                                                // i5iv
    {0x69787878, "Intel x86"},                                                                      // ixxx
};

QString processorText(const SystemDescription &description)
{
    for (const Processor &processor : kProcessors) {
        if (processor.code == description.processor) return QLatin1String(processor.text);
    }
    switch (description.family) {
    case ProcessorFamily::PowerPc: return QStringLiteral("IBM PowerPC");
    case ProcessorFamily::Motorola: return QStringLiteral("Motorola");
    case ProcessorFamily::Intel: return QStringLiteral("Intel x86");
    case ProcessorFamily::Other: break;
    }
    return QSysInfo::currentCpuArchitecture(); // a family that has no text of its own
}

} // namespace

void KesmiraApp::InitInstance(void *window)
{
    const QSettings store(kOrganisation, kApplication);
    if (!QFileInfo::exists(store.fileName())) ApplicationInfoSettings();
    GetMySystemInfo();
    pWindow = window;
}

void KesmiraApp::ApplicationInfoSettings()
{
    // This release starts from its own record; what an update left there doesn't count any more.
    QSettings store(kOrganisation, kApplication);
    store.setValue("VInfoType", "Major");
    store.setValue("VNo", "7.0.0.0");
    store.setValue("VUpdate", QString());
}

void KesmiraApp::GetMySystemInfo()
{
    const SystemDescription description = platform().systemDescription();
    const QString digits = QStringLiteral("%1").arg(description.version, 4, 16, QLatin1Char('0'));
    strHostName = ": " + description.hostName;
    strOsName = description.osName.isEmpty() ? QString() : ": " + description.osName;
    strOsVersionHex = QString::number(description.version, 16);
    strOsVersion = QStringLiteral(": %1.%2.%3").arg(digits.left(2), digits.mid(2, 1), digits.mid(3, 1));
    strProcessorName = ": " + processorText(description);
}
