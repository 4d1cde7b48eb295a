#include "platform/desktop/AlertDialogs.h"
#include "support/GuiTest.h"

#include <thread>

using platform::AlertDialogs;

namespace {

QWidget *shownAlert()
{
    return QApplication::activeModalWidget();
}

QString shownTitle()
{
    return shownAlert() ? shownAlert()->accessibleName() : QString();
}

void click(int button)
{
    QTest::mouseClick(
        findControl<QPushButton>(shownAlert(), qPrintable(QStringLiteral("alertButton%1").arg(button))),
        Qt::LeftButton);
}

/** Runs once the main thread waits in an alert. */
void whileWaiting(const std::function<void()> &call)
{
    QMetaObject::invokeMethod(qApp, call, Qt::QueuedConnection);
}

class AlertDialogsTest : public ServicesTest
{
protected:
    AlertDialogs alerts;
};

} // namespace

TEST_F(AlertDialogsTest, GivesTheChosenButtonAndHoldsTheClock)
{
    const struct
    {
        std::function<void()> act;
        int expected;
    } cases[] = {
        {[] { click(0); }, 0},
        {[] { click(2); }, 2},
        {[] { QTest::keyClick(shownAlert(), Qt::Key_Return); }, 0},
        {[] { QTest::keyClick(shownAlert(), Qt::Key_Escape); }, 0},
        {[] { shownAlert()->close(); }, 0},
    };
    for (const auto &[act, expected] : cases) {
        bool wasHeld = false;
        whileWaiting([&, act = act] {
            wasHeld = services.clock.isHeld();
            act();
        });
        EXPECT_EQ(alerts.show({u"Title"_qs, u"Text"_qs, {u"Yes"_qs, u"No"_qs, u"Maybe"_qs}}), expected);
        EXPECT_TRUE(wasHeld);
        EXPECT_FALSE(services.clock.isHeld());
        EXPECT_EQ(shownAlert(), nullptr);
    }
}

TEST_F(AlertDialogsTest, ShowsWhatUsersTypedAsPlainTextOfBoundedLength)
{
    const QString name = u"<b>bold</b> & "_qs + QString(500'000, u'x');
    whileWaiting([&] {
        for (const char *label : {"alertTitle", "alertText", "alertAdditionalLine"}) {
            auto *shown = findControl<QLabel>(shownAlert(), label);
            EXPECT_EQ(shown->textFormat(), Qt::PlainText);
            EXPECT_TRUE(shown->text().startsWith(u"<b>bold</b> & "_qs));
            EXPECT_LT(shown->text().size(), 5000);
        }
        click(0);
    });
    alerts.show({name, name, {u"OK"_qs}, name});
}

TEST_F(AlertDialogsTest, QueuesAlertsOfAllThreadsAndGivesEachItsOwnAnswer)
{
    std::atomic<int> fromBackground = -1;
    std::thread background;
    int fromNested = -1;
    QStringList titles;
    whileWaiting([&] {
        background = std::thread([&] {
            fromBackground = alerts.show({u"background"_qs, {}, {u"a"_qs, u"b"_qs, u"c"_qs}});
            // The test goes on only when the thread has its answer.
            QMetaObject::invokeMethod(
                qApp, [] {}, Qt::QueuedConnection);
        });
        whileWaiting([&] {
            titles.append(shownTitle());
            click(0);
            titles.append(shownTitle());
        });
        whileWaiting([&] {
            while (shownTitle() != u"nested"_qs)
                QApplication::processEvents(QEventLoop::WaitForMoreEvents);
            click(1);
        });
        fromNested = alerts.show({u"nested"_qs, {}, {u"a"_qs, u"b"_qs}});
    });
    EXPECT_EQ(alerts.show({u"first"_qs, {}, {u"a"_qs}}), 0);
    EXPECT_EQ(fromNested, 1);
    EXPECT_EQ(titles.first(), u"first"_qs);

    ASSERT_TRUE(QTest::qWaitFor([] { return shownTitle() == u"background"_qs; }));
    EXPECT_TRUE(services.clock.isHeld());
    click(2);
    background.join();
    EXPECT_EQ(fromBackground, 2);
    EXPECT_FALSE(services.clock.isHeld());
}

TEST_F(AlertDialogsTest, TheEndAnswersAllWithTheirFirstButton)
{
    std::atomic<int> answered = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            if (alerts.show({u"waiting"_qs, {}, {u"a"_qs, u"b"_qs}}) == 0)
                ++answered;
        });
    }
    ASSERT_TRUE(QTest::qWaitFor([] { return shownAlert() != nullptr; }));
    alerts.end();
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(answered, 3);
    EXPECT_EQ(shownAlert(), nullptr);
    EXPECT_FALSE(services.clock.isHeld());
    EXPECT_EQ(alerts.show({u"late"_qs, {}, {u"a"_qs}}), 0);
}
