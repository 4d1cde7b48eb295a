#pragma once

#include "platform/Desktop.h"
#include "platform/desktop/Notifications.h"

struct xcb_connection_t;

namespace platform {

/** Windows of all programs on an X server, through its window manager. */
class EwmhDesktop : public Desktop
{
public:
    /** The connection is not owned and outlives this object. */
    explicit EwmhDesktop(xcb_connection_t *connection);

    Application frontmostApplication() override;
    void activateApplication(Application application) override;
    void raiseAboveAll(quintptr windowId) override;
    bool canRaiseAboveAll() const override;
    bool isOnAnotherDesktop(quintptr windowId) override;
    bool sendsRepeatsAsPresses() const override { return true; }
    void notify(const QString &title, const QString &text, const std::function<void()> &chosen) override;

private:
    quint32 activeWindow() const;
    bool isOurs(quint32 window) const;
    /** Empty where the window manager has only one, or doesn't tell. */
    QList<quint32> currentDesktop() const;
    void tellWindowManager(quint32 window, const char *message, quint32 first, quint32 second, quint32 third,
                           quint32 fourth) const;
    void activate(quint32 window) const;

    xcb_connection_t *m_connection;
    Notifications m_notifications;
};

} // namespace platform
