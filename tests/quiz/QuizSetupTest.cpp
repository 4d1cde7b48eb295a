#include "quiz/QuizFormsTest.h"

#include "platform/Texts.h"
#include "quiz/forms/LevelButton.h"
#include "quiz/forms/QuizForm.h"
#include "quiz/forms/SegmentControl.h"
#include "widgets/TokenField.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

namespace {

constexpr auto page = QuizView::setupPage;

class QuizSetupTest : public QuizFormsTest
{
protected:
    void addDue(int count, quint64 level)
    {
        for (int i = 0; i < count; ++i)
            m_words.add(qPrintable(QStringLiteral("w%1").arg(i)), qPrintable(QStringLiteral("f%1").arg(i)),
                        level);
    }
    int number() { return on<QSpinBox>(page, "quizNumberOfWordsStepper")->value(); }
    LevelButton *level(const char *name) { return on<LevelButton>(page, name); }
    QString error()
    {
        auto *label = on<QLabel>(page, "errorLabel");
        return label->isHidden() ? QString() : label->text();
    }
    QString text(const char *key) { return platform::localized("Quiz", key); }
    bool canStart() { return on<QPushButton>(page, "quizStartQuizButton")->isEnabled(); }
};

TEST_F(QuizSetupTest, NothingDueTurnsAllOff)
{
    m_words.add("Hund", "dog", 1)->setLastAsked(services.clock.now());
    m_setup.showQuiz();
    for (const char *name : {"quizAskUnknownButton", "quizAskUltraShortButton", "quizAskNativeButton"}) {
        EXPECT_FALSE(level(name)->isChecked());
        EXPECT_EQ(level(name)->alpha(), LevelButton::alphaOff);
    }
    EXPECT_EQ(number(), 0);
    EXPECT_FALSE(canStart());
    EXPECT_EQ(error(), text("noWordsOverDue"));

    // A level without due words can be turned on, but nothing says how many to ask.
    QTest::mouseClick(level("quizAskUltraShortButton"), Qt::LeftButton);
    EXPECT_EQ(level("quizAskUltraShortButton")->alpha(), LevelButton::alphaOn);
    EXPECT_EQ(error(), text("zeroEntered"));
    EXPECT_TRUE(canStart());
    on<QSpinBox>(page, "quizNumberOfWordsStepper")->setValue(500);
    EXPECT_EQ(error(), QString());
    QTest::mouseClick(level("quizAskUltraShortButton"), Qt::LeftButton);
    EXPECT_EQ(error(), text("noWordsOverDue"));
}

TEST_F(QuizSetupTest, TheNumberIsWhatIsDueButAtMostThirty)
{
    addDue(12, 0);
    m_setup.showQuiz();
    EXPECT_EQ(number(), 12);
    addDue(33, 5);
    m_setup.showQuiz();
    EXPECT_EQ(number(), 30);
    EXPECT_TRUE(level("quizAskNativeButton")->isChecked());
    EXPECT_EQ(on<QLabel>(page, "nativeNoOfDueLabel")->text(), QStringLiteral("33 due"));
    QTest::mouseClick(level("quizAskNativeButton"), Qt::LeftButton);
    EXPECT_EQ(number(), 12);
    const QColor dimmed = on<QLabel>(page, "nativeNoOfDueLabel")->palette().color(QPalette::WindowText);
    EXPECT_NEAR(dimmed.alphaF(), LevelButton::alphaOff, 0.01);

    // After a sync the counts follow, and the levels stay as they are.
    addDue(2, 0);
    m_setup.quizListsToAskChanged();
    EXPECT_EQ(number(), 14);
    EXPECT_EQ(on<QLabel>(page, "unknownNoOfDueLabel")->text(), QStringLiteral("14 due"));
}

TEST_F(QuizSetupTest, SelectedWordsAreAskedExactly)
{
    addDue(5, 0);
    const TAVWordRef a = m_words.add("Hund", "dog", 5);
    a->setDontAskAgain(true);
    const TAVWordRef b = m_words.add("Katze", "cat", 3);
    b->setLastAsked(services.clock.now());
    m_setup.setPreSelectedWords({a});
    m_setup.showQuiz();
    EXPECT_EQ(number(), 5);

    m_setup.setPreSelectedWords({a, b});
    m_setup.showQuiz();
    m_setup.showQuiz();
    EXPECT_EQ(number(), 2);
    EXPECT_FALSE(level("quizAskUnknownButton")->isChecked());
    EXPECT_TRUE(level("quizAskMidTermButton")->isChecked());
    pressReturn();
    EXPECT_TRUE(m_setup.preSelectedWords().isEmpty());
    pass();
    EXPECT_EQ(TAVWordSet(m_typing.wordsToAsk()), (TAVWordSet{a, b}));
    EXPECT_EQ(m_typing.numberOfWordsToAsk(), 2);

    m_setup.setPreSelectedWords({a, b});
    m_setup.showQuiz();
    QTest::mouseClick(level("quizAskUnknownButton"), Qt::LeftButton);
    EXPECT_TRUE(m_setup.preSelectedWords().isEmpty());
}

TEST_F(QuizSetupTest, TheSecondCallOfTheOpeningLeavesARunAlone)
{
    addDue(3, 0);
    m_setup.showQuiz();
    services.clock.advanceSeconds(0.1);
    pressReturn(true);
    services.clock.advanceSeconds(0.2);
    EXPECT_EQ(m_view.currentPage(), page);
    pressReturn();
    pressReturn();
    services.clock.advanceSeconds(0.2);
    m_setup.showQuiz();
    services.clock.advanceSeconds(0.1);
    EXPECT_EQ(m_view.currentPage(), QuizView::typingQuizPage);
    EXPECT_EQ(m_typing.askIndex(), 0);
    pass();
    // Later the user means it.
    m_setup.showQuiz();
    EXPECT_EQ(m_view.currentPage(), page);
    m_setup.showQuiz();
    EXPECT_EQ(m_view.currentPage(), page);
}

TEST_F(QuizSetupTest, OptionsReachTheForm)
{
    m_words.add("Hund", "dog", 0, {QStringLiteral("animal")});
    m_words.add("Haus", "house", 0, {QStringLiteral("building")});
    m_words.add("Maus", "mouse", 1, {QStringLiteral("rodent")})->setLastAsked(services.clock.now());
    m_setup.showQuiz();
    auto *tags = on<TokenField>(page, "quizTagsTokenField");
    EXPECT_EQ(tags->tokens(), QStringList{text("allTags")});

    tags->setTokens({QStringLiteral("nothing")});
    m_setup.updateErrorLabel();
    EXPECT_EQ(error(), text("noWordsWithTags"));
    tags->setTokens({QStringLiteral("rodent")});
    pressReturn();
    EXPECT_EQ(error(), text("noMatchingWordsMsg"));
    EXPECT_EQ(m_view.currentPage(), page);

    // The first tag takes the place of "all tags", without a complaint while it is typed.
    tags->setTokens({text("allTags")});
    m_setup.updateErrorLabel();
    tags->input()->setFocus();
    QTest::keyClicks(tags->input(), QStringLiteral("anima"));
    EXPECT_EQ(error(), QString());
    QTest::keyClicks(tags->input(), QStringLiteral("l,"));
    EXPECT_EQ(tags->tokens(), QStringList{QStringLiteral("animal")});
    auto *direction = on<QComboBox>(page, "quizDirectionPopup");
    EXPECT_EQ(direction->itemText(0), QStringLiteral("English"));
    direction->setCurrentIndex(1);
    emit direction->activated(1);
    EXPECT_EQ(services.settings.value(QStringLiteral("askForYourWord")), true);
    EXPECT_EQ(services.settings.value(QStringLiteral("askForForeignWord")), false);
    pressReturn();
    pass();
    ASSERT_EQ(m_typing.wordsToAsk().size(), 1);
    EXPECT_EQ(m_typing.wordsToAsk().first()->foreignWord(), QStringLiteral("dog"));
    EXPECT_TRUE(m_typing.askForYourWord());
    EXPECT_FALSE(m_typing.askForForeignWord());

    // Each level is its own, and so are all and any of the tags.
    m_words.add("Esel", "donkey", 2, {QStringLiteral("animal")});
    const QStringList both = {QStringLiteral("animal"), QStringLiteral("building")};
    const TAVWordRef stable = m_words.add("Stall", "stable", 2, both);
    m_words.add("Nest", "nest", 1, both);
    for (const int rule : {0, 1}) {
        services.clock.advanceSeconds(3600);
        m_setup.showQuiz();
        tags->setTokens(both);
        on<QComboBox>(page, "quizTagsAllAnyPopup")->setCurrentIndex(rule);
        for (const char *name : {"quizAskUnknownButton", "quizAskUltraShortButton"})
            QTest::mouseClick(level(name), Qt::LeftButton);
        on<QSpinBox>(page, "quizNumberOfWordsStepper")->setValue(9);
        on<QPushButton>(page, "quizStartQuizButton")->click();
        pass();
        EXPECT_EQ(m_typing.wordsToAsk().size(), rule == 0 ? 1 : 2);
        EXPECT_TRUE(m_typing.wordsToAsk().contains(stable));
    }
}

TEST_F(QuizSetupTest, TheChosenSegmentStartsItsForm)
{
    struct Form : QuizForm
    {
        void startQuiz() override { hasStarted = true; }
        QuizView::Page page() const override { return QuizView::flashCardPage; }
        bool hasStarted = false;
    };
    addDue(1, 0);
    addDue(1, 5);
    Form popup;
    m_setup.setPopupQuizController(&popup);
    m_setup.showQuiz();
    on<SegmentControl>(page, "quizModeSegmentControl")->setSelectedSegment(2);
    m_setup.startQuiz();
    pass();
    EXPECT_TRUE(popup.hasStarted);
    EXPECT_EQ(popup.wordsToAsk().size(), 2) << "native words too";
    EXPECT_EQ(m_view.currentPage(), popup.page());
}

TEST_F(QuizSetupTest, EverythingWorksWithoutAVocabulary)
{
    m_recorder.current = nullptr;
    m_setup.showQuiz();
    m_setup.quizListsToAskChanged();
    EXPECT_FALSE(canStart());
    QTest::mouseClick(level("quizAskUnknownButton"), Qt::LeftButton);
    EXPECT_EQ(error(), text("noWords"));
    m_setup.startQuiz();
    pass();
    EXPECT_EQ(m_view.currentPage(), page);
}

} // namespace
