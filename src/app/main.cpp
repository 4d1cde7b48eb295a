#include "app/Application.h"
#include "app/Composition.h"
#include "app/SystemServices.h"
#include "platform/Texts.h"
#include "platform/desktop/SessionBus.h"
#include "platform/desktop/SingleInstance.h"
#include "usage/logging/DDLog.h"

#include <cstdio>
#include <cstdlib>

void linkTavimoTexts();

namespace {

using platform::SingleInstance;

/** Long enough for a running program that is busy loading, or just about to end. */
constexpr std::chrono::seconds patienceWithFirst{10};

/** The last thing before the program's parts are destroyed; the process's result. */
int end(SystemServices &services, int result)
{
    if (!services.finish()) {
        // What still runs in the background must not meet a half destroyed program.
        DDLog::flushLog();
        std::_Exit(result);
    }
    return result;
}

/** Tells why there can be no second program; the process's result. */
int refuse(SystemServices &services, const QString &text)
{
    std::fputs(qPrintable(text + u'\n'), stderr);
    platform::services().alerts->show({QStringLiteral("Tavimo"), text, {platform::localized("quit")}});
    return end(services, 1);
}

/** From the first folder to the end of all work; the process's result. */
int run(Application &application, SystemServices &services, SingleInstance &instance,
        const QList<AppDelegate::Notice> &notices)
{
    Composition composition;
    AppDelegate &delegate = composition.delegate();
    if (delegate.isFolderTaken())
        return refuse(services,
                      platform::localized("folderTaken").arg(AppDelegate::applicationSupportFolder()));
    if (AppDelegate::vocabularyFolderPath().isEmpty())
        return end(services, 1); // The user has been told that there is nowhere to keep anything.
    application.setShouldTerminate([&delegate] { return delegate.applicationShouldTerminate(); });
    for (const AppDelegate::Notice &notice : notices)
        delegate.addNotice(notice);
    delegate.applicationWillFinishLaunching();
    Program &program = composition.makeProgram();
    program.awakeFromNib();
    QObject::connect(&instance, &SingleInstance::startedAgain, &program, &Program::reopen);
    delegate.applicationDidFinishLaunching(QStringLiteral("ApplicationDidFinishLaunching"));
    const int result = application.run();
    delegate.applicationWillTerminate();
    return end(services, result);
}

} // namespace

int main(int argc, char **argv)
{
    platform::leaveSilentSessionBus();
    Application application(argc, argv);
    linkTavimoTexts();
    platform::installTexts(platform::userLocaleName());
    SystemServices services;

    QObject::connect(&application, &Application::ending, &application,
                     [&](bool isRunning) { isRunning ? services.answerAlerts() : services.endAlerts(); });
    application.quitOnSignals();

    const QString runtimeFolder = platform::services().folders->runtimeDirectory();
    SingleInstance instance(runtimeFolder);
    const SingleInstance::Role role = instance.start(patienceWithFirst);
    if (role == SingleInstance::Role::second)
        return end(services, 0);
    if (role == SingleInstance::Role::blocked)
        return refuse(services, platform::localized("noAnswer"));
    QList<AppDelegate::Notice> notices;
    // Then the lock beside the data decides alone.
    if (role == SingleInstance::Role::unwritable)
        notices.append({QStringLiteral("runtimeUnwritableLabel"),
                        platform::localized("runtimeUnwritable").arg(runtimeFolder)});
    return run(application, services, instance, notices);
}
