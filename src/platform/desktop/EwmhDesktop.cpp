#include "platform/desktop/EwmhDesktop.h"

#include "platform/desktop/X11.h"

#include <QGuiApplication>
#include <QWindow>

namespace platform {

namespace {

/** Requests of a pager are the user's own wish; window managers don't take them for a stolen focus. */
constexpr quint32 sourceIsPager = 2;
constexpr quint32 stateAdd = 1;
/** In the place of a desktop's number: the window is on all of them. */
constexpr quint32 allDesktops = 0xFFFFFFFF;

} // namespace

EwmhDesktop::EwmhDesktop(xcb_connection_t *connection)
    : m_connection(connection)
{
}

quint32 EwmhDesktop::activeWindow() const
{
    return x11::numbers(m_connection, x11::rootWindow(m_connection), "_NET_ACTIVE_WINDOW").value(0);
}

bool EwmhDesktop::isOurs(quint32 window) const
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(), [window](const QWindow *ours) {
        return ours->handle() && quint32(ours->winId()) == window;
    });
}

Desktop::Application EwmhDesktop::frontmostApplication()
{
    const quint32 window = activeWindow();
    return isOurs(window) ? 0 : window;
}

void EwmhDesktop::tellWindowManager(quint32 window, const char *message, quint32 first, quint32 second,
                                    quint32 third, quint32 fourth) const
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = x11::atom(m_connection, message);
    event.data.data32[0] = first;
    event.data.data32[1] = second;
    event.data.data32[2] = third;
    event.data.data32[3] = fourth;
    xcb_send_event(m_connection, 0, x11::rootWindow(m_connection),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
}

void EwmhDesktop::activate(quint32 window) const
{
    tellWindowManager(window, "_NET_ACTIVE_WINDOW", sourceIsPager, XCB_CURRENT_TIME, activeWindow(), 0);
    xcb_flush(m_connection);
}

void EwmhDesktop::activateApplication(Application application)
{
    // The window may be gone by now; the window manager then ignores the request.
    if (application != 0)
        activate(quint32(application));
}

void EwmhDesktop::raiseAboveAll(quintptr windowId)
{
    const auto window = quint32(windowId);
    if (!canRaiseAboveAll()) {
        const quint32 above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        xcb_flush(m_connection);
        return;
    }
    tellWindowManager(window, "_NET_WM_STATE", stateAdd, x11::atom(m_connection, "_NET_WM_STATE_ABOVE"), 0,
                      sourceIsPager);
    const QList<quint32> desktop = currentDesktop();
    if (!desktop.isEmpty())
        tellWindowManager(window, "_NET_WM_DESKTOP", desktop.first(), sourceIsPager, 0, 0);
    activate(window);
}

QList<quint32> EwmhDesktop::currentDesktop() const
{
    return x11::numbers(m_connection, x11::rootWindow(m_connection), "_NET_CURRENT_DESKTOP");
}

bool EwmhDesktop::isOnAnotherDesktop(quintptr windowId)
{
    const QList<quint32> current = currentDesktop();
    const QList<quint32> own = x11::numbers(m_connection, quint32(windowId), "_NET_WM_DESKTOP");
    return !current.isEmpty() && !own.isEmpty() && own.first() != allDesktops &&
           own.first() != current.first();
}

bool EwmhDesktop::canRaiseAboveAll() const
{
    const QList<quint32> supported =
        x11::numbers(m_connection, x11::rootWindow(m_connection), "_NET_SUPPORTED");
    return supported.contains(x11::atom(m_connection, "_NET_ACTIVE_WINDOW")) &&
           supported.contains(x11::atom(m_connection, "_NET_WM_STATE_ABOVE"));
}

void EwmhDesktop::notify(const QString &title, const QString &text, const std::function<void()> &chosen)
{
    m_notifications.show(title, text, chosen);
}

} // namespace platform
