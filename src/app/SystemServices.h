#pragma once

#include "platform/Services.h"
#include "platform/desktop/AlertDialogs.h"
#include "platform/desktop/DesktopBrowser.h"

/** One real implementation of each service; installs them, and withdraws them at its end. */
class SystemServices
{
public:
    SystemServices();
    ~SystemServices();

    /** Gives the alert that stands, and those that wait behind it, their first button. */
    void answerAlerts();
    /** The same, and for all later ones too. */
    void endAlerts();
    /** Ends everything that runs beside the main thread. Whether all of it has ended. */
    bool finish();

private:
    platform::MainDispatcher m_mainDispatcher;
    std::unique_ptr<platform::Folders> m_folders;
    std::unique_ptr<platform::Clock> m_clock;
    std::unique_ptr<platform::Settings> m_settings;
    std::unique_ptr<platform::RandomSource> m_random;
    std::unique_ptr<platform::Queues> m_queues;
    std::unique_ptr<platform::SystemLog> m_systemLog;
    std::unique_ptr<platform::Http> m_http;
    std::unique_ptr<platform::DeviceRegistry> m_deviceRegistry;
    platform::Keyring m_keyring;
    platform::Reachability m_reachability;
    platform::DesktopBrowser m_browser;
    platform::AlertDialogs m_alerts{m_mainDispatcher};
    std::unique_ptr<platform::InputSources> m_inputSources;
    std::unique_ptr<platform::Desktop> m_desktop;
    std::unique_ptr<platform::IdleTime> m_idleTime;
};
