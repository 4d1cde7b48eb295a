#pragma once

#include <QtGlobal>

/** Uniform numbers from the operating system's random source. */
class TAVRandom
{
public:
    /** From low to high, both included. The range must not be empty. */
    qint64 randomIntBetween(qint64 low, qint64 high) const;
    /** From low up to, but without, high. */
    double randomFloatBetween(double low, double high) const;
};
