#pragma once

#include <QDateTime>
#include <QTimeZone>

#include <chrono>
#include <functional>
#include <memory>

class QObject;

namespace platform {

class MainDispatcher;

/** A running timer. Destroying it invalidates it: nothing is called afterwards. */
class Timer
{
public:
    Timer() = default;
    Timer(const Timer &) = delete;
    Timer &operator=(const Timer &) = delete;
    virtual ~Timer() = default;
};

/**
 * The time, timers and delayed calls of the program. Nothing else uses QTimer or the system time, so that a
 * test can set and advance the time. Timers belong to the main thread and wait while a modal alert stands;
 * now(), timeZone() and callAfter() may be called from any thread.
 */
class Clock
{
public:
    virtual ~Clock() = default;

    /** The present moment, in UTC. */
    virtual QDateTime now() const = 0;
    /** The user's time zone. */
    virtual QTimeZone timeZone() const = 0;
    /** Calls fire once after the interval, or again and again if repeats is set. The caller owns the timer.
     */
    [[nodiscard]] virtual std::unique_ptr<Timer> startTimer(std::chrono::milliseconds interval, bool repeats,
                                                            std::function<void()> fire) = 0;
    /** Calls once after the delay on the main thread, unless the context was destroyed before. */
    virtual void callAfter(std::chrono::milliseconds delay, QObject *context, std::function<void()> call) = 0;
};

/** The machine's time, in UTC, for what must not depend on an installed clock, like the stamps of log lines.
 */
QDateTime systemTime();

/** Whole seconds from 1970-01-01 00:00:00 UTC to now. */
qint64 secondsSince1970(const Clock &clock);

/** To be made on the main thread; the dispatcher outlives it. */
std::unique_ptr<Clock> makeSystemClock(MainDispatcher &dispatcher);

} // namespace platform
