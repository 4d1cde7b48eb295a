#include "app/ground/SettingsKeys.h"
#include "quiz/QuizFormsTest.h"
#include "quiz/forms/TAVPopupQuizController.h"
#include "widgets/TAVCardView.h"
#include "widgets/TAVPieChart.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>

namespace {

class LockRecorder : public QuizHub
{
public:
    QWidget *mainWindow() const override { return nullptr; }
    void disableAllToolbarItems() override { isLocked = true; }
    void enableAllToolbarItems() override { isLocked = false; }
    bool isLocked = false;
};

class PopupQuizTest : public QuizFormsTest
{
protected:
    void startPopup(const TAVWordList &words)
    {
        m_popup.setVocabulary(m_words.vocabulary);
        m_popup.setWordsToAsk(words);
        m_popup.mutableWordsToAsk() = words;
        m_popup.setAskForForeignWord(true);
        m_popup.setAskForYourWord(false);
        m_popup.startQuiz();
        m_view.showPage(QuizView::popupQuizPage);
        m_recorder.restart();
        processEvents();
    }
    template <typename Control> Control *panel(const char *name)
    {
        return findControl<Control>(m_popup.quizWindow(), name);
    }
    int tab() { return panel<QStackedWidget>("popupTabView")->currentIndex(); }
    void check(const char *text)
    {
        panel<QLineEdit>("answerTextField")->setText(QString::fromUtf8(text));
        panel<QPushButton>("checkButton")->click();
    }
    void goOn() { panel<QPushButton>("nextButton")->click(); }
    bool isInSight() { return m_popup.quizWindow()->isVisible(); }
    QString shown(const char *name)
    {
        const auto *label = panel<QLabel>(name);
        return label->isVisible() ? label->text() : QString();
    }

