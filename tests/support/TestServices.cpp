#include "support/TestServices.h"

#include "app/ground/AppGround.h"
#include "platform/DiagnosticLog.h"

#include <future>

using namespace std::chrono;
using Call = platform::MainDispatcher::Call;

class TestClock::Handle : public platform::Timer
{
public:
    Handle(TestClock &clock, quint64 id, std::shared_ptr<Call> call)
        : m_clock(clock)
        , m_id(id)
        , m_call(std::move(call))
        , m_alive(clock.m_alive)
    {
    }
    ~Handle() override
    {
        m_call->isAlive = false;
        if (m_alive.expired())
            return;
        const std::lock_guard lock(m_clock.m_mutex);
        std::erase_if(m_clock.m_entries, [this](const auto &entry) { return entry.first.second == m_id; });
    }

private:
    TestClock &m_clock;
    quint64 m_id;
    std::shared_ptr<Call> m_call;
    std::weak_ptr<bool> m_alive;
};

TestClock::TestClock(platform::MainDispatcher &dispatcher)
    : m_dispatcher(dispatcher)
    , m_timeZone(QTimeZone::utc())
    , m_now(QDateTime(QDate(2026, 11, 18), QTime(9, 0), Qt::UTC))
{
}

QDateTime TestClock::now() const
{
    const std::lock_guard lock(m_mutex);
    return m_now;
}

void TestClock::setNow(const QDateTime &now)
{
    const std::lock_guard lock(m_mutex);
    m_now = now.toUTC();
}

int TestClock::pendingCount() const
{
    const std::lock_guard lock(m_mutex);
    return int(m_entries.size());
}

quint64 TestClock::add(Entry entry)
{
    const std::lock_guard lock(m_mutex);
    const quint64 id = m_nextId++;
    const qint64 due = m_now.toMSecsSinceEpoch() + qint64(entry.interval.count());
    m_entries.emplace(std::pair(due, id), std::move(entry));
    return id;
}

std::unique_ptr<platform::Timer> TestClock::startTimer(milliseconds interval, bool repeats,
                                                       std::function<void()> fire)
{
    const auto call = std::make_shared<Call>(Call{std::move(fire)});
    const quint64 id = add({call, interval, repeats});
    return std::make_unique<Handle>(*this, id, call);
}

void TestClock::callAfter(milliseconds delay, QObject *context, std::function<void()> call)
{
    add({std::make_shared<Call>(Call{platform::unlessGone(context, std::move(call))}), delay});
}

void TestClock::callAfterInBackground(milliseconds delay, std::function<void()> call)
{
    add({std::make_shared<Call>(Call{std::move(call)}), delay, false, true});
}

std::optional<TestClock::Entry> TestClock::takeDue(qint64 end)
{
    const std::lock_guard lock(m_mutex);
    if (m_entries.empty() || m_entries.begin()->first.first > end)
        return std::nullopt;
    const auto [due, id] = m_entries.begin()->first;
    const Entry entry = std::move(m_entries.begin()->second);
    m_entries.erase(m_entries.begin());
    m_now = QDateTime::fromMSecsSinceEpoch(std::max(due, m_now.toMSecsSinceEpoch()), Qt::UTC);
    if (entry.repeats) {
        const qint64 next = due + std::max<qint64>(1, entry.interval.count());
        m_entries.emplace(std::pair(next, id), entry);
    }
    return entry;
}

void TestClock::advance(milliseconds span)
{
    m_dispatcher.runWaiting();
    const qint64 end = now().toMSecsSinceEpoch() + qint64(span.count());
    while (const std::optional<Entry> entry = takeDue(end)) {
        if (entry->isInBackground)
            entry->call->run();
        else
            m_dispatcher.fallDue(entry->call);
        m_dispatcher.runWaiting();
    }
    setNow(QDateTime::fromMSecsSinceEpoch(end, Qt::UTC));
}

void TestClock::advanceSeconds(double seconds)
{
    advance(milliseconds(qint64(seconds * 1000)));
}

QVariant TestSettings::value(const QString &key) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_values.constFind(key);
    return found != m_values.constEnd() ? *found : m_defaults.value(key);
}

void TestSettings::setValue(const QString &key, const QVariant &value)
{
    const std::lock_guard lock(m_mutex);
    m_values.insert(key, value);
    writtenKeys.append(key);
}

