// Moves a window without a frame by its top strip: the main window and every dialog.
#pragma once

#include <QPoint>

class QMouseEvent;
class QWidget;

/// A drag is under way.
extern bool dragged;

/// The window hands its mouse events over; each call returns true if it has used the event up. Where the compositor alone
/// may move windows it is asked to; elsewhere the window follows the pointer while the left button is down.
class FramelessMove
{
public:
    /// `stripHeight`: device-independent pixels from the window's top edge.
    explicit FramelessMove(QWidget *window, int stripHeight = 28) : m_window(window), m_stripHeight(stripHeight) {}
    void setStripHeight(int height) { m_stripHeight = height; }

    bool press(QMouseEvent *event);
    bool move(QMouseEvent *event);
    bool release(QMouseEvent *event);
    /// Ends a drag whose release will not come, as when the window is hidden.
    void stop();

private:
    QWidget *m_window;
    int m_stripHeight;
    QPoint m_grip; // from the window's corner to where the pointer holds it
    bool m_dragging = false;
};
