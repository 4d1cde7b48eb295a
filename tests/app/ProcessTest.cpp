#include "support/TestServices.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int patienceInMs = 30'000;

/** Real processes of the program, in folders of their own. */
class ProcessTest : public ServicesTest
{
protected:
    std::unique_ptr<QProcess> start(const QMap<QString, QString> &more = {}, int errorChannel = -1)
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "IBUS_ADDRESS"})
            environment.remove(QLatin1String(variable));
        environment.insert(u"QT_QPA_PLATFORM"_qs, u"offscreen"_qs);
        for (const char *variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
            environment.insert(QLatin1String(variable), services.directory.path());
        for (auto it = more.begin(); it != more.end(); ++it)
            environment.insert(it.key(), it.value());
        process->setProcessEnvironment(environment);
        if (errorChannel >= 0)
            process->setChildProcessModifier([errorChannel] { dup2(errorChannel, STDERR_FILENO); });
        process->start(QStringLiteral(TAVIMO_PROGRAM), QStringList());
        EXPECT_TRUE(process->waitForStarted(patienceInMs));
        return process;
    }
    /** Started to its last step. */
    static bool hasStarted(QProcess &process)
    {
        QByteArray output;
        while (!output.contains("didFinishLaunchingWithOptions")) {
            if (!process.waitForReadyRead(patienceInMs))
                return false;
            output += process.readAllStandardError() + process.readAllStandardOutput();
        }
        return true;
    }
    static int exitCode(QProcess &process)
    {
        EXPECT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(patienceInMs));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return process.exitCode();
    }
};

} // namespace

TEST_F(ProcessTest, ASecondStartHandsOverToTheFirst)
{
    auto first = start();
    first->setReadChannel(QProcess::StandardError);
    ASSERT_TRUE(hasStarted(*first));
    EXPECT_EQ(exitCode(*start()), 0);
    EXPECT_EQ(first->state(), QProcess::Running);

    // A crash leaves its socket behind, and locks nobody out.
    first->kill();
    ASSERT_TRUE(first->waitForFinished(patienceInMs));
    EXPECT_TRUE(QFileInfo::exists(services.directory.filePath(u"tavimo.socket"_qs)));
    auto next = start();
    next->setReadChannel(QProcess::StandardError);
    ASSERT_TRUE(hasStarted(*next));
    EXPECT_EQ(exitCode(*start()), 0);

    next->terminate();
    EXPECT_EQ(exitCode(*next), 0) << "the end of the user's session is an ordinary end";
    EXPECT_FALSE(QFileInfo::exists(services.directory.filePath(u"tavimo.socket"_qs)));
}

TEST_F(ProcessTest, ARequestToEndUnderAnAlertOfTheStartEndsItInGoodOrder)
{
    QDir().mkpath(services.directory.filePath(u"Tavimo/Vocabularies"_qs));
    QFile broken(services.directory.filePath(u"Tavimo/Vocabularies/Broken - English.tavv"_qs));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no vocabulary");
    broken.close();
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        auto process = start();
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return QFileInfo::exists(services.directory.filePath(u"tavimo.socket"_qs)); },
            patienceInMs));
        // Before the last step of the start, only an alert has an event loop that answers.
        EXPECT_EQ(exitCode(*start()), 0);
        QByteArray output = process->readAllStandardError();
        EXPECT_FALSE(output.contains("didFinishLaunching")) << "no alert stood";
        ::kill(pid_t(process->processId()), signal);
        EXPECT_EQ(exitCode(*process), 0) << signal;
        output += process->readAllStandardError();
        EXPECT_TRUE(output.contains("didFinishLaunching")) << "the start comes to its end first";
        EXPECT_FALSE(QFileInfo::exists(services.directory.filePath(u"tavimo.socket"_qs)));
    }
}

TEST_F(ProcessTest, OneFolderHasOneWriterWhateverTheSession)
{
    auto first = start();
    first->setReadChannel(QProcess::StandardError);
    ASSERT_TRUE(hasStarted(*first));
    QTemporaryDir otherSession;
    const auto startElsewhere = [&] { return start({{u"XDG_RUNTIME_DIR"_qs, otherSession.path()}}); };
    auto second = startElsewhere();
    second->setReadChannel(QProcess::StandardError);
    QByteArray output;
    while (!output.contains(services.directory.path().toUtf8()) && second->waitForReadyRead(patienceInMs))
        output += second->readAllStandardError();
    EXPECT_TRUE(output.contains(services.directory.path().toUtf8()));
    EXPECT_EQ(second->state(), QProcess::Running) << "an alert says why, on the desktop too";
    second->terminate();
    EXPECT_EQ(exitCode(*second), 1);
    EXPECT_FALSE(output.contains("didFinishLaunching"));

    // A crash locks nobody out.
    first->kill();
    ASSERT_TRUE(first->waitForFinished(patienceInMs));
    auto next = startElsewhere();
    next->setReadChannel(QProcess::StandardError);
    EXPECT_TRUE(hasStarted(*next));
    next->terminate();
    EXPECT_EQ(exitCode(*next), 0);
}

