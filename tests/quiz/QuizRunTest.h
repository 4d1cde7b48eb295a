#pragma once

#include "app/ground/AppGround.h"
#include "quiz/ChangeRecorder.h"
#include "quiz/QuizRun.h"
#include "quiz/QuizWords.h"
#include "support/TestServices.h"

/** What a run works on, with a record of its changes. */
class QuizRunTest : public ServicesTest
{
protected:
    QuizRunTest()
    {
        AppGround::applicationSupportFolder();
        renew();
    }

    /** A vocabulary without words. */
    void renew()
    {
        m_words = QuizWords();
        m_recorder.current = m_words.vocabulary;
        m_quiz.setVocabulary(m_words.vocabulary);
    }
    /** Asks exactly these words, in this order. */
    void begin(QuizRun &run, const TAVWordList &words)
    {
        m_quiz.setWordsToAsk(words);
        m_quiz.mutableWordsToAsk() = words;
        run.begin();
        m_recorder.restart();
    }

    QuizWords m_words;
    ChangeRecorder m_recorder;
    VocabularyDocument m_document;
    TAVQuizInterface m_quiz;
};
