#include "platform/Texts.h"
#include "support/SanitizerOptions.h"

#include <QApplication>
#include <gtest/gtest.h>

void linkTavimoTexts();

int main(int argc, char **argv)
{
    // A test of the real desktop names its platform itself; all others need no display.
    if (!qEnvironmentVariableIsSet("TAVIMO_TEST_ON_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    linkTavimoTexts();
    platform::installTexts(QStringLiteral("en"));
    return RUN_ALL_TESTS();
}
