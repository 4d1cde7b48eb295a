#include "EwmhDesktopTest.h"

#include "app/ground/AppGround.h"
#include "document/VocabularyDocument.h"
#include "quiz/forms/TAVPopupQuizController.h"

#include <QTest>

namespace {

class UnlockedHub : public QuizHub
{
public:
    QWidget *mainWindow() const override { return nullptr; }
    void disableAllToolbarItems() override {}
    void enableAllToolbarItems() override {}
};

} // namespace

TEST_F(EwmhDesktopTest, ThePopupQuizComesOverAnotherProgramAndGivesTheFocusBack)
{
    AppGround::applicationSupportFolder();
    platform::Services real = platform::services();
    real.desktop = desktop.get();
    platform::installServices(real);
    const OtherClient other;
    ASSERT_TRUE(comesToFront(other.window()));

    const auto vocabulary = std::make_shared<TAVLexicon>();
    TAVWordList words;
    for (const char16_t *text : {u"one", u"two", u"three"})
        words.append(
            std::make_shared<TAVWord>(QString::fromUtf16(text), QString::fromUtf16(text), std::nullopt));
    vocabulary->batchAddWords(words);
    QuizView view;
    UnlockedHub hub;
    VocabularyDocument document;
    TAVPopupQuizController popup(&view, document, &hub, [] {});
    popup.setVocabulary(vocabulary);
    popup.setWordsToAsk(words);
    popup.startQuiz();
    const auto window = quint32(popup.quizWindow()->winId());
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(becomesActive(window));
        EXPECT_TRUE(QTest::qWaitFor([&] { return popup.quizWindow()->isActiveWindow(); }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return root("_NET_CLIENT_LIST_STACKING").value(1) == window; }))
            << "above the other program's window";
        auto *field = findControl<QLineEdit>(popup.quizWindow(), "answerTextField");
        EXPECT_TRUE(QTest::qWaitFor([&] { return field->hasFocus(); }));
        popup.checkWord();
        popup.next();
        EXPECT_TRUE(becomesActive(other.window()));
        ASSERT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
        EXPECT_FALSE(popup.quizWindow()->isVisible());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !root("_NET_CLIENT_LIST_STACKING").contains(window); }));
        services.clock.advanceSeconds(5 * 60);
    }
}
