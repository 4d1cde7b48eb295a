#pragma once

#include "platform/Services.h"

/** Real time and no desktop: what reading a vocabulary asks of the system. */
class FuzzServices
{
public:
    FuzzServices()
    {
        platform::Services services;
        services.clock = m_clock.get();
        services.inputSources = &m_inputSources;
        platform::installServices(services);
    }

private:
    platform::MainDispatcher m_mainDispatcher;
    std::unique_ptr<platform::Clock> m_clock = platform::makeSystemClock(m_mainDispatcher);
    platform::InputSources m_inputSources;
};
