#pragma once

#include "support/TestServices.h"

#include <atomic>

/**
 * Takes the place of the inline queues of a test: background tasks run on real threads, and what they send to
 * the main thread runs when the test lets the event loop go on. For whatever two threads share, so that a
 * race can show. Delayed tasks still wait for the test's clock.
 */
class ThreadedTestQueues : public platform::Queues
{
public:
    explicit ThreadedTestQueues(TestServices &services);
    /** All background tasks must come to their end; then the inline queues are back. */
    ~ThreadedTestQueues() override;

    void mainAsync(QObject *context, platform::Task task) override;
    void globalAsync(platform::Task task) override;
    void globalAsyncAfter(std::chrono::milliseconds delay, platform::Task task) override;
    std::unique_ptr<platform::SerialQueue> makeSerialQueue(const QString &label) override;
    bool finish(std::chrono::milliseconds patience) override { return m_queues->finish(patience); }

    /**
     * Runs the event loop until no task waits or runs, neither in the background nor for the main thread;
     * those of serial queues don't count. False if that takes too long, as when a task waits for an alert.
     */
    [[nodiscard]] bool drain();

private:
    /** The same task, counted until it has run or was dropped. */
    platform::Task counted(platform::Task task);

    TestServices &m_services;
    std::unique_ptr<platform::Queues> m_queues;
    std::shared_ptr<std::atomic<int>> m_count = std::make_shared<std::atomic<int>>(0);
};
