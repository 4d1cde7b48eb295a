#include "platform/DiagnosticLog.h"

#include <cstdio>
#include <mutex>

namespace platform {

namespace {

std::mutex mutex;

std::function<void(const QString &)> &listener()
{
    static std::function<void(const QString &)> function;
    return function;
}

} // namespace

void diagnosticLog(const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    const std::lock_guard lock(mutex);
    // One write for a line, so that lines of several threads or programs do not interleave.
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
    if (listener())
        listener()(line);
}

void setDiagnosticLogListener(std::function<void(const QString &)> newListener)
{
    const std::lock_guard lock(mutex);
    listener() = std::move(newListener);
}

} // namespace platform
