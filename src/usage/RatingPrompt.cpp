#include "usage/RatingPrompt.h"

namespace {

RatingPrompt &idleInstance()
{
    static RatingPrompt instance;
    return instance;
}

RatingPrompt *registeredInstance = nullptr;

} // namespace

RatingPrompt *RatingPrompt::shared()
{
    return registeredInstance ? registeredInstance : &idleInstance();
}

void RatingPrompt::setShared(RatingPrompt *prompt)
{
    registeredInstance = prompt;
}
