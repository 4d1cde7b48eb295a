#pragma once

#include <QTimeZone>

namespace platform {

/**
 * The zone in which the C library reckons the given moment. Where it has a name, that one, with all its
 * changes of offset; where Qt doesn't know it (a file's path or a rule in TZ, no zone files on the machine),
 * one with the offset of that moment. Never invalid.
 */
QTimeZone userTimeZone(const QDateTime &now);

} // namespace platform
