#pragma once

#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "quiz/AnswerJudge.h"
#include "quiz/forms/QuizForm.h"
#include "quiz/forms/QuizHub.h"
#include "views/editor/TAVLanguageTextField.h"
#include "views/editor/TAVWordPopoverDelegate.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <memory>

class QMouseEvent;
class QWidget;
class TAVWordPopoverController;
class VocabularyDocument;

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
    /** View and hub must outlive the controller. Close: what brings the setup page back. */
    TAVPopupQuizController(QuizView *view, VocabularyDocument &document, QuizHub *hub,
                           std::function<void()> showSetup);
    ~TAVPopupQuizController() override;

    void startQuiz() override;
    QuizView::Page page() const override { return QuizView::popupQuizPage; }

    /** Brings up the next question, or the result when all are answered. */
    void showQuiz();
    void checkWord();
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

    QWidget *quizWindow() const { return m_window.get(); }
    const AnswerJudge &judge() const { return m_judge; }
    const TAVWordRef &currentWord() const { return m_currentWord; }
    int questionIntervalMinutes() const { return m_questionIntervalMinutes; }

    void wordPopoverDidEditWords(const TAVWordList &words) override;
    void wordPopoverDidDeleteWords(const TAVWordList &words) override;
    void wordPopoverDidCancelEditWords(const TAVWordList &words) override;
    void languageTextFieldDidBecomeActive(TAVLanguageTextField *field) override;
    void languageTextFieldDidLoseFocus(TAVLanguageTextField *) override {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum Tab { questionTab, answerTab, resultTab };

    void localize();
    void connectControls();
    void restoreSettings();
    void setQuestion();
    void showVerdict(Verdict verdict, const QString &answer);
    void showLevels(quint64 lower, quint64 upper, bool rises, bool moves);
    void showVerdictLevels();
    void showLastTexts();
    void takeCheckBoxes();
    /** Writes an answer that was judged and isn't in the file yet. */
    void savePendingAnswer();
    void hidePanel();
    void placePanel();
    void movePanel(const QPoint &position);
    void windowDidMove();
    void windowWillClose();
    void endRun();
    void drag(const QMouseEvent &event);
    void armTimer();

    QuizView *m_view;
    QuizHub *m_hub;
    std::function<void()> m_showSetup;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<Ui::PopupQuiz> m_ui;
    std::unique_ptr<Ui::PopupQuizRunning> m_running;
    std::unique_ptr<TAVWordPopoverController> m_editor;
    AnswerJudge m_judge;
    TAVWordRef m_currentWord;
    quint64 m_currentWordOriginLevel = 0;
    Verdict m_lastVerdict = Verdict::correct;
    bool m_lastAskedForeign = true;
    bool m_isRunning = false;
    bool m_hasPendingAnswer = false;
    bool m_hasCreatedCorrectWordsToAsk = false;
    int m_questionIntervalMinutes = 5;
    std::unique_ptr<platform::Timer> m_timer;
    std::unique_ptr<platform::Timer> m_shakeTimer;
    int m_shakeStep = 0;
    bool m_ignoreWindowMove = true;
    double m_windowXPos = 20.0;
    double m_windowYPos = 20.0;
    QPoint m_dragStart;
    bool m_isDragging = false;
    platform::Desktop::Application m_oldApp = 0;
};
