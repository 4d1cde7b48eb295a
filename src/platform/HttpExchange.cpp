#include "platform/HttpExchange.h"

#include "platform/HttpDiskCache.h"

#include <QFile>
#include <QHostAddress>
#include <QNetworkAccessManager>

#include <algorithm>
#include <array>

namespace platform {

namespace {

/** The rest stays with the system until it is taken, however fast the server sends. */
constexpr qint64 maxPieceBytes = qint64(64) * 1024;

bool isThisMachine(const QUrl &url)
{
    const QString host = url.host();
    return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

bool isAllowed(const QUrl &url, bool mayBePlainHere)
{
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty())
        return false;
    return url.scheme() == QLatin1String("https") ||
           (url.scheme() == QLatin1String("http") && mayBePlainHere && isThisMachine(url));
}

bool isSameOrigin(const QUrl &a, const QUrl &b)
{
    const auto port = [](const QUrl &url) {
        return url.port(url.scheme() == QLatin1String("https") ? 443 : 80);
    };
    return a.scheme() == b.scheme() && a.host() == b.host() && port(a) == port(b);
}

bool isToken(const QByteArray &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_';
    });
}

/** A line break in a value would smuggle in further headers. */
bool areWellFormed(const HttpHeaders &headers)
{
    return std::all_of(headers.begin(), headers.end(), [](const auto &header) {
        const auto &[name, value] = header;
        return isToken(name) && std::none_of(value.begin(), value.end(),
                                             [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
    });
}

bool framesTheMessage(const QByteArray &name)
{
    static const std::array names{QByteArrayLiteral("connection"), QByteArrayLiteral("content-length"),
                                  QByteArrayLiteral("host"), QByteArrayLiteral("transfer-encoding")};
    return std::find(names.begin(), names.end(), name.toLower()) != names.end();
}

HttpError errorOf(QNetworkReply::NetworkError error)
{
    return error == QNetworkReply::SslHandshakeFailedError ? HttpError::tls : HttpError::network;
}

/** The numbers of the errors that only repeat the status. */
bool isStatus(QNetworkReply::NetworkError error, int status)
{
    const bool isOfContent =
        error >= QNetworkReply::ContentAccessDenied && error != QNetworkReply::ProtocolFailure;
    return error == QNetworkReply::NoError || (status >= 400 && isOfContent);
}

} // namespace

HttpExchange::HttpExchange(std::shared_ptr<QNetworkAccessManager> network, HttpDiskCache *cache,
                           const HttpRequest &request, Done done, QObject *parent)
    : QObject(parent)
    , m_network(std::move(network))
    , m_cache(cache)
    , m_request(request)
    , m_done(std::move(done))
{
    m_silence.setSingleShot(true);
    m_silence.setInterval(m_request.limits.maxSilence);
    connect(&m_silence, &QTimer::timeout, this, [this] { end(HttpError::silent); });
    m_total.setSingleShot(true);
    m_total.setInterval(m_request.limits.maxTotal);
    connect(&m_total, &QTimer::timeout, this, [this] { end(HttpError::timedOut); });
}

HttpExchange::~HttpExchange()
{
    dropReply();
}

void HttpExchange::begin()
{
    if (!isAllowed(m_request.url, true) || !isToken(m_request.method) || !areWellFormed(m_request.headers)) {
        end(HttpError::notAllowed);
        return;
    }
    if (!openBody()) {
        end(HttpError::unreadableBody, m_bodyFile->errorString());
        return;
    }
    if (takeFromCache())
        return;
    m_total.start();
    ask(m_request.url);
}

void HttpExchange::cancel()
{
    end(HttpError::cancelled);
}

bool HttpExchange::openBody()
{
    if (m_request.bodyPath.isEmpty())
        return true;
    m_bodyFile = new QFile(m_request.bodyPath, this);
    return m_bodyFile->open(QIODevice::ReadOnly);
}

bool HttpExchange::takeFromCache()
{
    if (!m_cache || m_request.cache == HttpCache::none || m_request.method != "GET")
        return false;
    std::optional<HttpResponse> kept = m_cache->find(m_request.url, m_request.cache == HttpCache::anyAge);
    if (!kept)
        return false;
    const QByteArray body = std::exchange(kept->body, {});
    m_response = std::move(*kept);
    if (take(body))
        end(HttpError::none);
    return true;
}

void HttpExchange::keepInCache()
{
    const bool mayBeKept = m_cache && m_request.cache != HttpCache::none && m_request.method == "GET" &&
                           m_response.status == 200 && !m_request.sink;
    if (mayBeKept)
        m_cache->insert(m_request.url, m_response);
}

QNetworkRequest HttpExchange::requestTo(const QUrl &url) const
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    // Otherwise filled with the user's languages, and with the name of another program.
    request.setRawHeader("Accept-Language", "*");
    request.setRawHeader("User-Agent", "Tavimo");
    // What is small needs no packing, and what is large is packed already.
    request.setRawHeader("Accept-Encoding", "identity");
    const bool isOwn = isSameOrigin(url, m_request.url);
    for (const auto &[name, value] : m_request.headers) {
        const bool isHarmless = name.compare("accept", Qt::CaseInsensitive) == 0;
        if ((isOwn || isHarmless) && !framesTheMessage(name))
            request.setRawHeader(name, value);
    }
    return request;
}

