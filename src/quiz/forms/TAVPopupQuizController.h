#pragma once

#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "quiz/PopupRun.h"
#include "quiz/forms/QuizForm.h"
#include "quiz/forms/QuizHub.h"
#include "views/editor/TAVLanguageTextField.h"
#include "views/editor/TAVWordPopoverDelegate.h"

#include <QObject>

#include <functional>
#include <memory>

class PopupPanel;
class TAVWordPopoverController;
class TypedCard;

namespace Ui {
class PopupQuiz;
class PopupQuizRunning;
} // namespace Ui

/**
 * Asks words while the user works in other programs: a small panel comes up in front of everything, asks one
 * word, gets out of the way, and comes back some minutes later. Meanwhile the main window is locked.
 */
class TAVPopupQuizController : public QObject,
                               public QuizForm,
                               public TAVWordPopoverDelegate,
                               public OHLanguageTextFieldDelegate
{
    Q_OBJECT

public:
    /** Document, view and hub must outlive the controller. showSetup brings the setup page back. */
    TAVPopupQuizController(QuizView *view, VocabularyDocument &document, QuizHub *hub,
                           std::function<void()> showSetup);
    ~TAVPopupQuizController() override;

    void leaveRun() override;
    void startQuiz() override;
    QuizView::Page page() const override { return QuizView::popupQuizPage; }

    /** Brings up the next question, or the result when all are answered. */
    void showQuiz();
    void checkWord();
    /** Puts the panel out of sight without an answer; the same question comes again after the wait. */
    void later();
    /** Books the answer, puts the panel out of sight, and waits. */
    void next();
    void iKnewIt();
    void showStatistics();
    /** Ends the run early. */
    void stopQuiz();
    /** Leaves the result page. */
    void close();
    /** Minutes, 1 to 100; any other value is refused. */
    void updateInterval(int minutes);
    void shakeWindow();
    void bringWindowToFront();
    void editLastWord();
    void closeAddWordPopover();

    QWidget *quizWindow() const;
    const PopupRun &run() const { return m_run; }
    const TAVWordRef &currentWord() const { return m_run.currentWord(); }
    int questionIntervalMinutes() const { return m_questionIntervalMinutes; }

    void wordPopoverDidEditWords(const TAVWordList &words) override;
    void wordPopoverDidDeleteWords(const TAVWordList &words) override;
    void wordPopoverDidCancelEditWords(const TAVWordList &words) override;
    void languageTextFieldDidBecomeActive(TAVLanguageTextField *field) override;
    void languageTextFieldDidLoseFocus(TAVLanguageTextField *) override {}

private:
    enum Tab { questionTab, answerTab, resultTab };

    void localize();
    void connectControls();
    void restoreInterval();
    void setQuestion();
    void showVerdict(Verdict verdict, const QString &answer);
    void savePendingAnswer();
    void hidePanel();
    /** Ends the run without its result; the answer on the screen is saved. */
    void endRun();
    void windowWillClose();
    /** The run is over, however it ended. */
    void unlock();
    void armTimer();
    /** Lets the user who is typing elsewhere come to an end, as far as that can be told, then shows the
     * panel. */
    void showQuizWhenIdle(std::chrono::milliseconds waited);
    /** What next() and later() have in common: out of sight until the timer brings the panel again. */
    void putAway();
    void leavePage();
    void showProgress();

    QuizView *m_view;
    QuizHub *m_hub;
    std::function<void()> m_showSetup;
    std::unique_ptr<PopupPanel> m_window;
    std::unique_ptr<Ui::PopupQuiz> m_ui;
    std::unique_ptr<Ui::PopupQuizRunning> m_running;
    std::unique_ptr<TAVWordPopoverController> m_editor;
    PopupRun m_run;
    std::unique_ptr<TypedCard> m_card;
    int m_questionIntervalMinutes = 5;
    std::unique_ptr<platform::Timer> m_timer;
    platform::Desktop::Application m_oldApp = 0;
};
