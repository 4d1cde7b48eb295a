#include "quiz/QuizFormsTest.h"

#include "platform/Texts.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/WordLabel.h"
#include "widgets/ArrowPopup.h"
#include "widgets/CardFlip.h"
#include "widgets/TAVCardView.h"
#include "widgets/TAVProgressBar.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

constexpr auto card = QuizView::typingQuizPage;
constexpr auto result = QuizView::resultPage;

class TypingQuizTest : public QuizFormsTest
{
protected:
    QString onCardText(const char *name) { return text(m_view.page(card), name); }
};

TEST_F(TypingQuizTest, ARunByKeyboardFromTheFirstQuestionToTheRestart)
{
    const TAVWordRef a = m_words.add("Hund", "dog", 2);
    const TAVWordRef b = m_words.add("Katze", "cat", 2);
    const TAVWordRef c = m_words.add("Maus", "mouse", 2);
    start({a, b, c});
    EXPECT_EQ(m_view.currentPage(), card);
    EXPECT_TRUE(hasFocus(card, "answerTextField"));
    EXPECT_EQ(m_typing.lastWord(), a);
    EXPECT_EQ(onCardText("questionTextField"), QStringLiteral("Hund"));
    EXPECT_EQ(m_view.statusText()->text(), QStringLiteral("1 of 3"));

    answer("dogg");
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
    EXPECT_EQ(onCardText("correctAnswerTextField"), QStringLiteral("dog"));
    EXPECT_EQ(onCardText("userAnswerTextField"), QStringLiteral("dogg"));
    EXPECT_EQ(onCardText("questionTextField"), QStringLiteral("Katze"));
    EXPECT_TRUE(hasFocus(card, "answerTextField"));
    answer("");
    EXPECT_EQ(onCardText("userAnswerTextField"), QString());
    EXPECT_EQ(m_view.progressIndicator()->progress(), 3);
    answer("mouse");
    EXPECT_EQ(m_view.progressIndicator()->correct(), 1);
    EXPECT_EQ(onCardText("correctAnswerTextField"), QString());
    EXPECT_TRUE(onCard<QLineEdit>("answerTextField")->isHidden());
    EXPECT_TRUE(hasFocus(card, "showStatisticsButton"));

    m_recorder.restart();
    pressReturn();
    pass();
    EXPECT_EQ(m_recorder.take(), QStringLiteral("mark; sync, saved; event 1, saved"));
    EXPECT_EQ(m_view.currentPage(), result);
    for (const char *count : {"statisticsCorrect", "statisticsMissspelled", "statisticsWrong"})
        EXPECT_EQ(text(m_view.page(result), count), QStringLiteral("1 / 3"));
    EXPECT_TRUE(hasFocus(result, "restartWithWrongButton"));

    pressReturn();
    pass();
    EXPECT_EQ(m_view.currentPage(), card);
    EXPECT_EQ(m_typing.wordsToAsk(), (TAVWordList{a, b}));
    EXPECT_EQ(m_view.statusText()->text(), QStringLiteral("1 of 2"));
    EXPECT_TRUE(m_view.statusText()->isVisible());
    EXPECT_TRUE(onCard<QPushButton>("editButton")->isHidden());
    EXPECT_TRUE(hasFocus(card, "answerTextField"));
}

