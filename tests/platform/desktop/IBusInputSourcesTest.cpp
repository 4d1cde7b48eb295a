#include "platform/desktop/IBusInputSources.h"
#include "PrivateBus.h"
#include "platform/desktop/SystemInputSources.h"
#include "support/GuiTest.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTest>

#include <mutex>

using platform::IBusInputSources;
using namespace std::chrono_literals;

namespace {

QDBusVariant engine(const QString &name, const QString &longName)
{
    QDBusArgument argument;
    argument.beginStructure();
    argument << u"IBusEngineDesc"_qs << QVariantMap() << name << longName << u"description"_qs << u"ja"_qs
             << 0u;
    argument.endStructure();
    return QDBusVariant(QVariant::fromValue(argument));
}

QVariant engines(const QStringList &names)
{
    QDBusArgument argument;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const QString &name : names)
        argument << engine(name, u"Long "_qs + name);
    argument.endArray();
    return QVariant::fromValue(argument);
}

/** What the daemon of the test knows; its thread and the test's share it. */
struct FakeDaemon
{
    std::mutex mutex;
    QStringList installed{u"mozc-jp"_qs, u"xkb:us::eng"_qs, u"xkb:de::ger"_qs};
    QStringList enabled{u"xkb:us::eng"_qs, u"mozc-jp"_qs};
    QString current = u"xkb:us::eng"_qs;
    bool answersNonsense = false;

    void change(const std::function<void(FakeDaemon &)> &make)
    {
        const std::lock_guard lock(mutex);
        make(*this);
    }
    QString currentEngine()
    {
        const std::lock_guard lock(mutex);
        return current;
    }
    QDBusMessage answer(const QDBusMessage &call)
    {
        const std::lock_guard lock(mutex);
        const auto wrapped = [](const QVariant &value) { return QVariant::fromValue(QDBusVariant(value)); };
        const QString member = call.member();
        if (answersNonsense)
            return call.createReply(wrapped(u"nonsense"_qs));
        if (member == u"GetValue")
            return enabled.isEmpty() ? call.createErrorReply(QDBusError::Failed, {})
                                     : call.createReply(wrapped(enabled));
        if (member == u"Get" && call.arguments().value(1) == u"Engines"_qs)
            return call.createReply(wrapped(engines(installed)));
        if (member == u"Get")
            return call.createReply(wrapped(QVariant::fromValue(engine(current, u"Now"_qs))));
        if (member == u"GetEnginesByNames")
            return call.createReply(engines(call.arguments().value(0).toStringList()));
        if (member == u"SetGlobalEngine")
            current = call.arguments().value(0).toString();
        return call.createReply();
    }
};

QStringList ids(const QList<platform::InputSourceRef> &sources)
{
    QStringList list;
    for (const auto &source : sources)
        list.append(source->id);
    return list;
}

class IBusInputSourcesTest : public ServicesTest
{
protected:
    ~IBusInputSourcesTest() override { qunsetenv("IBUS_ADDRESS"); }

    /** False if there is no message bus. */
    bool start()
    {
        if (bus->address().isEmpty())
            return false;
        qputenv("IBUS_ADDRESS", bus->address().toUtf8());
        bus->serve({u"org.freedesktop.IBus"_qs, u"org.freedesktop.IBus.Config"_qs},
                   u"/org/freedesktop/IBus"_qs,
                   [this](const QDBusMessage &call) { return daemon.answer(call); });
        return true;
    }
    /** Lets the background do what it was asked for, and report it. */
    void settle()
    {
        processEvents();
        services.queues.drain();
        processEvents();
        services.queues.drain();
    }
    /**
     * Whether the daemon's report makes the condition come true. It is sent again and again, as the daemon
     * may not have heard yet that somebody listens.
     */
    template <typename Condition>
    bool takesReport(const QString &interface, const QString &name, const QVariantList &arguments,
                     Condition condition)
    {
        const QString end = interface.endsWith(u"Config"_qs) ? u"/Config"_qs : QString();
        QDBusMessage signal = QDBusMessage::createSignal(u"/org/freedesktop/IBus"_qs + end, interface, name);
        signal.setArguments(arguments);
        return QTest::qWaitFor([&] {
            bus->emitSignal(signal);
            settle();
            return condition();
        });
    }

    FakeDaemon daemon;
    std::optional<PrivateBus> bus{std::in_place};
};

} // namespace

TEST_F(IBusInputSourcesTest, ListsAndSwitchesEngines)
{
    if (!start())
        GTEST_SKIP() << "dbus-daemon is not installed";
    IBusInputSources sources;
    EXPECT_TRUE(sources.createInputSourceList(false).isEmpty()) << "nobody waits for the daemon";
    {
        // Neither does the background wait for an alert.
        const platform::ClosedGate alert(services.mainDispatcher);
        settle();
    }
    const auto enabled = sources.createInputSourceList(false);
    EXPECT_EQ(ids(enabled), QStringList({u"ibus:xkb:us::eng"_qs, u"ibus:mozc-jp"_qs}));
    EXPECT_EQ(sources.enabledCount(), 2);
    EXPECT_EQ(sources.createInputSourceList(true).size(), 3);
    ASSERT_EQ(enabled.size(), 2);
    EXPECT_EQ(enabled.at(1)->localizedName, u"Long mozc-jp"_qs);

    ASSERT_NE(sources.currentKeyboardLayoutInputSource(), nullptr);
    EXPECT_EQ(sources.currentKeyboardLayoutInputSource()->id, u"ibus:xkb:us::eng"_qs);
    sources.selectInputSource(enabled.at(1));
    EXPECT_EQ(sources.currentKeyboardLayoutInputSource()->id, u"ibus:mozc-jp"_qs) << "at once";
    EXPECT_TRUE(QTest::qWaitFor([&] { return daemon.currentEngine() == u"mozc-jp"_qs; }));
    sources.selectInputSource(nullptr);
    sources.selectInputSource(std::make_shared<const platform::InputSource>(
        platform::InputSource{u"xkb:de"_qs, u"of another kind"_qs}));
    EXPECT_EQ(sources.currentKeyboardLayoutInputSource()->id, u"ibus:mozc-jp"_qs);
}

