#include "quiz/QuizFormsTest.h"
#include "quiz/forms/TAVPopupQuizController.h"

#include <QSpinBox>

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
            EXPECT_EQ(m_popup.judge().numberOfAnswers(), isAnswered ? 1 : 0);
            EXPECT_TRUE(QFile::exists(m_recorder.path()) || !isAnswered);
            m_popup.quizWindow()->close();
            EXPECT_EQ(m_recorder.calls.size(), isAnswered ? 1 : 0);
            services.clock.advanceSeconds(3600);
            EXPECT_FALSE(isInSight());
        }
    }
}

TEST_F(PopupQuizTest, WithoutAnyAnswerThereIsNothingToDraw)
{
    startPopup({m_words.add("Katze", "cat")});
    panel<QPushButton>("questionEndQuizButton")->click();
    EXPECT_EQ(tab(), 2);
    EXPECT_TRUE(panel<QWidget>("pieChart")->isHidden());
    EXPECT_EQ(panel<QLabel>("statisticsCorrect")->text(), QStringLiteral("0 / 0"));
}

TEST_F(PopupQuizTest, AnOverruleGoesUpFromWhereTheWordStood)
{
    const TAVWordRef word = m_words.add("Katze", "cat", 5);
    startPopup({word, m_words.add("Maus", "mouse")});
    check("dog");
    EXPECT_EQ(word->level(), 2);
    panel<QCheckBox>("iKnewItCheckBox")->click();
    EXPECT_EQ(word->level(), 2);
    goOn();
    EXPECT_EQ(word->level(), 5);
    EXPECT_EQ(m_popup.judge().numberOfWrong(), 0);
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
