#include "platform/desktop/SystemInputSources.h"

#include "platform/desktop/IBusInputSources.h"
#include "platform/desktop/X11.h"
#include "platform/desktop/XkbInputSources.h"

namespace platform {

std::unique_ptr<InputSources> makeSystemInputSources()
{
    const bool hasIBus = !ibusAddress().isEmpty();
    auto ibus = std::make_unique<IBusInputSources>();
    if (hasIBus && ibus->enabledCount() >= 2)
        return ibus;
    if (xcb_connection_t *connection = x11::connection())
        return std::make_unique<XkbInputSources>(connection);
    if (hasIBus)
        return ibus;
    return std::make_unique<InputSources>();
}

} // namespace platform
