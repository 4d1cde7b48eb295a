#include "platform/Http.h"

#include "platform/Services.h"

#include <QCoreApplication>
#include <QThread>

#include <condition_variable>
#include <mutex>
#include <optional>

namespace platform {

QByteArray HttpResponse::header(const QByteArray &name) const
{
    for (const auto &[key, value] : headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

/** Brings one response to where it is waited for, unless the call has been let go of. */
class Http::Delivery : public std::enable_shared_from_this<Delivery>
{
public:
    explicit Delivery(Completion completion)
        : m_completion(std::move(completion))
    {
    }

    /** Posts the completion. Under the lock: who has cancelled may take the queue away at once. */
    void postBy(const std::function<void(Task)> &post, HttpResponse response)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_completion)
            return;
        post([self = shared_from_this(), answer = std::move(response)] {
            if (const Completion completion = self->taken())
                completion(answer);
        });
    }
    void cancel() { taken(); }

private:
    Completion taken()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_completion, nullptr);
    }

    /** A queue that runs its tasks at once comes back to it. */
    std::recursive_mutex m_mutex;
    Completion m_completion;
};

std::unique_ptr<HttpCall> Http::sendBy(const HttpRequest &request, std::function<void(Task)> post,
                                       Completion completion)
{
    class DeliveredCall : public HttpCall
    {
    public:
        explicit DeliveredCall(std::shared_ptr<Delivery> delivery)
            : m_delivery(std::move(delivery))
        {
        }
        ~DeliveredCall() override { m_delivery->cancel(); }
        void setExchange(std::unique_ptr<HttpCall> exchange) { m_exchange = std::move(exchange); }

    private:
        std::unique_ptr<HttpCall> m_exchange;
        std::shared_ptr<Delivery> m_delivery;
    };
    const auto delivery = std::make_shared<Delivery>(std::move(completion));
    auto call = std::make_unique<DeliveredCall>(delivery);
    call->setExchange(start(request, [delivery, post = std::move(post)](HttpResponse response) {
        delivery->postBy(post, std::move(response));
    }));
    return call;
}

std::unique_ptr<HttpCall> Http::send(const HttpRequest &request, Completion completion)
{
    return sendBy(
        request, [queues = services().queues](Task task) { queues->mainAsync(nullptr, std::move(task)); },
        std::move(completion));
}

std::unique_ptr<HttpCall> Http::send(const HttpRequest &request, SerialQueue &queue, Completion completion)
{
    return sendBy(
        request, [&queue](Task task) { queue.async(std::move(task)); }, std::move(completion));
}

HttpResponse Http::sendBlocking(const HttpRequest &request, const std::stop_token &stop)
{
    Q_ASSERT(!QCoreApplication::instance() ||
             QThread::currentThread() != QCoreApplication::instance()->thread());
    struct Waiting
    {
        std::mutex mutex;
        std::condition_variable answered;
        std::optional<HttpResponse> response;

        void answer(HttpResponse given)
        {
            const std::lock_guard lock(mutex);
            if (!response)
                response = std::move(given);
            answered.notify_one();
        }
    };
    const auto waiting = std::make_shared<Waiting>();
    const auto call =
        start(request, [waiting](HttpResponse response) { waiting->answer(std::move(response)); });
    const std::stop_callback onStop(stop, [&waiting] { waiting->answer({.error = HttpError::cancelled}); });
    std::unique_lock lock(waiting->mutex);
    waiting->answered.wait(lock, [&] { return waiting->response.has_value(); });
    return *waiting->response;
}

} // namespace platform
