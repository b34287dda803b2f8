// What the worker does to the window: a line of effects that the main thread runs in their order.
#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

/// Lives on the main thread. post() may be called from any thread and never waits for an effect to run. An effect that
/// opens a modal dialog doesn't hold up the ones behind it: the dialog's own event loop goes on with them.
class EffectQueue : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    void post(std::function<void()> effect);
    /// Drops the effects that haven't run.
    void clear();

private:
    Q_INVOKABLE void drain();
    /// Asks the main thread to come by. With m_mutex held.
    void wake();

    std::mutex m_mutex;
    std::deque<std::function<void()>> m_effects;
    bool m_wakePending = false;
};
