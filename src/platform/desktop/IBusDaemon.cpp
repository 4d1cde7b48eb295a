#include "platform/desktop/IBusDaemon.h"

#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/desktop/SessionBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QFile>
#include <QSysInfo>

namespace platform {

namespace {

/** A daemon that lives answers within a few milliseconds. */
constexpr std::chrono::milliseconds maxWait{300};
/** How long a daemon that didn't answer is left alone. */
constexpr int silenceInSeconds = 30;

const QString daemonService = QStringLiteral("org.freedesktop.IBus");
const QString daemonPath = QStringLiteral("/org/freedesktop/IBus");
const QString daemonInterface = QStringLiteral("org.freedesktop.IBus");
const QString idPrefix = QStringLiteral("ibus:");

/** The part of DISPLAY or WAYLAND_DISPLAY that stands in the name of the daemon's address file. */
QString displayPartOfFileName()
{
    const QString wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
    if (!wayland.isEmpty())
        return QLatin1String("unix-") + wayland;
    const QString display = qEnvironmentVariable("DISPLAY");
    const QString host = display.section(u':', 0, 0);
    const QString number = display.section(u':', 1).section(u'.', 0, 0);
    return (host.isEmpty() ? QStringLiteral("unix") : host) + u'-' +
           (number.isEmpty() ? QStringLiteral("0") : number);
}

QVariant unwrapped(const QVariant &value)
{
    return value.canConvert<QDBusVariant>() ? unwrapped(value.value<QDBusVariant>().variant()) : value;
}

/** An engine comes as a structure: its type's name, attachments, then name, long name and more. */
InputSourceRef engineFromVariant(const QVariant &value)
{
    const QVariant inner = unwrapped(value);
    if (!inner.canConvert<QDBusArgument>())
        return nullptr;
    const auto argument = inner.value<QDBusArgument>();
    if (!argument.currentSignature().startsWith(QLatin1String("(sa{sv}ss")))
        return nullptr;
    QString type;
    QVariantMap attachments;
    QString name;
    QString longName;
    argument.beginStructure();
    argument >> type >> attachments >> name >> longName;
    argument.endStructure();
    if (name.isEmpty())
        return nullptr;
    return std::make_shared<const InputSource>(
        InputSource{idPrefix + name, longName.isEmpty() ? name : longName, true});
}

QList<InputSourceRef> enginesFromVariant(const QVariant &value)
{
    QList<InputSourceRef> engines;
    const QVariant inner = unwrapped(value);
    if (!inner.canConvert<QDBusArgument>())
        return engines;
    const auto argument = inner.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("av"))
        return engines;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant element;
        argument >> element;
        if (const InputSourceRef engine = engineFromVariant(element.variant()))
            engines.append(engine);
    }
    argument.endArray();
    return engines;
}

QDBusMessage daemonCall(const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(daemonService, daemonPath, daemonInterface, method);
    message.setArguments(arguments);
    return message;
}

} // namespace

QString ibusAddress()
{
    const QString fromEnvironment = qEnvironmentVariable("IBUS_ADDRESS");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    QString config = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (config.isEmpty())
        config = qEnvironmentVariable("HOME") + QLatin1String("/.config");
    QFile file(QLatin1String("%1/ibus/bus/%2-%3")
                   .arg(config, QString::fromLatin1(QSysInfo::machineUniqueId()), displayPartOfFileName()));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray key("IBUS_ADDRESS=");
    for (const QByteArray &line : file.read(qint64(64) * 1024).split('\n')) {
        if (line.startsWith(key))
            return QString::fromUtf8(line.mid(key.size()).trimmed());
    }
    return {};
}

IBusDaemon::IBusDaemon()
    : m_connectionName(QStringLiteral("tavimo-ibus-%1").arg(quintptr(this), 0, 16))
{
}

IBusDaemon::~IBusDaemon()
{
    m_bus.reset();
    QDBusConnection::disconnectFromBus(m_connectionName);
}