    LockRecorder m_hub;
    TAVPopupQuizController m_popup{&m_view, m_document, &m_hub, [this] { m_setup.showQuiz(); }};
};

TEST_F(PopupQuizTest, AsksWaitsOutOfSightAndComesBackUntilAllIsAsked)
{
    const TAVWordList words = {m_words.add("Hund", "dog", 2), m_words.add("Katze", "cat", 2)};
    startPopup(words);
    EXPECT_TRUE(m_hub.isLocked);
    EXPECT_TRUE(isInSight());
    EXPECT_EQ(panel<QLabel>("questionTextField")->text(), QStringLiteral("Hund"));

    check("dog");
    EXPECT_EQ(tab(), 1);
    EXPECT_EQ(panel<QLabel>("answerMark")->text(), QStringLiteral("✓"));
    EXPECT_EQ(words[0]->level(), 3);
    goOn();
    goOn();
    EXPECT_FALSE(isInSight());
    EXPECT_EQ(m_recorder.calls, QStringList{QStringLiteral("flagged, mark")});
    EXPECT_TRUE(QFile::exists(m_recorder.path()));
    EXPECT_EQ(services.desktop.activated, QList<platform::Desktop::Application>{4711});

    services.clock.advanceSeconds(5 * 60 - 1);
    EXPECT_FALSE(isInSight());
    services.clock.advanceSeconds(1);
    EXPECT_TRUE(isInSight());
    EXPECT_EQ(panel<QLabel>("questionTextField")->text(), QStringLiteral("Katze"));
    check("x");
    EXPECT_EQ(panel<QLabel>("correctAnswerTextField")->text(), QStringLiteral("cat"));
    goOn();
    services.clock.advanceSeconds(5 * 60);
    EXPECT_EQ(tab(), 2);
    EXPECT_EQ(panel<QLabel>("statisticsCorrect")->text(), QStringLiteral("1 / 2"));
    EXPECT_EQ(panel<QLabel>("statisticsWrong")->text(), QStringLiteral("1 / 2"));
    EXPECT_FALSE(m_hub.isLocked);

    panel<QPushButton>("closeButton")->click();
    EXPECT_FALSE(isInSight());
    EXPECT_EQ(m_view.currentPage(), QuizView::setupPage);
    services.clock.advanceSeconds(3600);
    EXPECT_FALSE(isInSight());
}

TEST_F(PopupQuizTest, EveryWayOutUnlocksTheWindowAndLosesNoAnswer)
{
    using Way = std::function<void()>;
    const Way closePanel = [this] { m_popup.quizWindow()->close(); };
    const Way stopByPanel = [this] {
        panel<QPushButton>(tab() == 0 ? "questionEndQuizButton" : "answerEndQuizButton")->click();
    };
    const Way stopByWindow = [this] { on<QPushButton>(QuizView::popupQuizPage, "stopQuizButton")->click(); };
    for (const Way &way : {closePanel, stopByPanel, stopByWindow}) {
        for (const char *answer : {"", "cat", "dog"}) {
            const TAVWordRef word = m_words.add("Katze", "cat", 2);
            startPopup({word, m_words.add("Maus", "mouse")});
            const bool isAnswered = *answer != '\0';
            if (isAnswered)
                check(answer);
            way();
            EXPECT_FALSE(m_hub.isLocked);
            EXPECT_EQ(m_recorder.calls.size(), isAnswered ? 1 : 0) << "marked once for each answer";
            EXPECT_EQ(m_popup.run().numberOfAnswers(), isAnswered ? 1 : 0);
            EXPECT_TRUE(QFile::exists(m_recorder.path()) || !isAnswered);
            m_popup.quizWindow()->close();
            EXPECT_EQ(m_recorder.calls.size(), isAnswered ? 1 : 0);
            services.clock.advanceSeconds(3600);
            EXPECT_FALSE(isInSight());
        }
    }
}

TEST_F(PopupQuizTest, TheResultCountsTheAnswersThatWereGiven)
{
    startPopup({m_words.add("Katze", "cat"), m_words.add("Maus", "mouse")});
    panel<QPushButton>("questionEndQuizButton")->click();
    EXPECT_EQ(tab(), 2);
    EXPECT_TRUE(panel<QWidget>("pieChart")->isHidden());
    EXPECT_EQ(panel<QLabel>("statisticsCorrect")->text(), QStringLiteral("0 / 0"));

    startPopup(m_words.vocabulary->allWords());
    check("x");
    panel<QCheckBox>("iKnewItCheckBox")->click();
    panel<QPushButton>("answerEndQuizButton")->click();
    EXPECT_EQ(shown("statisticsCorrect"), QStringLiteral("1 / 1"));
    EXPECT_EQ(panel<TAVPieChart>("pieChart")->correctPercent(), 1.0);
    EXPECT_TRUE(panel<QWidget>("pieChart")->isVisible());
}

TEST_F(PopupQuizTest, WhatAVerdictAndAnOverruleShow)
{
    const struct
    {
        const char *answer;
        const char *mark;
        bool shakes;
        bool offersExclusion;
    } cases[] = {{"cat", "✓", false, true},
                 {"cta", "≈", false, false},
                 {"dog", "X", true, false},
                 {"", "", true, false}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.answer);
        startPopup({m_words.add("Katze", "cat", 4), m_words.add("Maus", "mouse")});
        services.clock.advanceSeconds(1);
        const QPoint home = m_popup.quizWindow()->pos();
        check(c.answer);
        services.clock.advance(std::chrono::milliseconds(40));
        EXPECT_EQ(m_popup.quizWindow()->pos() != home, c.shakes);
        services.clock.advanceSeconds(1);
        EXPECT_EQ(m_popup.quizWindow()->pos(), home);
        EXPECT_EQ(shown("answerMark"), QString::fromUtf8(c.mark));
        EXPECT_EQ(panel<QCheckBox>("dontAskAgainCheckBox")->isVisible(), c.offersExclusion);
        auto *knewIt = panel<QCheckBox>("iKnewItCheckBox");
        EXPECT_EQ(knewIt->isVisible(), m_popup.run().offersOverrule());
        const QColor before = panel<TAVCardView>("popupCard")->leftStartColor();
        knewIt->click();
        EXPECT_EQ(panel<TAVCardView>("popupCard")->leftStartColor() != before,
                  m_popup.run().offersOverrule());
        m_popup.quizWindow()->close();
        EXPECT_FALSE(knewIt->isChecked());
        EXPECT_EQ(m_popup.run().numberOfCorrect(), 1);
    }
}

