#include "window/CameraDataSwitch.h"

#include "app/KesmiraApp.h"

#include <QAction>
#include <QSettings>

namespace {

const QString kKey = QStringLiteral("CameraData");

class Preferences : public QSettings
{
public:
    Preferences() : QSettings(QStringLiteral("vorlane"), QStringLiteral("KMPRepairPreferences")) {}
};

} // namespace

QAction *CameraDataSwitch::make(QObject *parent)
{
    pApp->bCameraData = Preferences().value(kKey, false).toBool();
    auto *action = new QAction(parent);
    action->setObjectName(QStringLiteral("actionCameraData"));
    action->setCheckable(true);
    action->setChecked(pApp->bCameraData);
    QObject::connect(action, &QAction::toggled, parent, [](bool on) {
        pApp->bCameraData = on;
        Preferences().setValue(kKey, on);
    });
    return action;
}

void CameraDataSwitch::name(QAction *action)
{
    const QString tip =
        tr("When photos are saved, their date, place, orientation and colour profile are taken from the "
           "damaged files, where they are sound.");
    action->setText(tr("Put the &camera's data back"));
    action->setToolTip(tip);
    action->setStatusTip(tip);
}
