#pragma once

#include "platform/Alerts.h"
#include "platform/Browser.h"
#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/DeviceRegistry.h"
#include "platform/Folders.h"
#include "platform/Http.h"
#include "platform/IdleTime.h"
#include "platform/InputSources.h"
#include "platform/Keyring.h"
#include "platform/MainDispatcher.h"
#include "platform/Queues.h"
#include "platform/RandomSource.h"
#include "platform/Reachability.h"
#include "platform/Settings.h"
#include "platform/SystemLog.h"

namespace platform {

/** One of each service, none ever null while installed. Not owned. */
struct Services
{
    Clock *clock = nullptr;
    Settings *settings = nullptr;
    RandomSource *random = nullptr;
    Queues *queues = nullptr;
    Alerts *alerts = nullptr;
    Folders *folders = nullptr;
    Browser *browser = nullptr;
    InputSources *inputSources = nullptr;
    Desktop *desktop = nullptr;
    Reachability *reachability = nullptr;
    SystemLog *systemLog = nullptr;
    MainDispatcher *mainDispatcher = nullptr;
    Http *http = nullptr;
    Keyring *keyring = nullptr;
    DeviceRegistry *deviceRegistry = nullptr;
    IdleTime *idleTime = nullptr;
};

/**
 * The services that the composition (or a test) installed. They are reached from here rather than handed
 * down, because the class-level operations of the folders, the storage and the model have no object to carry
 * them.
 */
const Services &services();
void installServices(const Services &services);

inline Clock &clock()
{
    return *services().clock;
}
inline Settings &settings()
{
    return *services().settings;
}

} // namespace platform
