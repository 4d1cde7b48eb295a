#include "app/AppDelegate.h"

#include "DeployerValues.h"
#include "app/ground/SettingsTable.h"
#include "files/Files.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "storage/SafeSaves.h"
#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"
#include "sync/TAVSyncLog.h"
#include "usage/KeenClient.h"
#include "usage/RatingPrompt.h"
#include "usage/logging/DDASLLogger.h"
#include "usage/logging/DDLog.h"
#include "usage/logging/DDTTYLogger.h"

#include <QFileInfo>
#include <QUuid>

void AppDelegate::load()
{
    RatingPrompt::Thresholds thresholds;
    thresholds.daysUntilPrompt = 5;
    thresholds.usesUntilPrompt = 10;
    thresholds.eventsUntilPrompt = 10;
    thresholds.promptAtLaunch = false;
    thresholds.previewMode = false;
    RatingPrompt::shared()->configure(thresholds);
}

AppDelegate::AppDelegate()
{
    DDLog::addLogger(DDASLLogger::sharedInstance());
    DDLog::addLogger(DDTTYLogger::sharedInstance());
    if (const QString folder = applicationSupportFolder(); !folder.isEmpty())
        m_folderLock.emplace(folder);
    if (isWithoutLock())
        platform::diagnosticLog(
            QStringLiteral("AppDelegate > init > no lock for the folder: another Tavimo may work in it"));
    // What another program is just writing is not for us to finish.
    if (!isFolderTaken())
        storage::finishTornWrites();
}

AppDelegate::~AppDelegate()
{
    DDLog::removeLogger(DDTTYLogger::sharedInstance());
    DDLog::removeLogger(DDASLLogger::sharedInstance());
}

void AppDelegate::applicationWillFinishLaunching()
{
    offerMoveToApplicationsFolder();
}

QList<AppDelegate::Notice> AppDelegate::notices() const
{
    using platform::SettingsState;
    QList<Notice> notices = m_addedNotices;
    const QString folder = vocabularyFolderPath();
    if (const auto entries = files::list(folder); !entries)
        notices.append({QStringLiteral("folderUnreadableLabel"),
                        platform::localized("folderUnreadable").arg(folder, entries.error().text())});
    if (isWithoutLock())
        notices.append({QStringLiteral("folderNotLockedLabel"),
                        platform::localized("folderNotLocked").arg(QFileInfo(folder).path())});
    const SettingsState state = platform::settings().state();
    const QString settingsFile = platform::settingsPath(platform::services().folders->configDirectory());
    if (state == SettingsState::Unusable)
        notices.append(
            {QStringLiteral("settingsLabel"), platform::localized("settingsUnusable").arg(settingsFile)});
    if (state == SettingsState::Damaged)
        notices.append(
            {QStringLiteral("settingsLabel"), platform::localized("settingsDamaged").arg(settingsFile)});
    return notices;
}

void AppDelegate::applicationDidFinishLaunching(const QString &notificationName)
{
    registerDefaults();
    TAVStorageManager::tidyBackups();
    platform::services().queues->globalAsync(
        [] { DropBoxController::sharedManager()->syncSyncLogToDropbox(); });
    DropBoxController::sharedManager()->syncWithDropbox();
    startUsageClient();
    if (m_mainWindowController)
        m_mainWindowController->applicationDidFinishLaunching();
    platform::diagnosticLog(
        QLatin1String("didFinishLaunchingWithOptions: notification name %1").arg(notificationName));
}

void AppDelegate::registerDefaults()
{
    // The first holds for Application::notify(), which lets no exception pass.
    platform::settings().registerDefaults(
        {{QStringLiteral("NSApplicationCrashOnExceptions"), true},
         {QStringLiteral("NSConstraintBasedLayoutVisualizeMutuallyExclusiveConstraints"), false}});
}

void AppDelegate::startUsageClient()
{
    KeenClient *client = KeenClient::sharedClient();
    client->disableGeoLocation();
    client->setKeys(QString::fromLatin1(deployer::keenProjectId), QString::fromLatin1(deployer::keenWriteKey),
                    QString::fromLatin1(deployer::keenReadKey));
    QString uuid = settings::installationUuid.value().value_or(QString());
    if (uuid.isEmpty()) {
        uuid = QUuid::createUuid().toString(QUuid::WithoutBraces);
        settings::installationUuid.set(uuid);
    }
    client->setGlobalProperties({{QStringLiteral("userUUID"), uuid}});
    client->collectKeenData();
}

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows)
{
    Q_UNUSED(hasVisibleWindows)
    if (m_mainWindowController)
        m_mainWindowController->updateViews();
    return true;
}

void AppDelegate::applicationWillTerminate()
{
    TAVSyncLog::sharedManager()->saveLogAndClear();
}
