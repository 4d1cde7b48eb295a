#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

class QObject;

namespace platform {

class MainDispatcher;
using Task = std::function<void()>;

/** Runs its tasks one after the other, in order, off the main thread. Destroying it waits for the rest. */
class SerialQueue
{
public:
    virtual ~SerialQueue() = default;
    virtual void async(Task task) = 0;
    /** Returns when the task has run. Must not be called from a task of the same queue. */
    virtual void sync(Task task) = 0;
    virtual QString label() const = 0;
    /** Whether the caller runs inside a task of this queue. */
    virtual bool isCurrent() const = 0;
};

class Queues
{
public:
    virtual ~Queues() = default;
    /**
     * Runs the task later on the main thread, unless the context was destroyed before; while a modal alert
     * stands, it waits. Any thread may ask.
     */
    virtual void mainAsync(QObject *context, Task task) = 0;
    /** Runs the task on a background thread. It must not hold up the end of the program. */
    virtual void globalAsync(Task task) = 0;
    /** The same after a delay, alert or not. Any thread may ask. At the end of the program it is dropped. */
    virtual void globalAsyncAfter(std::chrono::milliseconds delay, Task task) = 0;
    virtual std::unique_ptr<SerialQueue> makeSerialQueue(const QString &label) = 0;
    /**
     * The end of the background: drops what waits for a background thread, and all that comes later, and
     * gives the tasks that run this long to end. Whether all ended. If not, the program must leave by
     * std::_Exit, or a task that is abandoned there would meet a half destroyed program. Main thread only.
     */
    virtual bool finish(std::chrono::milliseconds patience)
    {
        Q_UNUSED(patience)
        return true;
    }
};

/** Label of the serial queue in whose task the caller runs; empty outside of one. */
QString currentQueueLabel();

/** To be made on the main thread; the dispatcher outlives it. */
std::unique_ptr<Queues> makeSystemQueues(MainDispatcher &dispatcher);
/** One of these needs no application object, so it also serves before one exists and after it has gone. */
std::unique_ptr<SerialQueue> makeSystemSerialQueue(const QString &label);

} // namespace platform
