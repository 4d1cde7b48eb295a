#pragma once

#include "platform/OrderedSet.h"
#include "platform/Services.h"
#include "support/TestHttp.h"
#include "support/TestKeyring.h"
#include "support/UnsyncedOperations.h"

#include <QHash>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <mutex>

/**
 * Time stands still until a test advances it; what falls due on the way runs in order, unless an alert
 * stands. What waited for the end of an alert runs first.
 */
class TestClock : public platform::Clock
{
public:
    explicit TestClock(platform::MainDispatcher &dispatcher);
    QDateTime now() const override;
    QTimeZone timeZone() const override { return m_timeZone; }
    std::unique_ptr<platform::Timer> startTimer(std::chrono::milliseconds interval, bool repeats,
                                                std::function<void()> fire) override;
    void callAfter(std::chrono::milliseconds delay, QObject *context, std::function<void()> call) override;
    /** For the queues' delayed tasks, which no alert holds. */
    void callAfterInBackground(std::chrono::milliseconds delay, std::function<void()> call);

    void setNow(const QDateTime &now);
    void setTimeZone(const QTimeZone &zone) { m_timeZone = zone; }
    void advance(std::chrono::milliseconds span);
    void advanceSeconds(double seconds);
    /** Timers and delayed calls that are not due yet. */
    int pendingCount() const;

private:
    struct Entry
    {
        std::shared_ptr<platform::MainDispatcher::Call> call;
        std::chrono::milliseconds interval;
        bool repeats = false;
        bool isInBackground = false;
    };
    class Handle;
    quint64 add(Entry entry);
    /** What is due next up to that moment, which becomes the present. */
    std::optional<Entry> takeDue(qint64 end);

    platform::MainDispatcher &m_dispatcher;
    QTimeZone m_timeZone;
    mutable std::mutex m_mutex;
    // Guarded by the mutex
    QDateTime m_now;
    quint64 m_nextId = 1;
    /** By due time, then by order of arming. */
    std::map<std::pair<qint64, quint64>, Entry> m_entries;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

class TestSettings : public platform::Settings
{
public:
    QVariant value(const QString &key) const override;
    void setValue(const QString &key, const QVariant &value) override;
    void remove(const QString &key) override;
    void registerDefaults(const QVariantMap &defaults) override;
    QVariant registeredDefault(const QString &key) const override;
    void synchronize() override { ++synchronizeCount; }
    platform::SettingsState state() const override { return present; }

