#include "quiz/QuizFormsTest.h"
#include "quiz/forms/SegmentControl.h"
#include "quiz/forms/TAVPopupQuizController.h"
#include "widgets/TAVCardView.h"
#include "widgets/TAVPieChart.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
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
        prepare(m_popup, words);
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
    QString shown(const char *name) { return text(m_popup.quizWindow(), name); }
    TAVWordList twoWords(quint64 level = 2)
    {
        return {m_words.add("Katze", "cat", level), m_words.add("Maus", "mouse", level)};
    }

    LockRecorder m_hub;
    TAVPopupQuizController m_popup{&m_view, m_document, &m_hub, [this] { m_setup.showQuiz(); }};
};

TEST_F(PopupQuizTest, AsksWaitsOutOfSightAndComesBackUntilAllIsAsked)
{
    const TAVWordList words = twoWords();
    startPopup(words);
    EXPECT_TRUE(m_hub.isLocked);
    EXPECT_TRUE(isInSight());
    EXPECT_EQ(shown("questionTextField"), QStringLiteral("Katze"));

    check("cat");
    m_popup.checkWord();
    EXPECT_EQ(tab(), 1);
    EXPECT_EQ(words[0]->level(), 3);
    goOn();
    goOn();
    EXPECT_FALSE(isInSight());
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
    EXPECT_EQ(services.desktop.activated, QList<platform::Desktop::Application>{4711});

    services.clock.advanceSeconds(5 * 60 - 1);
    EXPECT_FALSE(isInSight());
    services.clock.advanceSeconds(1);
    EXPECT_TRUE(isInSight());
    EXPECT_EQ(shown("questionTextField"), QStringLiteral("Maus"));
    check("x");
    EXPECT_EQ(shown("correctAnswerTextField"), QStringLiteral("mouse"));
    goOn();
    services.clock.advanceSeconds(5 * 60);
    EXPECT_EQ(tab(), 2);
    EXPECT_EQ(shown("statisticsCorrect"), QStringLiteral("1 / 2"));
    EXPECT_EQ(shown("statisticsWrong"), QStringLiteral("1 / 2"));
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
        for (const bool isAnswered : {false, true}) {
            startPopup(twoWords());
            if (isAnswered)
                check("cat");
            way();
            EXPECT_FALSE(m_hub.isLocked);
            EXPECT_EQ(m_recorder.calls.size(), isAnswered) << "marked once for each answer";
            if (tab() == 2) {
                EXPECT_EQ(shown("statisticsCorrect"), QLatin1String(isAnswered ? "1 / 1" : "0 / 0"));
                EXPECT_EQ(panel<TAVPieChart>("pieChart")->isVisible(), isAnswered);
                EXPECT_EQ(panel<TAVPieChart>("pieChart")->correctPercent(), isAnswered);
            }
            m_popup.quizWindow()->close();
            EXPECT_EQ(m_recorder.calls.size(), isAnswered);
            services.clock.advanceSeconds(3600);
            EXPECT_FALSE(isInSight());
        }
    }

    // No further question comes over the result.
    startPopup(twoWords());
    check("cat");
    goOn();
    stopByWindow();
    services.clock.advanceSeconds(3600);
    EXPECT_EQ(tab(), 2);
}

TEST_F(PopupQuizTest, LaterBringsTheSameQuestionAgainAndNothingIsBooked)
{
    const TAVWordList words = twoWords();
    for (const bool byKey : {false, true}) {
        prepare(m_popup, words, {true, true});
        services.random.script = {1};
        m_popup.startQuiz();
        m_recorder.restart();
        for (int round = 0; round < 3; ++round) {
            EXPECT_EQ(shown("questionTextField"), QStringLiteral("cat"));
            EXPECT_EQ(shown("questionProgressLabel"), QStringLiteral("1 of 2"));
            panel<QLineEdit>("answerTextField")->setText(QStringLiteral("Ka"));
            services.random.script = {0};
            if (byKey)
                QTest::keyClick(panel<QLineEdit>("answerTextField"), Qt::Key_Escape);
            else
                panel<QPushButton>("laterButton")->click();
            EXPECT_FALSE(isInSight());
            EXPECT_EQ(services.desktop.activated.size(), 1);
            services.desktop.activated.clear();
            m_popup.checkWord();
            services.clock.advanceSeconds(5 * 60 - 1);
            EXPECT_FALSE(isInSight());
            services.clock.advanceSeconds(1);
            EXPECT_TRUE(isInSight());
            EXPECT_EQ(panel<QLineEdit>("answerTextField")->text(), QString());
        }
        EXPECT_EQ(m_recorder.take(), QString());
        EXPECT_EQ(m_popup.run().numberOfAnswers(), 0);
        EXPECT_EQ(m_popup.askIndex(), 0);
        services.random.script.clear();

        // A verdict is no question: Escape goes on, and books it.
        check("Katze");
        QTest::keyClick(panel<QPushButton>("nextButton"), Qt::Key_Escape);
        EXPECT_FALSE(isInSight());
        EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
        services.desktop.activated.clear();
        services.clock.advanceSeconds(5 * 60);
        EXPECT_EQ(m_popup.askIndex(), 1);
        m_popup.later();
        m_popup.stopQuiz();
        EXPECT_EQ(shown("statisticsCorrect"), QStringLiteral("1 / 1"));
        m_popup.quizWindow()->close();
        services.desktop.activated.clear();
        words[0]->setLevel(2);
    }
}

