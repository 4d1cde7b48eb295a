// What anybody may write to the socket of a running program, and what the environment of a second start may
// hold: a line is a call or it isn't, and a token arrives as it was sent.

#include "platform/StartCall.h"

#include <cstdlib>

namespace startCall = platform::startCall;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    startCall::tokenOf(bytes.left(startCall::maxBytes));

    const QByteArray line = startCall::lineFor(bytes);
    const std::optional<QByteArray> token = startCall::tokenOf(line);
    const bool isOneLine = line.endsWith('\n') && line.count('\n') == 1 && line.size() <= startCall::maxBytes;
    if (!isOneLine || !token || startCall::tokenOf(startCall::lineFor(*token)) != token)
        std::abort();
    return 0;
}
