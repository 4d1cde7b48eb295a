#include "usage/logging/DDLogMessage.h"

#include "platform/Clock.h"
#include "platform/Queues.h"

#include <array>

#include <pthread.h>
#include <unistd.h>

namespace {

QByteArray constantText(const char *text, bool copies)
{
    const auto length = qsizetype(qstrlen(text));
    return copies ? QByteArray(text, length) : QByteArray::fromRawData(text, length);
}

QString currentThreadName()
{
    std::array<char, 16> name{};
    pthread_getname_np(pthread_self(), name.data(), name.size());
    return QString::fromUtf8(name.data());
}

} // namespace

DDLogMessage::DDLogMessage(const QString &text, int level, int flag, int context, const char *sourceFile,
                           const char *sourceFunction, int line, const QVariant &messageTag,
                           int messageOptions, const QDateTime &creationTime)
    : logLevel(level)
    , logFlag(flag)
    , logContext(context)
    , logMsg(text)
    , timestamp(creationTime.isValid() ? creationTime : platform::systemTime())
    , file(constantText(sourceFile, messageOptions & ddlog::copyFile))
    , function(constantText(sourceFunction, messageOptions & ddlog::copyFunction))
    , lineNumber(line)
    , machThreadID(quint64(gettid()))
    , queueLabel(platform::currentQueueLabel())
    , threadName(currentThreadName())
    , tag(messageTag)
    , options(messageOptions)
{
}