TEST_F(TypingQuizTest, ReturnDoesNothingWhileItIsHeldOrAStepIsPending)
{
    start({m_words.add("Hund", "dog", 3), m_words.add("Katze", "cat", 3), m_words.add("Maus", "mouse", 3)});
    for (const char *focused : {"answerTextField", "nextButton"}) {
        onCard<QWidget>(focused)->setFocus();
        pressReturn(true);
        pass();
        EXPECT_EQ(m_typing.run().numberOfAnswers(), 0);
    }
    onCard<QLineEdit>("answerTextField")->setFocus();

    for (int i = 0; i < 3; ++i)
        pressReturn();
    pass();
    EXPECT_EQ(m_typing.run().numberOfWrong(), 1);
    // Clicks count each by itself; the third finds no word any more.
    for (int i = 0; i < 3; ++i)
        onCard<QPushButton>("nextButton")->click();
    pass();
    EXPECT_EQ(m_typing.run().numberOfWrong(), 3);
    pressReturn(true);
    pass();
    EXPECT_EQ(m_view.currentPage(), card);
    pressReturn();
    pressReturn();
    pass();
    EXPECT_EQ(m_recorder.calls.count(QStringLiteral("event 1")), 1);
    pressReturn(true);
    pass();
    EXPECT_EQ(m_view.currentPage(), result);
}

TEST_F(TypingQuizTest, RepeatsThatComeAsReleasesAndPressesAnswerNothing)
{
    const struct
    {
        bool repeatsArePresses;
        int released;
        quint64 releaseTime;
        quint64 pressTime;
        bool answers;
    } cases[] = {{true, Qt::Key_Return, 5000, 5000, false},
                 {true, Qt::Key_Return, 5000, 5030, true},
                 {true, Qt::Key_Return, 0, 0, true},
                 {true, Qt::Key_Enter, 5000, 5000, true},
                 {false, Qt::Key_Return, 5000, 5000, true}};
    for (const auto &c : cases) {
        start({m_words.add("Hund", "dog", 3), m_words.add("Katze", "cat", 3)});
        services.desktop.repeatsArePresses = c.repeatsArePresses;
        sendKey(QEvent::KeyRelease, c.released, c.releaseTime);
        sendKey(QEvent::KeyPress, Qt::Key_Return, c.pressTime);
        pass();
        EXPECT_EQ(m_typing.run().numberOfAnswers(), c.answers) << c.releaseTime << ' ' << c.pressTime;
    }

    // A finger that rests on the key at the last question ends neither on the result page nor in a new run.
    start({m_words.add("Hund", "dog", 3)});
    services.desktop.repeatsArePresses = true;
    sendKey(QEvent::KeyPress, Qt::Key_Return, 6000);
    for (quint64 time = 6500; time < 10000; time += 33) {
        services.clock.advance(std::chrono::milliseconds(33));
        sendKey(QEvent::KeyRelease, Qt::Key_Return, time);
        sendKey(QEvent::KeyPress, Qt::Key_Return, time);
    }
    EXPECT_EQ(m_typing.run().numberOfAnswers(), 1);
    EXPECT_EQ(m_view.currentPage(), card);
}

TEST_F(TypingQuizTest, WhatIsTypedWhileAStepIsPendingBelongsToTheNextAnswer)
{
    const auto startThree = [this] {
        start({m_words.add("Hund", "dog", 3), m_words.add("Katze", "cat", 3), m_words.add("Maus", "mouse")});
    };
    auto *field = onCard<QLineEdit>("answerTextField");
    startThree();
    type("dog");
    pressReturn();
    type("cax");
    key(Qt::Key_Backspace);
    type("t");
    EXPECT_EQ(field->text(), QStringLiteral("dog"));
    pass();
    EXPECT_EQ(field->text(), QStringLiteral("cat"));
    answer("");
    EXPECT_EQ(m_typing.run().numberOfCorrect(), 2);

    // A second press comes before the first has brought the next question.
    startThree();
    type("dog");
    m_typing.next();
    type("cat");
    m_typing.next();
    pass();
    EXPECT_EQ(m_typing.run().numberOfCorrect(), 2);

    const std::function<void()> interruptions[] = {
        [this] { onCard<QWidget>("nextButton")->setFocus(); },
        [this] { m_setup.showQuiz(); },
        [this] { m_view.close(); },
        [this] { services.alerts.show({}); },
        [this] {
            services.alerts.whileShown = [this] { type("x"); };
            services.alerts.show({});
        },
    };
    for (const auto &interruption : interruptions) {
        startThree();
        type("dog");
        pressReturn();
        type("ca");
        interruption();
        pass();
        EXPECT_EQ(m_typing.run().numberOfCorrect(), 1);
        EXPECT_EQ(field->text(), QString());
        m_view.show();
        m_view.activateWindow();
        processEvents();
    }

    // The last step brings no question.
    start({m_words.add("Hund", "dog", 3)});
    pressReturn();
    type("x");
    pass();
    pressReturn();
    pass();
    pressReturn();
    pass();
    ASSERT_EQ(m_typing.nextWord()->foreignWord(), QStringLiteral("dog"));
    pressReturn();
    pass();
    EXPECT_EQ(onCardText("userAnswerTextField"), QString());
}

