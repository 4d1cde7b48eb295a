#include "platform/desktop/XkbInputSources.h"

#include "platform/desktop/X11.h"

#include <clocale>
#include <libintl.h>

// The header names a field "explicit", which C++ keeps for itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace platform {

namespace {

constexpr xcb_xkb_device_spec_t coreKeyboard = XCB_XKB_ID_USE_CORE_KBD;

/** The layout's name in the user's language; the descriptions of all layouts come with their translations. */
QString localizedLayoutName(const QByteArray &description)
{
    const char *domain = "xkeyboard-config";
    bind_textdomain_codeset(domain, "UTF-8");
    return QString::fromUtf8(dgettext(domain, description.constData()));
}

struct Layouts
{
    QString layouts;
    QString variants;
};

/** What the desktop last set, as it noted it at the root window: rules, model, layouts, variants, options. */
Layouts layoutsInUse(xcb_connection_t *connection)
{
    const QList<QByteArray> fields =
        x11::bytes(connection, x11::rootWindow(connection), "_XKB_RULES_NAMES").split('\0');
    return {QString::fromUtf8(fields.value(2)), QString::fromUtf8(fields.value(3))};
}

} // namespace

QStringList xkbLayoutIds(const QString &layouts, const QString &variants)
{
    QStringList ids;
    if (layouts.isEmpty())
        return ids;
    const QStringList layoutList = layouts.split(u',');
    const QStringList variantList = variants.split(u',');
    for (qsizetype i = 0; i < layoutList.size(); ++i) {
        QString id = QLatin1String("xkb:") + layoutList.at(i).trimmed();
        const QString variant = variantList.value(i).trimmed();
        if (!variant.isEmpty())
            id += u'(' + variant + u')';
        ids.append(id);
    }
    return ids;
}

XkbInputSources::XkbInputSources(xcb_connection_t *connection)
    : m_connection(connection)
{
    const x11::ReplyPtr<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(
        connection, xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
        nullptr));
    m_isUsable = reply && reply->supported;
}

QStringList XkbInputSources::groupNames() const
{
    const auto cookie = xcb_xkb_get_names(m_connection, coreKeyboard, XCB_XKB_NAME_DETAIL_GROUP_NAMES);
    const x11::ReplyPtr<xcb_xkb_get_names_reply_t> reply(
        xcb_xkb_get_names_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    xcb_xkb_get_names_value_list_t values;
    xcb_xkb_get_names_value_list_unpack(
        xcb_xkb_get_names_value_list(reply.get()), reply->nTypes, reply->indicators, reply->virtualMods,
        reply->groupNames, reply->nKeys, reply->nKeyAliases, reply->nRadioGroups, reply->which, &values);
    const int count = xcb_xkb_get_names_value_list_groups_length(reply.get(), &values);
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(localizedLayoutName(x11::atomName(m_connection, values.groups[i])));
    return names;
}

QList<InputSourceRef> XkbInputSources::createInputSourceList(bool includeAllInstalled)
{
    Q_UNUSED(includeAllInstalled)
    if (!m_isUsable)
        return {};
    const QStringList names = groupNames();
    const auto [layouts, variants] = layoutsInUse(m_connection);
    const QStringList ids = xkbLayoutIds(layouts, variants);
    QList<InputSourceRef> sources;
    for (qsizetype i = 0; i < names.size(); ++i) {
        // A keymap that was loaded by hand has no note of its layouts; its names still tell them apart.
        const QString id = i < ids.size() ? ids.at(i) : QLatin1String("xkb:") + names.at(i);
        sources.append(std::make_shared<const InputSource>(InputSource{id, names.at(i), true}));
    }
    return sources;
}

InputSourceRef XkbInputSources::currentKeyboardLayoutInputSource()
{
    if (!m_isUsable)
        return nullptr;
    const x11::ReplyPtr<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(m_connection, xcb_xkb_get_state(m_connection, coreKeyboard), nullptr));
    return state ? createInputSourceList(false).value(state->group) : nullptr;
}

void XkbInputSources::selectInputSource(const InputSourceRef &source)
{
    if (!source || !m_isUsable)
        return;
    // The groups may have been put in another order since the source was listed.
    const QList<InputSourceRef> sources = createInputSourceList(false);
    const auto found = std::find_if(sources.begin(), sources.end(),
                                    [&](const InputSourceRef &other) { return other->id == source->id; });
    if (found == sources.end())
        return;
    xcb_xkb_latch_lock_state(m_connection, coreKeyboard, 0, 0, 1, quint8(found - sources.begin()), 0, 0, 0);
    xcb_flush(m_connection);
}

} // namespace platform
