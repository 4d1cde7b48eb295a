#include "platform/DeviceRegistry.h"

#include <QFile>
#include <QMessageAuthenticationCode>
#include <QRegularExpression>

namespace platform {

namespace {

/** Tells this program's names of machines from those of all other programs; never to be changed. */
const QByteArray applicationId = QByteArray::fromHex("d8d4889b84974437980a307ee9f00a54");
constexpr qsizetype idBytes = 16;

/** The 16 bytes that the file holds in hexadecimal digits; empty if it holds something else. */
QByteArray idFrom(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromLatin1(file.read(64)).trimmed();
    static const QRegularExpression form(QStringLiteral("^[0-9a-fA-F]{32}$"));
    const QByteArray id = form.match(text).hasMatch() ? QByteArray::fromHex(text.toLatin1()) : QByteArray();
    // A system that hasn't been set up yet has an id of zeros.
    return id == QByteArray(idBytes, '\0') ? QByteArray() : id;
}

/** As systemd derives an id for one program, which its "systemd-id128 machine-id --app-specific" shows. */
QString nameFromId(const QByteArray &machineId)
{
    QByteArray name =
        QMessageAuthenticationCode::hash(applicationId, machineId, QCryptographicHash::Sha256).left(idBytes);
    // The marks of a random UUID.
    name[6] = char((name[6] & 0x0f) | 0x40);
    name[8] = char((name[8] & 0x3f) | 0x80);
    return QString::fromLatin1(name.toHex());
}

class MachineIdRegistry : public DeviceRegistry
{
public:
    explicit MachineIdRegistry(const QStringList &files)
        : m_files(files)
    {
    }
    QString deviceName() const override
    {
        for (const QString &file : m_files) {
            const QByteArray id = idFrom(file);
            if (!id.isEmpty())
                return nameFromId(id);
        }
        return DeviceRegistry::deviceName();
    }

private:
    QStringList m_files;
};

} // namespace

std::unique_ptr<DeviceRegistry> makeSystemDeviceRegistry(const QStringList &files)
{
    return std::make_unique<MachineIdRegistry>(files);
}

} // namespace platform
