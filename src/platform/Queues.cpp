#include "platform/Queues.h"

#include "platform/MainDispatcher.h"

#include <QTimer>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include <pthread.h>

namespace platform {

namespace {

/** More than there are processors, as background tasks mostly wait for the network. */
constexpr int maxThreadCount = 16;

void nameThisThread(const QString &name)
{
    // The system takes no more than 15 bytes.
    pthread_setname_np(pthread_self(), name.right(15).toLatin1().constData());
}

class ThreadSerialQueue;
thread_local const ThreadSerialQueue *currentQueue = nullptr;

class ThreadSerialQueue : public SerialQueue
{
public:
    explicit ThreadSerialQueue(const QString &label)
        : m_label(label)
        , m_thread([this] { work(); })
    {
    }
    ~ThreadSerialQueue() override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isEnding = true;
        }
        m_changed.notify_one();
        m_thread.join();
    }

    void async(Task task) override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_tasks.push_back(std::move(task));
        }
        m_changed.notify_one();
    }

    void sync(Task task) override
    {
        Q_ASSERT(!isCurrent());
        std::mutex mutex;
        std::condition_variable ended;
        bool hasEnded = false;
        async([&] {
            task();
            // Told under the lock, as the caller takes all of this away once it hears of it.
            const std::lock_guard lock(mutex);
            hasEnded = true;
            ended.notify_one();
        });
        std::unique_lock lock(mutex);
        ended.wait(lock, [&] { return hasEnded; });
    }

    QString label() const override { return m_label; }
    bool isCurrent() const override { return currentQueue == this; }

private:
    void work()
    {
        currentQueue = this;
        nameThisThread(m_label);
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [this] { return m_isEnding || !m_tasks.empty(); });
            if (m_tasks.empty())
                return;
            Task task = std::move(m_tasks.front());
            m_tasks.pop_front();
            lock.unlock();
            task();
            task = nullptr;
            lock.lock();
        }
    }

    const QString m_label;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Task> m_tasks;
    bool m_isEnding = false;
    std::thread m_thread;
};

/** Threads of the background that nobody waits for; the last one that holds this takes it away. */
class BackgroundPool : public std::enable_shared_from_this<BackgroundPool>
{
public:
    void run(Task task)
    {
        const std::lock_guard lock(m_mutex);
        if (m_isFinished)
            return;
        m_tasks.push_back(std::move(task));
        m_changed.notify_all();
        if (m_idleCount < int(m_tasks.size()) && m_threadCount < maxThreadCount) {
            ++m_threadCount;
            std::thread([pool = shared_from_this()] { pool->work(); }).detach();
        }
    }

    bool finish(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(m_mutex);
        m_isFinished = true;
        m_tasks.clear();
        m_changed.notify_all();
        return m_changed.wait_for(lock, patience, [this] { return m_threadCount == 0; });
    }

private:
    void work()
    {
        nameThisThread(QStringLiteral("tavimo.global"));
        std::unique_lock lock(m_mutex);
        for (;;) {
            ++m_idleCount;
            m_changed.wait(lock, [this] { return m_isFinished || !m_tasks.empty(); });
            --m_idleCount;
            if (m_isFinished)
                break;
            Task task = std::move(m_tasks.front());
            m_tasks.pop_front();
            lock.unlock();
            task();
            task = nullptr;
            lock.lock();
        }
        --m_threadCount;
        m_changed.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Task> m_tasks;
    int m_idleCount = 0;
    int m_threadCount = 0;
    bool m_isFinished = false;
};

class SystemQueues : public Queues
{
public:
    explicit SystemQueues(MainDispatcher &dispatcher)
        : m_dispatcher(dispatcher)
    {
    }
    ~SystemQueues() override { m_pool->finish(std::chrono::milliseconds(0)); }

    void mainAsync(QObject *context, Task task) override
    {
        m_dispatcher.post(unlessGone(context, std::move(task)));
    }
    void globalAsync(Task task) override { m_pool->run(std::move(task)); }
    void globalAsyncAfter(std::chrono::milliseconds delay, Task task) override
    {
        // The main thread's event loop has the timers; the task itself never comes near it.
        m_dispatcher.postPastGate(unlessGone(&m_root, [this, delay, run = std::move(task)] {
            QTimer::singleShot(std::max(delay, std::chrono::milliseconds(0)), &m_root,
                               [this, run] { m_pool->run(run); });
        }));
    }
    std::unique_ptr<SerialQueue> makeSerialQueue(const QString &label) override
    {
        return makeSystemSerialQueue(label);
    }
    bool finish(std::chrono::milliseconds patience) override { return m_pool->finish(patience); }

private:
    MainDispatcher &m_dispatcher;
    QObject m_root;
    std::shared_ptr<BackgroundPool> m_pool = std::make_shared<BackgroundPool>();
};

} // namespace

QString currentQueueLabel()
{
    return currentQueue ? currentQueue->label() : QString();
}

std::unique_ptr<Queues> makeSystemQueues(MainDispatcher &dispatcher)
{
    return std::make_unique<SystemQueues>(dispatcher);
}

std::unique_ptr<SerialQueue> makeSystemSerialQueue(const QString &label)
{
    return std::make_unique<ThreadSerialQueue>(label);
}

} // namespace platform
