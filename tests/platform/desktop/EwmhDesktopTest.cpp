#include "EwmhDesktopTest.h"

#include <QLineEdit>
#include <QTest>

namespace x11 = platform::x11;

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
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return x11::numbers(connection, window, "_NET_WM_STATE")
                .contains(x11::atom(connection, "_NET_WM_STATE_ABOVE"));
        }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return root("_NET_CLIENT_LIST_STACKING").value(1) == window; }))
            << "above the other program's window";
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
    EXPECT_FALSE(desktop->isOnAnotherDesktop(window));
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
    EXPECT_TRUE(desktop->isOnAnotherDesktop(window));

    desktop->raiseAboveAll(window);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return x11::numbers(connection, window, "_NET_WM_DESKTOP").value(0) == 1; }));
    EXPECT_FALSE(desktop->isOnAnotherDesktop(window));
    EXPECT_TRUE(becomesActive(window));
    EXPECT_EQ(root("_NET_CURRENT_DESKTOP").value(0), 1u) << "the panel comes to the user, not the user to it";
}
