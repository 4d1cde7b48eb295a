#pragma once

#include <chrono>
#include <optional>

namespace platform {

/** How long the user has touched neither keyboard nor mouse, in whatever program. This base can't tell. */
class IdleTime
{
public:
    virtual ~IdleTime() = default;
    /** Absent where the desktop doesn't tell. */
    virtual std::optional<std::chrono::milliseconds> sinceLastInput() { return std::nullopt; }
};

} // namespace platform
