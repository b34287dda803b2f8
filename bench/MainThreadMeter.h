// An application that measures how long the main thread is busy: what a person feels as a window that doesn't answer.
#pragma once

#include <QApplication>
#include <QEvent>

/// Counts turns. A turn is what the main thread does between two looks at its events: one event with all that it sends
/// on at once, up to where a modal dialog begins a loop of its own, and from there on again.
class MainThreadMeter : public QApplication
{
public:
    using QApplication::QApplication;

    void reset();
    /// Seconds of the processor that the main thread has spent in turns since reset().
    double busySeconds() const { return m_busy; }
    /// The longest turn since reset(), in milliseconds by the clock, and of the processor: on a machine that has other
    /// work the clock also counts the waiting for a turn of one's own.
    double longestMs() const { return m_longest * 1e3; }
    double longestProcessorMs() const { return m_longestProcessor * 1e3; }
    /// What the longest turn (of the processor) was: receiver and number of the event.
    QByteArray longestEvent() const { return m_longestEvent; }

    bool notify(QObject *receiver, QEvent *event) override;

private:
    void beginTurn();
    void endTurn(const QByteArray &what);

    int m_level = -1; // of the loop whose event is in hand
    bool m_inTurn = false;
    bool m_resumed = false; // a loop inside of the turn has had an event
    double m_begin = 0;
    double m_beginProcessor = 0;
    double m_busy = 0;
    double m_longest = 0;
    double m_longestProcessor = 0;
    QByteArray m_longestEvent;
};
