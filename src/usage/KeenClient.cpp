#include "usage/KeenClient.h"

namespace {

KeenClient &idleInstance()
{
    static KeenClient instance;
    return instance;
}

KeenClient *registeredInstance = nullptr;

} // namespace

KeenClient *KeenClient::sharedClient()
{
    return registeredInstance ? registeredInstance : &idleInstance();
}

void KeenClient::setSharedClient(KeenClient *client)
{
    registeredInstance = client;
}
