// What the worker does to the window: a line of effects that the main thread runs in their order.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>
#include <mutex>

/// Lives on the main thread. post() may be called from any thread and never waits for an effect to run. An effect that
/// opens a modal dialog doesn't hold up the ones behind it: the dialog's own event loop goes on with them.
class EffectQueue : public QObject
{
    Q_OBJECT

public:
    EffectQueue();
    void post(std::function<void()> effect);
    /// Drops the effects that haven't run.
    void clear();

private:
    /// Drains now, or a little later where it has only just been done: whatever an effect changes is laid out and painted
    /// once for all that came meanwhile.
    Q_INVOKABLE void pace();
    void drain();
    /// Asks the main thread to come by. With m_mutex held.
    void wake();

    std::mutex m_mutex;
    std::deque<std::function<void()>> m_effects;
    bool m_wakePending = false;

    // The main thread's own
    QTimer m_timer;
    QElapsedTimer m_sinceDrain;
    bool m_moreToDo = false; ///< the last drain ended because its time was up
};
