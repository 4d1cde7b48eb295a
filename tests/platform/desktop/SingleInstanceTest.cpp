#include "platform/desktop/SingleInstance.h"
#include "support/GuiTest.h"

#include <QLocalSocket>
#include <QTest>

#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using platform::SingleInstance;
using namespace std::chrono_literals;

namespace {

class SingleInstanceTest : public ServicesTest
{
protected:
    /** A start while the events of this thread, in which the first one lives, go on. */
    SingleInstance::Role startMeanwhile()
    {
        isDone = false;
        SingleInstance::Role role = {};
        std::thread other([&] {
            role = SingleInstance(folder).start(5s);
            isDone = true;
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return isDone.load(); }, 20'000));
        other.join();
        return role;
    }

    std::atomic<bool> isDone = false;
    const QString folder = services.directory.filePath(QStringLiteral("run"));
};

} // namespace

TEST_F(SingleInstanceTest, OneIsFirstUntilItEnds)
{
    auto first = std::make_unique<SingleInstance>(folder);
    ASSERT_EQ(first->start(1s), SingleInstance::Role::first);
    QList<QByteArray> calls;
    QObject::connect(first.get(), &SingleInstance::startedAgain, first.get(),
                     [&](const QByteArray &token) { calls.append(token); });

    qputenv("XDG_ACTIVATION_TOKEN", "token\n42");
    {
        // The caller is answered while an alert stands; what it asks for waits.
        const platform::ClosedGate gate(services.mainDispatcher);
        EXPECT_EQ(startMeanwhile(), SingleInstance::Role::second);
        services.queues.drain();
        EXPECT_TRUE(calls.isEmpty());
    }
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
    EXPECT_EQ(startMeanwhile(), SingleInstance::Role::second);
    services.queues.drain();
    EXPECT_EQ(calls, QList<QByteArray>({"token 42", ""}));
    const auto permissions = QFile::permissions(folder + u"/tavimo.socket"_qs);
    EXPECT_FALSE(permissions & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther));

    first.reset();
    EXPECT_EQ(SingleInstance(folder).start(1s), SingleInstance::Role::first);
}

TEST_F(SingleInstanceTest, WhatACrashedRunLeftBehindIsInNobodysWay)
{
    ASSERT_TRUE(QDir().mkpath(folder));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(folder + u"/tavimo.socket"_qs);
    qstrncpy(address.sun_path, path.constData(), sizeof(address.sun_path));
    const int left = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(left, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
    close(left);

    SingleInstance first(folder);
    ASSERT_EQ(first.start(1s), SingleInstance::Role::first);
    EXPECT_EQ(startMeanwhile(), SingleInstance::Role::second);
}

TEST_F(SingleInstanceTest, NoiseOnTheSocketDoesNoHarm)
{
    SingleInstance first(folder);
    ASSERT_EQ(first.start(1s), SingleInstance::Role::first);
    int calls = 0;
    QObject::connect(&first, &SingleInstance::startedAgain, &first, [&] { ++calls; });
    for (const QByteArray &noise : {QByteArray("hello\n"), QByteArray(1 << 20, 'x'), QByteArray("\0\n", 2)}) {
        QLocalSocket socket;
        socket.connectToServer(folder + u"/tavimo.socket"_qs);
        socket.write(noise);
        EXPECT_TRUE(QTest::qWaitFor([&] { return socket.state() == QLocalSocket::UnconnectedState; }));
    }
    services.queues.drain();
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(startMeanwhile(), SingleInstance::Role::second);
}

TEST_F(SingleInstanceTest, NeverRunsBesideAnotherThatCannotBeReached)
{
    SingleInstance first(folder);
    ASSERT_EQ(first.start(1s), SingleInstance::Role::first);
    // As if the first had not come to listening yet, or hung.
    QFile::remove(folder + u"/tavimo.socket"_qs);
    EXPECT_EQ(SingleInstance(folder).start(200ms), SingleInstance::Role::blocked);
    EXPECT_EQ(SingleInstance(u"/proc/nowhere"_qs).start(200ms), SingleInstance::Role::unwritable);
}
