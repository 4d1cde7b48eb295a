#pragma once

#include "platform/InputSources.h"

#include <QStringList>

struct xcb_connection_t;

namespace platform {

/**
 * The groups of an X server's keymap: the layouts between which the user switches. A source's id is
 * "xkb:layout" or "xkb:layout(variant)", so that it names the same layout on every machine and in every
 * order.
 */
class XkbInputSources : public InputSources
{
public:
    /** The connection is not owned and outlives this object. */
    explicit XkbInputSources(xcb_connection_t *connection);

    /** A server holds no other layouts than the groups of its keymap, so that both lists are the same. */
    QList<InputSourceRef> createInputSourceList(bool includeAllInstalled) override;
    InputSourceRef currentKeyboardLayoutInputSource() override;
    void selectInputSource(const InputSourceRef &source) override;

private:
    QStringList groupNames() const;

    xcb_connection_t *m_connection;
    bool m_isUsable = false;
};

/** The ids of the layouts in the two comma-separated lists in which the server's users keep them. */
QStringList xkbLayoutIds(const QString &layouts, const QString &variants);

} // namespace platform
