#include "desktop/ScreenFit.h"

#include "desktop/platform/Platform.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

const char kScale[] = "QT_SCALE_FACTOR";
/// Set in a program that has started anew, to what kScale was before.
const char kScaleBefore[] = "KESMIRA_SCALE_BEFORE";

void setOrUnset(const char *name, const QByteArray &value)
{
    if (value.isEmpty())
        qunsetenv(name);
    else
        qputenv(name, value);
}

} // namespace

double fittingFactor(const QSize &available, const QSize &needed)
{
    if (available.isEmpty() || needed.isEmpty()) return 1.0;
    return std::min({double(available.width()) / needed.width(), double(available.height()) / needed.height(), 1.0});
}

QPoint placeWithin(QRect window, const QRect &available)
{
    window.moveRight(std::min(window.right(), available.right()));
    window.moveBottom(std::min(window.bottom(), available.bottom()));
    window.moveLeft(std::max(window.left(), available.left()));
    window.moveTop(std::max(window.top(), available.top()));
    return window.topLeft();
}

ScreenFit::ScreenFit(int argc, char **argv)
{
    for (int i = 0; i < argc; ++i) m_arguments.append(argv[i]);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

void ScreenFit::fit(const QSize &needed)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    fit(needed, screen ? screen->availableSize() : QSize());
}

void ScreenFit::fit(const QSize &needed, const QSize &available)
{
    if (qEnvironmentVariableIsSet(kScaleBefore)) { // what can be done has been done
        setOrUnset(kScale, qgetenv(kScaleBefore));
        qunsetenv(kScaleBefore);
        return;
    }
    const double factor = fittingFactor(available, needed);
    if (factor >= 1.0) return;
    const QByteArray before = qgetenv(kScale);
    const double scale = before.toDouble();
    // Downwards: a scale that is too large by less than can be written would leave a line of the window out.
    const double fitting = std::floor((scale > 0 ? scale : 1.0) * factor * 1000) / 1000;
    if (fitting <= 0) return;
    qputenv(kScaleBefore, before);
    qputenv(kScale, QByteArray::number(fitting));
    platform().startAnew(m_arguments);
    qunsetenv(kScaleBefore);
    setOrUnset(kScale, before);
}
