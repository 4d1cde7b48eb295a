#pragma once

#include "app/AppDelegate.h"

#include "quiz/forms/QuizView.h"
#include "quiz/forms/TAVFlashCardQuizController.h"
#include "quiz/forms/TAVPopupQuizController.h"
#include "quiz/forms/TAVQuizSetupController.h"
#include "quiz/forms/TAVTypingQuizController.h"
#include "views/TAVMainWindowController.h"

#include <QObject>
#include <QPointer>

class VocabularyDocument;

/** The main window with all its pages, built from their parts and tied to the entry object. */
class Program : public QObject, public MainWindowLink
{
    Q_OBJECT

public:
    /** Both must outlive this object. */
    Program(AppDelegate &delegate, VocabularyDocument &document);
    ~Program() override;

    /** Loads the language, or shows the first-start page. */
    void awakeFromNib();
    /** The program was started once more: brings its window to the front, and up to date. */
    void reopen(const QByteArray &activationToken);

    void applicationDidFinishLaunching() override;
    void updateViews() override;

    TAVMainWindowController &mainWindowController() { return m_mainWindowController; }
    TAVTypingQuizController &typingQuiz() { return m_typingQuiz; }
    TAVFlashCardQuizController &flashCardQuiz() { return m_flashCardQuiz; }
    TAVPopupQuizController &popupQuiz() { return m_popupQuiz; }
    TAVQuizSetupController &quizSetup() { return m_quizSetup; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void bringToFront(QWidget *window);

    AppDelegate &m_delegate;
    TAVMainWindowController m_mainWindowController;
    /** Belongs to the window once that has taken it over. */
    QPointer<QuizView> m_quizView;
    TAVTypingQuizController m_typingQuiz;
    TAVFlashCardQuizController m_flashCardQuiz;
    TAVPopupQuizController m_popupQuiz;
    TAVQuizSetupController m_quizSetup;
};
