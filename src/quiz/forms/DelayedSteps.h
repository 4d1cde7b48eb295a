#pragma once

#include "platform/Clock.h"

#include <deque>
#include <functional>
#include <memory>

class QObject;

/**
 * What the buttons of the quiz do: each step comes a moment after its press, so that the pressed button is
 * seen, in the order of the presses and whatever page is seen by then.
 */
class DelayedSteps
{
public:
    /** The step is dropped if the context is destroyed before. */
    void add(QObject *context, std::function<void()> step);
    bool isPending() const { return !m_steps.empty(); }
    /** Does at once what is pending: a new run is about to take the words and the vocabulary of the old one.
     */
    void runNow();

private:
    struct Step
    {
        std::function<void()> run;
        std::unique_ptr<platform::Timer> timer;
    };
    void runFirst();

    std::deque<Step> m_steps;
};
