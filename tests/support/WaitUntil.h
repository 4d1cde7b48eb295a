#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <chrono>

/** Runs the event loop until the condition holds; gives up, and says so, after some seconds. */
template <typename Condition> [[nodiscard]] bool waitUntil(Condition condition)
{
    const QDeadlineTimer deadline(std::chrono::seconds(20));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}
