#include "platform/desktop/SessionBus.h"
#include "PrivateBus.h"
#include "support/GuiTest.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <thread>
#include <tuple>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace std::chrono_literals;
using platform::BusState;

namespace {

/** Accepts whatever the system accepts for it, and says what the test wants, which may be nothing. */
class Listener
{
public:
    Listener(const QString &path, const QByteArray &answer)
        : m_socket(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, path.toUtf8().constData(), sizeof(address.sun_path));
        EXPECT_EQ(bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
        EXPECT_EQ(listen(m_socket, 5), 0);
        if (!answer.isEmpty())
            m_thread = std::thread([this, answer] {
                const int caller = accept(m_socket, nullptr, nullptr);
                char heard = 0;
                while (heard != '\n' && recv(caller, &heard, 1, 0) == 1) {
                }
                // In pieces, as a stream may come; the caller need not hear it out.
                for (const char byte : answer)
                    std::ignore = send(caller, &byte, 1, MSG_NOSIGNAL);
                close(caller);
            });
    }
    ~Listener()
    {
        if (m_thread.joinable())
            m_thread.join();
        close(m_socket);
    }
    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

private:
    int m_socket;
    std::thread m_thread;
};

} // namespace

TEST(SessionBusTest, ADaemonThatHangsIsToldFromOneThatAnswersAndFromNone)
{
    const QTemporaryDir folder;
    const auto path = [&folder](const char *name) { return folder.filePath(QLatin1String(name)); };
    const Listener hanging(path("hanging"), {});
    const Listener refusing(path("refusing"), "REJECTED EXTERNAL\r\n");
    const Listener answering(path("a b"), "OK 1234\r\n");
    const struct
    {
        QString address;
        BusState expected;
    } cases[] = {
        {QString(), BusState::Absent},
        {u"disabled:"_qs, BusState::Absent},
        {u"tcp:host=localhost,port=1"_qs, BusState::Absent},
        {u"unix:path="_qs + path("nobody"), BusState::Absent},
        {u"unix:path="_qs + QString(200, u'x'), BusState::Absent},
        {u"unix:path="_qs + path("refusing"), BusState::Absent},
        {u"unix:guid=1,path="_qs + path("hanging"), BusState::Silent},
        {u"unix:path=%1;unix:path=%2"_qs.arg(path("nobody"), path("hanging")), BusState::Silent},
        {u"unix:path=%1,guid=1"_qs.arg(folder.filePath(u"a%20b"_qs)), BusState::Answers},
    };
    QElapsedTimer timer;
    timer.start();
    for (const auto &c : cases)
        EXPECT_EQ(platform::greetBus(c.address, 300ms), c.expected) << c.address.toStdString();
    EXPECT_LT(timer.elapsed(), 5000);

    const PrivateBus bus;
    if (!bus.address().isEmpty()) {
        EXPECT_EQ(platform::greetBus(bus.address(), 5s), BusState::Answers);
    }
}

TEST(SessionBusTest, OnlyASilentOneIsLeft)
{
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray nobody = "unix:path=" + folder.path().toUtf8() + "/nobody";
    qputenv("DBUS_SESSION_BUS_ADDRESS", nobody);
    platform::leaveSilentSessionBus();
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), nobody);
    // Where no address is named, it lies in the folder of the session.
    const Listener hanging(folder.filePath(u"bus"_qs), {});
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    platform::leaveSilentSessionBus();
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "disabled:");
    qputenv("DBUS_SESSION_BUS_ADDRESS", before);
    qputenv("XDG_RUNTIME_DIR", runtime);
}
