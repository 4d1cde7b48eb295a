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
    return reason == Reason::TooLarge ? QStringLiteral("Larger than can be read")
                                      : QStringLiteral("Not a regular file");
}

} // namespace files
