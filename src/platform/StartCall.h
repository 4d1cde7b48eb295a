#pragma once

#include <QByteArray>

#include <optional>

/** What a second start of the program tells the first, as one line over a local socket. */
namespace platform::startCall {

/** Longer lines are nobody's call. */
inline constexpr qint64 maxBytes = 4096;

/** The line, its end included; with the token, if any, by which a window may come to the front. */
QByteArray lineFor(const QByteArray &token);
/** The token out of a line; absent if the line is no call. Anybody of this user may have written it. */
std::optional<QByteArray> tokenOf(const QByteArray &line);

} // namespace platform::startCall
