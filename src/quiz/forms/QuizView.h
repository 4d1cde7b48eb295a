#pragma once

#include "quiz/forms/DelayedSteps.h"

#include <QWidget>

#include <optional>

class CardFlip;
class PopupLine;
class QLabel;
class QStackedWidget;
class QuizResultPage;
class TAVCardView;
class TAVProgressBar;
struct RunProgress;

/**
 * The content of the quiz tab: one card with five pages, and below it the progress of the run. The
 * controllers of the pages fill them in; they share the card and its flip.
 */
class QuizView : public QWidget
{
    Q_OBJECT

public:
    enum Page { typingQuizPage, setupPage, resultPage, popupQuizPage, flashCardPage, pageCount };

    explicit QuizView(QWidget *parent = nullptr);

    TAVCardView *card() const { return m_card; }
    CardFlip *flip() const { return m_flip; }
    /** The pages, by their numbers; its currentChanged tells when one is left. */
    QStackedWidget *tabView() const { return m_tabView; }
    QWidget *page(Page page) const;
    Page currentPage() const;
    void showPage(Page page);
    /** The steps of all forms, as only one of them is in front at a time. */
    DelayedSteps &steps() { return m_steps; }
    /** The result page, shared by the forms that have none of their own. */
    QuizResultPage *result() const { return m_result; }

    QLabel *statusText() const { return m_statusText; }
    TAVProgressBar *progressIndicator() const { return m_progressIndicator; }
    /** The line "question so and so of so many", and the bar beside it. */
    void showProgress(const RunProgress &progress);
    /** The whole band below the card; it keeps its place when hidden, so that the card doesn't move. */
    void setProgressVisible(bool visible);
    /** How far the popup quiz has come that goes on beside this tab; absent when none does. */
    void setPopupProgress(const std::optional<RunProgress> &progress);

signals:
    /** The user wants to end the popup quiz. */
    void popupEndChosen();

private:
    QWidget *makeBand();
    void updatePopupLine();

    TAVCardView *m_card = nullptr;
    CardFlip *m_flip = nullptr;
    QStackedWidget *m_tabView = nullptr;
    QuizResultPage *m_result = nullptr;
    QWidget *m_band = nullptr;
    PopupLine *m_popupLine = nullptr;
    bool m_isPopupRunning = false;
    DelayedSteps m_steps;
    QLabel *m_statusText = nullptr;
    TAVProgressBar *m_progressIndicator = nullptr;
};
