#include "quiz/AskDirection.h"

#include "app/ground/SettingsTable.h"

AskDirection AskDirection::fromSettings()
{
    AskDirection direction{settings::askForForeignWord.value(), settings::askForYourWord.value()};
    if (!direction.foreignWord && !direction.yourWord)
        direction.foreignWord = true;
    return direction;
}

void AskDirection::store() const
{
    settings::askForForeignWord.set(foreignWord);
    settings::askForYourWord.set(yourWord);
}
