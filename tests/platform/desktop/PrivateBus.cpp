#include "PrivateBus.h"

#include <csignal>

namespace {

class AnsweringObject : public QDBusVirtualObject
{
public:
    explicit AnsweringObject(PrivateBus::Answer answer)
        : m_answer(std::move(answer))
    {
    }
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const QDBusMessage reply = m_answer(message);
        return reply.type() != QDBusMessage::InvalidMessage && connection.send(reply);
    }

private:
    PrivateBus::Answer m_answer;
};

} // namespace

PrivateBus::PrivateBus()
{
    m_daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                   QStringLiteral("--print-address=1")});
    if (m_daemon.waitForStarted() && m_daemon.waitForReadyRead(10'000))
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
}

PrivateBus::~PrivateBus()
{
    if (m_connection) {
        m_connection.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("test-service"));
    }
    m_thread.quit();
    m_thread.wait();
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void PrivateBus::serve(const QStringList &names, const QString &path, const Answer &answer)
{
    m_connection = QDBusConnection::connectToBus(m_address, QStringLiteral("test-service"));
    m_object = std::make_unique<AnsweringObject>(answer);
    m_connection->registerVirtualObject(path, m_object.get(), QDBusConnection::SubPath);
    m_object->moveToThread(&m_thread);
    m_thread.start();
    for (const QString &name : names)
        m_connection->registerService(name);
}

void PrivateBus::emitSignal(const QDBusMessage &signal)
{
    m_connection->send(signal);
}

void PrivateBus::setHanging(bool isHanging)
{
    kill(pid_t(m_daemon.processId()), isHanging ? SIGSTOP : SIGCONT);
}
