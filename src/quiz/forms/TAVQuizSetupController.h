#pragma once

#include "document/Page.h"
#include "quiz/AskDirection.h"
#include "quiz/QuizChoice.h"
#include "quiz/forms/QuizView.h"

#include <QDateTime>
#include <QObject>

#include <array>
#include <memory>

class InfoPanels;
class LevelButton;
class QAbstractButton;
class QLabel;
class QuizForm;

namespace Ui {
class TAVQuizSetup;
}

/**
 * The page on which the user chooses a quiz: the form, the levels, the direction, the tags, how many words.
 * It checks the choice, lets the form select its words, and starts it.
 */
class TAVQuizSetupController : public QObject, public Page
{
    Q_OBJECT

public:
    /** Nothing is owned; view and source must outlive the controller. */
    TAVQuizSetupController(QuizView *view, const VocabularySource *vocabularyController);
    ~TAVQuizSetupController() override;

    /** The forms, by the segment that chooses them. A segment without a form can't be chosen. Not owned. */
    void setQuizController(QuizForm *form) { setForm(0, form); }
    void setLearnController(QuizForm *form) { setForm(1, form); }
    void setPopupQuizController(QuizForm *form) { setForm(2, form); }

    /** Two or more words are asked exactly as they are, until a level is changed by hand. */
    void setPreSelectedWords(const TAVWordList &words) { m_preSelectedWords = words; }
    const TAVWordList &preSelectedWords() const { return m_preSelectedWords; }

    /** Builds the page anew. The main window calls it twice when the tab is opened. */
    void showQuiz();
    /** Counts anew, for instance after a sync. */
    void quizListsToAskChanged() { quizListsToAskChanged(nullptr); }
    /** The same for a click on a level button, which is dimmed by its state. */
    void quizListsToAskChanged(QAbstractButton *sender);

    QWidget *page() override { return m_view; }
    void willEnter(const TAVWordList &selectedWords) override { setPreSelectedWords(selectedWords); }
    void enter(const TAVLexiconRef &) override { showQuiz(); }
    void layoutDone() override { showQuiz(); }
    void syncEnded() override { quizListsToAskChanged(); }

    void setAskDirection();
    void updateErrorLabel();
    void startQuiz();
    bool isUserSetupOK();
    /** The announcement and the prompt of this page. */
    InfoPanels *infoPanels() const { return m_infoPanels.get(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static constexpr int numberOfForms = 3;
    using LevelCounts = std::array<qint64, TAVLexicon::numberOfLevels>;

    void localize();
    void connectControls();
    void setForm(int mode, QuizForm *form);
    void showDirections();
    LevelCounts countOverDue() const;
    void showCounts(const LevelCounts &counts);
    void takeCounts(const LevelCounts &counts);
    void showPreSelectedWords();
    void setNumberOfWords(qint64 number);
    void updateNumberOfDueLabelsState();
    void tidyTags();
    QStringList completionsForSubstring(const QString &substring) const;
    TAVTextSet chosenTags() const;
    bool mustHaveAllTags() const;
    QuizChoice choice() const;
    void showSummary();
    QString plan() const;
    QuizForm *chosenForm() const;
    void fillOptions(QuizForm &form) const;
    void startForm(QuizForm *form);
    /** Gives the start button the keyboard if this page is seen and nothing on it has it. */
    void takeFocus();
    bool isSecondCallOfOpening() const;
    bool isSelectionAsked() const { return m_preSelectedWords.size() >= 2; }

    QuizView *m_view;
    const VocabularySource *m_vocabularyController;
    std::unique_ptr<Ui::TAVQuizSetup> m_ui;
    std::unique_ptr<InfoPanels> m_infoPanels;
    std::array<LevelButton *, TAVLexicon::numberOfLevels> m_levelButtons = {};
    std::array<QLabel *, TAVLexicon::numberOfLevels> m_dueLabels = {};
    std::array<QuizForm *, numberOfForms> m_forms = {};
    AskDirection m_direction;
    TAVWordList m_preSelectedWords;
    /** In the levels that are on, as of the last count. */
    qint64 m_totalNumberOfWordsOverDue = 0;
    /** In all levels. */
    qint64 m_allWordsOverDue = 0;
    QDateTime m_openedAt;
    bool m_hasStartedSinceOpening = false;
    bool m_isStarting = false;
};