TEST_F(PopupQuizTest, TheQuestionWaitsUntilTheUserHasStoppedTyping)
{
    using namespace std::chrono_literals;
    const struct
    {
        std::optional<std::chrono::milliseconds> idle;
        int comesAfter;
        bool takesKeys;
    } cases[] = {
        {1h, 0, true}, {1500ms, 0, true}, {1400ms, 100, true}, {0ms, 5000, false}, {std::nullopt, 0, false}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.comesAfter);
        services.idleTime.idle = 0ms;
        startPopup(twoWords());
        EXPECT_TRUE(isInSight()) << "the user has just started it";
        check("cat");
        goOn();
        services.desktop.frontmost = 1;
        services.clock.advance(5min - 1ms);
        services.idleTime.idle = c.idle;
        EXPECT_FALSE(isInSight());
        services.clock.advance(1ms);
        if (c.comesAfter > 0) {
            services.clock.advance(std::chrono::milliseconds(c.comesAfter - 1));
            EXPECT_FALSE(isInSight());
            // Typing goes on, or has stopped.
            if (c.idle > 0ms)
                services.idleTime.idle = 1500ms;
            services.desktop.frontmost = 2;
            services.clock.advance(1ms);
        }
        EXPECT_TRUE(isInSight());
        auto *field = panel<QLineEdit>("answerTextField");
        const auto typeMouse = [field] {
            QTest::keyClicks(field, QStringLiteral("mouse"));
            QTest::keyClick(field, Qt::Key_Return);
        };
        services.clock.advance(799ms);
        typeMouse();
        EXPECT_EQ(m_popup.run().numberOfCorrect(), c.takesKeys ? 2 : 1);
        EXPECT_EQ(m_popup.run().numberOfAnswers(), c.takesKeys ? 2 : 1);
        if (!c.takesKeys) {
            services.clock.advance(1ms);
            typeMouse();
            EXPECT_EQ(m_popup.run().numberOfCorrect(), 2);
        }
        services.desktop.activated.clear();
        goOn();
        EXPECT_EQ(services.desktop.activated.value(0), c.comesAfter > 0 ? 2u : 1u);
        m_popup.quizWindow()->close();
    }
}

TEST_F(PopupQuizTest, WhatEndsOrRestartsTheTimerEndsTheWaitForAPauseToo)
{
    const std::function<void()> ways[] = {
        [this] { m_popup.updateInterval(2); },
        [this] { m_popup.quizWindow()->close(); },
        [this] {
            m_popup.stopQuiz();
            m_popup.close();
        },
    };
    for (const auto &way : ways) {
        services.idleTime.idle = std::chrono::milliseconds(0);
        startPopup(twoWords());
        m_popup.updateInterval(5);
        check("cat");
        goOn();
        services.clock.advanceSeconds(5 * 60 + 3);
        EXPECT_FALSE(isInSight());
        way();
        services.clock.advanceSeconds(100);
        EXPECT_FALSE(isInSight());
        m_popup.quizWindow()->close();
    }
}