TEST_F(TypingQuizTest, DecisionsShowAtOnceAndTakeEffectWhenTheRunMovesOn)
{
    const TAVWordRef a = m_words.add("Hund", "dog", 3);
    const TAVWordRef b = m_words.add("Katze", "cat", 5);
    start({a, b});
    answer("dgo");
    auto *knewIt = onCard<QCheckBox>("iKnewItCheckBox");
    for (const bool isOn : {true, false, true}) {
        QTest::mouseClick(knewIt, Qt::LeftButton);
        EXPECT_EQ(m_view.card()->leftStartColor() == QColor::fromRgbF(0.8f, 0.91f, 0.86f), isOn);
        EXPECT_EQ(onCard<QLabel>("answerUpperLevelImageView")->isVisible(), isOn);
        EXPECT_EQ(onCard<QLabel>("answerArrowImageView")->isVisible(), isOn);
        EXPECT_EQ(
            onCardText("cardLeftHelpText"),
            platform::localized("Quiz", isOn ? "quizCorrectAnswerHelpText" : "quizMisspelledAnswerHelpText"));
    }
    EXPECT_EQ(a->level(), 3);
    onCard<QLineEdit>("answerTextField")->setFocus();
    answer("cat");
    EXPECT_EQ(a->level(), 4);
    EXPECT_FALSE(knewIt->isChecked());
    QTest::mouseClick(onCard<QCheckBox>("dontAskAgainCheckBox"), Qt::LeftButton);
    EXPECT_FALSE(b->dontAskAgain());
    onCard<QPushButton>("showStatisticsButton")->setFocus();
    pressReturn();
    pass();
    EXPECT_TRUE(b->dontAskAgain());
    EXPECT_EQ(text(m_view.page(result), "statisticsCorrect"), QStringLiteral("2 / 2"));
    EXPECT_TRUE(on<QPushButton>(result, "restartWithWrongButton")->isHidden());
    EXPECT_TRUE(hasFocus(result, "newQuizButton"));
    pressReturn();
    pass();
    EXPECT_EQ(m_view.currentPage(), QuizView::setupPage);
}

TEST_F(TypingQuizTest, WhatAVerdictShows)
{
    const struct
    {
        const char *answer;
        quint64 level;
        bool offersDontAsk;
        const char *helpKey;
    } cases[] = {
        {"dog", 4, false, "hasShownQuizHelpCorrectAnswer"},    {"dog", 5, true, nullptr},
        {"dgo", 2, false, "hasShownQuizHelpMisspelledAnswer"}, {"xxx", 0, false, nullptr},
        {"xxx", 1, false, "hasShownQuizHelpWrongAnswer"},      {"", 5, false, nullptr},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.answer + std::to_string(c.level));
        start({m_words.add("Hund", "dog", c.level), m_words.add("Katze", "cat")});
        services.settings.writtenKeys.clear();
        answer(c.answer);
        EXPECT_EQ(onCard<QCheckBox>("iKnewItCheckBox")->isVisible(), m_typing.run().offersOverrule());
        EXPECT_EQ(onCard<QCheckBox>("dontAskAgainCheckBox")->isVisible(), c.offersDontAsk);
        EXPECT_EQ(onCard<QLabel>("cardLeftHelpText")->isVisible(), c.helpKey != nullptr);
        EXPECT_EQ(services.settings.writtenKeys,
                  c.helpKey ? QStringList{QLatin1String(c.helpKey)} : QStringList());
        EXPECT_TRUE(onCard<QLabel>("cardRightHelpText")->isHidden());
    }
    TAVTypingQuizController::resetQuizHelp();
    start({m_words.add("Maus", "mouse", 3)});
    EXPECT_TRUE(onCard<QLabel>("cardRightHelpText")->isVisible());
    answer("mouse");
    EXPECT_TRUE(onCard<QLabel>("cardLeftHelpText")->isVisible());
}

