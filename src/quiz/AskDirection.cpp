#include "quiz/AskDirection.h"

#include "platform/Services.h"

namespace {

const auto foreignWordKey = QStringLiteral("askForForeignWord");
const auto yourWordKey = QStringLiteral("askForYourWord");

} // namespace

AskDirection AskDirection::fromSettings()
{
    AskDirection direction{platform::settings().boolean(foreignWordKey),
                           platform::settings().boolean(yourWordKey)};
    if (!direction.foreignWord && !direction.yourWord)
        direction.foreignWord = true;
    return direction;
}

void AskDirection::store() const
{
    platform::settings().setValue(foreignWordKey, foreignWord);
    platform::settings().setValue(yourWordKey, yourWord);
}