TEST_F(IBusInputSourcesTest, FollowsWhatTheUserChangesElsewhere)
{
    if (!start())
        GTEST_SKIP() << "dbus-daemon is not installed";
    IBusInputSources sources;
    QObject context;
    int changes = 0;
    sources.setListChanged(&context, [&] { ++changes; });
    settle();
    EXPECT_EQ(changes, 1);

    EXPECT_TRUE(takesReport(u"org.freedesktop.IBus"_qs, u"GlobalEngineChanged"_qs, {u"xkb:de::ger"_qs}, [&] {
        return sources.currentKeyboardLayoutInputSource()->id == u"ibus:xkb:de::ger"_qs;
    }));

    daemon.change([](FakeDaemon &changed) { changed.enabled.clear(); });
    const QVariantList setting{u"general"_qs, u"preload-engines"_qs,
                               QVariant::fromValue(QDBusVariant(QStringList()))};
    EXPECT_TRUE(takesReport(u"org.freedesktop.IBus.Config"_qs, u"ValueChanged"_qs, setting, [&] {
        return sources.createInputSourceList(false).size() == 3;
    })) << "all, where the enabled ones are not told";
    EXPECT_EQ(sources.enabledCount(), 0);
    EXPECT_EQ(changes, 2);

    daemon.change([](FakeDaemon &changed) { changed.answersNonsense = true; });
    EXPECT_TRUE(takesReport(u"org.freedesktop.IBus"_qs, u"RegistryChanged"_qs, {},
                            [&] { return sources.createInputSourceList(true).isEmpty(); }));
    EXPECT_EQ(sources.currentKeyboardLayoutInputSource(), nullptr);
    EXPECT_EQ(changes, 3);
}

TEST_F(IBusInputSourcesTest, ForgetsADaemonThatHasLeftAndFindsTheNext)
{
    if (!start())
        GTEST_SKIP() << "dbus-daemon is not installed";
    IBusInputSources sources;
    const auto becomesCount = [&](int count, std::chrono::milliseconds step) {
        return QTest::qWaitFor([&] {
            processEvents();
            services.clock.advance(step);
            settle();
            return sources.enabledCount() == count;
        });
    };
    settle();
    EXPECT_EQ(sources.enabledCount(), 2);
    bus.reset();
    EXPECT_TRUE(becomesCount(0, 1s));
    bus.emplace();
    ASSERT_TRUE(start());
    services.clock.advance(31s);
    EXPECT_TRUE(sources.createInputSourceList(false).isEmpty());
    EXPECT_TRUE(becomesCount(2, 0s)) << "since it was asked for again";

    // One that was only restarted is back soon, without being asked for.
    daemon.change([](FakeDaemon &changed) { changed.enabled.append(u"xkb:de::ger"_qs); });
    bus.emplace();
    ASSERT_TRUE(start());
    EXPECT_TRUE(becomesCount(3, 20ms));
}

TEST_F(IBusInputSourcesTest, ASilentDaemonHoldsUpNobodyAndIsLeftAloneForAWhile)
{
    // It lets programs connect, like a stopped daemon, and never says a word.
    QLocalServer silent;
    const QString path = services.directory.filePath(u"silent"_qs);
    ASSERT_TRUE(silent.listen(path));
    int connections = 0;
    int connectionsOfBackground = 0;
    QObject::connect(&silent, &QLocalServer::newConnection, &silent, [&] {
        while (silent.nextPendingConnection())
            ++connections;
    });
    const auto file = u"%1/ibus/bus/%2-unix-7"_qs.arg(services.directory.path(),
                                                      QString::fromLatin1(QSysInfo::machineUniqueId()));
    QDir().mkpath(QFileInfo(file).path());
    QFile addressFile(file);
    ASSERT_TRUE(addressFile.open(QIODevice::WriteOnly));
    addressFile.write("# comment\nIBUS_ADDRESS=unix:path=" + path.toUtf8() + ",guid=1\nIBUS_DAEMON_PID=1\n");
    addressFile.close();
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("DISPLAY", ":7.0");
    qputenv("XDG_CONFIG_HOME", services.directory.path().toUtf8());

    const auto sources = platform::makeSystemInputSources();
    const auto connectionsAfterAsking = [&] {
        EXPECT_TRUE(sources->createInputSourceList(false).isEmpty());
        EXPECT_EQ(sources->currentKeyboardLayoutInputSource(), nullptr);
        processEvents();
        const int before = connections;
        settle();
        EXPECT_EQ(before, connectionsOfBackground) << "only the background waits";
        return connectionsOfBackground = connections;
    };
    EXPECT_EQ(connectionsAfterAsking(), 1);
    EXPECT_EQ(connectionsAfterAsking(), 1);
    services.clock.advanceSeconds(31);
    EXPECT_EQ(connectionsAfterAsking(), 2);
    qunsetenv("XDG_CONFIG_HOME");
    qunsetenv("DISPLAY");
}