TEST_F(TypingQuizTest, NoCommentStandsWhereNoQuestionIsLeft)
{
    const TAVWordRef word = m_words.add("Katze", "cat");
    word->setComment(QStringLiteral("a pet"));
    services.settings.setValue(QStringLiteral("isShowCommentWithQuestion"), true);
    start({word});
    ASSERT_EQ(onCardText("questionCommentTextField"), word->comment());
    answer("cat");
    EXPECT_EQ(onCardText("questionCommentTextField"), QString());
    EXPECT_EQ(onCardText("commentTextField"), word->comment());
}

TEST_F(TypingQuizTest, ASynonymOnTheLastQuestionAsksTheWordOnceMore)
{
    const TAVWordRef asked = m_words.add("Hund", "dog");
    asked->setComment(QStringLiteral("a pet"));
    m_words.add("Hund", "hound");
    start({asked});
    answer("hound");
    EXPECT_EQ(onCardText("commentTextField"), QStringLiteral("a pet"));
    EXPECT_EQ(m_typing.nextWord(), asked);
    EXPECT_EQ(m_view.statusText()->text(), QStringLiteral("1 of 1"));
    EXPECT_EQ(m_view.card()->leftStartColor(), QColor::fromRgbF(0.83f, 0.89f, 0.91f));
}

TEST_F(TypingQuizTest, TheIntroFollowsThePercentage)
{
    for (const auto &[percent, start] : {std::pair(0.0, "0 %"),
                                         {19.9, "20 %"},
                                         {20.0, "Well done"},
                                         {59.9, "Well done"},
                                         {60.0, "Congratulations"}})
        EXPECT_TRUE(QuizResultPage::introForPercent(percent).startsWith(QLatin1String(start))) << percent;
}

TEST_F(TypingQuizTest, TheKeyboardFollowsTheLanguageOfTheAnswer)
{
    addKeyboards();
    const TAVWordRef a = m_words.add("Hund", "dog");
    start({a});
    EXPECT_EQ(keyboard(), QStringLiteral("us"));
    // Switched by something else, for instance in the word editor.
    onCard<QPushButton>("nextButton")->setFocus();
    services.inputSources.current = nullptr;
    onCard<QLineEdit>("answerTextField")->setFocus();
    EXPECT_EQ(keyboard(), QStringLiteral("us"));
    start({a}, {false, true});
    EXPECT_EQ(keyboard(), QStringLiteral("de"));
    EXPECT_EQ(onCardText("questionTextField"), QStringLiteral("dog"));
    m_setup.showQuiz();
    m_words.vocabulary->setIsAutoSelectInputSource(false);
    services.inputSources.selected.clear();
    start({a});
    EXPECT_TRUE(services.inputSources.selected.isEmpty());
}

