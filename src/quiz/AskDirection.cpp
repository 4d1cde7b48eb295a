#include "quiz/AskDirection.h"

#include "app/ground/SettingsKeys.h"
#include "platform/Services.h"

AskDirection AskDirection::fromSettings()
{
    AskDirection direction{platform::settings().boolean(settingskeys::askForForeignWord),
                           platform::settings().boolean(settingskeys::askForYourWord)};
    if (!direction.foreignWord && !direction.yourWord)
        direction.foreignWord = true;
    return direction;
}

void AskDirection::store() const
{
    platform::settings().setValue(settingskeys::askForForeignWord, foreignWord);
    platform::settings().setValue(settingskeys::askForYourWord, yourWord);
}
