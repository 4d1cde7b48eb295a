#include "quiz/FlashCardPace.h"

#include "app/ground/SettingsTable.h"

namespace {

constexpr int usualPosition = 2;
constexpr int maxPosition = 3;

} // namespace

FlashCardPace FlashCardPace::ofPosition(int position)
{
    switch (position) {
    case 0:
        return {position, 0, 0};
    case 1:
        return {position, 3, 5};
    case 2:
        return {position, 2, 3};
    default:
        return {position, 1, 2};
    }
}

FlashCardPace FlashCardPace::fromSettings()
{
    if (!settings::learnHasSetTimeout.value())
        return ofPosition(usualPosition);
    const qint64 stored = settings::learnFlipLevel.value().value_or(0);
    return ofPosition(int(std::clamp<qint64>(stored, 0, maxPosition)));
}

void FlashCardPace::store() const
{
    settings::learnFlipLevel.set(position);
    settings::learnHasSetTimeout.set(true);
}
