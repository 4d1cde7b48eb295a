#include "model/TAVRandom.h"

#include "platform/Services.h"

#include <cmath>

qint64 TAVRandom::randomIntBetween(qint64 low, qint64 high) const
{
    Q_ASSERT(high >= low);
    return qint64(platform::services().random->next()) % (high - low + 1) + low;
}

double TAVRandom::randomFloatBetween(double low, double high) const
{
    return low + std::ldexp(double(platform::services().random->next()), -32) * (high - low);
}
