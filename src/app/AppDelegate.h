#pragma once

#include "app/ground/AppGround.h"
#include "files/FolderLock.h"

#include <QList>
#include <QString>

#include <optional>

/** What the entry object tells the main window. */
class MainWindowLink
{
public:
    virtual ~MainWindowLink() = default;
    virtual void applicationDidFinishLaunching() = 0;
    virtual void updateViews() = 0;
};

/**
 * The entry object: fixes the order in which the subsystems start and stop. The composition calls it in the
 * order of its declaration, all on the main thread.
 */
class AppDelegate : public AppGround
{
public:
    /** What comes before everything else, even before the one instance: when the rating prompt asks. */
    static void load();
    /** Opens the log, makes the program's folder, and finishes what an earlier run was writing there. */
    AppDelegate();
    ~AppDelegate() override;
    /** Another program works in the folder. Then this one must not go on: the last to save would win. */
    bool isFolderTaken() const
    {
        return m_folderLock && m_folderLock->state() == files::FolderLock::State::TakenByAnother;
    }

    void applicationWillFinishLaunching();

    struct Notice
    {
        /** The object name of its line. */
        QString name;
        QString text;
    };
    /** One more for notices(). */
    void addNotice(const Notice &notice) { m_addedNotices.append(notice); }
    /** What is wrong with the program's surroundings, but not so that it couldn't run. */
    QList<Notice> notices() const;

    /** Not owned; set once the main window stands, and back to null before it goes. */
    void setMainWindowController(MainWindowLink *controller) { m_mainWindowController = controller; }
    /** The rest of the start. Nothing here waits for the background work that it begins. */
    void applicationDidFinishLaunching(const QString &notificationName);

    /** The user has started or chosen the running program once more. */
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

    /** Always: every change has been saved when it was made, and a running sync can be cut off. */
    bool applicationShouldTerminate() const { return true; }
    bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }
    void applicationWillTerminate();

protected:
    /** Where a program lies is the package manager's business here: nobody is asked. */
    virtual void offerMoveToApplicationsFolder() {}

private:
    bool isWithoutLock() const
    {
        return m_folderLock && m_folderLock->state() == files::FolderLock::State::Unavailable;
    }
    static void registerDefaults();
    static void startUsageClient();

    MainWindowLink *m_mainWindowController = nullptr;
    std::optional<files::FolderLock> m_folderLock;
    QList<Notice> m_addedNotices;
};