TEST_F(PopupQuizTest, ALineTellsOfTheRunAndEndsItWhileThatGoesOn)
{
    const auto line = [this] {
        auto *widget = findControl<QWidget>(&m_view, "popupLine");
        return widget->isVisible() ? findControl<QLabel>(widget, "popupLineLabel")->text() : QString();
    };
    m_setup.showQuiz();
    EXPECT_EQ(line(), QString());
    startPopup({m_words.add("Hund", "dog"), m_words.add("Katze", "cat"), m_words.add("Maus", "mouse")});
    EXPECT_EQ(line(), QStringLiteral("Popup quiz: 1 of 3"));
    check("dog");
    EXPECT_EQ(shown("answerProgressLabel"), QStringLiteral("1 of 3"));
    goOn();
    EXPECT_EQ(line(), QStringLiteral("Popup quiz: 1 of 3"));
    services.clock.advanceSeconds(5 * 60);
    EXPECT_EQ(shown("questionProgressLabel"), QStringLiteral("2 of 3"));
    EXPECT_EQ(line(), QStringLiteral("Popup quiz: 2 of 3"));
    // The program was started once more, which brings the setup page.
    m_setup.showQuiz();
    EXPECT_EQ(line(), QStringLiteral("Popup quiz: 2 of 3"));
    m_view.showPage(QuizView::typingQuizPage);
    EXPECT_EQ(line(), QString());
    m_setup.showQuiz();
    findControl<QPushButton>(&m_view, "popupLineEndButton")->click();
    EXPECT_EQ(tab(), 2);
    EXPECT_EQ(line(), QString());
    EXPECT_FALSE(m_hub.isLocked);
}

TEST_F(PopupQuizTest, AnotherRunSavesTheVerdictOnTheScreenWithItsBoxesFirst)
{
    const TAVWordRef word = m_words.add("Katze", "cat", 3);
    startPopup({word, m_words.add("Maus", "mouse")});
    check("x");
    panel<QCheckBox>("iKnewItCheckBox")->click();
    const TAVLexiconRef old = m_words.vocabulary;
    const QString oldPath = m_recorder.path();
    // After a second start of the program the setup page is there, for another language by now.
    m_words = QuizWords();
    m_words.vocabulary->setForeignLanguageName(QStringLiteral("Greek"));
    m_words.add("Hund", "dog");
    m_recorder.current = m_words.vocabulary;
    m_setup.setPopupQuizController(&m_popup);
    on<SegmentControl>(QuizView::setupPage, "quizModeSegmentControl")->setSelectedSegment(2);
    m_setup.showQuiz();
    m_setup.startQuiz();
    EXPECT_EQ(word->level(), 4);
    EXPECT_TRUE(old->needsSync());
    EXPECT_EQ(TAVStorageManager::vocabularyFromFile(oldPath)->wordsOfLevel(4).size(), 1);
    EXPECT_FALSE(isInSight() || m_hub.isLocked) << "nothing is asked of the old run any more";
    pass();
    EXPECT_EQ(shown("questionTextField"), QStringLiteral("Hund"));
    EXPECT_TRUE(m_hub.isLocked);
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
                 {"  ", "X", true, false},
                 {"", "", true, false}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.answer);
        startPopup(twoWords(4));
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
        EXPECT_EQ(panel<TAVCardView>("popupCard")->leftStartColor() != before, knewIt->isVisible());
        m_popup.quizWindow()->close();
        EXPECT_EQ(m_popup.run().numberOfCorrect(), 1);
    }
}

TEST_F(PopupQuizTest, AnAnswerOnTheScreenIsSavedWithItsBoxesWhenTheProgramQuits)
{
    const TAVWordList words = twoWords(5);
    startPopup(words);
    check("cat");
    panel<QCheckBox>("dontAskAgainCheckBox")->click();
    QMetaObject::invokeMethod(qApp, "aboutToQuit");
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
    EXPECT_TRUE(words[0]->dontAskAgain());
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
}

TEST_F(PopupQuizTest, ADeletedWordOffersNothingAndTheNextQuestionComesWithoutItsBoxes)
{
    EXPECT_EQ(m_popup.numberOfWordsToAsk(), 10);
    startPopup(twoWords());
    check("x");
    auto *knewIt = panel<QCheckBox>("iKnewItCheckBox");
    knewIt->click();
    m_popup.wordPopoverDidDeleteWords({m_popup.currentWord()});
    EXPECT_FALSE(knewIt->isEnabled() || panel<QWidget>("editButton")->isEnabled());
    EXPECT_EQ(m_popup.wordsToAsk().size(), 1);
    m_popup.updateInterval(1);
    services.clock.advanceSeconds(60);
    EXPECT_EQ(shown("questionTextField"), QStringLiteral("Maus"));
    EXPECT_FALSE(knewIt->isChecked());
}

