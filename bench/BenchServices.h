#pragma once

#include "platform/Services.h"

#include <QTemporaryDir>

/** The real clock, random source and queues; folders of their own; nobody there to see or answer anything. */
class BenchServices
{
public:
    BenchServices();

private:
    class TemporaryFolders : public platform::Folders
    {
    public:
        QStringList applicationSupportDirectories() const override { return {m_directory.path()}; }
        QString cacheDirectory() const override { return m_directory.path(); }
        QString configDirectory() const override { return m_directory.path(); }
        QString runtimeDirectory() const override { return m_directory.path(); }

    private:
        QTemporaryDir m_directory;
    };
    class SilentAlerts : public platform::Alerts
    {
    public:
        int show(const platform::Alert &) override { return 0; }
    };

    platform::MainDispatcher m_mainDispatcher;
    TemporaryFolders m_folders;
    SilentAlerts m_alerts;
    platform::Browser m_browser;
    platform::InputSources m_inputSources;
    platform::Desktop m_desktop;
    platform::Reachability m_reachability;
    std::unique_ptr<platform::Clock> m_clock = platform::makeSystemClock(m_mainDispatcher);
    std::unique_ptr<platform::Settings> m_settings =
        platform::makeSystemSettings(m_folders.configDirectory());
    std::unique_ptr<platform::RandomSource> m_random = platform::makeSystemRandomSource();
    std::unique_ptr<platform::Queues> m_queues = platform::makeSystemQueues(m_mainDispatcher);
    std::unique_ptr<platform::SystemLog> m_systemLog = platform::makeSystemLog();
};
