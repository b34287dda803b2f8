#include "window/EffectQueue.h"

#include <QElapsedTimer>

#include <utility>

namespace {

/// Then the event loop has its turn: the window answers while thousands of effects wait.
constexpr qint64 kSliceMs = 15;
/// From one drain to the next, unless effects are left over.
constexpr qint64 kPaceMs = 40;

} // namespace

EffectQueue::EffectQueue()
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &EffectQueue::drain);
}

void EffectQueue::post(std::function<void()> effect)
{
    const std::lock_guard lock(m_mutex);
    m_effects.push_back(std::move(effect));
    wake();
}

void EffectQueue::clear()
{
    const std::lock_guard lock(m_mutex);
    m_effects.clear();
}

void EffectQueue::wake()
{
    if (m_wakePending) return;
    m_wakePending = true;
    QMetaObject::invokeMethod(this, "pace", Qt::QueuedConnection);
}

void EffectQueue::pace()
{
    const qint64 due = m_sinceDrain.isValid() && !m_moreToDo ? kPaceMs - m_sinceDrain.elapsed() : 0;
    if (due > 0)
        m_timer.start(int(due));
    else
        drain();
}

void EffectQueue::drain()
{
    m_moreToDo = false;
    QElapsedTimer slice;
    slice.start();
    {
        const std::lock_guard lock(m_mutex);
        m_wakePending = false;
    }
    do {
        std::function<void()> effect;
        {
            const std::lock_guard lock(m_mutex);
            if (m_effects.empty()) break;
            effect = std::move(m_effects.front());
            m_effects.pop_front();
            // Before the effect runs: it may stay in a dialog for minutes.
            if (!m_effects.empty()) wake();
        }
        effect();
        m_moreToDo = slice.elapsed() >= kSliceMs;
    } while (!m_moreToDo);
    m_sinceDrain.start();
}
