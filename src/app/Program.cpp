#include "app/Program.h"

#include "platform/Services.h"
#include "views/TAVLexiconController.h"

#include <QCoreApplication>
#include <QEvent>

Program::Program(AppDelegate &delegate, VocabularyDocument &document)
    : m_delegate(delegate)
    , m_mainWindowController(document)
    , m_quizView(new QuizView)
    , m_typingQuiz(m_quizView, document)
    , m_flashCardQuiz(m_quizView, document)
    , m_popupQuiz(m_quizView, document, &m_mainWindowController, [this] { m_quizSetup.showQuiz(); })
    , m_quizSetup(m_quizView, m_mainWindowController.vocabularyController())
{
    m_quizSetup.setQuizController(&m_typingQuiz);
    m_quizSetup.setLearnController(&m_flashCardQuiz);
    m_quizSetup.setPopupQuizController(&m_popupQuiz);
    m_mainWindowController.setQuizSetupController(&m_quizSetup);
    m_mainWindowController.mainWindow()->installEventFilter(this);
    m_delegate.setMainWindowController(this);
    // The keyboard's sources may become known only after the vocabulary was loaded.
    platform::services().inputSources->setListChanged(this, [this] {
        if (const TAVLexiconRef vocabulary = m_mainWindowController.vocabularyController()->vocabulary())
            vocabulary->resolveInputSources();
    });
}

Program::~Program()
{
    m_delegate.setMainWindowController(nullptr);
    m_mainWindowController.mainWindow()->removeEventFilter(this);
}

void Program::awakeFromNib()
{
    for (const AppDelegate::Notice &notice : m_delegate.notices())
        m_mainWindowController.tell(notice.name, notice.text);
    m_mainWindowController.awakeFromNib();
    m_mainWindowController.mainWindow()->show();
}

void Program::applicationDidFinishLaunching()
{
    m_mainWindowController.applicationDidFinishLaunching();
}

void Program::updateViews()
{
    m_mainWindowController.updateViews();
}

void Program::reopen(const QByteArray &activationToken)
{
    // A Wayland compositor lets the window that is raised next come to the front for this.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken);
    QWidget *window = m_mainWindowController.mainWindow();
    const bool wasVisible = window->isVisible();
    bringToFront(window);
    m_delegate.applicationShouldHandleReopen(wasVisible);
}

void Program::bringToFront(QWidget *window)
{
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
    platform::services().desktop->activateApplication(window->winId());
}

bool Program::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Close && m_delegate.applicationShouldTerminateAfterLastWindowClosed()) {
        // Later, as the window may still refuse to close.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (!m_mainWindowController.mainWindow()->isVisible())
                    QCoreApplication::quit();
            },
            Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}
