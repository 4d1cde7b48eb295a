#pragma once

#include "app/ground/AppGround.h"
#include "document/VocabularyDocument.h"
#include "quiz/QuizWords.h"
#include "quiz/forms/QuizView.h"
#include "quiz/forms/TAVQuizSetupController.h"
#include "quiz/forms/TAVTypingQuizController.h"
#include "storage/TAVStorageManager.h"
#include "support/GuiTest.h"
#include "sync/DropBoxController.h"
#include "usage/RatingPrompt.h"

#include <QFile>

/** Writes down what is called, and whether the vocabulary's file was there by then. */
class Recorder : public DropBoxController, public RatingPrompt, public VocabularySource
{
public:
    Recorder()
    {
        DropBoxController::setSharedManager(this);
        RatingPrompt::setShared(this);
    }
    ~Recorder() override
    {
        DropBoxController::setSharedManager(nullptr);
        RatingPrompt::setShared(nullptr);
    }

    TAVLexiconRef vocabulary() const override { return current; }
    void markFileAsNeedsSync(const TAVLexicon &vocabulary) override
    {
        calls.append(QLatin1String(vocabulary.needsSync() ? "flagged, mark" : "mark") + savedText());
    }
    void syncWithDropbox() override { calls.append(QLatin1String("sync") + savedText()); }
    void logEvent(int count) override { calls.append(QStringLiteral("event %1").arg(count)); }

    QString path() const { return TAVStorageManager::savePathForVocabulary(*current); }
    QString savedText() const { return QLatin1String(QFile::exists(path()) ? ", saved" : ""); }
    /** Forgets the calls and the file. */
    void restart()
    {
        calls.clear();
        QFile::remove(path());
        current->setNeedsSync(false);
    }

    TAVLexiconRef current;
    QStringList calls;
};

/** The quiz tab in a window of the smallest size, with the clock in the test's hand. */
class QuizFormsTest : public ServicesTest
{
protected:
    QuizFormsTest()
    {
        m_recorder.current = m_words.vocabulary;
        AppGround::applicationSupportFolder();
        m_view.resize(800, 540);
        m_view.show();
        m_view.activateWindow();
        processEvents();
        m_setup.setQuizController(&m_typing);
    }

    void key(int keyCode, bool held = false)
    {
        QWidget *focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        QKeyEvent press(QEvent::KeyPress, keyCode, Qt::NoModifier, QStringLiteral("\r"), held);
        QApplication::sendEvent(focused, &press);
        QKeyEvent release(QEvent::KeyRelease, keyCode, Qt::NoModifier, QStringLiteral("\r"), held);
        QApplication::sendEvent(focused, &release);
    }
    void pressReturn(bool held = false) { key(Qt::Key_Return, held); }
    /** Lets the delay of a button and the flip behind it pass. */
    void pass()
    {
        services.clock.advanceSeconds(1.2);
        processEvents();
    }
    /** Asks exactly these words, in this order. */
    void start(const TAVWordList &words, AskDirection direction = {true, false})
    {
        m_setup.showQuiz();
        m_setup.startQuiz();
        m_typing.setWordsToAsk(words);
        m_typing.mutableWordsToAsk() = words;
        m_typing.setAskForForeignWord(direction.foreignWord);
        m_typing.setAskForYourWord(direction.yourWord);
        pass();
    }
    void type(const char *text) { QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text)); }
    void answer(const char *text)
    {
        type(text);
        pressReturn();
        pass();
    }
    template <typename Control> Control *on(QuizView::Page page, const char *name)
    {
        return findControl<Control>(m_view.page(page), name);
    }
    template <typename Control> Control *onCard(const char *name)
    {
        return on<Control>(QuizView::typingQuizPage, name);
    }
    bool hasFocus(QuizView::Page page, const char *name) { return on<QWidget>(page, name)->hasFocus(); }

    QuizWords m_words;
    Recorder m_recorder;
    VocabularyDocument m_document;
    QuizView m_view;
    TAVTypingQuizController m_typing{&m_view, m_document};
    TAVQuizSetupController m_setup{&m_view, &m_recorder};
};
