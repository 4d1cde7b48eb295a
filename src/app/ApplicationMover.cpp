#include "app/ApplicationMover.h"

namespace {

ApplicationMover &idleInstance()
{
    static ApplicationMover instance;
    return instance;
}

ApplicationMover *registeredInstance = nullptr;

} // namespace

ApplicationMover *ApplicationMover::shared()
{
    return registeredInstance ? registeredInstance : &idleInstance();
}

void ApplicationMover::setShared(ApplicationMover *mover)
{
    registeredInstance = mover;
}
