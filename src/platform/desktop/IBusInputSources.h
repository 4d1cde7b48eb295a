#pragma once

#include "platform/InputSources.h"

#include <QDBusConnection>
#include <QDateTime>
#include <QStringList>

#include <optional>

class QDBusMessage;

namespace platform {

/**
 * The engines of the IBus daemon, over its own bus. A source's id is "ibus:" and the engine's name. The
 * daemon may be missing, may hang or may come back: no call waits longer than a moment, and one that failed
 * is not tried again for a while.
 */
class IBusInputSources : public InputSources
{
public:
    IBusInputSources();
    ~IBusInputSources() override;

    /** The engines that the user has enabled, or all; also all where the daemon doesn't tell the enabled
     * ones. */
    QList<InputSourceRef> createInputSourceList(bool includeAllInstalled) override;
    InputSourceRef currentKeyboardLayoutInputSource() override;
    void selectInputSource(const InputSourceRef &source) override;

    /** How many engines the user has enabled; 0 if the daemon doesn't tell. */
    int enabledCount();

private:
    bool connectToDaemon();
    void disconnectFromDaemon();
    std::optional<QVariant> call(const QDBusMessage &message);
    std::optional<QVariant> property(const QString &name);
    QStringList enabledEngineNames();

    QString m_connectionName;
    std::optional<QDBusConnection> m_bus;
    QDateTime m_silentUntil;
};

/** The address at which the daemon of this session listens; empty if there is none. */
QString ibusAddress();

} // namespace platform
