#include "app/SystemServices.h"

#include "platform/desktop/SystemDesktop.h"
#include "platform/desktop/SystemIdleTime.h"
#include "platform/desktop/SystemInputSources.h"

namespace {

/** For background work to come to its end; whoever quits shouldn't notice. */
constexpr std::chrono::milliseconds patienceAtTheEnd{300};

/** Empty where there is no folder for it. */
QString httpCacheFolder(const platform::Folders &folders)
{
    const QString cache = folders.cacheDirectory();
    return cache.isEmpty() ? QString() : cache + QLatin1String("/http");
}

} // namespace

SystemServices::SystemServices()
    : m_folders(platform::makeSystemFolders())
    , m_clock(platform::makeSystemClock(m_mainDispatcher))
    , m_settings(platform::makeSystemSettings(m_folders->configDirectory()))
    , m_random(platform::makeSystemRandomSource())
    , m_queues(platform::makeSystemQueues(m_mainDispatcher))
    , m_systemLog(platform::makeSystemLog())
    , m_http(platform::makeSystemHttp(httpCacheFolder(*m_folders)))
    , m_deviceRegistry(platform::makeSystemDeviceRegistry())
    , m_inputSources(std::make_unique<platform::InputSources>())
    , m_desktop(platform::makeSystemDesktop())
    , m_idleTime(platform::makeSystemIdleTime())
{
    platform::Services services;
    services.clock = m_clock.get();
    services.settings = m_settings.get();
    services.random = m_random.get();
    services.queues = m_queues.get();
    services.alerts = &m_alerts;
    services.folders = m_folders.get();
    services.browser = &m_browser;
    services.inputSources = m_inputSources.get();
    services.desktop = m_desktop.get();
    services.reachability = &m_reachability;
    services.systemLog = m_systemLog.get();
    services.mainDispatcher = &m_mainDispatcher;
    services.http = m_http.get();
    services.keyring = &m_keyring;
    services.deviceRegistry = m_deviceRegistry.get();
    services.idleTime = m_idleTime.get();
    platform::installServices(services);
    // Needs the clock and the queues to be installed.
    m_inputSources = platform::makeSystemInputSources();
    services.inputSources = m_inputSources.get();
    platform::installServices(services);
}

SystemServices::~SystemServices()
{
    platform::installServices({});
}

void SystemServices::answerAlerts()
{
    m_alerts.answerAll();
}

void SystemServices::endAlerts()
{
    m_alerts.end();
}

bool SystemServices::finish()
{
    endAlerts();
    m_settings->synchronize();
    // First the network, as background tasks wait for it.
    const bool hasNetworkEnded = m_http->finish();
    return m_queues->finish(patienceAtTheEnd) && hasNetworkEnded;
}
