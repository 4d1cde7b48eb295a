#include "platform/RandomSource.h"

#include <QRandomGenerator>

namespace platform {

namespace {

class SystemRandomSource : public RandomSource
{
public:
    quint32 next() override { return QRandomGenerator::system()->generate(); }
};

} // namespace

std::unique_ptr<RandomSource> makeSystemRandomSource()
{
    return std::make_unique<SystemRandomSource>();
}

} // namespace platform
