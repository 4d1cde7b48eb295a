#pragma once

#include "platform/Queues.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>
#include <utility>

namespace platform {

using HttpHeaders = QList<std::pair<QByteArray, QByteArray>>;

/** How much is taken from a server, and how long it is waited for. */
struct HttpLimits
{
    /** Of the answer's body. */
    qint64 maxAnswerBytes = qint64(1024) * 1024;
    /** Without any byte, in either direction. A long poll needs more than its server holds it. */
    std::chrono::milliseconds maxSilence{10'000};
    /** From the start to the last byte, with all redirects, however busily the server sends. */
    std::chrono::milliseconds maxTotal{30'000};
};

enum class HttpCache {
    /** Nothing is read from the cache, and nothing kept. */
    none,
    /** A kept answer that its server called good until later goes before the network. */
    standard,
    /** An answer that was kept, however old, goes before the network. */
    anyAge
};

/**
 * Only https, and http to this machine itself, are spoken. A certificate that isn't trusted ends the
 * exchange, and no cookies are kept. The program tells nothing of itself but its name.
 */
struct HttpRequest
{
    QByteArray method = QByteArrayLiteral("GET");
    QUrl url;
    /** What frames the message (its length, its host, the connection) isn't taken from here. */
    HttpHeaders headers = {};
    QByteArray body = {};
    /** A file that is sent as the body, piece by piece, instead of the above. */
    QString bodyPath = {};
    HttpLimits limits = {};
    HttpCache cache = HttpCache::none;
    /**
     * Redirects of GET and HEAD that are followed: to https, and from plain http within this machine to the
     * same. The request's own headers stay with the origin that they were meant for. Beyond this number the
     * exchange fails; with 0, and for other methods, a redirect is an answer like any other.
     */
    int maxRedirects = 3;
    /**
     * Takes the body of a 2xx answer piece by piece, on the client's own thread, instead of having it
     * collected; false refuses the rest.
     */
    std::function<bool(const QByteArray &piece)> sink = {};
};

enum class HttpError {
    none,
    /** An address or a redirect that isn't https, or a malformed header; nothing was sent there. */
    notAllowed,
    /** The file for the body can't be read. */
    unreadableBody,
    /** No connection, or it broke before the answer was whole, or the answer isn't HTTP. */
    network,
    /** The server can't prove who it is. */
    tls,
    silent,
    timedOut,
    tooLarge,
    tooManyRedirects,
    /** The sink wanted no more. */
    refused,
    /** By the caller, or because the program ends. */
    cancelled
};

/** Any status is an answer, not an error. */
struct HttpResponse
{
    HttpError error = HttpError::none;
    /** The system's words for the error, for a log. */
    QString errorText = {};
    /** 0 if the exchange ended before one came. */
    int status = 0;
    HttpHeaders headers = {};
    /** Empty after an error: there are no half answers. */
    QByteArray body = {};
    bool isFromCache = false;

    bool isSuccess() const { return error == HttpError::none && status >= 200 && status < 300; }
    /** The first header of that name, in whatever case; empty if there is none. */
    QByteArray header(const QByteArray &name) const;
};

/** An exchange under way. Destroying it cancels the exchange: its completion isn't called any more. */
class HttpCall
{
public:
    HttpCall() = default;
    HttpCall(const HttpCall &) = delete;
    HttpCall &operator=(const HttpCall &) = delete;
    virtual ~HttpCall() = default;
};

/** The program's one HTTP client. Nothing of it runs on the caller's thread. */
class Http
{
public:
    using Completion = std::function<void(const HttpResponse &)>;

    virtual ~Http() = default;

    /**
     * Calls completion on the main thread; while an alert stands, that waits. The call belongs to the main
     * thread.
     */
    [[nodiscard]] std::unique_ptr<HttpCall> send(const HttpRequest &request, Completion completion);
    /** Calls completion in a task of the queue, which outlives the call. */
    [[nodiscard]] std::unique_ptr<HttpCall> send(const HttpRequest &request, SerialQueue &queue,
                                                 Completion completion);
    /** For background threads only. Returns early, with cancelled, once a stop is requested. */
    HttpResponse sendBlocking(const HttpRequest &request, const std::stop_token &stop = {});

    /**
     * The end of the program: cancels what is under way and all that comes later; nobody waits for an answer
     * any longer. Whether nothing is left behind. If not, the program must leave by std::_Exit.
     */
    virtual bool finish() { return true; }

protected:
    using Done = std::function<void(HttpResponse)>;
    /** Calls done on any thread, at most once; it may still be under way when the call is destroyed. */
    virtual std::unique_ptr<HttpCall> start(const HttpRequest &request, Done done) = 0;

private:
    class Delivery;
    std::unique_ptr<HttpCall> sendBy(const HttpRequest &request, std::function<void(Task)> post,
                                     Completion completion);
};

/**
 * The real one. It keeps its cache in the folder, which is made with the first exchange; an empty path means
 * none.
 */
std::unique_ptr<Http> makeSystemHttp(const QString &cacheFolder);

} // namespace platform
