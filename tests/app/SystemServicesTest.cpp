#include "app/SystemServices.h"
#include "support/GuiTest.h"

#include <QTcpServer>
#include <QTest>

namespace {

/** The program's own services, in folders of the test. */
class SystemServicesTest : public ServicesTest
{
protected:
    SystemServicesTest()
    {
        for (const char *variable : variables)
            qputenv(variable, services.directory.path().toUtf8());
    }
    ~SystemServicesTest() override
    {
        for (const char *variable : variables)
            qunsetenv(variable);
    }

private:
    static constexpr const char *variables[] = {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"};
};

} // namespace

TEST_F(SystemServicesTest, TheEndWaitsForNoServerAndNoAlert)
{
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    SystemServices system;
    const platform::Services &installed = platform::services();
    std::atomic<int> ended = 0;
    const QUrl url(u"http://127.0.0.1:%1/"_qs.arg(silent.serverPort()));
    const platform::HttpLimits patient{1000, std::chrono::hours(1), std::chrono::hours(1)};
    installed.queues->globalAsync([&, url] {
        const auto response = platform::services().http->sendBlocking({.url = url, .limits = patient});
        ended += response.error == platform::HttpError::cancelled;
    });
    installed.queues->globalAsync([&] {
        ended += platform::services().alerts->show({u"asks"_qs, {}, {u"a"_qs, u"b"_qs}}) == 0;
    });
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return silent.hasPendingConnections() && QApplication::activeModalWidget() != nullptr; }));
    EXPECT_TRUE(system.finish());
    EXPECT_EQ(ended, 2);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}
