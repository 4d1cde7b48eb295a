#include "quiz/forms/InfoPanels.h"

#include "quiz/AnnouncementText.h"
#include "quiz/QuizFormsTest.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

class InfoPanelsTest : public QuizFormsTest
{
protected:
    InfoPanelsTest() { services.clock.setNow(QDateTime::fromSecsSinceEpoch(1500, Qt::UTC)); }
    InfoPanels &panels() { return *m_setup.infoPanels(); }
    QWidget *info() { return on<QWidget>(QuizView::setupPage, "infoTabView"); }
};

TEST_F(InfoPanelsTest, AnAnnouncementShowsWithTheSetupUntilItIsDismissed)
{
    m_setup.showQuiz();
    EXPECT_TRUE(info()->isHidden());
    panels().setMessageDict(wholeAnnouncement());
    m_setup.showQuiz();
    EXPECT_FALSE(info()->isHidden());
    EXPECT_EQ(on<QLabel>(QuizView::setupPage, "messageTitle")->text(), QStringLiteral("News"));

    QTest::mouseClick(on<QWidget>(QuizView::setupPage, "dismissButton"), Qt::LeftButton);
    EXPECT_TRUE(info()->isHidden());
    m_setup.showQuiz();
    EXPECT_TRUE(info()->isHidden());

    QJsonObject next = wholeAnnouncement();
    next.insert(QStringLiteral("uuid"), QStringLiteral("00000000-0000-4000-8000-000000000001"));
    panels().setMessageDict(next);
    m_setup.showQuiz();
    EXPECT_FALSE(info()->isHidden());
    services.clock.advanceSeconds(501);
    m_setup.showQuiz();
    EXPECT_TRUE(info()->isHidden());
}

TEST_F(InfoPanelsTest, OnlySafeLinksOfTheTwoButtonsAreOpened)
{
    panels().setMessageDict(wholeAnnouncement());
    m_setup.showQuiz();
    panels().goToInfoURL(this->info());
    on<QPushButton>(QuizView::setupPage, "alternateButton")->click();
    EXPECT_TRUE(services.browser.openedUrls.isEmpty());
    on<QPushButton>(QuizView::setupPage, "messageButton")->click();
    EXPECT_EQ(services.browser.openedUrls, QList<QUrl>{QUrl(QStringLiteral("https://example.org/news"))});
}

TEST_F(InfoPanelsTest, ThePromptRemembersAnUnhappyUserAndStaysAway)
{
    panels().showFeedbackPrompt();
    EXPECT_EQ(services.settings.value(QStringLiteral("userWasUnhappy")), true);
    m_setup.showQuiz();
    EXPECT_TRUE(on<QWidget>(QuizView::setupPage, "promptTabView")->isHidden());
}

} // namespace
