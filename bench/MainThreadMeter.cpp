#include "MainThreadMeter.h"

#include <QThread>

#include <ctime>

namespace {

double secondsOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

} // namespace

void MainThreadMeter::reset()
{
    m_busy = 0;
    m_longest = 0;
    m_longestProcessor = 0;
    m_longestEvent.clear();
}

void MainThreadMeter::beginTurn()
{
    m_inTurn = true;
    m_begin = secondsOf(CLOCK_MONOTONIC);
    m_beginProcessor = secondsOf(CLOCK_THREAD_CPUTIME_ID);
}

void MainThreadMeter::endTurn(const QByteArray &what)
{
    if (!m_inTurn) return;
    m_inTurn = false;
    const double processor = secondsOf(CLOCK_THREAD_CPUTIME_ID) - m_beginProcessor;
    m_busy += processor;
    m_longest = std::max(m_longest, secondsOf(CLOCK_MONOTONIC) - m_begin);
    if (processor <= m_longestProcessor) return;
    m_longestProcessor = processor;
    m_longestEvent = what;
}

bool MainThreadMeter::notify(QObject *receiver, QEvent *event)
{
    if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
    const int level = thread()->loopLevel();
    if (level == m_level) return QApplication::notify(receiver, event); // sent on within the turn
    const QByteArray what = receiver->metaObject()->className() + QByteArray(" ") + QByteArray::number(event->type());
    const int outer = m_level;
    // Between two events of a dialog's loop there was waiting too, which is no turn.
    if (m_resumed)
        m_inTurn = false;
    else
        endTurn(what + " (in front of a dialog)");
    m_level = level;
    m_resumed = false;
    beginTurn();
    const bool taken = QApplication::notify(receiver, event);
    endTurn(what);
    m_level = outer;
    // What follows is the next event of this loop, or the rest of the turn that had begun it.
    m_resumed = outer >= 0;
    if (m_resumed) beginTurn();
    return taken;
}
