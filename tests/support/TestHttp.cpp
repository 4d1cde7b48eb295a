#include "support/TestHttp.h"

using platform::HttpError;
using platform::HttpResponse;

struct TestHttp::Exchange
{
    Done done;
};

class TestHttp::HeldCall : public platform::HttpCall
{
public:
    explicit HeldCall(std::shared_ptr<Exchange> exchange)
        : m_exchange(std::move(exchange))
    {
    }

private:
    std::shared_ptr<Exchange> m_exchange;
};

void TestHttp::answerNext(const HttpResponse &response)
{
    const std::lock_guard lock(m_mutex);
    m_responses.push_back(response);
}

bool TestHttp::answerHeld(const HttpResponse &response)
{
    std::shared_ptr<Exchange> exchange;
    {
        const std::lock_guard lock(m_mutex);
        while (!exchange && !m_held.empty()) {
            exchange = m_held.front().lock();
            m_held.pop_front();
        }
    }
    if (exchange)
        exchange->done(response);
    return exchange != nullptr;
}

int TestHttp::heldCount()
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_held, [](const auto &exchange) { return exchange.expired(); });
    return int(m_held.size());
}

bool TestHttp::finish()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isFinished = true;
    }
    while (answerHeld({.error = HttpError::cancelled})) {
    }
    return true;
}

std::unique_ptr<platform::HttpCall> TestHttp::start(const platform::HttpRequest &request, Done done)
{
    HttpResponse response{.error = HttpError::network};
    {
        const std::lock_guard lock(m_mutex);
        requests.append(request);
        if (m_isFinished) {
            response.error = HttpError::cancelled;
        } else if (m_isHolding) {
            const auto exchange = std::make_shared<Exchange>(Exchange{std::move(done)});
            m_held.push_back(exchange);
            return std::make_unique<HeldCall>(exchange);
        } else if (!m_responses.empty()) {
            response = m_responses.front();
            m_responses.pop_front();
        }
    }
    if (request.sink && response.isSuccess() && !request.sink(std::exchange(response.body, {})))
        response.error = HttpError::refused;
    done(response);
    return std::make_unique<platform::HttpCall>();
}
