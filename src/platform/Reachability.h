#pragma once

namespace platform {

/** Whether a network is there. This base says that one is, and lets the request itself fail. */
class Reachability
{
public:
    virtual ~Reachability() = default;
    virtual bool isReachable() const { return true; }
};

} // namespace platform
