#include "usage/Consent.h"

#include "app/ground/SettingsKeys.h"
#include "platform/Services.h"

bool isUsageReported()
{
    return !platform::settings().boolean(settingskeys::isDisableUserStatistics) &&
           platform::settings().boolean(settingskeys::isEnableUserStatistics);
}
