#include "platform/Services.h"

namespace platform {

namespace {
Services installed;
} // namespace

const Services &services()
{
    return installed;
}

void installServices(const Services &services)
{
    installed = services;
}

} // namespace platform
