#include "quiz/forms/DelayedSteps.h"

#include "platform/Dispatcher.h"
#include "platform/Services.h"

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds stepDelay = 200ms;

}

void DelayedSteps::add(QObject *context, std::function<void()> step)
{
    // All wait equally long, so the first that is due is the first in the row.
    m_steps.push_back({platform::unlessGone(context, std::move(step)),
                       platform::clock().startTimer(stepDelay, false, [this] { runFirst(); })});
}

void DelayedSteps::runFirst()
{
    const Step step = std::move(m_steps.front());
    m_steps.pop_front();
    step.run();
}

void DelayedSteps::runNow()
{
    while (isPending())
        runFirst();
}
