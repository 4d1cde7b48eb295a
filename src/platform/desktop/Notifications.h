#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace platform {

/** One notification at a time over the session bus; a new one replaces the last. */
class Notifications : public QObject
{
    Q_OBJECT

public:
    Notifications();
    /** Returns at once. Without a notification service nothing happens. */
    void show(const QString &title, const QString &text, std::function<void()> chosen);

private Q_SLOTS:
    void actionInvoked(quint32 id, const QString &action);
    void activationToken(quint32 id, const QString &token);
    void notificationClosed(quint32 id, quint32 reason);

private:
    /** What the service can show decides the form of the text. */
    void ask(quint32 request, const QString &title, const QString &text);
    void send(const QString &title, const QString &text);

    /** The service's number of the notification that stands; 0 for none. */
    quint32 m_id = 0;
    /** Counts the requests, so that the answer to an old one isn't taken for the newest. */
    quint32 m_request = 0;
    bool m_isListening = false;
    std::function<void()> m_chosen;
};

} // namespace platform