void HttpExchange::ask(const QUrl &url)
{
    const QNetworkRequest request = requestTo(url);
    if (m_request.method == "GET")
        m_reply = m_network->get(request);
    else if (m_request.method == "HEAD")
        m_reply = m_network->head(request);
    else if (m_bodyFile)
        m_reply = m_network->sendCustomRequest(request, m_request.method, m_bodyFile);
    else
        m_reply = m_network->sendCustomRequest(request, m_request.method, m_request.body);
    m_reply->setReadBufferSize(maxPieceBytes);
    m_mayLeaveLookupBehind = QHostAddress(url.host()).isNull();
    connect(m_reply, &QNetworkReply::uploadProgress, this, [this] { m_silence.start(); });
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &HttpExchange::takeHeaders);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpExchange::takeBody);
    connect(m_reply, &QNetworkReply::finished, this, &HttpExchange::takeEnd);
    m_silence.start();
}

bool HttpExchange::isToBeFollowed() const
{
    const bool isRedirect = m_response.status == 301 || m_response.status == 302 ||
                            m_response.status == 303 || m_response.status == 307 || m_response.status == 308;
    return isRedirect && (m_request.method == "GET" || m_request.method == "HEAD") &&
           m_request.maxRedirects > 0 && !m_response.header("Location").isEmpty();
}

void HttpExchange::follow()
{
    const QUrl next = m_reply->url().resolved(QUrl::fromEncoded(m_response.header("Location")));
    if (!isAllowed(next, m_reply->url().scheme() == QLatin1String("http"))) {
        end(HttpError::notAllowed, next.toDisplayString());
        return;
    }
    if (++m_redirects > m_request.maxRedirects) {
        end(HttpError::tooManyRedirects);
        return;
    }
    dropReply();
    ask(next);
}

void HttpExchange::takeHeaders()
{
    m_silence.start();
    m_response.status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const auto &headers = m_reply->rawHeaderPairs();
    m_response.headers = HttpHeaders(headers.begin(), headers.end());
    if (m_response.status == 0)
        return;
    m_mayLeaveLookupBehind = false;
    if (isToBeFollowed()) {
        follow();
        return;
    }
    const bool hasBody = m_request.method != "HEAD" && m_response.status != 204 && m_response.status != 304;
    if (hasBody && m_response.header("Content-Length").toLongLong() > m_request.limits.maxAnswerBytes)
        end(HttpError::tooLarge);
}

bool HttpExchange::take(const QByteArray &piece)
{
    m_bytesTaken += piece.size();
    if (m_bytesTaken > m_request.limits.maxAnswerBytes) {
        end(HttpError::tooLarge);
        return false;
    }
    if (!m_request.sink || m_response.status / 100 != 2) {
        m_response.body += piece;
    } else if (!m_request.sink(piece)) {
        end(HttpError::refused);
        return false;
    }
    return true;
}

void HttpExchange::takeBody()
{
    m_silence.start();
    const QByteArray piece = m_reply->readAll();
    if (!piece.isEmpty())
        take(piece);
}

void HttpExchange::takeEnd()
{
    takeBody();
    if (!m_reply)
        return;
    const QNetworkReply::NetworkError error = m_reply->error();
    m_mayLeaveLookupBehind = false;
    if (!isStatus(error, m_response.status)) {
        end(errorOf(error), m_reply->errorString());
        return;
    }
    keepInCache();
    end(HttpError::none);
}

void HttpExchange::dropReply()
{
    if (!m_reply)
        return;
    // Its signals end here, as it would report that it was aborted.
    m_reply->disconnect(this);
    m_reply->abort();
    m_reply->deleteLater();
    m_reply.clear();
}

void HttpExchange::end(HttpError error, const QString &text)
{
    if (!m_done)
        return;
    m_wasCutShort = error == HttpError::silent || error == HttpError::timedOut;
    m_silence.stop();
    m_total.stop();
    dropReply();
    m_response.error = error;
    m_response.errorText = text;
    if (error != HttpError::none)
        m_response.body.clear();
    std::exchange(m_done, nullptr)(std::move(m_response));
}

} // namespace platform