void TestSettings::remove(const QString &key)
{
    const std::lock_guard lock(m_mutex);
    m_values.remove(key);
}

void TestSettings::registerDefaults(const QVariantMap &defaults)
{
    const std::lock_guard lock(m_mutex);
    m_defaults.insert(defaults);
}

QVariant TestSettings::registeredDefault(const QString &key) const
{
    const std::lock_guard lock(m_mutex);
    return m_defaults.value(key);
}

int TestAlerts::show(const platform::Alert &alert)
{
    if (QThread::currentThread() != m_mainThread) {
        std::promise<int> answer;
        m_dispatcher.postPastGate([&] { answer.set_value(show(alert)); });
        return answer.get_future().get();
    }
    const platform::ClosedGate gate(m_dispatcher);
    shown.append(alert);
    if (const auto happens = std::exchange(whileShown, {}))
        happens();
    if (m_answers.empty())
        return 0;
    const int answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

quint32 TestRandom::next()
{
    if (!script.empty()) {
        const quint32 number = script.front();
        script.pop_front();
        return number;
    }
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    return quint32(state >> 16);
}

namespace {

/** Runs its tasks at once. */
class InlineSerialQueue : public platform::SerialQueue
{
public:
    explicit InlineSerialQueue(const QString &label)
        : m_label(label)
    {
    }
    void async(platform::Task task) override
    {
        ++m_depth;
        task();
        --m_depth;
    }
    void sync(platform::Task task) override { async(std::move(task)); }
    QString label() const override { return m_label; }
    bool isCurrent() const override { return m_depth > 0; }

private:
    QString m_label;
    int m_depth = 0;
};

} // namespace

void TestQueues::mainAsync(QObject *context, platform::Task task)
{
    const auto call = std::make_shared<Call>(Call{platform::unlessGone(context, std::move(task))});
    m_tasks.push_back([this, call] { m_dispatcher.fallDue(call); });
}

void TestQueues::globalAsync(platform::Task task)
{
    m_tasks.push_back(std::move(task));
}

void TestQueues::globalAsyncAfter(milliseconds delay, platform::Task task)
{
    m_clock.callAfterInBackground(delay, [this, run = std::move(task)] { globalAsync(run); });
}

std::unique_ptr<platform::SerialQueue> TestQueues::makeSerialQueue(const QString &label)
{
    return std::make_unique<InlineSerialQueue>(label);
}

void TestQueues::drain()
{
    m_dispatcher.runWaiting();
    while (!m_tasks.empty()) {
        const platform::Task task = std::move(m_tasks.front());
        m_tasks.pop_front();
        task();
        m_dispatcher.runWaiting();
    }
}

QStringList TestFolders::applicationSupportDirectories() const
{
    return hasApplicationSupport ? QStringList{m_root} : QStringList{};
}

QList<platform::InputSourceRef> TestInputSources::createInputSourceList(bool includeAllInstalled)
{
    Q_UNUSED(includeAllInstalled)
    return sources;
}

void TestInputSources::selectInputSource(const platform::InputSourceRef &source)
{
    if (!source)
        return;
    current = source;
    selected.append(source->id);
}

platform::InputSourceRef TestInputSources::add(const QString &id, bool isSelectCapable)
{
    const auto source = std::make_shared<const platform::InputSource>(
        platform::InputSource{id, QLatin1String("Name of ") + id, isSelectCapable});
    sources.append(source);
    return source;
}

void TestDesktop::notify(const QString &title, const QString &text, const std::function<void()> &chosen)
{
    notifications.append(title + QLatin1String(": ") + text);
    notificationChosen = chosen;
}

void TestSystemLog::write(platform::SystemLogLevel level, const QString &text)
{
    lines.append({level, text});
}

TestServices::TestServices()
    : folders(directory.path())
    , m_previous(platform::services())
{
    platform::installServices({&clock, &settings, &random, &queues, &alerts, &folders, &browser,
                               &inputSources, &desktop, &reachability, &systemLog, &mainDispatcher, &http,
                               &keyring, &deviceRegistry, &idleTime});
    platform::setDiagnosticLogListener([this](const QString &line) { diagnosticLines.append(line); });
    AppGround::resetForTest();
}

TestServices::~TestServices()
{
    platform::setDiagnosticLogListener({});
    AppGround::resetForTest();
    platform::installServices(m_previous);
}