bool IBusDaemon::isWorthAsking() const
{
    const std::lock_guard lock(m_mutex);
    return (m_bus && m_bus->isConnected()) || !m_silentUntil.isValid() || clock().now() >= m_silentUntil;
}

std::optional<QDBusConnection> IBusDaemon::bus() const
{
    const std::lock_guard lock(m_mutex);
    return m_bus && m_bus->isConnected() ? m_bus : std::nullopt;
}

int IBusDaemon::connectionCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_connectionCount;
}

void IBusDaemon::leaveAlone()
{
    {
        const std::lock_guard lock(m_mutex);
        m_bus.reset();
        m_silentUntil = clock().now().addSecs(silenceInSeconds);
    }
    QDBusConnection::disconnectFromBus(m_connectionName);
}

bool IBusDaemon::connectToDaemon()
{
    if (bus())
        return true;
    if (!isWorthAsking())
        return false;
    leaveAlone();
    const QString address = ibusAddress();
    if (greetBus(address, maxWait) != BusState::Answers)
        return false;
    const QDBusConnection connected = QDBusConnection::connectToBus(address, m_connectionName);
    const std::lock_guard lock(m_mutex);
    if (!connected.isConnected())
        return false;
    m_bus = connected;
    ++m_connectionCount;
    m_silentUntil = QDateTime();
    return true;
}

std::optional<QVariant> IBusDaemon::call(const QDBusMessage &message)
{
    const auto connected = bus();
    if (!connected)
        return std::nullopt;
    const QDBusMessage reply = connected->call(message, QDBus::Block, int(maxWait.count()));
    if (reply.type() == QDBusMessage::ReplyMessage)
        return reply.arguments().value(0);
    const auto error = QDBusError(reply).type();
    if (error == QDBusError::NoReply || error == QDBusError::Timeout || error == QDBusError::TimedOut) {
        diagnosticLog(QLatin1String("InputSources > ibus > no answer to %1").arg(message.member()));
        leaveAlone();
    }
    return std::nullopt;
}

std::optional<QVariant> IBusDaemon::property(const QString &name)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        daemonService, daemonPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message.setArguments({daemonInterface, name});
    return call(message);
}

QStringList IBusDaemon::enabledEngineNames()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.IBus.Config"), QStringLiteral("/org/freedesktop/IBus/Config"),
        QStringLiteral("org.freedesktop.IBus.Config"), QStringLiteral("GetValue"));
    message.setArguments({QStringLiteral("general"), QStringLiteral("preload-engines")});
    const std::optional<QVariant> value = call(message);
    return value ? unwrapped(*value).toStringList() : QStringList();
}

std::optional<IBusEngines> IBusDaemon::engines()
{
    if (!connectToDaemon())
        return std::nullopt;
    const QStringList names = enabledEngineNames();
    const auto installed = property(QStringLiteral("Engines"));
    const auto enabled =
        names.isEmpty() ? installed : call(daemonCall(QStringLiteral("GetEnginesByNames"), {names}));
    const auto current = property(QStringLiteral("GlobalEngine"));
    if (!bus())
        return std::nullopt;
    IBusEngines known;
    known.enabledCount = int(names.size());
    known.installed = installed ? enginesFromVariant(*installed) : QList<InputSourceRef>{};
    known.enabled = enabled ? enginesFromVariant(*enabled) : QList<InputSourceRef>{};
    known.current = current ? engineFromVariant(*current) : nullptr;
    return known;
}

QDBusMessage IBusDaemon::switchTo(const InputSourceRef &source)
{
    return daemonCall(QStringLiteral("SetGlobalEngine"), {source->id.mid(idPrefix.size())});
}

InputSourceRef IBusDaemon::engineNamed(const QString &name, const QList<InputSourceRef> &engines)
{
    const auto found = std::find_if(engines.begin(), engines.end(), [&](const InputSourceRef &engine) {
        return engine->id == idPrefix + name;
    });
    return found != engines.end() ? *found : nullptr;
}

} // namespace platform
