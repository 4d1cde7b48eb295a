#pragma once

#include "platform/Http.h"

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

class QFile;
class QNetworkAccessManager;

namespace platform {

class HttpDiskCache;

/** One request and its answer, redirects included, within their limits. Lives on the client's thread. */
class HttpExchange : public QObject
{
public:
    using Done = std::function<void(HttpResponse)>;

    /** The cache may be null; it lasts at least until the end. */
    HttpExchange(std::shared_ptr<QNetworkAccessManager> network, HttpDiskCache *cache,
                 const HttpRequest &request, Done done, QObject *parent);
    ~HttpExchange() override;

    /** May call done before it returns. */
    void begin();
    void cancel();
    /** Whether the address of a server may still be looked up behind the scenes, which nothing can cut short.
     */
    bool mayLeaveLookupBehind() const { return m_mayLeaveLookupBehind; }
    /** Whether its time was over: a server that never comes to an end can keep the network's thread busy. */
    bool wasCutShort() const { return m_wasCutShort; }

private:
    bool openBody();
    bool takeFromCache();
    void keepInCache();
    void ask(const QUrl &url);
    QNetworkRequest requestTo(const QUrl &url) const;
    bool isToBeFollowed() const;
    void follow();
    void takeHeaders();
    /** Whether the exchange goes on. */
    bool take(const QByteArray &piece);
    void takeBody();
    void takeEnd();
    void dropReply();
    void end(HttpError error, const QString &text = {});

    const std::shared_ptr<QNetworkAccessManager> m_network;
    HttpDiskCache *m_cache;
    const HttpRequest m_request;
    Done m_done;
    HttpResponse m_response;
    QFile *m_bodyFile = nullptr;
    QPointer<QNetworkReply> m_reply;
    qint64 m_bytesTaken = 0;
    int m_redirects = 0;
    bool m_mayLeaveLookupBehind = false;
    bool m_wasCutShort = false;
    QTimer m_silence;
    QTimer m_total;
};

} // namespace platform
