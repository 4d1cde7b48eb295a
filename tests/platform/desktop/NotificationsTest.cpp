#include "platform/desktop/Notifications.h"
#include "PrivateBus.h"
#include "support/GuiTest.h"

#include <QElapsedTimer>
#include <QTest>

#include <mutex>

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");

using NotificationsTest = ServicesTest;

} // namespace

TEST_F(NotificationsTest, EscapesMarkupReplacesTheLastAndCallsBackOnce)
{
    PrivateBus bus;
    if (bus.address().isEmpty())
        GTEST_SKIP() << "dbus-daemon is not installed";
    std::mutex mutex;
    QList<QVariantList> shown;
    bus.serve({service}, path, [&](const QDBusMessage &call) {
        if (call.member() == u"GetCapabilities")
            return call.createReply(QStringList{u"actions"_qs, u"body-markup"_qs});
        const std::lock_guard lock(mutex);
        shown.append(call.arguments());
        return call.createReply(7u);
    });
    const auto count = [&] {
        const std::lock_guard lock(mutex);
        return shown.size();
    };
    const auto click = [&](quint32 id, const QString &action) {
        QDBusMessage signal = QDBusMessage::createSignal(path, service, u"ActionInvoked"_qs);
        signal.setArguments({id, action});
        bus.emitSignal(signal);
    };
    // The session bus is opened once in a process; no other test of this program uses it.
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());

    ASSERT_TRUE(QDBusConnection::sessionBus().isConnected());
    bus.setHanging(true);
    QElapsedTimer timer;
    timer.start();
    {
        platform::Notifications unanswered;
        unanswered.show(u"Quiz"_qs, u"nobody hears it"_qs, [] {});
        services.queues.drain();
    }
    EXPECT_LT(timer.elapsed(), 3000) << "a daemon that hangs holds up nobody";
    bus.setHanging(false);

    platform::Notifications notifications;
    QStringList chosen;
    notifications.show(u"Quiz"_qs, u"a <b> & c"_qs, [&] { chosen.append(u"first"_qs); });
    services.queues.drain();
    ASSERT_TRUE(QTest::qWaitFor([&] { return count() == 1; }));
    EXPECT_EQ(shown.first().value(1).toUInt(), 0u);
    EXPECT_EQ(shown.first().value(4).toString(), u"a &lt;b&gt; &amp; c"_qs);

    processEvents();
    notifications.show(u"Quiz"_qs, u"next"_qs, [&] { chosen.append(u"second"_qs); });
    services.queues.drain();
    ASSERT_TRUE(QTest::qWaitFor([&] { return count() == 2; }));
    EXPECT_EQ(shown.last().value(1).toUInt(), 7u);

    click(8, u"default"_qs);
    click(7, u"other"_qs);
    click(7, u"default"_qs);
    click(7, u"default"_qs);
    {
        const platform::ClosedGate alert(services.mainDispatcher);
        processEvents();
        const QDeadlineTimer clicked(std::chrono::milliseconds(100));
        EXPECT_TRUE(QTest::qWaitFor([&] { return clicked.hasExpired(); }));
        services.queues.drain();
        EXPECT_TRUE(chosen.isEmpty()) << "while an alert stands, the click waits";
    }
    ASSERT_TRUE(QTest::qWaitFor([&] {
        services.queues.drain();
        return !chosen.isEmpty();
    }));
    processEvents();
    services.queues.drain();
    EXPECT_EQ(chosen, QStringList{u"second"_qs});
}
