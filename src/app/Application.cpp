#include "app/Application.h"

#include "widgets/Icons.h"

#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int signalSockets[2] = {-1, -1};

void handleSignal(int)
{
    const char byte = 0;
    // Nothing more is allowed inside a signal handler.
    [[maybe_unused]] const auto written = write(signalSockets[0], &byte, 1);
}

[[noreturn]] void endWithoutDisplay()
{
    std::fputs("Tavimo needs a display: start it from a desktop session, or set DISPLAY.\n", stderr);
    std::_Exit(1);
}

/** Qt would abort, with a report of a crash, where the display can't be opened. */
void endOnFatalMessage(QtMsgType type, const QMessageLogContext &, const QString &)
{
    if (type == QtFatalMsg)
        endWithoutDisplay();
}

bool isAnyDisplayNamed()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

/** Runs before the base class opens the display. */
int &prepared(int &argc)
{
    if (!isAnyDisplayNamed())
        endWithoutDisplay();
    qInstallMessageHandler(endOnFatalMessage);
    // The terminal or pipe that takes the lines of the log may be closed long before the user is done.
    std::signal(SIGPIPE, SIG_IGN);
    return argc;
}

} // namespace

Application::Application(int &argc, char **argv)
    : QApplication(prepared(argc), argv)
{
    qInstallMessageHandler(nullptr);
    setApplicationName(QStringLiteral("Tavimo"));
    setDesktopFileName(QStringLiteral("org.tavimo.Tavimo"));
    setWindowIcon(Icons::application());
    // Only the main window ends the program; alerts and panels come and go, also while it is not seen.
    setQuitOnLastWindowClosed(false);
}

void Application::setShouldTerminate(std::function<bool()> shouldTerminate)
{
    m_shouldTerminate = std::move(shouldTerminate);
}

bool Application::notify(QObject *receiver, QEvent *event) noexcept
{
    return QApplication::notify(receiver, event);
}

bool Application::event(QEvent *event)
{
    if (event->type() == QEvent::Quit) {
        if (m_shouldTerminate && !m_shouldTerminate()) {
            event->ignore();
            return true;
        }
        m_isEnding = true;
        Q_EMIT ending(m_isRunning);
    }
    return QApplication::event(event);
}

int Application::run()
{
    if (m_isEnding)
        return 0;
    m_isRunning = true;
    return exec();
}

void Application::quitOnSignals()
{
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalSockets) != 0)
        return;
    auto *notifier = new QSocketNotifier(signalSockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &Application::quitOnSignal);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, handleSignal);
}

void Application::quitOnSignal()
{
    char bytes[16];
    while (read(signalSockets[1], bytes, sizeof(bytes)) > 0) {
    }
    // Not quit(), which does nothing before the program's own event loop runs.
    QEvent quitEvent(QEvent::Quit);
    sendEvent(this, &quitEvent);
}
