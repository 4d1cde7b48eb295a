#pragma once

#include "platform/Http.h"

#include <deque>
#include <mutex>

/**
 * Answers requests from a script and keeps what was asked; where the script ends, there is no network. Any
 * thread may send, the rest is the test's.
 */
class TestHttp : public platform::Http
{
public:
    /** Later requests get these, in this order. */
    void answerNext(const platform::HttpResponse &response);
    /** Requests under way wait from now on, until answerHeld(). */
    void hold() { m_isHolding = true; }
    /** Answers the first request that waits; false if none does. */
    bool answerHeld(const platform::HttpResponse &response);
    /** Requests that wait, and whose call hasn't been destroyed. */
    int heldCount();
    bool finish() override;

    /** What was asked, in order. */
    QList<platform::HttpRequest> requests;

protected:
    std::unique_ptr<platform::HttpCall> start(const platform::HttpRequest &request, Done done) override;

private:
    class HeldCall;
    struct Exchange;

    std::mutex m_mutex;
    std::deque<platform::HttpResponse> m_responses;
    std::deque<std::weak_ptr<Exchange>> m_held;
    bool m_isHolding = false;
    bool m_isFinished = false;
};
