#include "platform/Dispatcher.h"
#include "platform/HttpDiskCache.h"
#include "platform/HttpExchange.h"

#include <QEventLoop>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>

#include <future>
#include <map>
#include <thread>

#include <pthread.h>

namespace platform {

namespace {

/** The thread only waits for the network, so that it is usually there at once. */
constexpr std::chrono::milliseconds patienceAtTheEnd{300};

/** The system's proxies, but not for what stays within this machine. */
class Proxies : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override
    {
        const QString host = query.peerHostName();
        if (host == QLatin1String("localhost") || QHostAddress(host).isLoopback())
            return {QNetworkProxy(QNetworkProxy::NoProxy)};
        return systemProxyForQuery(query);
    }
};

/** What lives on the client's thread, on which it is made. */
class Worker : public Dispatcher
{
public:
    explicit Worker(const QString &cacheFolder)
        : m_cacheFolder(cacheFolder)
    {
    }

    void begin(quint64 id, const HttpRequest &request, HttpExchange::Done done)
    {
        const auto takeResponse = [this, id, done = std::move(done)](HttpResponse response) {
            forget(id);
            done(std::move(response));
        };
        openNetwork();
        auto *exchange = new HttpExchange(m_network, m_cache.get(), request, takeResponse, this);
        m_exchanges.emplace(id, exchange);
        exchange->begin();
    }
    void cancel(quint64 id)
    {
        const auto found = m_exchanges.find(id);
        if (found != m_exchanges.end())
            found->second->cancel();
    }
    /** Runs all of the above until end(). */
    void run() { m_loop.exec(); }
    void end()
    {
        while (!m_exchanges.empty())
            m_exchanges.begin()->second->cancel();
        m_network.reset();
        m_cache.reset();
        m_loop.quit();
    }
    /** Whether something of Qt's own may still run. */
    bool hasLeftWorkBehind() const { return m_hasLeftLookupBehind || m_retiredNetwork; }

private:
    void openNetwork()
    {
        if (m_network)
            return;
        m_network = std::make_shared<QNetworkAccessManager>();
        m_network->setProxyFactory(new Proxies);
        if (!m_cacheFolder.isEmpty() && !m_cache)
            m_cache = std::make_unique<HttpDiskCache>(m_cacheFolder);
    }
    void forget(quint64 id)
    {
        const auto found = m_exchanges.find(id);
        m_hasLeftLookupBehind |= found->second->mayLeaveLookupBehind();
        // The next request gets a network, and with it a thread, that no such server holds. The old one goes
        // later, as its end can wait for that thread for seconds.
        if (found->second->wasCutShort())
            m_retiredNetwork = std::exchange(m_network, nullptr);
        // Later, as one of its own functions is running.
        found->second->deleteLater();
        m_exchanges.erase(found);
    }

    const QString m_cacheFolder;
    QEventLoop m_loop;
    std::shared_ptr<QNetworkAccessManager> m_network;
    std::shared_ptr<QNetworkAccessManager> m_retiredNetwork;
    std::unique_ptr<HttpDiskCache> m_cache;
    std::map<quint64, HttpExchange *> m_exchanges;
    bool m_hasLeftLookupBehind = false;
};

class ExchangeCall : public HttpCall
{
public:
    ExchangeCall(const std::shared_ptr<Worker> &worker, quint64 id)
        : m_worker(worker)
        , m_id(id)
    {
    }
    ~ExchangeCall() override
    {
        if (const auto worker = m_worker.lock())
            worker->post([worker = worker.get(), id = m_id] { worker->cancel(id); });
    }

private:
    std::weak_ptr<Worker> m_worker;
    quint64 m_id;
};

/**
 * All exchanges live on one thread of their own, which starts with the first: neither a busy main thread nor
 * an alert makes them late, and whoever waits for an answer may be any thread.
 */
class SystemHttp : public Http
{
public:
    explicit SystemHttp(const QString &cacheFolder)
        : m_cacheFolder(cacheFolder)
    {
    }
    ~SystemHttp() override
    {
        finish();
        if (m_thread.joinable())
            m_thread.join();
    }

    bool finish() override
    {
        const std::lock_guard lock(m_mutex);
        if (m_worker && !m_isFinished)
            m_worker->post([worker = m_worker.get()] { worker->end(); });
        m_isFinished = true;
        return !m_worker || (m_ended.wait_for(patienceAtTheEnd) == std::future_status::ready &&
                             !m_worker->hasLeftWorkBehind());
    }

protected:
    std::unique_ptr<HttpCall> start(const HttpRequest &request, Done done) override
    {
        {
            const std::lock_guard lock(m_mutex);
            if (!m_isFinished) {
                startThread();
                const quint64 id = ++m_lastId;
                m_worker->post([worker = m_worker.get(), id, request, answer = std::move(done)] {
                    worker->begin(id, request, answer);
                });
                return std::make_unique<ExchangeCall>(m_worker, id);
            }
        }
        done({.error = HttpError::cancelled});
        return std::make_unique<HttpCall>();
    }

private:
    void startThread()
    {
        if (m_worker)
            return;
        std::promise<std::shared_ptr<Worker>> made;
        std::promise<void> ended;
        auto worker = made.get_future();
        m_ended = ended.get_future();
        m_thread = std::thread([this, made = std::move(made), ended = std::move(ended)]() mutable {
            pthread_setname_np(pthread_self(), "tavimo.http");
            const auto ours = std::make_shared<Worker>(m_cacheFolder);
            made.set_value(ours);
            ours->run();
            ended.set_value();
        });
        m_worker = worker.get();
    }

    const QString m_cacheFolder;
    std::mutex m_mutex;
    bool m_isFinished = false;
    quint64 m_lastId = 0;
    std::thread m_thread;
    std::future<void> m_ended;
    std::shared_ptr<Worker> m_worker;
};

} // namespace

std::unique_ptr<Http> makeSystemHttp(const QString &cacheFolder)
{
    return std::make_unique<SystemHttp>(cacheFolder);
}

} // namespace platform
