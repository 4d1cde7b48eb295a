#include "platform/desktop/XkbInputSources.h"

#include "platform/Services.h"
#include "platform/desktop/X11.h"

#include <QCoreApplication>

#include <clocale>
#include <libintl.h>

// The header names a field "explicit", which C++ keeps for itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace platform {

namespace {

constexpr xcb_xkb_device_spec_t coreKeyboard = XCB_XKB_ID_USE_CORE_KBD;
/** In which the desktop notes at the root window what it has set. */
constexpr const char *rulesProperty = "_XKB_RULES_NAMES";

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
        x11::bytes(connection, x11::rootWindow(connection), rulesProperty).split('\0');
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
    if (!m_isUsable)
        return;
    m_firstEvent = xcb_get_extension_data(connection, &xcb_xkb_id)->first_event;
    m_rulesAtom = x11::atom(connection, rulesProperty);
    refresh();
    qApp->installNativeEventFilter(this);
}

XkbInputSources::~XkbInputSources()
{
    if (qApp)
        qApp->removeNativeEventFilter(this);
}

bool XkbInputSources::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result)
{
    Q_UNUSED(result)
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const int type = event->response_type & ~0x80;
    if (type == m_firstEvent) {
        const int change = static_cast<const xcb_xkb_map_notify_event_t *>(message)->xkbType;
        if (change == XCB_XKB_NEW_KEYBOARD_NOTIFY || change == XCB_XKB_MAP_NOTIFY)
            refreshLater();
    } else if (type == XCB_PROPERTY_NOTIFY &&
               static_cast<const xcb_property_notify_event_t *>(message)->atom == m_rulesAtom) {
        refreshLater();
    }
    return false;
}

void XkbInputSources::refreshLater()
{
    // A change of the layouts comes as a handful of events.
    if (std::exchange(m_isRefreshDue, true))
        return;
    services().mainDispatcher->postPastGate(unlessGone(&m_context, [this] {
        m_isRefreshDue = false;
        refresh();
    }));
}

void XkbInputSources::refresh()
{
    const QList<InputSourceRef> sources = fetched();
    {
        const std::lock_guard lock(m_mutex);
        if (isSameList(sources, m_sources))
            return;
        m_sources = sources;
    }
    reportListChanged();
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
    const std::lock_guard lock(m_mutex);
    return m_sources;
}

QList<InputSourceRef> XkbInputSources::fetched() const
{
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
    return state ? fetched().value(state->group) : nullptr;
}

void XkbInputSources::selectInputSource(const InputSourceRef &source)
{
    if (!source || !m_isUsable)
        return;
    // The groups may have been put in another order since the source was listed.
    const QList<InputSourceRef> sources = fetched();
    const auto found = std::find_if(sources.begin(), sources.end(),
                                    [&](const InputSourceRef &other) { return other->id == source->id; });
    if (found == sources.end())
        return;
    xcb_xkb_latch_lock_state(m_connection, coreKeyboard, 0, 0, 1, quint8(found - sources.begin()), 0, 0, 0);
    xcb_flush(m_connection);
}

} // namespace platform
