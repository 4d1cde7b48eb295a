#include "platform/Queues.h"
#include "platform/MainDispatcher.h"

#include "support/WaitUntil.h"

#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

namespace {

class QueuesTest : public ::testing::Test
{
protected:
    platform::MainDispatcher dispatcher;
};

TEST_F(QueuesTest, serialQueueRunsInOrderAndItsEndWaitsForTheRest)
{
    std::vector<int> order;
    QString labelInside;
    {
        const auto queue = platform::makeSystemSerialQueue(QStringLiteral("test queue"));
        for (int i = 0; i < 1000; ++i)
            queue->async([&order, i] { order.push_back(i); });
        queue->sync([&] {
            EXPECT_EQ(order.size(), 1000U);
            EXPECT_TRUE(queue->isCurrent());
            labelInside = platform::currentQueueLabel();
        });
        EXPECT_FALSE(queue->isCurrent());
        queue->async([&] { order.push_back(1000); });
    }
    ASSERT_EQ(order.size(), 1001U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_EQ(labelInside, QStringLiteral("test queue"));
    EXPECT_EQ(platform::currentQueueLabel(), QString());
}

TEST_F(QueuesTest, mainTasksRunLaterOnTheMainThreadInOrder)
{
    const auto queues = platform::makeSystemQueues(dispatcher);
    QStringList noted;
    QThread *const main = QThread::currentThread();
    auto context = std::make_unique<QObject>();
    std::promise<void> posted;
    queues->globalAsync([&] {
        queues->mainAsync(context.get(), [&] { noted.append(QStringLiteral("with context")); });
        queues->mainAsync(nullptr, [&] {
            noted.append(QThread::currentThread() == main ? QStringLiteral("on main")
                                                          : QStringLiteral("off"));
            context.reset();
        });
        queues->mainAsync(context.get(), [&] { noted.append(QStringLiteral("context gone")); });
        queues->mainAsync(nullptr, [&] { noted.append(QStringLiteral("last")); });
        posted.set_value();
    });
    // The context must not go while somebody still names it.
    posted.get_future().wait();
    ASSERT_TRUE(waitUntil([&] { return noted.size() >= 3; }));
    EXPECT_EQ(noted.join(u','), QStringLiteral("with context,on main,last"));
}

TEST_F(QueuesTest, blockedBackgroundTasksHoldUpNeitherOthersNorTheEnd)
{
    auto queues = platform::makeSystemQueues(dispatcher);
    const auto mayEnd = std::make_shared<std::promise<void>>();
    const auto gate = mayEnd->get_future().share();
    const auto blocked = std::make_shared<std::atomic<int>>(0);
    const auto lateRuns = std::make_shared<std::atomic<int>>(0);
    for (int i = 0; i < 8; ++i)
        queues->globalAsync([gate, blocked] {
            ++*blocked;
            gate.wait();
            --*blocked;
        });
    std::promise<void> ran;
    queues->globalAsync([&] { ran.set_value(); });
    EXPECT_EQ(ran.get_future().wait_for(20s), std::future_status::ready);
    ASSERT_TRUE(waitUntil([&] { return *blocked == 8; }));

    EXPECT_FALSE(queues->finish(1ms));
    queues->globalAsync([lateRuns] { ++*lateRuns; });
    queues.reset();
    EXPECT_EQ(*blocked, 8) << "the end did not wait";
    mayEnd->set_value();
    ASSERT_TRUE(waitUntil([&] { return *blocked == 0; }));
    EXPECT_EQ(*lateRuns, 0);
}

TEST_F(QueuesTest, finishWaitsForWhatEndsInTime)
{
    const auto queues = platform::makeSystemQueues(dispatcher);
    std::atomic<bool> hasEnded = false;
    std::promise<void> started;
    queues->globalAsync([&] {
        started.set_value();
        std::this_thread::yield();
        hasEnded = true;
    });
    started.get_future().wait();
    EXPECT_TRUE(queues->finish(20s));
    EXPECT_TRUE(hasEnded);
}

} // namespace
