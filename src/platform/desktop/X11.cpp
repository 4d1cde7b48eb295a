#include "platform/desktop/X11.h"

#include <QGuiApplication>

namespace platform::x11 {

namespace {

/** In units of four bytes; properties beyond this are nothing that we ask for. */
constexpr quint32 maxLength = 65536;

ReplyPtr<xcb_get_property_reply_t> property(xcb_connection_t *connection, xcb_window_t window,
                                            const char *name)
{
    const auto cookie = xcb_get_property(connection, 0, window, atom(connection, name),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, maxLength);
    return ReplyPtr<xcb_get_property_reply_t>(xcb_get_property_reply(connection, cookie, nullptr));
}

} // namespace

xcb_connection_t *connection()
{
    if (!qGuiApp)
        return nullptr;
    auto *native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t *connection = native ? native->connection() : nullptr;
    return connection && !xcb_connection_has_error(connection) ? connection : nullptr;
}

xcb_window_t rootWindow(xcb_connection_t *connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_atom_t atom(xcb_connection_t *connection, const char *name)
{
    const auto cookie = xcb_intern_atom(connection, 0, quint16(qstrlen(name)), name);
    const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QByteArray atomName(xcb_connection_t *connection, xcb_atom_t atom)
{
    if (atom == XCB_ATOM_NONE)
        return {};
    const ReplyPtr<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr));
    if (!reply)
        return {};
    return QByteArray(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()));
}

QList<quint32> numbers(xcb_connection_t *connection, xcb_window_t window, const char *name)
{
    const auto reply = property(connection, window, name);
    if (!reply || reply->format != 32)
        return {};
    const auto *first = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    return QList<quint32>(first, first + reply->value_len);
}

QByteArray bytes(xcb_connection_t *connection, xcb_window_t window, const char *name)
{
    const auto reply = property(connection, window, name);
    if (!reply || reply->format != 8)
        return {};
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())), int(reply->value_len));
}

} // namespace platform::x11