TEST_F(PopupQuizTest, AWordThatIsGoneCanNoLongerBeExcluded)
{
    for (const bool isEdited : {false, true}) {
        startPopup(twoWords(5));
        check("cat");
        auto *box = panel<QCheckBox>("dontAskAgainCheckBox");
        ASSERT_TRUE(box->isEnabled());
        const TAVWordRef word = m_popup.currentWord();
        m_words.vocabulary->removeWord(word);
        // An edit can make several words of one, which then is none of them.
        if (isEdited)
            m_popup.wordPopoverDidEditWords({word});
        else
            m_popup.wordPopoverDidDeleteWords({word});
        EXPECT_FALSE(box->isEnabled() || panel<QWidget>("editButton")->isEnabled());
        EXPECT_FALSE(m_popup.wordsToAsk().contains(word));
        m_popup.quizWindow()->close();
    }
}

TEST_F(PopupQuizTest, TheCommentStandsWithTheQuestionOnlyIfTheUserWantsIt)
{
    const TAVWordRef word = m_words.add("Katze", "cat");
    word->setComment(QStringLiteral("a pet"));
    for (const bool wants : {true, false}) {
        services.settings.setValue(QStringLiteral("isShowCommentWithQuestion"), wants);
        start({word});
        EXPECT_EQ(onCard<QLabel>("questionCommentTextField")->isVisible(), wants);
        startPopup({word});
        EXPECT_EQ(shown("questionCommentTextField"), wants ? word->comment() : QString());
    }
}

TEST_F(PopupQuizTest, TheKeyboardFollowsTheAnswerAndComesBackAfterIt)
{
    addKeyboards();
    startPopup(twoWords());
    EXPECT_EQ(keyboard(), QStringLiteral("us"));
    check("cat");
    goOn();
    EXPECT_EQ(keyboard(), QStringLiteral("de"));
    m_words.vocabulary->setIsAutoSelectInputSource(false);
    m_popup.stopQuiz();
    EXPECT_EQ(keyboard(), QStringLiteral("fr")) << "given back at the end";
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
        prepare(nextStart, twoWords());
        nextStart.startQuiz();
        EXPECT_EQ(nextStart.questionIntervalMinutes(), restored) << "from the first question on";
    }

    startPopup(twoWords());
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
    startPopup(twoWords());
    EXPECT_EQ(m_popup.quizWindow()->pos(), QPoint(20, 20));
    services.clock.advanceSeconds(1);
    m_popup.quizWindow()->move(300, 200);
    processEvents();
    EXPECT_EQ(services.settings.value(xKey), 300.0);
    m_popup.quizWindow()->move(-5, 100);
    processEvents();
    EXPECT_EQ(services.settings.value(xKey), 300.0);
    m_popup.quizWindow()->move(300, 200);
    // No title bar: the panel is dragged by any free place.
    const auto mouse = [this](QEvent::Type type, const QPoint &global) {
        QMouseEvent event(type, QPoint(), global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_popup.quizWindow(), &event);
    };
    mouse(QEvent::MouseButtonPress, {310, 210});
    mouse(QEvent::MouseMove, {360, 230});
    mouse(QEvent::MouseButtonRelease, {360, 230});
    mouse(QEvent::MouseMove, {900, 900});
    EXPECT_EQ(m_popup.quizWindow()->pos(), QPoint(350, 220));
    check("cat");
    goOn();
    processEvents();
    EXPECT_EQ(services.settings.value(xKey), 350.0);
    services.clock.advanceSeconds(5 * 60);
    EXPECT_EQ(m_popup.quizWindow()->pos(), QPoint(350, 220));
}

TEST_F(PopupQuizTest, APlaceThatIsNotTheUsersOwnIsNotRemembered)
{
    const QString xKey = QStringLiteral("bgQuizWindowXOrigin");
    startPopup(twoWords());
    services.clock.advanceSeconds(0.4);
    check("x");
    services.clock.advanceSeconds(1);
    EXPECT_FALSE(services.settings.value(xKey).isValid()) << "it was shaking while it found its place";

    // The screen on which the panel was left is gone.
    services.settings.setValue(xKey, 5000.0);
    services.settings.setValue(QStringLiteral("bgQuizWindowYOrigin"), 90.0);
    QuizView view;
    TAVPopupQuizController popup(&view, m_document, &m_hub, [] {});
    prepare(popup, twoWords());
    popup.startQuiz();
    services.clock.advanceSeconds(2);
    processEvents();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_TRUE(screen.contains(popup.quizWindow()->geometry()));
    EXPECT_EQ(popup.quizWindow()->y(), 90);
    EXPECT_EQ(services.settings.value(xKey), 5000.0);
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

    m_popup.quizWindow()->close();
    services.desktop.notificationChosen();
    EXPECT_FALSE(isInSight()) << "nothing is left to show";
}

} // namespace
