#include "platform/desktop/IBusInputSources.h"
#include "PrivateBus.h"
#include "support/GuiTest.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QLocalServer>
#include <QLocalSocket>

#include <mutex>

using platform::IBusInputSources;

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
        if (bus.address().isEmpty())
            return false;
        qputenv("IBUS_ADDRESS", bus.address().toUtf8());
        bus.serve({u"org.freedesktop.IBus"_qs, u"org.freedesktop.IBus.Config"_qs},
                  u"/org/freedesktop/IBus"_qs,
                  [this](const QDBusMessage &call) { return daemon.answer(call); });
        return true;
    }

    FakeDaemon daemon;
    PrivateBus bus;
};

} // namespace

TEST_F(IBusInputSourcesTest, ListsAndSwitchesEngines)
{
    if (!start())
        GTEST_SKIP() << "dbus-daemon is not installed";
    IBusInputSources sources;
    const auto enabled = sources.createInputSourceList(false);
    EXPECT_EQ(ids(enabled), QStringList({u"ibus:xkb:us::eng"_qs, u"ibus:mozc-jp"_qs}));
    EXPECT_EQ(sources.createInputSourceList(true).size(), 3);
    ASSERT_EQ(enabled.size(), 2);
    EXPECT_EQ(enabled.at(1)->localizedName, u"Long mozc-jp"_qs);

    ASSERT_NE(sources.currentKeyboardLayoutInputSource(), nullptr);
    EXPECT_EQ(sources.currentKeyboardLayoutInputSource()->id, u"ibus:xkb:us::eng"_qs);
    sources.selectInputSource(enabled.at(1));
    EXPECT_EQ(sources.currentKeyboardLayoutInputSource()->id, u"ibus:mozc-jp"_qs);
    sources.selectInputSource(nullptr);
    sources.selectInputSource(std::make_shared<const platform::InputSource>(
        platform::InputSource{u"xkb:de"_qs, u"of another kind"_qs}));
    EXPECT_EQ(sources.currentKeyboardLayoutInputSource()->id, u"ibus:mozc-jp"_qs);

    {
        const std::lock_guard lock(daemon.mutex);
        daemon.enabled.clear();
    }
    EXPECT_EQ(sources.createInputSourceList(false).size(), 3) << "all, where the enabled ones are not told";
    {
        const std::lock_guard lock(daemon.mutex);
        daemon.answersNonsense = true;
    }
    EXPECT_TRUE(sources.createInputSourceList(true).isEmpty());
    EXPECT_EQ(sources.currentKeyboardLayoutInputSource(), nullptr);
}

TEST_F(IBusInputSourcesTest, ASilentDaemonIsLeftAloneForAWhile)
{
    // It lets programs connect, like a stopped daemon, and never says a word.
    QLocalServer silent;
    const QString path = services.directory.filePath(u"silent"_qs);
    ASSERT_TRUE(silent.listen(path));
    int connections = 0;
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

    IBusInputSources sources;
    const auto connectionsAfterAsking = [&] {
        EXPECT_TRUE(sources.createInputSourceList(false).isEmpty());
        EXPECT_EQ(sources.currentKeyboardLayoutInputSource(), nullptr);
        processEvents();
        return connections;
    };
    EXPECT_EQ(connectionsAfterAsking(), 1);
    EXPECT_EQ(connectionsAfterAsking(), 1);
    services.clock.advanceSeconds(31);
    EXPECT_EQ(connectionsAfterAsking(), 2);
    qunsetenv("XDG_CONFIG_HOME");
    qunsetenv("DISPLAY");
}
