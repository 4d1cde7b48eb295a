#include "platform/Clock.h"

#include "platform/MainInbox.h"

#include <QPointer>
#include <QThread>
#include <QTimer>

#include <deque>

namespace platform {

namespace {

using std::chrono::milliseconds;

/** What is called at a due time; lives on while it is being called, even if that call ends its timer. */
struct Call
{
    std::function<void()> run;
    bool isAlive = true;
    bool waits = false;
};

class RunningTimer : public Timer
{
public:
    RunningTimer(QTimer *timer, std::shared_ptr<Call> call)
        : m_timer(timer)
        , m_call(std::move(call))
    {
    }
    ~RunningTimer() override
    {
        m_call->isAlive = false;
        if (!m_timer)
            return;
        m_timer->stop();
        m_timer->deleteLater();
    }

private:
    QPointer<QTimer> m_timer;
    std::shared_ptr<Call> m_call;
};

class SystemClock : public Clock
{
public:
    QDateTime now() const override { return systemTime(); }
    QTimeZone timeZone() const override { return QTimeZone::systemTimeZone(); }

    std::unique_ptr<Timer> startTimer(milliseconds interval, bool repeats,
                                      std::function<void()> fire) override
    {
        const auto call = std::make_shared<Call>(Call{std::move(fire)});
        auto *timer = new QTimer(&m_root);
        timer->setTimerType(Qt::PreciseTimer);
        timer->setSingleShot(!repeats);
        QObject::connect(timer, &QTimer::timeout, &m_root, [this, call] { fallDue(call); });
        timer->start(std::max(interval, milliseconds(0)));
        return std::make_unique<RunningTimer>(timer, call);
    }

    void callAfter(milliseconds delay, QObject *context, std::function<void()> function) override
    {
        auto guarded = [hasContext = context != nullptr, guard = QPointer<QObject>(context),
                        run = std::move(function)] {
            if (!hasContext || guard)
                run();
        };
        const auto call = std::make_shared<Call>(Call{std::move(guarded)});
        const auto arm = [this, delay, call] {
            QTimer::singleShot(std::max(delay, milliseconds(0)), Qt::PreciseTimer, &m_root,
                               [this, call] { fallDue(call); });
        };
        if (QThread::currentThread() == m_root.thread())
            arm();
        else
            m_root.post(arm);
    }

    void hold() override { ++m_holds; }
    void release() override
    {
        if (--m_holds == 0)
            runWaitingLater();
    }

private:
    void fallDue(const std::shared_ptr<Call> &call)
    {
        if (m_holds == 0 && m_waiting.empty()) {
            if (call->isAlive)
                call->run();
        } else if (!call->waits) {
            // However often a repeating timer fell due meanwhile, it fires once.
            call->waits = true;
            m_waiting.push_back(call);
        }
    }

    void runWaitingLater()
    {
        QMetaObject::invokeMethod(
            &m_root, [this] { runWaiting(); }, Qt::QueuedConnection);
    }

    void runWaiting()
    {
        // A call that shows an alert holds the clock again; the rest then waits for the next release.
        while (m_holds == 0 && !m_waiting.empty()) {
            const std::shared_ptr<Call> call = m_waiting.front();
            m_waiting.pop_front();
            call->waits = false;
            if (call->isAlive)
                call->run();
        }
    }

    MainInbox m_root;
    int m_holds = 0;
    std::deque<std::shared_ptr<Call>> m_waiting;
};

} // namespace

QDateTime systemTime()
{
    return QDateTime::currentDateTimeUtc();
}

qint64 secondsSince1970(const Clock &clock)
{
    return clock.now().toSecsSinceEpoch();
}

std::unique_ptr<Clock> makeSystemClock()
{
    return std::make_unique<SystemClock>();
}

} // namespace platform