TEST_F(PopupQuizTest, AnAnswerOnTheScreenIsSavedWithItsBoxesWhenTheProgramQuits)
{
    const TAVWordRef word = m_words.add("Katze", "cat", 5);
    startPopup({word, m_words.add("Maus", "mouse")});
    check("cat");
    m_popup.checkWord();
    EXPECT_EQ(m_words.vocabulary->nativeWithoutDontAsk().size(), 1);
    panel<QCheckBox>("dontAskAgainCheckBox")->click();
    EXPECT_FALSE(word->dontAskAgain());
    QMetaObject::invokeMethod(qApp, "aboutToQuit");
    EXPECT_EQ(m_recorder.calls, QStringList{QStringLiteral("flagged, mark")});
    EXPECT_TRUE(QFile::exists(m_recorder.path()));
    EXPECT_TRUE(word->dontAskAgain());
    EXPECT_TRUE(m_words.vocabulary->nativeWithoutDontAsk().isEmpty());
    EXPECT_EQ(m_popup.run().numberOfAnswers(), 1) << "a second press of the check button";
}

TEST_F(PopupQuizTest, TheNamedSynonymIsTheWordToEdit)
{
    const TAVWordRef asked = m_words.add("Hund", "dog", 1);
    const TAVWordRef synonym = m_words.add("Hund", "hound", 3);
    startPopup({asked, synonym});
    check("hound");
    EXPECT_EQ(panel<TAVCardView>("popupCard")->leftStartColor(), QColor::fromRgbF(0.83f, 0.89f, 0.91f));
    EXPECT_EQ(m_popup.currentWord(), synonym);
    synonym->setYourWord(QStringLiteral("Jagdhund"));
    m_popup.wordPopoverDidEditWords({synonym});
    EXPECT_EQ(shown("lastQuestionTextField"), QStringLiteral("Jagdhund"));
    goOn();
    m_popup.showQuiz();
    EXPECT_EQ(m_popup.currentWord(), asked);
    check("x");
    EXPECT_TRUE(panel<QWidget>("iKnewItCheckBox")->isEnabled());
    m_popup.wordPopoverDidDeleteWords({asked});
    EXPECT_FALSE(panel<QWidget>("iKnewItCheckBox")->isEnabled());
    EXPECT_FALSE(panel<QWidget>("editButton")->isEnabled());
    EXPECT_FALSE(m_popup.wordsToAsk().contains(asked));
}

TEST_F(PopupQuizTest, AQuestionThatComesOverAnAnswerTakesTheBoxesAway)
{
    EXPECT_EQ(m_popup.numberOfWordsToAsk(), 10);
    const TAVWordRef word = m_words.add("Katze", "cat", 3);
    startPopup({word, m_words.add("Maus", "mouse")});
    check("x");
    panel<QCheckBox>("iKnewItCheckBox")->click();
    m_popup.updateInterval(1);
    services.clock.advanceSeconds(60);
    EXPECT_EQ(shown("questionTextField"), QStringLiteral("Maus"));
    EXPECT_FALSE(panel<QCheckBox>("iKnewItCheckBox")->isChecked());
    m_popup.quizWindow()->close();
    EXPECT_EQ(word->level(), 2);
    EXPECT_EQ(m_recorder.calls.size(), 1);
}

TEST_F(PopupQuizTest, TheCommentStandsWithTheQuestionOnlyIfTheUserWantsIt)
{
    const TAVWordRef word = m_words.add("Katze", "cat");
    word->setComment(QStringLiteral("a pet"));
    for (const bool wants : {true, false}) {
        services.settings.setValue(settingskeys::isShowCommentWithQuestion, wants);
        start({word});
        EXPECT_EQ(onCard<QLabel>("questionCommentTextField")->isVisible(), wants);
        startPopup({word});
        EXPECT_EQ(shown("questionCommentTextField"), wants ? word->comment() : QString());
    }
}

