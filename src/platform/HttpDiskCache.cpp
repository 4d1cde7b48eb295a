#include "platform/HttpDiskCache.h"

#include "platform/Clock.h"

#include <QIODevice>

namespace platform {

namespace {

constexpr qint64 maxCacheBytes = qint64(20) * 1024 * 1024;

QList<QByteArray> directives(const HttpResponse &response)
{
    QList<QByteArray> list;
    for (const QByteArray &directive : response.header("Cache-Control").toLower().split(','))
        list.append(directive.trimmed());
    return list;
}

/** 0 if the server says nothing of it. */
qint64 secondsOfLife(const HttpResponse &response)
{
    const QByteArray key("max-age=");
    const QList<QByteArray> list = directives(response);
    if (list.contains("no-cache"))
        return 0;
    for (const QByteArray &directive : list) {
        if (directive.startsWith(key))
            return std::max(0, directive.mid(key.size()).toInt());
    }
    return 0;
}

} // namespace

HttpDiskCache::HttpDiskCache(const QString &folder)
{
    m_store.setCacheDirectory(folder);
    m_store.setMaximumCacheSize(maxCacheBytes);
}

std::optional<HttpResponse> HttpDiskCache::find(const QUrl &url, bool ofAnyAge)
{
    const QNetworkCacheMetaData found = m_store.metaData(url);
    if (!found.isValid() || (!ofAnyAge && found.expirationDate() <= systemTime()))
        return std::nullopt;
    const std::unique_ptr<QIODevice> body(m_store.data(url));
    if (!body)
        return std::nullopt;
    const auto headers = found.rawHeaders();
    HttpResponse response{.status = 200, .headers = HttpHeaders(headers.begin(), headers.end())};
    response.body = body->readAll();
    response.isFromCache = true;
    return response;
}

void HttpDiskCache::insert(const QUrl &url, const HttpResponse &response)
{
    if (directives(response).contains("no-store")) {
        m_store.remove(url);
        return;
    }
    QNetworkCacheMetaData entry;
    entry.setUrl(url);
    entry.setRawHeaders({response.headers.begin(), response.headers.end()});
    entry.setExpirationDate(systemTime().addSecs(secondsOfLife(response)));
    entry.setSaveToDisk(true);
    if (QIODevice *file = m_store.prepare(entry)) {
        file->write(response.body);
        m_store.insert(file);
    }
}

} // namespace platform
