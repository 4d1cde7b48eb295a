#include "platform/StartCall.h"

namespace platform {

namespace {

const QByteArray callWord = QByteArrayLiteral("reopen ");

} // namespace

QByteArray startCall::lineFor(const QByteArray &token)
{
    return callWord + token.left(maxBytes / 2).replace('\n', ' ') + '\n';
}

std::optional<QByteArray> startCall::tokenOf(const QByteArray &line)
{
    const QByteArray call = line.trimmed();
    // A call without a token has lost its blank too.
    if (!(call + ' ').startsWith(callWord))
        return std::nullopt;
    return call.mid(callWord.size());
}

} // namespace platform
