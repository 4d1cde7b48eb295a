#include "platform/desktop/EwmhDesktop.h"
#include "VirtualDisplay.h"
#include "platform/desktop/X11.h"

#include "support/GuiTest.h"

using platform::EwmhDesktop;
namespace x11 = platform::x11;

namespace {

/** A window of another program. */
class OtherClient
{
public:
    OtherClient()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_window(xcb_generate_id(m_connection))
    {
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, x11::rootWindow(m_connection), 50, 50,
                          800, 600, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
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
        connection = x11::connection();
        desktop = std::make_unique<EwmhDesktop>(connection);
        ASSERT_TRUE(QTest::qWaitFor([&] { return desktop->canRaiseAboveAll(); }));
    }
    void TearDown() override
    {
        m_windowManager.kill();
        m_windowManager.waitForFinished();
    }

    QList<quint32> root(const char *property) const
    {
        return x11::numbers(connection, x11::rootWindow(connection), property);
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
    std::unique_ptr<EwmhDesktop> desktop;

private:
    QProcess m_windowManager;
};

} // namespace

TEST_F(EwmhDesktopTest, BringsAPanelOverAnotherProgramAndGivesTheFocusBack)
{
    const OtherClient other;
    ASSERT_TRUE(comesToFront(other.window()));
    EXPECT_EQ(desktop->frontmostApplication(), other.window());

    QWidget panel(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    QLineEdit answer(&panel);
    panel.setGeometry(200, 200, 300, 200);
    for (int round = 0; round < 2; ++round) {
        panel.show();
        const auto window = quint32(panel.winId());
        desktop->raiseAboveAll(window);
        ASSERT_TRUE(becomesActive(window));
        EXPECT_TRUE(QTest::qWaitFor([&] { return panel.isActiveWindow(); }));
        EXPECT_EQ(root("_NET_CLIENT_LIST_STACKING").value(1), window) << "above the other program's window";
        EXPECT_TRUE(x11::numbers(connection, window, "_NET_WM_STATE")
                        .contains(x11::atom(connection, "_NET_WM_STATE_ABOVE")));
        EXPECT_EQ(desktop->frontmostApplication(), 0u) << "our own window is in front";
        panel.hide();
        desktop->activateApplication(other.window());
        ASSERT_TRUE(becomesActive(other.window()));
        ASSERT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    }
}

TEST_F(EwmhDesktopTest, FollowsTheUserToAnotherDesktop)
{
    QWidget panel;
    panel.show();
    const auto window = quint32(panel.winId());
    ASSERT_TRUE(comesToFront(window));
    // Pretend to be a pager that leaves for the second desktop.
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = x11::rootWindow(connection);
    event.type = x11::atom(connection, "_NET_CURRENT_DESKTOP");
    event.data.data32[0] = 1;
    xcb_send_event(connection, 0, event.window, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(connection);
    ASSERT_TRUE(QTest::qWaitFor([&] { return root("_NET_CURRENT_DESKTOP").value(0) == 1; }));

    desktop->raiseAboveAll(window);
    EXPECT_TRUE(becomesActive(window));
    EXPECT_EQ(root("_NET_CURRENT_DESKTOP").value(0), 1u) << "the panel comes to the user, not the user to it";
    EXPECT_EQ(x11::numbers(connection, window, "_NET_WM_DESKTOP").value(0), 1u);
}
