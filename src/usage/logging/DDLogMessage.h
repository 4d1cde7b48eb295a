#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVariant>

/** Severity flags, one bit each. A level is a mask of them. */
namespace ddlog {
inline constexpr int flagError = 1;
inline constexpr int flagWarn = 2;
inline constexpr int flagInfo = 4;
inline constexpr int flagDebug = 8;
inline constexpr int flagVerbose = 16;
/** Admits everything. */
inline constexpr int levelAll = 31;

/** Bits of DDLogMessage::options: take a copy of a text that does not live as long as the program. */
inline constexpr int copyFile = 1;
inline constexpr int copyFunction = 2;
} // namespace ddlog

/** One log line on its way, with the place that it came from. */
class DDLogMessage
{
public:
    DDLogMessage() = default;
    /** Fills the rest from the calling thread; an invalid timestamp stands for now. */
    DDLogMessage(const QString &text, int level, int flag, int context, const char *sourceFile,
                 const char *sourceFunction, int line, const QVariant &messageTag = {},
                 int messageOptions = 0, const QDateTime &creationTime = {});

    int logLevel = 0;
    int logFlag = 0;
    int logContext = 0;
    QString logMsg;
    QDateTime timestamp;
    QByteArray file;
    QByteArray function;
    int lineNumber = 0;
    quint64 machThreadID = 0;
    QString queueLabel;
    QString threadName;
    QVariant tag;
    int options = 0;
};
