#include "platform/Clock.h"

#include "platform/MainDispatcher.h"
#include "platform/UserTimeZone.h"

#include <QPointer>
#include <QThread>
#include <QTimer>

namespace platform {

namespace {

using std::chrono::milliseconds;

using Call = MainDispatcher::Call;

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
    explicit SystemClock(MainDispatcher &dispatcher)
        : m_dispatcher(dispatcher)
    {
    }

    QDateTime now() const override { return systemTime(); }
    QTimeZone timeZone() const override { return userTimeZone(now()); }

    std::unique_ptr<Timer> startTimer(milliseconds interval, bool repeats,
                                      std::function<void()> fire) override
    {
        const auto call = std::make_shared<Call>(Call{std::move(fire)});
        auto *timer = new QTimer(&m_root);
        timer->setTimerType(Qt::PreciseTimer);
        timer->setSingleShot(!repeats);
        QObject::connect(timer, &QTimer::timeout, &m_root, [this, call] { m_dispatcher.fallDue(call); });
        timer->start(std::max(interval, milliseconds(0)));
        return std::make_unique<RunningTimer>(timer, call);
    }

    void callAfter(milliseconds delay, QObject *context, std::function<void()> function) override
    {
        const auto call = std::make_shared<Call>(Call{unlessGone(context, std::move(function))});
        auto arm = [this, delay, call] {
            QTimer::singleShot(std::max(delay, milliseconds(0)), Qt::PreciseTimer, &m_root,
                               [this, call] { m_dispatcher.fallDue(call); });
        };
        if (QThread::currentThread() == m_root.thread())
            arm();
        else
            m_dispatcher.postPastGate(unlessGone(&m_root, std::move(arm)));
    }

private:
    MainDispatcher &m_dispatcher;
    QObject m_root;
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

std::unique_ptr<Clock> makeSystemClock(MainDispatcher &dispatcher)
{
    return std::make_unique<SystemClock>(dispatcher);
}

} // namespace platform
