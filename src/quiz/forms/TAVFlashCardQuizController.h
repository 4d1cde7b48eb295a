#pragma once

#include "platform/Clock.h"
#include "quiz/FlashCardPace.h"
#include "quiz/FlashCardRun.h"
#include "quiz/forms/QuizForm.h"
#include "views/editor/TAVWordPopoverDelegate.h"

#include <QObject>

#include <memory>

class FlashCardRestart;
class KeyReleases;
class QAbstractButton;
class TAVWordPopoverController;
class VocabularyDocument;

namespace Ui {
class TAVFlashCardQuiz;
}

/**
 * The quiz in which nothing is typed: the card shows a question, then its solution, and the user marks the
 * word as known or not, or lets it pass. Autoplay goes through the words by itself.
 */
class TAVFlashCardQuizController : public QObject, public QuizForm, public TAVWordPopoverDelegate
{
    Q_OBJECT

public:
    /** Both must outlive the controller. */
    TAVFlashCardQuizController(QuizView *view, VocabularyDocument &document);
    ~TAVFlashCardQuizController() override;

    /** Books a mark that is about to be booked. */
    void finishSteps() override;
    void startQuiz() override;
    QuizView::Page page() const override { return QuizView::flashCardPage; }

    /** Turns the card to its solution; in autoplay, the next word then comes by itself. */
    void showSolution();
    /** Shows the solution of a question; of a solution, books the answer and asks the next word. */
    void showNext();
    /** Take the state of correctButton or wrongButton, and move on shortly. */
    void markCorrect();
    void markWrong();
    void togglePlay();
    /** Ends autoplay and every move to the next word, so that no word is booked unseen. */
    void stopPlaying();
    /** Takes the slider's position. */
    void changeFlipTimeout();
    /** Each waits a moment, so that the pressed button is seen, and then does its execute operation. */
    void showStatistics();
    void restartQuizWithWrong();
    /** One second of the countdown to a new run; the first call starts it. */
    void restartCountdown();
    void editCurrentWord();
    void closeAddWordPopover();

    const TAVWordRef &currentWord() const { return m_run.askedWord(); }
    const FlashCardRun &run() const { return m_run; }
    bool isShowingSolution() const { return m_isShowingSolution; }
    bool isAutoPlay() const { return m_isAutoPlay; }

    void wordPopoverDidEditWords(const TAVWordList &words) override;
    void wordPopoverDidDeleteWords(const TAVWordList &words) override;
    void wordPopoverDidCancelEditWords(const TAVWordList &words) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Step = void (TAVFlashCardQuizController::*)();

    void localize();
    void connectControls();
    void addShortcuts();
    void executeShowStatistics();
    void executeRestartQuizWithWrong();
    void startAgain();

    /** A run has begun. */
    void showBeginning();
    void setQuestion();
    void flipSetQuestionAndReverseDirection(bool reverse);
    /** Runs the change of the card's content under a flip that pulses. */
    void flip(bool reverse, const std::function<void()> &change);
    /** What follows when the word on the card is done with: the next one, or the result. */
    void askNext();
    /** Pauses while the window is on another virtual desktop; back there, the card has its whole time. */
    void armAutoPlay(int seconds, Step step);
    void waitForReturn(int seconds, Step step);
    bool isAway() const;
    void takeMark(QAbstractButton *otherMark, std::chrono::milliseconds delay);
    /** Whether a focused button or slider has a better use for the key than the page. */
    static bool isKeyOfControl(const QEvent &event);
    void armShowNext(std::chrono::milliseconds delay);
    /** Brings colour, pictures and arrows of the level preview in step with the two marks. */
    void showMarks();
    void showPlayState();
    /** Only while the page is seen: elsewhere the keyboard is another's. */
    void takeFocus();
    CardMark mark() const;
    void showTexts();

    QuizView *m_view;
    std::unique_ptr<Ui::TAVFlashCardQuiz> m_ui;
    std::unique_ptr<TAVWordPopoverController> m_editor;
    FlashCardRestart *m_restartControls = nullptr;
    FlashCardRun m_run;
    bool m_isShowingSolution = false;
    /** The next word is chosen, but the card still shows the one before. */
    bool m_isQuestionComing = false;
    bool m_isAutoPlay = false;
    FlashCardPace m_pace;
    const KeyReleases *m_keyReleases;
    std::unique_ptr<platform::Timer> m_autoPlayTimer;
    std::unique_ptr<platform::Timer> m_showNextTimer;
};
