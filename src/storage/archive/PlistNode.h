#pragma once

#include <plist/plist.h>

#include <memory>
#include <type_traits>

/** Owns a tree of the container library. */
struct PlistDeleter
{
    void operator()(plist_t node) const { plist_free(node); }
};
using PlistNode = std::unique_ptr<std::remove_pointer_t<plist_t>, PlistDeleter>;

namespace archive {
/** The archive's own dates count from 2001-01-01 00:00:00 UTC. */
inline constexpr double secondsTo2001 = 978307200;
inline constexpr const char *classKey = "$class";
} // namespace archive
