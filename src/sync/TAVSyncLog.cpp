#include "sync/TAVSyncLog.h"

namespace {

TAVSyncLog &idleInstance()
{
    static TAVSyncLog instance;
    return instance;
}

TAVSyncLog *registeredInstance = nullptr;

} // namespace

TAVSyncLog *TAVSyncLog::sharedManager()
{
    return registeredInstance ? registeredInstance : &idleInstance();
}

void TAVSyncLog::setSharedManager(TAVSyncLog *log)
{
    registeredInstance = log;
}
