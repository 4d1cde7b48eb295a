#include "support/TestServices.h"

#include "app/ground/AppGround.h"
#include "platform/DiagnosticLog.h"

using namespace std::chrono;

class TestClock::Handle : public platform::Timer
{
public:
    Handle(TestClock &clock, quint64 id)
        : m_clock(clock)
        , m_id(id)
        , m_alive(clock.m_alive)
    {
    }
    ~Handle() override
    {
        if (m_alive.expired())
            return;
        auto &entries = m_clock.m_entries;
        for (auto it = entries.begin(); it != entries.end();)
            it = it->first.second == m_id ? entries.erase(it) : std::next(it);
    }

private:
    TestClock &m_clock;
    quint64 m_id;
    std::weak_ptr<bool> m_alive;
};

TestClock::TestClock()
    : m_now(QDateTime(QDate(2026, 11, 18), QTime(9, 0), Qt::UTC))
    , m_timeZone(QTimeZone::utc())
{
}

quint64 TestClock::add(milliseconds delay, Entry entry)
{
    const quint64 id = m_nextId++;
    m_entries.emplace(std::pair(m_now.toMSecsSinceEpoch() + qint64(delay.count()), id), std::move(entry));
    return id;
}

std::unique_ptr<platform::Timer> TestClock::startTimer(milliseconds interval, bool repeats,
                                                       std::function<void()> fire)
{
    const quint64 id = add(interval, {std::move(fire), interval, repeats, false, {}});
    return std::make_unique<Handle>(*this, id);
}

void TestClock::callAfter(milliseconds delay, QObject *context, std::function<void()> call)
{
    add(delay, {std::move(call), delay, false, context != nullptr, context});
}

void TestClock::advance(milliseconds span)
{
    const qint64 end = m_now.toMSecsSinceEpoch() + qint64(span.count());
    while (!m_entries.empty() && m_entries.begin()->first.first <= end) {
        const auto [due, id] = m_entries.begin()->first;
        Entry entry = std::move(m_entries.begin()->second);
        m_entries.erase(m_entries.begin());
        m_now = QDateTime::fromMSecsSinceEpoch(std::max(due, m_now.toMSecsSinceEpoch()), Qt::UTC);
        if (entry.repeats) {
            const qint64 next = due + std::max<qint64>(1, entry.interval.count());
            m_entries.emplace(std::pair(next, id), entry);
        }
        if (!entry.hasContext || entry.context)
            entry.call();
    }
    m_now = QDateTime::fromMSecsSinceEpoch(end, Qt::UTC);
}

void TestClock::advanceSeconds(double seconds)
{
    advance(milliseconds(qint64(seconds * 1000)));
}

QVariant TestSettings::value(const QString &key) const
{
    const auto found = m_values.constFind(key);
    return found != m_values.constEnd() ? *found : m_defaults.value(key);
}

void TestSettings::setValue(const QString &key, const QVariant &value)
{
    m_values.insert(key, value);
    writtenKeys.append(key);
}

void TestSettings::registerDefaults(const QVariantMap &defaults)
{
    m_defaults.insert(defaults);
}

int TestAlerts::show(const platform::Alert &alert)
{
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
    m_tasks.push_back([hasContext = context != nullptr, guard = QPointer<QObject>(context), task] {
        if (!hasContext || guard)
            task();
    });
}

void TestQueues::globalAsync(platform::Task task)
{
    m_tasks.push_back(std::move(task));
}

std::unique_ptr<platform::SerialQueue> TestQueues::makeSerialQueue(const QString &label)
{
    return std::make_unique<InlineSerialQueue>(label);
}

void TestQueues::drain()
{
    while (!m_tasks.empty()) {
        const platform::Task task = std::move(m_tasks.front());
        m_tasks.pop_front();
        task();
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

void TestDesktop::notify(const QString &title, const QString &text, std::function<void()> chosen)
{
    notifications.append(title + QLatin1String(": ") + text);
    notificationChosen = std::move(chosen);
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
                               &inputSources, &desktop, &reachability, &systemLog});
    platform::setDiagnosticLogListener([this](const QString &line) { diagnosticLines.append(line); });
    AppGround::resetForTest();
}

TestServices::~TestServices()
{
    platform::setDiagnosticLogListener({});
    AppGround::resetForTest();
    platform::installServices(m_previous);
}
