#include "sync/DropBoxController.h"

namespace {

DropBoxController &idleInstance()
{
    static DropBoxController instance;
    return instance;
}

DropBoxController *registeredInstance = nullptr;

} // namespace

DropBoxController *DropBoxController::sharedManager()
{
    return registeredInstance ? registeredInstance : &idleInstance();
}

void DropBoxController::setSharedManager(DropBoxController *manager)
{
    registeredInstance = manager;
}
