#include "app/AppDelegate.h"
#include "support/GuiTest.h"
#include "sync/DropBoxController.h"
#include "sync/TAVSyncLog.h"
#include "usage/KeenClient.h"
#include "usage/RatingPrompt.h"
#include "usage/logging/DDLog.h"

namespace {

/** Stands for every receiver of the start and the stop, and writes down what it is told. */
class Receivers : public DropBoxController,
                  public TAVSyncLog,
                  public KeenClient,
                  public RatingPrompt,
                  public MainWindowLink
{
public:
    Receivers()
    {
        DropBoxController::setSharedManager(this);
        TAVSyncLog::setSharedManager(this);
        KeenClient::setSharedClient(this);
        RatingPrompt::setShared(this);
    }
    ~Receivers() override
    {
        DropBoxController::setSharedManager(nullptr);
        TAVSyncLog::setSharedManager(nullptr);
        KeenClient::setSharedClient(nullptr);
        RatingPrompt::setShared(nullptr);
    }

    void configure(const Thresholds &thresholds) override
    {
        calls.append(u"rating %1 %2 %3"_qs.arg(thresholds.daysUntilPrompt)
                         .arg(thresholds.usesUntilPrompt)
                         .arg(thresholds.eventsUntilPrompt));
        EXPECT_FALSE(thresholds.promptAtLaunch || thresholds.previewMode);
    }
    void syncSyncLogToDropbox() override { calls.append(u"sync log"_qs); }
    void syncWithDropbox() override { calls.append(u"sync"_qs); }
    void disableGeoLocation() override { calls.append(u"no location"_qs); }
    void setKeys(const QString &projectId, const QString &, const QString &) override
    {
        calls.append(u"keys"_qs);
        EXPECT_EQ(projectId.size(), 24);
    }
    void setGlobalProperties(const QVariantMap &properties) override
    {
        calls.append(u"properties"_qs);
        globalProperties = properties;
    }
    void collectKeenData() override { calls.append(u"collect"_qs); }
    void applicationDidFinishLaunching() override { calls.append(u"window did finish"_qs); }
    void updateViews() override { calls.append(u"update views"_qs); }
    void saveLogAndClear() override { calls.append(u"save log"_qs); }

    QStringList calls;
    QVariantMap globalProperties;
};

/** The entry object, with the offer at the start written down too. */
class ListeningDelegate : public AppDelegate
{
public:
    explicit ListeningDelegate(Receivers &receivers)
        : m_receivers(receivers)
    {
    }

protected:
    void offerMoveToApplicationsFolder() override { m_receivers.calls.append(u"offer move"_qs); }

private:
    Receivers &m_receivers;
};

class StartStopTest : public ServicesTest
{
protected:
    /** What was called since this was last asked. */
    QStringList newCalls() { return std::exchange(receivers.calls, {}); }
    int numberOfBackups() const
    {
        return int(QDir(AppDelegate::backupFolderPath()).entryList(QDir::Files).size());
    }

    Receivers receivers;
};

} // namespace

TEST_F(StartStopTest, EveryCallComesInItsPlace)
{
    AppDelegate::load();
    EXPECT_EQ(newCalls(), QStringList{u"rating 5 10 10"_qs});

    const qsizetype loggersBefore = DDLog::allLoggers().size();
    {
        const AppDelegate first;
    }
    EXPECT_EQ(DDLog::allLoggers().size(), loggersBefore) << "they go with it";
    ListeningDelegate delegate(receivers);
    EXPECT_EQ(DDLog::allLoggers().size(), loggersBefore + 2);
    EXPECT_TRUE(QFileInfo::exists(services.directory.filePath(u"Tavimo"_qs)));

    delegate.applicationWillFinishLaunching();
    EXPECT_EQ(newCalls(), QStringList{u"offer move"_qs});

    for (int i = 0; i < 25; ++i) {
        QFile backup(u"%1/Italian - English-%2.tavv"_qs.arg(AppDelegate::backupFolderPath()).arg(i));
        ASSERT_TRUE(backup.open(QIODevice::WriteOnly));
        const qint64 ageInDays = i < 4 ? 400 : 0;
        ASSERT_TRUE(
            backup.setFileTime(services.clock.now().addDays(-ageInDays), QFile::FileModificationTime));
    }
    delegate.setMainWindowController(&receivers);
    services.diagnosticLines.clear();
    delegate.applicationDidFinishLaunching(u"launch"_qs);
    EXPECT_EQ(newCalls(), QStringList({u"sync"_qs, u"no location"_qs, u"keys"_qs, u"properties"_qs,
                                       u"collect"_qs, u"window did finish"_qs}));
    EXPECT_EQ(services.diagnosticLines,
              QStringList{u"didFinishLaunchingWithOptions: notification name launch"_qs});
    EXPECT_EQ(services.settings.value(u"NSApplicationCrashOnExceptions"_qs), true);
    EXPECT_EQ(services.settings.writtenKeys, QStringList{u"installation_uuid"_qs});

    EXPECT_EQ(numberOfBackups(), 25) << "the start waits for no background work";
    services.queues.drain();
    EXPECT_EQ(newCalls(), QStringList{u"sync log"_qs});
    EXPECT_EQ(numberOfBackups(), 21);

    EXPECT_TRUE(delegate.applicationShouldHandleReopen(true));
    EXPECT_EQ(newCalls(), QStringList{u"update views"_qs});

    EXPECT_TRUE(delegate.applicationShouldTerminateAfterLastWindowClosed());
    EXPECT_TRUE(delegate.applicationShouldTerminate());
    delegate.applicationWillTerminate();
    services.queues.drain();
    EXPECT_EQ(newCalls(), QStringList{u"save log"_qs});
}

TEST_F(StartStopTest, TheInstallationKeepsItsIdentity)
{
    const auto start = [this] {
        AppDelegate().applicationDidFinishLaunching({});
        return receivers.globalProperties.value(u"userUUID"_qs).toString();
    };
    const QString made = start();
    EXPECT_EQ(made, QUuid(made).toString(QUuid::WithoutBraces));
    EXPECT_FALSE(QUuid(made).isNull());
    EXPECT_EQ(receivers.globalProperties.size(), 1);
    EXPECT_EQ(start(), made);

    services.settings.setValue(u"installation_uuid"_qs, u"as it was stored"_qs);
    EXPECT_EQ(start(), u"as it was stored"_qs);
    EXPECT_EQ(services.settings.writtenKeys.count(u"installation_uuid"_qs), 2);
}
