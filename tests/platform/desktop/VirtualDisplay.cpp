#include "VirtualDisplay.h"

#include "platform/Texts.h"
#include "support/SanitizerOptions.h"

#include <QApplication>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

bool serverRuns = false;

bool isInstalled(const char *program)
{
    return !QStandardPaths::findExecutable(QLatin1String(program)).isEmpty();
}

/** Starts a server on a free display, which keeps its keymap when clients leave. */
bool startServer(QProcess &server)
{
    if (!isInstalled("Xvfb") || !isInstalled("setxkbmap"))
        return false;
    server.start(QStringLiteral("Xvfb"),
                 {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-noreset"),
                  QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-screen"),
                  QStringLiteral("0"), QStringLiteral("1280x900x24")});
    if (!server.waitForReadyRead(30'000)) {
        qCritical("The virtual X server did not start");
        std::exit(1);
    }
    qputenv("DISPLAY", ':' + server.readLine().trimmed());
    return true;
}

} // namespace

bool virtualdisplay::isRunning()
{
    return serverRuns;
}

bool virtualdisplay::run(const QString &program, const QStringList &arguments)
{
    return QProcess::execute(program, arguments) == 0;
}

int main(int argc, char **argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    int result = 1;
    QProcess server;
    serverRuns = startServer(server);
    qputenv("QT_QPA_PLATFORM", serverRuns ? "xcb" : "offscreen");
    {
        QApplication application(argc, argv);
        result = RUN_ALL_TESTS();
    }
    server.kill();
    server.waitForFinished();
    return result;
}
