#include "dialogs/FramelessMove.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

bool dragged = false;

bool FramelessMove::press(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || event->pos().y() >= m_stripHeight) return false;
    event->accept();
    if (QGuiApplication::platformName().startsWith("wayland")) {
        // A client there neither knows nor sets its place on the screen, and the release goes to the compositor.
        if (QWindow *handle = m_window->windowHandle()) handle->startSystemMove();
        return true;
    }
    m_grip = event->globalPos() - m_window->frameGeometry().topLeft();
    m_dragging = dragged = true;
    return true;
}

bool FramelessMove::move(QMouseEvent *event)
{
    if (!m_dragging) return false;
    // The release may have gone to a window that opened in the meantime.
    if (!(event->buttons() & Qt::LeftButton)) {
        stop();
        return false;
    }
    m_window->move(event->globalPos() - m_grip);
    event->accept();
    return true;
}

bool FramelessMove::release(QMouseEvent *event)
{
    if (!m_dragging || event->button() != Qt::LeftButton) return false;
    stop();
    event->accept();
    return true;
}

void FramelessMove::stop()
{
    if (m_dragging) dragged = false;
    m_dragging = false;
}
