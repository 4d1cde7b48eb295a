#pragma once

#include "platform/IdleTime.h"

#include <memory>

namespace platform {

/** The idle time that the X server's screen saver extension tells; elsewhere one that can't be told. */
std::unique_ptr<IdleTime> makeSystemIdleTime();

} // namespace platform
