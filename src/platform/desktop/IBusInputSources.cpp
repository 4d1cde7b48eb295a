#include "platform/desktop/IBusInputSources.h"

#include "platform/Services.h"

#include <QDBusMessage>
#include <QDBusPendingCall>

namespace platform {

namespace {

/** A daemon that was restarted needs a moment until it is back. */
constexpr std::chrono::seconds timeToRestart{2};

} // namespace

struct IBusInputSources::Known
{
    IBusDaemon daemon;
    mutable std::mutex mutex;
    // Guarded by the mutex
    IBusEngines engines;
    bool isRefreshing = false;
    bool isRefreshWanted = false;

    /** In the background. Whether the lists have changed. */
    bool fetch()
    {
        bool hasChanged = false;
        for (;;) {
            const IBusEngines fetched = daemon.engines().value_or(IBusEngines{});
            const std::lock_guard lock(mutex);
            hasChanged |= !isSameList(fetched.enabled, engines.enabled) ||
                          !isSameList(fetched.installed, engines.installed);
            engines = fetched;
            isRefreshing = std::exchange(isRefreshWanted, false);
            if (!isRefreshing)
                return hasChanged;
        }
    }
};

IBusInputSources::IBusInputSources()
    : m_known(std::make_shared<Known>())
{
    refresh();
}

IBusInputSources::~IBusInputSources() = default;

void IBusInputSources::refresh()
{
    {
        const std::lock_guard lock(m_known->mutex);
        if (m_known->isRefreshing) {
            m_known->isRefreshWanted = true;
            return;
        }
        m_known->isRefreshing = true;
    }
    Queues *queues = services().queues;
    MainDispatcher *dispatcher = services().mainDispatcher;
    queues->globalAsync([known = m_known, dispatcher, self = QPointer<IBusInputSources>(this)] {
        const bool hasChanged = known->fetch();
        dispatcher->postPastGate([self, hasChanged] {
            if (!self)
                return;
            self->listenToDaemon();
            if (hasChanged)
                self->reportListChanged();
        });
    });
}

void IBusInputSources::listenToDaemon()
{
    // In this order: what connects meanwhile is noticed the next time.
    const int connection = m_known->daemon.connectionCount();
    auto bus = m_known->daemon.bus();
    if (!bus || connection == m_connectionListenedTo)
        return;
    m_connectionListenedTo = connection;
    // Without the sender's name, as finding out who owns it would wait for the daemon.
    const QString path = QStringLiteral("/org/freedesktop/IBus");
    const QString daemon = QStringLiteral("org.freedesktop.IBus");
    const QString config = QStringLiteral("org.freedesktop.IBus.Config");
    bus->connect({}, path, daemon, QStringLiteral("RegistryChanged"), this, SLOT(refresh()));
    bus->connect({}, path, daemon, QStringLiteral("GlobalEngineChanged"), this,
                 SLOT(globalEngineChanged(QString)));
    bus->connect({}, path + QLatin1String("/Config"), config, QStringLiteral("ValueChanged"), this,
                 SLOT(configurationChanged(QString, QString)));
    bus->connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                 SLOT(daemonLeft()));
}

void IBusInputSources::globalEngineChanged(const QString &name)
{
    const std::lock_guard lock(m_known->mutex);
    m_known->engines.current = IBusDaemon::engineNamed(name, m_known->engines.installed);
}

void IBusInputSources::configurationChanged(const QString &section, const QString &name)
{
    if (section == QLatin1String("general") && name == QLatin1String("preload-engines"))
        refresh();
}

void IBusInputSources::daemonLeft()
{
    clock().callAfter(timeToRestart, this, [this] { refresh(); });
}

QList<InputSourceRef> IBusInputSources::createInputSourceList(bool includeAllInstalled)
{
    const bool mayBeBack = !m_known->daemon.bus() && m_known->daemon.isWorthAsking();
    const std::lock_guard lock(m_known->mutex);
    if (mayBeBack && !m_known->isRefreshing)
        services().mainDispatcher->postPastGate(unlessGone(this, [this] { refresh(); }));
    return includeAllInstalled ? m_known->engines.installed : m_known->engines.enabled;
}

int IBusInputSources::enabledCount() const
{
    const std::lock_guard lock(m_known->mutex);
    return m_known->engines.enabledCount;
}

InputSourceRef IBusInputSources::currentKeyboardLayoutInputSource()
{
    const std::lock_guard lock(m_known->mutex);
    return m_known->engines.current;
}

void IBusInputSources::selectInputSource(const InputSourceRef &source)
{
    const auto bus = m_known->daemon.bus();
    if (!bus || !source || !source->id.startsWith(QLatin1String("ibus:")))
        return;
    // Starting an engine can take the daemon a while; nobody needs to wait for it.
    bus->asyncCall(IBusDaemon::switchTo(source));
    const std::lock_guard lock(m_known->mutex);
    m_known->engines.current = source;
}

} // namespace platform
