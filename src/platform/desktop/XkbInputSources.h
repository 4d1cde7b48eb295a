#pragma once

#include "platform/InputSources.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QStringList>

#include <mutex>

struct xcb_connection_t;

namespace platform {

/**
 * The groups of an X server's keymap: the layouts between which the user switches. A source's id is
 * "xkb:layout" or "xkb:layout(variant)", so that it names the same layout on every machine and in every
 * order.
 */
class XkbInputSources : public InputSources, private QAbstractNativeEventFilter
{
public:
    /** The connection is the program's own; it is not owned and outlives this object. */
    explicit XkbInputSources(xcb_connection_t *connection);
    ~XkbInputSources() override;

    /** A server holds no other layouts than the groups of its keymap, so that both lists are the same. */
    QList<InputSourceRef> createInputSourceList(bool includeAllInstalled) override;
    InputSourceRef currentKeyboardLayoutInputSource() override;
    void selectInputSource(const InputSourceRef &source) override;

private:
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    QStringList groupNames() const;
    QList<InputSourceRef> fetched() const;
    /** Asks the server, which answers at once. */
    void refresh();
    void refreshLater();

    xcb_connection_t *m_connection;
    bool m_isUsable = false;
    quint8 m_firstEvent = 0;
    quint32 m_rulesAtom = 0;
    bool m_isRefreshDue = false;
    QObject m_context;
    mutable std::mutex m_mutex;
    /** Guarded by the mutex. */
    QList<InputSourceRef> m_sources;
};

/** The ids of the layouts in the two comma-separated lists in which the server's users keep them. */
QStringList xkbLayoutIds(const QString &layouts, const QString &variants);

} // namespace platform
