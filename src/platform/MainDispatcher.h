#pragma once

#include "platform/Dispatcher.h"

#include <memory>

namespace platform {

/**
 * The way of all the program's own calls to the main thread: timers, delayed calls, and what other threads
 * and services send. It has a gate, which a modal alert keeps closed. The alert's event loop would otherwise
 * run them in the middle of whatever shows the alert, and a vocabulary could be replaced under the hands of
 * the operation that is saving it. Calls that fall due behind the closed gate run after it has opened, in the
 * order in which they fell due.
 *
 * Belongs to the main thread; only the two kinds of post may be called from any.
 */
class MainDispatcher
{
public:
    /** Something that falls due once or again and again. Whoever lets go of it clears isAlive. */
    struct Call
    {
        std::function<void()> run;
        bool isAlive = true;
        bool isWaiting = false;
    };

    MainDispatcher() = default;
    MainDispatcher(const MainDispatcher &) = delete;
    MainDispatcher &operator=(const MainDispatcher &) = delete;

    /** Runs the task later on the main thread, through the gate. */
    void post(std::function<void()> task);
    /**
     * The same, but past a closed gate: for the platform's own chores, like arming a timer, of which nothing
     * above the platform can take notice.
     */
    void postPastGate(std::function<void()> task) { m_inbox.post(std::move(task)); }

    /** Runs a call that is due now; if the gate is closed or others wait, it queues up behind them. */
    void fallDue(const std::shared_ptr<Call> &call);
    /**
     * Runs what waits, as far as the gate is open: a call that shows an alert closes it again. The event loop
     * does this by itself once the gate has opened.
     */
    void runWaiting();

    bool isGateClosed() const { return m_closings > 0; }
    /** So whoever waits for something can tell whether an alert has come in between. */
    quint64 timesClosed() const { return m_timesClosed; }

private:
    friend class ClosedGate;
    void closeGate()
    {
        ++m_closings;
        ++m_timesClosed;
    }
    void openGate();

    Dispatcher m_inbox;
    int m_closings = 0;
    quint64 m_timesClosed = 0;
    std::deque<std::shared_ptr<Call>> m_waiting;
};

/** Keeps the gate closed as long as it lives; there can be several at a time. Main thread only. */
class ClosedGate
{
public:
    explicit ClosedGate(MainDispatcher &dispatcher)
        : m_dispatcher(dispatcher)
    {
        m_dispatcher.closeGate();
    }
    ~ClosedGate() { m_dispatcher.openGate(); }
    ClosedGate(const ClosedGate &) = delete;
    ClosedGate &operator=(const ClosedGate &) = delete;

private:
    MainDispatcher &m_dispatcher;
};

} // namespace platform
