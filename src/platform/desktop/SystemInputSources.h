#pragma once

#include "platform/InputSources.h"

#include <memory>

namespace platform {

/**
 * What this desktop offers, found out now: IBus if the user switches between engines there, else the groups
 * of the X server's keymap, else the engines of IBus if it runs, else nothing.
 */
std::unique_ptr<InputSources> makeSystemInputSources();

} // namespace platform
