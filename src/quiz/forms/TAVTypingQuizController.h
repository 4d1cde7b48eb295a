#pragma once

#include "quiz/TypingRun.h"
#include "quiz/forms/QuizForm.h"
#include "views/editor/TAVLanguageTextField.h"
#include "views/editor/TAVWordPopoverDelegate.h"

#include <QObject>
#include <QPointer>

#include <memory>

class HeldKeys;
class QuizView;
class TAVWordPopoverController;
class TypedCard;

namespace Ui {
class TAVTypingQuiz;
}

/**
 * The quiz in which answers are typed. One step judges the answer, shows the verdict on the left half of the
 * card, and brings up the next question on the right half, under one flip.
 */
class TAVTypingQuizController : public QObject,
                                public QuizForm,
                                public TAVWordPopoverDelegate,
                                public OHLanguageTextFieldDelegate
{
    Q_OBJECT

public:
    /** Neither is owned. The view may go first when the program ends. */
    TAVTypingQuizController(QuizView *view, VocabularyDocument &document);
    ~TAVTypingQuizController() override;

    void startQuiz() override;
    QuizView::Page page() const override { return QuizView::typingQuizPage; }

    /** Each waits a moment, so that the pressed button is seen, and then does its execute operation. */
    void next();
    void showStatistics();
    void restartQuizWithWrong();
    /** Shows what the user's overrule will do; it takes effect when the run moves on. */
    void iKnewIt();
    /** Opens the word editor for the word on the left half. */
    void editLastWord();
    void closeAddWordPopover();
    /** Lets the four help overlays come once more. */
    static void resetQuizHelp();

    const TAVWordRef &lastWord() const { return m_run.lastWord(); }
    /** The word being asked; absent after the last one. */
    const TAVWordRef &nextWord() const { return m_run.askedWord(); }
    const TypingRun &run() const { return m_run; }

    /** The keyboard may have been switched elsewhere meanwhile. */
    void languageTextFieldDidBecomeActive(TAVLanguageTextField *field) override;
    void languageTextFieldDidLoseFocus(TAVLanguageTextField *) override {}
    void wordPopoverDidEditWords(const TAVWordList &words) override;
    void wordPopoverDidDeleteWords(const TAVWordList &words) override;
    void wordPopoverDidCancelEditWords(const TAVWordList &words) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void localize();
    void connectControls();
    /** Runs the step after the delay of a button. */
    void schedule(void (TAVTypingQuizController::*step)());
    void executeNext();
    void executeShowStatistics();
    void executeRestartQuizWithWrong();

    /** A run has begun. */
    void showBeginning();
    void setQuestion();
    void clearLeftHalf();
    void showQuestionControls(bool visible);
    void showVerdict(Verdict verdict, const QString &answer);
    void showMark(Verdict verdict);
    void showLeftHelp(Verdict verdict);
    void closeEditor();
    bool isSeen() const;
    /** Only while the page is seen: elsewhere the keyboard is another's. */
    void focusWhatComesNext();
    static void setControl(QWidget *control, bool enableAndShow);

    QPointer<QuizView> m_view;
    std::unique_ptr<Ui::TAVTypingQuiz> m_ui;
    std::unique_ptr<TAVWordPopoverController> m_editor;
    TypingRun m_run;
    std::unique_ptr<TypedCard> m_card;
    HeldKeys *m_heldKeys = nullptr;
};
