#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QThread>

#include <functional>

/** A message bus of the test's own, with a service on it that answers from a thread of its own. */
class PrivateBus
{
public:
    using Answer = std::function<QDBusMessage(const QDBusMessage &)>;

    PrivateBus();
    ~PrivateBus();

    /** Empty if no message bus is installed. */
    QString address() const { return m_address; }
    /** Answers all calls to the path and below. */
    void serve(const QStringList &names, const QString &path, const Answer &answer);
    void emitSignal(const QDBusMessage &signal);
    /** Meanwhile its daemon says nothing. */
    void setHanging(bool isHanging);

private:
    QProcess m_daemon;
    QString m_address;
    QThread m_thread;
    std::unique_ptr<QDBusVirtualObject> m_object;
    std::optional<QDBusConnection> m_connection;
};
