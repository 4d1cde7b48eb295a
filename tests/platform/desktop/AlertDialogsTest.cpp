#include "platform/desktop/AlertDialogs.h"
#include "support/GuiTest.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

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
    AlertDialogs alerts{services.mainDispatcher};
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
            wasHeld = services.mainDispatcher.isGateClosed();
            act();
        });
        EXPECT_EQ(alerts.show({u"Title"_qs, u"Text"_qs, {u"Yes"_qs, u"No"_qs, u"Maybe"_qs}}), expected);
        EXPECT_TRUE(wasHeld);
        EXPECT_FALSE(services.mainDispatcher.isGateClosed());
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
    const QHash<QString, int> buttons{{u"first"_qs, 0}, {u"background"_qs, 2}, {u"nested"_qs, 1}};
    std::atomic<int> fromBackground = -1;
    std::thread background;
    int fromNested = -1;
    QStringList titles;
    // Which of the later two comes first is the threads' affair.
    const std::function<void()> answerAll = [&] {
        if (shownAlert()) {
            titles.append(shownTitle());
            click(buttons.value(titles.last(), -1));
        }
        if (titles.size() < buttons.size())
            whileWaiting(answerAll);
    };
    whileWaiting([&] {
        background = std::thread([&] {
            fromBackground = alerts.show({u"background"_qs, {}, {u"a"_qs, u"b"_qs, u"c"_qs}});
        });
        whileWaiting(answerAll);
        fromNested = alerts.show({u"nested"_qs, {}, {u"a"_qs, u"b"_qs}});
    });
    EXPECT_EQ(alerts.show({u"first"_qs, {}, {u"a"_qs}}), 0);
    EXPECT_EQ(fromNested, 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fromBackground == 2; }, 20'000));
    background.join();
    EXPECT_EQ(titles.first(), u"first"_qs);
    EXPECT_EQ(titles.size(), buttons.size());
}

TEST_F(AlertDialogsTest, CallsToTheMainThreadWaitForAllAlertsOfAnOperation)
{
    const auto queues = platform::makeSystemQueues(services.mainDispatcher);
    const auto clock = platform::makeSystemClock(services.mainDispatcher);
    QStringList events;
    const auto post = [&] {
        queues->mainAsync(nullptr, [&] { events.append(u"posted"_qs); });
        clock->callAfter(std::chrono::milliseconds(0), nullptr, [&] { events.append(u"delayed"_qs); });
    };
    const auto closeAlert = [&] {
        // In a later turn than the calls fall due.
        QTimer::singleShot(20, qApp, [&] {
            events.append(u"answer"_qs);
            click(0);
        });
    };
    whileWaiting(post);
    whileWaiting(closeAlert);
    alerts.show({u"one"_qs, {}, {u"a"_qs}});
    whileWaiting(closeAlert);
    alerts.show({u"two"_qs, {}, {u"a"_qs}});
    events.append(u"end"_qs);
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.size() == 5; }));
    EXPECT_EQ(events.join(u' '), u"answer answer end posted delayed"_qs);

    // An alert of a background thread has no operation on this one, but stands before the user all the same.
    events.clear();
    std::thread background([&] { alerts.show({u"background"_qs, {}, {u"a"_qs}}); });
    EXPECT_TRUE(QTest::qWaitFor([] { return shownAlert() != nullptr; }));
    post();
    closeAlert();
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.size() == 3; }));
    background.join();
    EXPECT_EQ(events.join(u' '), u"answer posted delayed"_qs);
}

TEST_F(AlertDialogsTest, TheEndAnswersAllWithTheirFirstButton)
{
    std::atomic<int> answered = 0;
    std::vector<std::thread> threads;
    threads.reserve(3);
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            if (alerts.show({u"waiting"_qs, {}, {u"a"_qs, u"b"_qs}}) == 0)
                ++answered;
        });
    }
    ASSERT_TRUE(QTest::qWaitFor([] { return shownAlert() != nullptr; }));
    alerts.answerAll();
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(answered, 3);
    EXPECT_EQ(shownAlert(), nullptr);
    EXPECT_FALSE(services.mainDispatcher.isGateClosed());
    // A save that fails at the very end must still be told.
    whileWaiting([] { click(1); });
    EXPECT_EQ(alerts.show({u"last"_qs, {}, {u"a"_qs, u"b"_qs}}), 1);
    whileWaiting([&] { alerts.end(); });
    EXPECT_EQ(alerts.show({u"standing"_qs, {}, {u"a"_qs, u"b"_qs}}), 0);
    EXPECT_EQ(alerts.show({u"late"_qs, {}, {u"a"_qs}}), 0);
}
