#include "BenchServices.h"

BenchServices::BenchServices()
{
    platform::installServices({m_clock.get(), m_settings.get(), m_random.get(), m_queues.get(), &m_alerts,
                               &m_folders, &m_browser, &m_inputSources, &m_desktop, &m_reachability,
                               m_systemLog.get(), &m_mainDispatcher});
}
