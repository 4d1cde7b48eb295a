#include "app/Program.h"
#include "support/GuiTest.h"
#include "views/TAVLexiconController.h"

namespace {

class CountingSync : public DropBoxController
{
public:
    CountingSync() { setSharedManager(this); }
    ~CountingSync() override { setSharedManager(nullptr); }
    void syncWithDropbox() override { ++syncs; }
    int syncs = 0;
};

class ProgramTest : public ServicesTest
{
protected:
    ProgramTest() { program.awakeFromNib(); }
    QMainWindow *window() { return program.mainWindowController().mainWindow(); }

    CountingSync sync;
    AppDelegate delegate;
    Program program{delegate};
};

} // namespace

TEST_F(ProgramTest, StartedAgainItBringsItsWindowToTheFrontAndUpToDate)
{
    window()->showMinimized();
    sync.syncs = 0;
    program.reopen("token");
    EXPECT_FALSE(window()->isMinimized());
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(services.desktop.activated, QList<platform::Desktop::Application>{window()->winId()});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token");
    EXPECT_EQ(sync.syncs, 1);
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(ProgramTest, TheKeyboardsSourcesMayComeAfterTheVocabulary)
{
    const auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->setForeignTextInputSourceId(u"de"_qs);
    program.mainWindowController().vocabularyController()->setVocabulary(vocabulary);
    EXPECT_EQ(vocabulary->foreignTextInputSource(), nullptr);
    const auto source = services.inputSources.add(u"de"_qs);
    services.inputSources.reportListChanged();
    services.queues.drain();
    EXPECT_EQ(vocabulary->foreignTextInputSource(), source);
}

TEST_F(ProgramTest, OnlyTheMainWindowsCloseEndsTheProgram)
{
    QApplication::setQuitOnLastWindowClosed(false);
    const auto later = [](const std::function<void()> &call) {
        QMetaObject::invokeMethod(qApp, call, Qt::QueuedConnection);
    };
    QDialog panel;
    bool runsAfterPanel = false;
    later([&] {
        window()->showMinimized();
        panel.show();
        panel.close();
        // Later than all that the closing of the panel may have set off.
        later([&] {
            later([&] {
                runsAfterPanel = true;
                panel.show();
                window()->close();
            });
        });
    });
    QApplication::exec();
    EXPECT_TRUE(runsAfterPanel);
    EXPECT_FALSE(window()->isVisible());
}
