// Windows that need their room, on screens that may have less of it.
#pragma once

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QSize>

/// What the program's scale is multiplied by, at most 1, so that a window of `needed` fits into the `available` area of
/// the screen: min(available width / needed width, available height / needed height). Both in the device-independent
/// pixels of the scale that holds. 1 where the area isn't known (empty).
double fittingFactor(const QSize &available, const QSize &needed);

/// Where a window of this place and size goes so that as much of it as can be is in the area, its upper left corner in
/// any case: that is where it is dragged by.
QPoint placeWithin(QRect window, const QRect &available);

/// Scales the program down, before its first window, where that window wouldn't fit. The toolkit takes its scale in
/// while the application object is made; so that object looks at the screen, and where need be the program starts anew
/// in its own place, once, with a smaller QT_SCALE_FACTOR. Programs that it starts later get the environment of before.
class ScreenFit
{
public:
    /// Before the application object is made, which takes the toolkit's own words from the arguments. Turns scaling by
    /// the screen on, in exact and not in whole steps.
    ScreenFit(int argc, char **argv);
    /// Right after it: `needed` in device-independent pixels, on the primary screen. Doesn't return if it starts anew.
    void fit(const QSize &needed);
    /// The same for an area of which the platform needn't be asked.
    void fit(const QSize &needed, const QSize &available);

private:
    QList<QByteArray> m_arguments;
};
