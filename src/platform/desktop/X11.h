#pragma once

#include <QByteArray>
#include <QList>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

/** The few questions that the X11 parts ask the server, over the connection that the program already has. */
namespace platform::x11 {

struct FreeReply
{
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply> using ReplyPtr = std::unique_ptr<Reply, FreeReply>;

/** The program's own connection; null when its windows are not on an X server. Not owned. */
xcb_connection_t *connection();
/** The root window of the first screen. */
xcb_window_t rootWindow(xcb_connection_t *connection);
/** The atom of that name, made if need be; 0 on failure. */
xcb_atom_t atom(xcb_connection_t *connection, const char *name);
/** The name of an atom; empty on failure. */
QByteArray atomName(xcb_connection_t *connection, xcb_atom_t atom);
/** A property of 32-bit numbers; empty if it is missing or of another format. */
QList<quint32> numbers(xcb_connection_t *connection, xcb_window_t window, const char *property);
/** A property of bytes; empty if it is missing or of another format. */
QByteArray bytes(xcb_connection_t *connection, xcb_window_t window, const char *property);

} // namespace platform::x11