    const QHash<QString, QVariant> &stored() const { return m_values; }
    int synchronizeCount = 0;
    platform::SettingsState present = platform::SettingsState::Sound;
    /** What was written, in order, as "key". */
    QStringList writtenKeys;

private:
    mutable std::mutex m_mutex;
    QHash<QString, QVariant> m_values;
    QVariantMap m_defaults;
};

/** Answers alerts from a script; an alert without a scripted answer gets its first button. */
class TestAlerts : public platform::Alerts
{
public:
    explicit TestAlerts(platform::MainDispatcher &dispatcher)
        : m_dispatcher(dispatcher)
    {
    }
    /** As in the program, a background thread waits until the main thread's event loop has come to it. */
    int show(const platform::Alert &alert) override;
    void answerNext(int button) { m_answers.push_back(button); }
    QList<platform::Alert> shown;
    /** What happens behind an alert while it stands; runs once. */
    std::function<void()> whileShown;

private:
    platform::MainDispatcher &m_dispatcher;
    QThread *const m_mainThread = QThread::currentThread();
    std::deque<int> m_answers;
};

/** Numbers from a script, then from a simple generator with a fixed start. */
class TestRandom : public platform::RandomSource
{
public:
    quint32 next() override;
    std::deque<quint32> script;
    quint64 state = 88172645463325252ULL;
};

/**
 * Background tasks and queued calls wait until the test drains them, on the calling thread. Delayed ones wait
 * for the clock first.
 */
class TestQueues : public platform::Queues
{
public:
    TestQueues(platform::MainDispatcher &dispatcher, TestClock &clock)
        : m_dispatcher(dispatcher)
        , m_clock(clock)
    {
    }
    void mainAsync(QObject *context, platform::Task task) override;
    void globalAsync(platform::Task task) override;
    void globalAsyncAfter(std::chrono::milliseconds delay, platform::Task task) override;
    std::unique_ptr<platform::SerialQueue> makeSerialQueue(const QString &label) override;
    /** Runs everything that waits, also what is added meanwhile; under an alert, only what is background. */
    void drain();

private:
    platform::MainDispatcher &m_dispatcher;
    TestClock &m_clock;
    std::deque<platform::Task> m_tasks;
};

class TestFolders : public platform::Folders
{
public:
    explicit TestFolders(const QString &root)
        : m_root(root)
    {
    }
    QStringList applicationSupportDirectories() const override;
    QString cacheDirectory() const override { return m_root + QLatin1String("/cache"); }
    QString configDirectory() const override { return m_root + QLatin1String("/config"); }
    QString runtimeDirectory() const override { return m_root; }
    bool hasApplicationSupport = true;

private:
    QString m_root;
};

class TestBrowser : public platform::Browser
{
public:
    void openFolder(const QString &path) override { openedFolders.append(path); }
    void openUrl(const QUrl &url) override { openedUrls.append(url); }
    QStringList openedFolders;
    QList<QUrl> openedUrls;
};

/** Sources that the test names; remembers the switches by id. */
class TestInputSources : public platform::InputSources
{
public:
    QList<platform::InputSourceRef> createInputSourceList(bool includeAllInstalled) override;
    platform::InputSourceRef currentKeyboardLayoutInputSource() override { return current; }
    void selectInputSource(const platform::InputSourceRef &source) override;
    platform::InputSourceRef add(const QString &id, bool isSelectCapable = true);
    using platform::InputSources::reportListChanged;
    QList<platform::InputSourceRef> sources;
    platform::InputSourceRef current;
    QStringList selected;
};

class TestDesktop : public platform::Desktop
{
public:
    Application frontmostApplication() override { return frontmost; }
    void activateApplication(Application application) override { activated.append(application); }
    void raiseAboveAll(quintptr windowId) override { raised.append(windowId); }
    bool canRaiseAboveAll() const override { return canRaise; }
    bool isOnAnotherDesktop(quintptr) override { return isAway; }
    void notify(const QString &title, const QString &text, const std::function<void()> &chosen) override;
    Application frontmost = 4711;
    QList<Application> activated;
    QList<quintptr> raised;
    bool sendsRepeatsAsPresses() const override { return repeatsArePresses; }
    bool canRaise = true;
    bool repeatsArePresses = false;
    bool isAway = false;
    QStringList notifications;
    std::function<void()> notificationChosen;
};

/** The user is away, until the test says otherwise. */
class TestIdleTime : public platform::IdleTime
{
public:
    std::optional<std::chrono::milliseconds> sinceLastInput() override { return idle; }
    std::optional<std::chrono::milliseconds> idle = std::chrono::hours(1);
};

class TestSystemLog : public platform::SystemLog
{
public:
    void write(platform::SystemLogLevel level, const QString &text) override;
    QList<std::pair<platform::SystemLogLevel, QString>> lines;
};

class TestDeviceRegistry : public platform::DeviceRegistry
{
public:
    QString deviceName() const override { return name; }
    QString name = QStringLiteral("0123456789abcdef0123456789abcdef");
};

/** Installs substitutes for all services, with folders of their own, for the life of one test. */
class TestServices
{
public:
    TestServices();
    ~TestServices();

    QTemporaryDir directory;
    platform::MainDispatcher mainDispatcher;
    TestClock clock{mainDispatcher};
    TestSettings settings;
    TestAlerts alerts{mainDispatcher};
    TestRandom random;
    TestQueues queues{mainDispatcher, clock};
    TestFolders folders;
    TestBrowser browser;
    TestInputSources inputSources;
    TestDesktop desktop;
    platform::Reachability reachability;
    TestSystemLog systemLog;
    TestHttp http;
    TestKeyring keyring;
    TestDeviceRegistry deviceRegistry;
    TestIdleTime idleTime;
    UnsyncedOperations operations;
    QStringList diagnosticLines;

private:
    platform::Services m_previous;
};

class ServicesTest : public ::testing::Test
{
protected:
    TestServices services;
};
