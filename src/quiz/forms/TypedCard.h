#pragma once

#include "platform/InputSources.h"
#include "quiz/TypedRun.h"

#include <QObject>

#include <optional>

class QCheckBox;
class QLabel;
class QPushButton;
class TAVCardView;
class TAVLanguageTextField;
class WordLabel;

/**
 * What the typing quiz and the popup quiz show alike of their runs: the question, the verdict, and the boxes
 * with which the user decides about it. What only one of the two has stays in its controller.
 */
class TypedCard : public QObject
{
public:
    /** Not owned. Both forms name their controls alike. */
    struct Controls
    {
        WordLabel *question;
        WordLabel *questionComment;
        QLabel *questionLevel;
        TAVLanguageTextField *answer;
        WordLabel *lastQuestion;
        WordLabel *userAnswer;
        WordLabel *correctAnswer;
        WordLabel *comment;
        QLabel *lowerLevel;
        QLabel *upperLevel;
        QLabel *levelArrow;
        QLabel *deleted;
        QCheckBox *knewIt;
        QCheckBox *dontAskAgain;

        template <typename Form> static Controls of(const Form &form)
        {
            return {
                form.questionTextField,         form.questionCommentTextField, form.questionLevelImageView,
                form.answerTextField,           form.lastQuestionTextField,    form.userAnswerTextField,
                form.correctAnswerTextField,    form.commentTextField,         form.answerLowerLevelImageView,
                form.answerUpperLevelImageView, form.answerArrowImageView,     form.deletedImageView,
                form.iKnewItCheckBox,           form.dontAskAgainCheckBox};
        }
    };

    /** Run, card and controls are not owned. Once one of them is gone, nothing may be called any more. */
    TypedCard(TypedRun &run, TAVCardView *card, const Controls &controls);

    /** The asked word, with an empty field for its answer. */
    void showQuestion();
    /** Of the answer that was judged last. */
    void showVerdict(const QString &answer);
    /** The texts of the word that was judged last, by the direction of the question asked last. */
    void showLastTexts();
    /** Colour and levels, by the verdict or by what the user says to have known. */
    void showStanding();
    void showDeleted();
    /** Whether the answer is shown beside the verdict; a wrong one that is none isn't. */
    static bool showsAnswer(Verdict verdict, const QString &answer);
    void uncheckBoxes();
    /** Switches the keyboard to the language of the answer, if the user wants that. */
    void selectInputSourceOfAnswer();
    /** Switches it back to what it was before, if it was switched. */
    void giveInputSourceBack();

private:
    TypedRun &m_run;
    TAVCardView *m_card;
    Controls m_controls;
    /** Before the first switch; it may be one that can't be told. */
    std::optional<platform::InputSourceRef> m_inputSourceBackup;
};
