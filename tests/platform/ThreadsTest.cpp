#include "platform/DiagnosticLog.h"
#include "platform/Settings.h"

#include "support/ThreadedTestQueues.h"

#include <QCoreApplication>

#include <thread>

using namespace Qt::StringLiterals;

namespace {

/** What several threads use at a time; a thread sanitizer sees more here than the expectations do. */
class ThreadsTest : public ServicesTest
{
protected:
    ThreadedTestQueues queues{services};
};

} // namespace

TEST_F(ThreadsTest, SettingsAreReadInTheBackgroundWhileTheyAreWritten)
{
    const auto settings = platform::makeSystemSettings(services.directory.path());
    const QStringList values{QString(3, u'a'), QString(3000, u'b'), u"default"_s};
    settings->registerDefaults({{u"text"_s, values.last()}});
    std::atomic<int> wrong = 0;
    std::atomic<bool> isOver = false;
    for (int i = 0; i < 4; ++i)
        queues.globalAsync([&] {
            while (!isOver)
                wrong += !values.contains(*settings->read<QString>(u"text"_s));
        });
    for (int i = 0; i < 200; ++i) {
        settings->setValue(u"text"_s, values.at(i % 2));
        settings->setValue(u"other%1"_s.arg(i), i);
        settings->registerDefaults({{u"more%1"_s.arg(i), i}});
        if (i % 50 == 49) {
            settings->synchronize();
            settings->remove(u"text"_s);
        }
    }
    isOver = true;
    EXPECT_TRUE(queues.drain());
    EXPECT_EQ(wrong, 0);
}

TEST_F(ThreadsTest, LinesOfManyThreadsComeWholeAndOnce)
{
    QStringList lines;
    platform::setDiagnosticLogListener([&lines](const QString &line) { lines.append(line); });
    constexpr int threads = 6;
    constexpr int linesPerThread = 20;
    for (int thread = 0; thread < threads; ++thread)
        queues.globalAsync([thread] {
            for (int i = 0; i < linesPerThread; ++i)
                platform::diagnosticLog(u"thread %1 line %2"_s.arg(thread).arg(i));
        });
    EXPECT_TRUE(queues.drain());
    platform::setDiagnosticLogListener({});
    EXPECT_EQ(lines.size(), threads * linesPerThread);
    EXPECT_EQ(QSet<QString>(lines.begin(), lines.end()).size(), lines.size());
}

TEST_F(ThreadsTest, AnswersOfAlertsReachTheTasksThatAskedForThem)
{
    constexpr int tasks = 8;
    for (int i = 0; i < tasks; ++i)
        services.alerts.answerNext(i);
    QList<int> answers;
    for (int i = 0; i < tasks; ++i)
        queues.globalAsync([&, i] {
            const int answer = services.alerts.show({u"%1"_s.arg(i), {}, {u"OK"_s}});
            platform::services().queues->mainAsync(nullptr, [&answers, answer] { answers.append(answer); });
        });
    services.alerts.whileShown = [&] {
        queues.mainAsync(nullptr, [&answers] { answers.prepend(-1); });
        const QDeadlineTimer later(std::chrono::milliseconds(50));
        while (!later.hasExpired())
            QCoreApplication::processEvents();
        EXPECT_TRUE(answers.isEmpty()) << "what others send waits for the end of this alert";
    };
    EXPECT_TRUE(queues.drain());
    EXPECT_EQ(services.alerts.shown.size(), tasks);
    EXPECT_EQ(answers.size(), tasks + 1);
    std::sort(answers.begin(), answers.end());
    for (int i = -1; i < tasks; ++i)
        EXPECT_EQ(answers.value(i + 1), i);
}
