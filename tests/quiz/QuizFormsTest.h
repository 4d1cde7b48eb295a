#pragma once

#include "app/ground/AppGround.h"
#include "quiz/ChangeRecorder.h"
#include "quiz/QuizWords.h"
#include "quiz/forms/QuizForm.h"
#include "quiz/forms/TAVQuizSetupController.h"
#include "quiz/forms/TAVTypingQuizController.h"
#include "support/GuiTest.h"
#include "usage/RatingPrompt.h"

#include <QLabel>
#include <QTest>
#include <QtTest/qtestspontaneevent.h>

/** Also the events for the rating prompt. */
class Recorder : public ChangeRecorder, public RatingPrompt
{
public:
    Recorder() { RatingPrompt::setShared(this); }
    ~Recorder() override { RatingPrompt::setShared(nullptr); }

    void logEvent(int count) override { calls.append(QStringLiteral("event %1").arg(count)); }
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
    /** As the windowing system sends it, at that time. */
    void sendKey(QEvent::Type type, int keyCode, quint64 time)
    {
        QKeyEvent event(type, keyCode, Qt::NoModifier, QStringLiteral("\r"));
        event.setTimestamp(time);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(QApplication::focusWidget(), &event);
    }
    void pressReturn(bool held = false) { key(Qt::Key_Return, held); }
    /** Lets the delay of a button and the flip behind it pass. */
    void pass()
    {
        services.clock.advanceSeconds(1.2);
        processEvents();
    }
    /** Makes the form ready to ask exactly these words, in this order. */
    void prepare(QuizForm &form, const TAVWordList &words, AskDirection direction = {true, false})
    {
        form.setVocabulary(m_words.vocabulary);
        form.setWordsToAsk(words);
        form.mutableWordsToAsk() = words;
        form.setAskForForeignWord(direction.foreignWord);
        form.setAskForYourWord(direction.yourWord);
    }
    /** Asks them in the typing quiz. */
    void start(const TAVWordList &words, AskDirection direction = {true, false})
    {
        m_setup.showQuiz();
        m_setup.startQuiz();
        prepare(m_typing, words, direction);
        pass();
        m_recorder.restart();
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
    /** The text of a label; empty if it doesn't show. */
    static QString text(QWidget *root, const char *name)
    {
        const auto *label = findControl<QLabel>(root, name);
        return label->isVisible() ? label->text() : QString();
    }
    /** The keyboards of the two languages are "us" for the foreign one and "de"; the user types with "fr". */
    void addKeyboards()
    {
        services.inputSources.current = services.inputSources.add(QStringLiteral("fr"));
        services.inputSources.add(QStringLiteral("us"));
        services.inputSources.add(QStringLiteral("de"));
        m_words.vocabulary->setForeignTextInputSourceId(QStringLiteral("us"));
        m_words.vocabulary->setYourTextInputSourceId(QStringLiteral("de"));
    }
    QString keyboard()
    {
        const auto &current = services.inputSources.current;
        return current ? current->id : QString();
    }
    bool hasFocus(QuizView::Page page, const char *name) { return on<QWidget>(page, name)->hasFocus(); }

    QuizWords m_words;
    Recorder m_recorder;
    VocabularyDocument m_document;
    QuizView m_view;
    TAVTypingQuizController m_typing{&m_view, m_document};
    TAVQuizSetupController m_setup{&m_view, &m_recorder};
};
