#pragma once

#include <QtGlobal>

#include <algorithm>

/** The memory levels of words, 0 (unknown) to 5 (native). */
namespace levels {

inline constexpr int number = 6;
inline constexpr quint64 highest = number - 1;

/** The place of a level in a list of six. One above the highest, as a file may hold it, means the highest. */
inline size_t indexOf(quint64 level)
{
    return size_t(std::min(level, highest));
}

} // namespace levels
