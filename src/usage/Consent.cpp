#include "usage/Consent.h"

#include "app/ground/SettingsTable.h"

bool isUsageReported()
{
    return !settings::isDisableUserStatistics.value() && settings::isEnableUserStatistics.value();
}
