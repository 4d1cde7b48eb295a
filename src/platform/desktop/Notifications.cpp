#include "platform/desktop/Notifications.h"

#include "platform/Services.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPointer>

namespace platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");

QDBusMessage serviceCall(const QString &method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

} // namespace

Notifications::Notifications() = default;

void Notifications::show(const QString &title, const QString &text, std::function<void()> chosen)
{
    m_chosen = std::move(chosen);
    const quint32 request = ++m_request;
    // Opening the bus waits for its daemon, which may hang.
    Queues *queues = services().queues;
    queues->globalAsync([queues, self = QPointer<Notifications>(this), request, title, text] {
        if (!QDBusConnection::sessionBus().isConnected())
            return;
        queues->mainAsync(nullptr, [self, request, title, text] {
            if (self && request == self->m_request)
                self->ask(request, title, text);
        });
    });
}

void Notifications::ask(quint32 request, const QString &title, const QString &text)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!m_isListening) {
        m_isListening = true;
        // Without the sender's name, as finding out who owns it would wait for the daemon.
        bus.connect({}, path, service, QStringLiteral("ActionInvoked"), this,
                    SLOT(actionInvoked(quint32, QString)));
        bus.connect({}, path, service, QStringLiteral("ActivationToken"), this,
                    SLOT(activationToken(quint32, QString)));
        bus.connect({}, path, service, QStringLiteral("NotificationClosed"), this,
                    SLOT(notificationClosed(quint32, quint32)));
    }
    // Some services read the text as markup; a word with "<" or "&" must come out as it was typed.
    auto *watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(serviceCall(QStringLiteral("GetCapabilities"))), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, request, title, text] {
        watcher->deleteLater();
        const QDBusPendingReply<QStringList> reply = *watcher;
        if (reply.isError() || request != m_request)
            return;
        send(title, reply.value().contains(QLatin1String("body-markup")) ? text.toHtmlEscaped() : text);
    });
}

void Notifications::send(const QString &title, const QString &text)
{
    QDBusMessage message = serviceCall(QStringLiteral("Notify"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("org.tavimo.Tavimo")}};
    message.setArguments({QCoreApplication::applicationName(), m_id, QStringLiteral("org.tavimo.Tavimo"),
                          title, text, QStringList{QStringLiteral("default"), title}, hints, -1});
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<quint32> reply = *watcher;
        if (!reply.isError())
            m_id = reply.value();
    });
}

void Notifications::actionInvoked(quint32 id, const QString &action)
{
    if (id != m_id || action != QLatin1String("default") || !m_chosen)
        return;
    // Through the gate, as the user may click while an alert stands.
    services().queues->mainAsync(this, std::exchange(m_chosen, nullptr));
}

void Notifications::activationToken(quint32 id, const QString &token)
{
    // A Wayland compositor lets the window that is raised next come to the front for this.
    if (id == m_id)
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

void Notifications::notificationClosed(quint32 id, quint32 reason)
{
    Q_UNUSED(reason)
    if (id == m_id)
        m_id = 0;
}

} // namespace platform
