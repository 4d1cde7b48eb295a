#include "platform/desktop/SystemIdleTime.h"

#include "platform/desktop/X11.h"

#include <xcb/screensaver.h>

namespace platform {

namespace {

class ScreenSaverIdleTime : public IdleTime
{
public:
    explicit ScreenSaverIdleTime(xcb_connection_t *connection)
        : m_connection(connection)
    {
    }
    std::optional<std::chrono::milliseconds> sinceLastInput() override
    {
        const auto cookie = xcb_screensaver_query_info(m_connection, x11::rootWindow(m_connection));
        const x11::ReplyPtr<xcb_screensaver_query_info_reply_t> reply(
            xcb_screensaver_query_info_reply(m_connection, cookie, nullptr));
        if (!reply)
            return std::nullopt;
        return std::chrono::milliseconds(reply->ms_since_user_input);
    }

private:
    xcb_connection_t *m_connection;
};

bool hasScreenSaver(xcb_connection_t *connection)
{
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(connection, &xcb_screensaver_id);
    return extension && extension->present;
}

} // namespace

std::unique_ptr<IdleTime> makeSystemIdleTime()
{
    if (xcb_connection_t *connection = x11::connection(); connection && hasScreenSaver(connection))
        return std::make_unique<ScreenSaverIdleTime>(connection);
    return std::make_unique<IdleTime>();
}

} // namespace platform
