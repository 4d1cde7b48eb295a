#pragma once

#include "platform/Desktop.h"

#include <memory>

namespace platform {

/** The desktop that the program's windows stand on. Belongs to the main thread. */
std::unique_ptr<Desktop> makeSystemDesktop();

} // namespace platform
