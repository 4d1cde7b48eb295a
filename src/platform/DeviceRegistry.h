#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

namespace platform {

/** Which machine this is. This base doesn't know. */
class DeviceRegistry
{
public:
    virtual ~DeviceRegistry() = default;
    /**
     * 32 hexadecimal digits that stay the same on this machine for good, and from which nobody can find out
     * its real id or what another program makes of it; "UnidentifiedMac" where the machine has no id. Any
     * thread.
     */
    virtual QString deviceName() const { return QStringLiteral("UnidentifiedMac"); }
};

/** Reads the machine's id from the first of the files that holds one. */
std::unique_ptr<DeviceRegistry> makeSystemDeviceRegistry(const QStringList &files = {
                                                             QStringLiteral("/etc/machine-id"),
                                                             QStringLiteral("/var/lib/dbus/machine-id")});

} // namespace platform
