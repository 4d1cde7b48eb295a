#include "platform/DeviceRegistry.h"

#include "support/TestServices.h"

#include <QFile>

namespace {

using DeviceRegistryTest = ServicesTest;

} // namespace

TEST_F(DeviceRegistryTest, AMachineHasOneNameThatHidesItsId)
{
    const QString unknown = QStringLiteral("UnidentifiedMac");
    // What systemd makes of these ids for this program.
    const std::tuple<QByteArray, QByteArray, QString> cases[] = {
        {"0123456789abcdef0123456789abcdef\n", "", QStringLiteral("d9c803647da147c5874641d256ac943b")},
        {"0123456789ABCDEF0123456789ABCDEF", "", QStringLiteral("d9c803647da147c5874641d256ac943b")},
        {"uninitialized\n", "0123456789abcdef0123456789abcdef\n",
         QStringLiteral("d9c803647da147c5874641d256ac943b")},
        {"0123456789abcdef0123456789abcdee\n", "0123456789abcdef0123456789abcdef\n",
         QStringLiteral("6d496612e65d4e289a2be4fecf8fecd1")},
        {"", "", unknown},
        {"0123456789abcdef0123456789abcde\n", "", unknown},
        {"0123456789abcdef0123456789abcdef0\n", "", unknown},
        {"00000000000000000000000000000000\n", "", unknown},
    };
    const QStringList files{services.directory.filePath(QStringLiteral("first")),
                            services.directory.filePath(QStringLiteral("second"))};
    const auto registry = platform::makeSystemDeviceRegistry(files);
    EXPECT_EQ(registry->deviceName(), unknown);
    for (const auto &[first, second, name] : cases) {
        for (qsizetype i = 0; i < files.size(); ++i) {
            QFile file(files.at(i));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(i == 0 ? first : second);
        }
        EXPECT_EQ(registry->deviceName(), name) << first.constData();
    }
}