TEST_F(ProcessTest, WithoutALockOfTheSessionTheOneBesideTheDataDecides)
{
    QTemporaryDir full;
    ASSERT_TRUE(QDir(full.path()).mkdir(u"tavimo.lock"_qs)) << "no file can be made there";
    const auto startWithoutRoom = [&] { return start({{u"XDG_RUNTIME_DIR"_qs, full.path()}}); };
    auto first = startWithoutRoom();
    first->setReadChannel(QProcess::StandardError);
    ASSERT_TRUE(hasStarted(*first));
    auto second = startWithoutRoom();
    second->setReadChannel(QProcess::StandardError);
    QByteArray output;
    while (!output.contains(services.directory.path().toUtf8()) && second->waitForReadyRead(patienceInMs))
        output += second->readAllStandardError();
    EXPECT_TRUE(output.contains(services.directory.path().toUtf8()));
    for (QProcess *process : {second.get(), first.get()}) {
        process->terminate();
        EXPECT_EQ(exitCode(*process), process == first.get() ? 0 : 1);
    }
}

TEST_F(ProcessTest, OfManyStartsAtOnceOneRuns)
{
    std::array<std::unique_ptr<QProcess>, 4> processes;
    for (auto &process : processes)
        process = start();
    QElapsedTimer timer;
    timer.start();
    const auto running = [&] {
        int count = 0;
        for (const auto &process : processes) {
            process->waitForFinished(10);
            count += process->state() == QProcess::Running;
        }
        return count;
    };
    while (running() > 1 && timer.elapsed() < patienceInMs) {
    }
    EXPECT_EQ(running(), 1);
    for (const auto &process : processes) {
        if (process->state() == QProcess::Running)
            process->terminate();
        EXPECT_EQ(exitCode(*process), 0);
    }
}

TEST_F(ProcessTest, RunsOnWhenNobodyReadsItsLines)
{
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    close(ends[0]);
    auto process = start({}, ends[1]);
    close(ends[1]);
    const QString socket = services.directory.filePath(u"tavimo.socket"_qs);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFileInfo::exists(socket); }, patienceInMs));
    EXPECT_EQ(exitCode(*start()), 0) << "it runs and answers";
    process->terminate();
    EXPECT_EQ(exitCode(*process), 0);
}

TEST_F(ProcessTest, AMessageBusThatHangsHoldsUpNoStart)
{
    if (QStandardPaths::findExecutable(u"Xvfb"_qs).isEmpty())
        GTEST_SKIP() << "Xvfb is not installed; without it, nobody opens the bus at the start";
    QProcess display;
    display.start(u"Xvfb"_qs, {u"-displayfd"_qs, u"1"_qs, u"-nolisten"_qs, u"tcp"_qs});
    ASSERT_TRUE(display.waitForReadyRead(patienceInMs));
    const QString number = QString::fromLatin1(display.readLine().trimmed());
    // The system takes the call, and nobody ever looks at it.
    QLocalServer bus;
    ASSERT_TRUE(bus.listen(services.directory.filePath(u"silent-bus"_qs)));
    auto process = start({{u"QT_QPA_PLATFORM"_qs, u"xcb"_qs},
                          {u"DISPLAY"_qs, u':' + number},
                          {u"DBUS_SESSION_BUS_ADDRESS"_qs, u"unix:path="_qs + bus.fullServerName()}});
    process->setReadChannel(QProcess::StandardError);
    EXPECT_TRUE(hasStarted(*process));
    process->terminate();
    EXPECT_EQ(exitCode(*process), 0);
    display.terminate();
    display.waitForFinished(patienceInMs);
}

TEST_F(ProcessTest, APipeInThePlaceOfTheSettingsHoldsUpNoStart)
{
    const QByteArray folder = services.directory.path().toUtf8() + "/Tavimo";
    ASSERT_TRUE(QDir().mkpath(QString::fromUtf8(folder)));
    ASSERT_EQ(mkfifo((folder + "/settings.ini").constData(), 0600), 0);
    auto process = start();
    process->setReadChannel(QProcess::StandardError);
    EXPECT_TRUE(hasStarted(*process));
    process->terminate();
    EXPECT_EQ(exitCode(*process), 0);
}

TEST_F(ProcessTest, WithoutADisplayOneLineSaysSo)
{
    const QMap<QString, QString> cases[] = {
        {{u"QT_QPA_PLATFORM"_qs, QString()}},
        {{u"QT_QPA_PLATFORM"_qs, QString()}, {u"DISPLAY"_qs, u":4711"_qs}},
    };
    for (const auto &environment : cases) {
        auto process = start(environment);
        EXPECT_EQ(exitCode(*process), 1);
        const QByteArray output = process->readAllStandardError();
        EXPECT_TRUE(output.startsWith("Tavimo needs a display")) << output.constData();
        EXPECT_EQ(output.count('\n'), 1);
    }
}
