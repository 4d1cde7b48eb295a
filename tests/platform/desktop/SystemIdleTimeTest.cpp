#include "platform/desktop/SystemIdleTime.h"
#include "VirtualDisplay.h"
#include "platform/desktop/X11.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

TEST(SystemIdleTimeTest, TellsHowLongNobodyHasTypedOnTheXServer)
{
    if (!virtualdisplay::isRunning())
        GTEST_SKIP() << "Xvfb or setxkbmap is not installed";
    const auto idleTime = platform::makeSystemIdleTime();
    QTest::qWait(400);
    const auto before = idleTime->sinceLastInput();
    ASSERT_TRUE(before);
    EXPECT_GE(*before, 350ms);
    // To the server, this is as good as a key.
    xcb_connection_t *connection = platform::x11::connection();
    xcb_force_screen_saver(connection, XCB_SCREEN_SAVER_RESET);
    xcb_flush(connection);
    EXPECT_LT(idleTime->sinceLastInput().value_or(*before), 350ms);
}