TEST_F(PopupQuizTest, TheKeyboardFollowsTheAnswerAndComesBackAfterIt)
{
    services.inputSources.add(QStringLiteral("us"));
    services.inputSources.add(QStringLiteral("de"));
    m_words.vocabulary->setForeignTextInputSourceId(QStringLiteral("us"));
    m_words.vocabulary->setYourTextInputSourceId(QStringLiteral("de"));
    startPopup({m_words.add("Katze", "cat"), m_words.add("Maus", "mouse")});
    EXPECT_EQ(services.inputSources.current->id, QStringLiteral("us"));
    check("cat");
    goOn();
    EXPECT_EQ(services.inputSources.current->id, QStringLiteral("de"));
}

TEST_F(PopupQuizTest, TheIntervalIsKeptWithinItsRangesAndRestartsTheWait)
{
    const struct
    {
        int minutes;
        int taken;
        int restored;
    } cases[] = {{1, 1, 1}, {99, 99, 99}, {100, 100, 5}, {0, 5, 5}, {101, 5, 5}};
    for (const auto &[minutes, taken, restored] : cases) {
        services.settings.remove(QStringLiteral("popupQuizInterval"));
        QuizView view;
        TAVPopupQuizController popup(&view, m_document, &m_hub, [] {});
        popup.updateInterval(minutes);
        EXPECT_EQ(popup.questionIntervalMinutes(), taken);
        QuizView nextView;
        TAVPopupQuizController nextStart(&nextView, m_document, &m_hub, [] {});
        EXPECT_EQ(findControl<QSpinBox>(&nextView, "intervalStepper")->value(), restored) << minutes;
        nextStart.setVocabulary(m_words.vocabulary);
        nextStart.setWordsToAsk({m_words.add("Hund", "dog")});
        nextStart.startQuiz();
        EXPECT_EQ(nextStart.questionIntervalMinutes(), restored) << "from the first question on";
    }

    startPopup({m_words.add("Katze", "cat"), m_words.add("Maus", "mouse")});
    check("cat");
    goOn();
    services.clock.advanceSeconds(4 * 60);
    m_popup.updateInterval(2);
    services.clock.advanceSeconds(2 * 60 - 1);
    EXPECT_FALSE(isInSight());
    services.clock.advanceSeconds(1);
    EXPECT_TRUE(isInSight());
}

TEST_F(PopupQuizTest, OnlyMovesOfTheUserOnTheScreenAreRemembered)
{
    const QString xKey = QStringLiteral("bgQuizWindowXOrigin");
    startPopup({m_words.add("Katze", "cat"), m_words.add("Maus", "mouse")});
    EXPECT_EQ(m_popup.quizWindow()->pos(), QPoint(20, 20));
    services.clock.advanceSeconds(1);
    m_popup.quizWindow()->move(300, 200);
    processEvents();
    EXPECT_EQ(services.settings.real(xKey), 300.0);
    m_popup.quizWindow()->move(-5, 100);
    processEvents();
    EXPECT_EQ(services.settings.real(xKey), 300.0);
    check("cat");
    goOn();
    processEvents();
    EXPECT_EQ(services.settings.real(xKey), 300.0);
    services.clock.advanceSeconds(5 * 60);
    EXPECT_EQ(m_popup.quizWindow()->pos(), QPoint(300, 200));
}

TEST_F(PopupQuizTest, WhereThePanelCannotComeUpANotificationOpensIt)
{
    services.desktop.canRaise = false;
    startPopup({m_words.add("Katze", "cat")});
    ASSERT_EQ(services.desktop.notifications.size(), 1);
    EXPECT_TRUE(services.desktop.notifications.first().contains(QStringLiteral("Katze")));
    services.desktop.raised.clear();
    services.desktop.notificationChosen();
    EXPECT_EQ(services.desktop.raised.size(), 1);
}

} // namespace
