// The entry of the menus that has saved copies get the camera's data back.
#pragma once

#include <QCoreApplication>

class QAction;
class QObject;

class CameraDataSwitch
{
    Q_DECLARE_TR_FUNCTIONS(CameraDataSwitch)

public:
    /// A checkable action called "actionCameraData", switched as the preferences have it, off at first. It belongs to
    /// `parent`, and keeps `bCameraData` of `pApp` and the preferences as it is switched.
    static QAction *make(QObject *parent);
    /// Names it in the language of the interface.
    static void name(QAction *action);
};
