#pragma once

#include "quiz/AskDirection.h"
#include "quiz/TAVQuizInterface.h"
#include "quiz/forms/QuizView.h"

/** One of the ways to quiz, as the setup page starts it. */
class QuizForm : public TAVQuizInterface
{
public:
    /** Asks in the direction of the settings until the setup says otherwise. */
    QuizForm()
    {
        const AskDirection direction = AskDirection::fromSettings();
        setAskForForeignWord(direction.foreignWord);
        setAskForYourWord(direction.yourWord);
    }

    /** A run is about to be prepared: does at once what this form would do by itself in a moment. */
    virtual void finishSteps() {}
    /** Another run of this form is about to be prepared: the present one ends, on the vocabulary it has. */
    virtual void leaveRun() {}
    /** Begins a run; options and words stand ready. Called between the two halves of the card's flip. */
    virtual void startQuiz() = 0;
    /** The page on which the run goes on. */
    virtual QuizView::Page page() const = 0;
};
