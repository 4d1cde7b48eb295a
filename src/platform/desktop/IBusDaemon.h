#pragma once

#include "platform/InputSources.h"

#include <QDBusConnection>
#include <QDateTime>
#include <QStringList>
#include <QVariant>

#include <mutex>
#include <optional>

class QDBusMessage;

namespace platform {

/** What an input method daemon knows at one moment. */
struct IBusEngines
{
    /** The ones that the user has enabled; all, where the daemon doesn't tell. */
    QList<InputSourceRef> enabled;
    QList<InputSourceRef> installed;
    /** 0 where the daemon doesn't tell. */
    int enabledCount = 0;
    InputSourceRef current;
};

/**
 * The conversation with the IBus daemon over its own bus. The daemon may be missing, may hang or may come
 * back: each question waits a moment at most, and a daemon that doesn't answer is left alone for a while. As
 * even a moment is too long for the main thread, whatever waits is for background threads.
 */
class IBusDaemon
{
public:
    IBusDaemon();
    ~IBusDaemon();

    /** Whether a question makes sense: the daemon is connected, or it is time for the next try. Never waits.
     */
    bool isWorthAsking() const;
    /** Waits for the daemon; absent if it doesn't answer. Connects if need be. One thread at a time. */
    std::optional<IBusEngines> engines();
    /** The bus for what needs no answer; absent while the daemon isn't connected. Never waits. */
    std::optional<QDBusConnection> bus() const;

    /** How often it has been connected. Each bus has to be listened to anew, and may have the name of the
     * last. */
    int connectionCount() const;

    /** The request to switch to an engine. */
    static QDBusMessage switchTo(const InputSourceRef &source);
    /** The engine of the list with the name that the daemon uses. */
    static InputSourceRef engineNamed(const QString &name, const QList<InputSourceRef> &engines);

private:
    bool connectToDaemon();
    void leaveAlone();
    std::optional<QVariant> call(const QDBusMessage &message);
    std::optional<QVariant> property(const QString &name);
    QStringList enabledEngineNames();

    const QString m_connectionName;
    mutable std::mutex m_mutex;
    // Guarded by the mutex
    std::optional<QDBusConnection> m_bus;
    QDateTime m_silentUntil;
    int m_connectionCount = 0;
};

/** The address at which the daemon of this session listens; empty if there is none. */
QString ibusAddress();

} // namespace platform
