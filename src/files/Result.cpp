#include "files/Result.h"

#include <cerrno>

namespace files {

Error Error::fromSystem(int number)
{
    switch (number) {
    case ENOENT:
    case ENOTDIR:
        return {Reason::NotFound, number};
    case EACCES:
    case EPERM:
    case EROFS:
        return {Reason::NoPermission, number};
    case ENOSPC:
    case EDQUOT:
        return {Reason::NoSpace, number};
    case EISDIR:
    case ELOOP:
    case ENXIO:
        return {Reason::NotRegular, number};
    case EFBIG:
        return {Reason::TooLarge, number};
    case EEXIST:
        return {Reason::Exists, number};
    default:
        return {Reason::Io, number};
    }
}

QString Error::text() const
{
    if (number != 0)
        return qt_error_string(number);
    switch (reason) {
    case Reason::TooLarge:
        return QStringLiteral("Larger than can be read");
    case Reason::LinkToNothing:
        return QStringLiteral("A link that leads nowhere");
    default:
        return QStringLiteral("Not a regular file");
    }
}

} // namespace files