TEST_F(TypingQuizTest, TheKeyboardIsGivenBackWhenTheRunEndsOrItsPageIsLeft)
{
    addKeyboards();
    const std::function<void()> ways[] = {
        [this] {
            answer("dog");
            answer("cat");
            pressReturn();
        },
        [this] { m_setup.showQuiz(); },
        [this] { m_view.close(); },
        // The step still comes, and with it the next question.
        [this] {
            pressReturn();
            m_view.close();
        },
        [this] {
            pressReturn();
            m_setup.showQuiz();
        },
        [this] {
            m_setup.showQuiz();
            m_setup.startQuiz();
            m_view.close();
        },
    };
    for (const auto &leave : ways) {
        m_words.vocabulary->setIsAutoSelectInputSource(true);
        start({m_words.add("Hund", "dog"), m_words.add("Katze", "cat")});
        EXPECT_EQ(keyboard(), QStringLiteral("us"));
        leave();
        // Whatever is chosen by then.
        m_words.vocabulary->setIsAutoSelectInputSource(&leave != &ways[1]);
        pass();
        EXPECT_EQ(keyboard(), QStringLiteral("fr")) << &leave - ways;
        m_view.show();
        m_view.activateWindow();
        processEvents();
    }
}

TEST_F(TypingQuizTest, AnEditedWordShowsItsNewTextsAndADeletedOneIsNotAskedAgain)
{
    const TAVWordRef a = m_words.add("Hund", "dog", 2);
    const TAVWordRef b = m_words.add("Katze", "cat", 2);
    start({a, b});
    answer("x");
    EXPECT_TRUE(onCard<QPushButton>("editButton")->isVisible());
    onCard<QPushButton>("editButton")->setFocus();
    pressReturn();
    a->setForeignWord(QStringLiteral("doggy"));
    a->setComment(QStringLiteral("<b>small</b>"));
    m_typing.wordPopoverDidEditWords({a});
    processEvents();
    EXPECT_TRUE(hasFocus(card, "answerTextField"));
    EXPECT_EQ(onCardText("correctAnswerTextField"), QStringLiteral("doggy"));
    EXPECT_EQ(onCardText("lastQuestionTextField"), QStringLiteral("Hund"));
    EXPECT_EQ(onCardText("commentTextField"), QStringLiteral("<b>small</b>"));

    m_typing.wordPopoverDidDeleteWords({b});
    EXPECT_TRUE(onCard<QPushButton>("editButton")->isVisible()) << "another word than that on the left";
    m_typing.wordPopoverDidDeleteWords({a});
    EXPECT_TRUE(onCard<QPushButton>("editButton")->isHidden());
    EXPECT_TRUE(onCard<QWidget>("deletedImageView")->isVisible());
    EXPECT_FALSE(onCard<QCheckBox>("iKnewItCheckBox")->isEnabled());
    EXPECT_TRUE(m_typing.run().wrongAnsweredWords().isEmpty());
    answer("y");
    EXPECT_FALSE(onCard<QWidget>("deletedImageView")->isVisible()) << "another word stands there";
    EXPECT_TRUE(onCard<QPushButton>("editButton")->isVisible());
    onCard<QPushButton>("editButton")->click();
    onCard<QPushButton>("showStatisticsButton")->click();
    pass();
    for (ArrowPopup *panel : m_view.findChildren<ArrowPopup *>())
        EXPECT_FALSE(panel->isVisible()) << "a panel must not outlive its run";
}

TEST_F(TypingQuizTest, AWordThatAnEditMadeSeveralOfCountsAsDeleted)
{
    const TAVWordRef a = m_words.add("Hund", "dog", 2);
    start({a, m_words.add("Katze", "cat", 2)});
    answer("x");
    // The list shows the file's words anew meanwhile; the run stays on its own.
    m_recorder.current = std::make_shared<TAVLexicon>();
    m_typing.wordPopoverDidEditWords({a});
    EXPECT_TRUE(onCard<QPushButton>("editButton")->isVisible());
    m_words.vocabulary->removeWord(a);
    m_typing.wordPopoverDidEditWords({a});
    EXPECT_FALSE(onCard<QPushButton>("editButton")->isVisible());
    EXPECT_TRUE(onCard<QWidget>("deletedImageView")->isVisible());
    EXPECT_FALSE(onCard<QCheckBox>("iKnewItCheckBox")->isEnabled());
    EXPECT_TRUE(m_typing.run().wrongAnsweredWords().isEmpty());
}

