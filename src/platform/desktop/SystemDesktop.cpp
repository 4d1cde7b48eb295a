#include "platform/desktop/SystemDesktop.h"

#include "platform/desktop/EwmhDesktop.h"
#include "platform/desktop/Notifications.h"
#include "platform/desktop/X11.h"

#include <QGuiApplication>
#include <QWindow>

namespace platform {

namespace {

/** What every platform can do: ask for the front, and notify. Compositors may refuse the former. */
class PlainDesktop : public Desktop
{
public:
    void raiseAboveAll(quintptr windowId) override
    {
        for (QWindow *window : QGuiApplication::topLevelWindows()) {
            if (window->handle() && window->winId() == windowId) {
                window->raise();
                window->requestActivate();
            }
        }
    }
    void notify(const QString &title, const QString &text, const std::function<void()> &chosen) override
    {
        m_notifications.show(title, text, chosen);
    }

private:
    Notifications m_notifications;
};

} // namespace

std::unique_ptr<Desktop> makeSystemDesktop()
{
    if (xcb_connection_t *connection = x11::connection())
        return std::make_unique<EwmhDesktop>(connection);
    return std::make_unique<PlainDesktop>();
}

} // namespace platform
