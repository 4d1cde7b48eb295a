#include "app/Program.h"
#include "support/GuiTest.h"

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

TEST_F(ProgramTest, OnlyTheMainWindowsCloseEndsTheProgram)
{
    QApplication::setQuitOnLastWindowClosed(false);
    int quits = 0;
    class QuitCounter : public QObject
    {
    public:
        explicit QuitCounter(int &count)
            : m_count(count)
        {
        }
        bool eventFilter(QObject *, QEvent *event) override
        {
            m_count += event->type() == QEvent::Quit;
            return event->type() == QEvent::Quit;
        }

    private:
        int &m_count;
    } counter(quits);
    qApp->installEventFilter(&counter);

    QDialog panel;
    panel.show();
    panel.close();
    window()->showMinimized();
    processEvents();
    EXPECT_EQ(quits, 0);

    panel.show();
    window()->close();
    processEvents();
    EXPECT_EQ(quits, 1) << "whatever panel is open";
}
