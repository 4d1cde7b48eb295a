#pragma once

#include <QString>

#include <functional>
#include <memory>

class QObject;

namespace platform {

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
    /** Runs the task later on the main thread, unless the context was destroyed before. Any thread may ask. */
    virtual void mainAsync(QObject *context, Task task) = 0;
    /** Runs the task on a background thread. It must not hold up the end of the program. */
    virtual void globalAsync(Task task) = 0;
    virtual std::unique_ptr<SerialQueue> makeSerialQueue(const QString &label) = 0;
};

std::unique_ptr<Queues> makeSystemQueues();

} // namespace platform
