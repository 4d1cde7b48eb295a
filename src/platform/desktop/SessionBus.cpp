#include "platform/desktop/SessionBus.h"

#include "platform/DiagnosticLog.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace platform {

namespace {

/** A daemon that lives answers within a few milliseconds. */
constexpr std::chrono::milliseconds patienceAtTheStart{300};

QByteArray valueOfField(const QString &address, const QString &field)
{
    // An address is "unix:field=value,field=value".
    for (const QString &pair : address.section(u':', 1).split(u',')) {
        if (pair.startsWith(field + u'='))
            return QByteArray::fromPercentEncoding(pair.mid(field.size() + 1).toUtf8());
    }
    return {};
}

/** The name of its socket in the form of the system; empty if it has none. */
QByteArray socketName(const QString &address)
{
    if (!address.startsWith(QLatin1String("unix:")))
        return {};
    const QByteArray path = valueOfField(address, QStringLiteral("path"));
    const QByteArray abstractName = valueOfField(address, QStringLiteral("abstract"));
    return path.isEmpty() && !abstractName.isEmpty() ? '\0' + abstractName : path;
}

/** An open socket, which never waits by itself. */
class Socket
{
public:
    Socket()
        : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
    {
    }
    ~Socket()
    {
        if (m_socket >= 0)
            close(m_socket);
    }
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;

    /** 0, or the number of an error. */
    int connectTo(const QByteArray &name) const
    {
        sockaddr_un address = {};
        if (name.isEmpty() || name.size() >= qsizetype(sizeof(address.sun_path)))
            return ENOENT;
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
        const auto length = socklen_t(offsetof(sockaddr_un, sun_path) + size_t(name.size()));
        return connect(m_socket, reinterpret_cast<const sockaddr *>(&address), length) == 0 ? 0 : errno;
    }
    bool write(const QByteArray &bytes) const
    {
        return send(m_socket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) == bytes.size();
    }
    /** What came in time, which is empty at the end of the conversation; absent if nothing came. */
    std::optional<QByteArray> read(const QDeadlineTimer &deadline) const
    {
        pollfd waiting = {m_socket, POLLIN, 0};
        while (poll(&waiting, 1, int(deadline.remainingTime())) < 0 && errno == EINTR) {
        }
        if (waiting.revents == 0)
            return std::nullopt;
        QByteArray bytes(64, Qt::Uninitialized);
        const auto length = recv(m_socket, bytes.data(), size_t(bytes.size()), 0);
        return bytes.first(std::max<qsizetype>(length, 0));
    }

private:
    int m_socket;
};

BusState greetFirst(const QString &address, std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    const Socket socket;
    const int error = socket.connectTo(socketName(address));
    // Too many wait already for somebody to take their call.
    if (error == EAGAIN)
        return BusState::Silent;
    const QByteArray user = QByteArray::number(getuid()).toHex();
    if (error != 0 || !socket.write(QByteArray(1, '\0') + "AUTH EXTERNAL " + user + "\r\n"))
        return BusState::Absent;
    const QByteArray welcome = "OK";
    QByteArray answer;
    while (answer.size() < welcome.size()) {
        const std::optional<QByteArray> bytes = socket.read(deadline);
        if (!bytes)
            return BusState::Silent;
        if (bytes->isEmpty())
            return BusState::Absent;
        answer += *bytes;
    }
    return answer.startsWith(welcome) ? BusState::Answers : BusState::Absent;
}

QString sessionBusAddress()
{
    const QString named = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!named.isEmpty())
        return named;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return folder.isEmpty() ? QString() : QStringLiteral("unix:path=%1/bus").arg(folder);
}

} // namespace

BusState greetBus(const QString &address, std::chrono::milliseconds patience)
{
    // Whoever opens a bus tries one address after the other, until somebody is there.
    for (const QString &one : address.split(u';', Qt::SkipEmptyParts)) {
        if (const BusState state = greetFirst(one, patience); state != BusState::Absent)
            return state;
    }
    return BusState::Absent;
}

void leaveSilentSessionBus()
{
    if (greetBus(sessionBusAddress(), patienceAtTheStart) != BusState::Silent)
        return;
    diagnosticLog(QStringLiteral("SessionBus > its daemon does not answer: going without it"));
    // An address of no known kind, which fails at once.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

} // namespace platform
