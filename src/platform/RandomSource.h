#pragma once

#include <QtGlobal>

#include <memory>

namespace platform {

/** Uniform numbers that cannot be seeded. */
class RandomSource
{
public:
    virtual ~RandomSource() = default;
    virtual quint32 next() = 0;
};

/** The operating system's random source. */
std::unique_ptr<RandomSource> makeSystemRandomSource();

} // namespace platform
