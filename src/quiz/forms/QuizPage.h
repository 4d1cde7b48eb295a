#pragma once

#include "model/TAVLexicon.h"

class QWidget;

/** What the main window asks of the quiz tab. This base shows nothing. */
class QuizPage
{
public:
    virtual ~QuizPage() = default;
    /** The tab's content, which then belongs to the window; null while there is none. */
    virtual QWidget *page() { return nullptr; }
    /** The words that were selected in the vocabulary view; may be none. */
    virtual void setPreSelectedWords(const TAVWordList &words) { Q_UNUSED(words) }
    /** Builds the setup page anew; also called a second time, half a second later. */
    virtual void showQuiz() {}
    virtual void quizListsToAskChanged() {}
};
