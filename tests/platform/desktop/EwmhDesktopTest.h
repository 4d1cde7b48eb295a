#pragma once

#include "VirtualDisplay.h"
#include "platform/desktop/EwmhDesktop.h"
#include "platform/desktop/X11.h"

#include "support/GuiTest.h"

#include <QTest>

/** A window of another program. */
class OtherClient
{
public:
    OtherClient()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_window(xcb_generate_id(m_connection))
    {
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window,
                          platform::x11::rootWindow(m_connection), 50, 50, 800, 600, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        // The first flag and its value: the window wants the keyboard.
        const quint32 hints[9] = {1, 1};
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_HINTS,
                            XCB_ATOM_WM_HINTS, 32, 9, hints);
        xcb_map_window(m_connection, m_window);
        xcb_flush(m_connection);
    }
    ~OtherClient() { xcb_disconnect(m_connection); }
    quint32 window() const { return m_window; }

private:
    xcb_connection_t *m_connection;
    xcb_window_t m_window;
};

class EwmhDesktopTest : public ServicesTest
{
protected:
    void SetUp() override
    {
        if (!virtualdisplay::isRunning())
            GTEST_SKIP() << "Xvfb or setxkbmap is not installed";
        m_windowManager.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
        if (!m_windowManager.waitForStarted())
            GTEST_SKIP() << "openbox is not installed";
        connection = platform::x11::connection();
        desktop = std::make_unique<platform::EwmhDesktop>(connection);
        ASSERT_TRUE(QTest::qWaitFor([&] { return desktop->canRaiseAboveAll(); }));
    }
    void TearDown() override
    {
        m_windowManager.kill();
        m_windowManager.waitForFinished();
    }

    QList<quint32> root(const char *property) const
    {
        return platform::x11::numbers(connection, platform::x11::rootWindow(connection), property);
    }
    /** Asks again and again: a window manager that is just starting may sleep over the first request. */
    bool comesToFront(quint32 window) const
    {
        return QTest::qWaitFor([&] {
            desktop->activateApplication(window);
            return root("_NET_ACTIVE_WINDOW").value(0) == window;
        });
    }
    bool becomesActive(quint32 window) const
    {
        return QTest::qWaitFor([&] { return root("_NET_ACTIVE_WINDOW").value(0) == window; });
    }

    xcb_connection_t *connection = nullptr;
    std::unique_ptr<platform::EwmhDesktop> desktop;

private:
    QProcess m_windowManager;
};
