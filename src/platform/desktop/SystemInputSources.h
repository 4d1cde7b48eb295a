#pragma once

#include "platform/InputSources.h"

#include <memory>

namespace platform {

/**
 * What this desktop offers: IBus if the user switches between engines there, else the groups of the X
 * server's keymap, else the engines of IBus if it runs, else nothing. Doesn't wait for IBus; what it offers
 * comes later, and is reported. To be made with all other services installed.
 */
std::unique_ptr<InputSources> makeSystemInputSources();

} // namespace platform