TEST_F(TypingQuizTest, LongTextsAreFittedIntoTheirPlace)
{
    WordLabel label;
    label.resize(300, 80);
    label.setWord(QString(60, QLatin1Char('W')), 86);
    label.grab();
    EXPECT_EQ(label.toolTip(), QString());
    // Endless text ends in an ellipsis, whole in the tool tip and harmless as markup there.
    label.setWord(QLatin1String("<i>") + QString(100'000, QLatin1Char('W')), 86);
    const QImage drawn = label.grab().toImage();
    EXPECT_TRUE(label.toolTip().startsWith(QLatin1String("&lt;i&gt;WWW")));
    for (int x = 0; x < drawn.width(); ++x)
        EXPECT_EQ(drawn.pixel(x, drawn.height() - 1), drawn.pixel(0, 0)) << x;
}

TEST_F(TypingQuizTest, ARunThatWasLeftStaysOnItsVocabularyAndDoesNotComeBackByItself)
{
    const TAVWordRef a = m_words.add("Hund", "dog", 2);
    start({a, m_words.add("Katze", "cat")});
    QuizWords other;
    other.vocabulary->setForeignLanguageName(QStringLiteral("Greek"));
    m_recorder.current = other.vocabulary;
    answer("dog");
    EXPECT_EQ(a->level(), 3);
    EXPECT_FALSE(QFile::exists(m_recorder.path()));
    m_recorder.current = m_words.vocabulary;
    EXPECT_TRUE(QFile::exists(m_recorder.path()));

    // Away within the delay of a press: the answer counts, but doesn't show on another page.
    pressReturn();
    m_setup.showQuiz();
    const QColor neutral = m_view.card()->leftStartColor();
    EXPECT_EQ(m_typing.run().numberOfAnswers(), 1);
    pass();
    EXPECT_EQ(m_typing.run().numberOfAnswers(), 2);
    EXPECT_EQ(m_view.currentPage(), QuizView::setupPage);
    EXPECT_FALSE(m_view.progressIndicator()->isVisible());
    EXPECT_EQ(m_view.card()->leftStartColor(), neutral);
    EXPECT_TRUE(hasFocus(QuizView::setupPage, "quizStartQuizButton"));

    // A new run doesn't get into the way of the old one's last step.
    start({a, m_words.add("Katze", "cat")});
    pressReturn();
    m_recorder.current = other.vocabulary;
    const TAVWordRef first = other.add("Esel", "donkey");
    m_setup.showQuiz();
    m_setup.startQuiz();
    EXPECT_EQ(m_typing.run().numberOfAnswers(), 1);
    EXPECT_EQ(a->level(), 2);
    pass();
    EXPECT_EQ(m_typing.nextWord(), first);
    EXPECT_EQ(m_typing.run().numberOfAnswers(), 0);
}

TEST_F(TypingQuizTest, AWindowClosedInTheMiddleOfAFlipIsHarmless)
{
    start({m_words.add("Hund", "dog"), m_words.add("Katze", "cat")});
    type("dog");
    pressReturn();
    services.clock.advanceSeconds(0.5);
    ASSERT_TRUE(m_view.flip()->isFlipping());
    m_view.close();
    EXPECT_FALSE(m_view.flip()->isFlipping());
    m_view.show();
    m_view.activateWindow();
    processEvents();
    EXPECT_TRUE(hasFocus(card, "answerTextField"));
    // The fixture goes in the middle of the next flip.
    answer("cat");
    pressReturn();
    services.clock.advanceSeconds(0.5);
    EXPECT_EQ(m_view.currentPage(), result);
}

} // namespace
