#include "platform/desktop/AlertDialogs.h"

#include "platform/desktop/AlertDialog.h"

#include <QApplication>
#include <QEventLoop>
#include <QThread>
#include <QWindow>

#include <optional>

namespace platform {

struct AlertDialogs::Request
{
    Alert alert;
    /** Guarded by the mutex, as are the two below. */
    bool isAnswered = false;
    int button = 0;
    /** The loop in which the main thread waits; null for a background thread. */
    QEventLoop *loop = nullptr;
    /** While the alert of a background thread is on the screen. Main thread only. */
    std::optional<ClosedGate> gate;
};

AlertDialogs::AlertDialogs(MainDispatcher &dispatcher)
    : m_dispatcher(dispatcher)
{
}

AlertDialogs::~AlertDialogs()
{
    end();
}

int AlertDialogs::show(const Alert &alert)
{
    auto request = std::make_shared<Request>();
    request->alert = alert;
    {
        const std::lock_guard lock(m_mutex);
        if (m_isEnding)
            return 0;
        m_waiting.push_back(request);
    }
    if (QThread::currentThread() == thread())
        return waitOnMainThread(request);

    QMetaObject::invokeMethod(this, &AlertDialogs::showNext, Qt::QueuedConnection);
    std::unique_lock lock(m_mutex);
    m_answered.wait(lock, [&] { return request->isAnswered; });
    return request->button;
}

int AlertDialogs::waitOnMainThread(const std::shared_ptr<Request> &request)
{
    // Closed until the loop has been left: a call that ran in its last turn would come between the answer and
    // the operation that waits for it.
    const ClosedGate gate(m_dispatcher);
    QEventLoop loop;
    {
        const std::lock_guard lock(m_mutex);
        request->loop = &loop;
    }
    showNext();
    if (!request->isAnswered)
        loop.exec();
    // The loop also ends when the program was told to quit; then nobody will answer any more.
    answer(request, 0);
    return request->button;
}

void AlertDialogs::showNext()
{
    if (m_current)
        return;
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty())
            return;
        m_current = m_waiting.front();
        m_waiting.pop_front();
    }
    if (!m_current->loop)
        m_current->gate.emplace(m_dispatcher);
    auto *dialog = new AlertDialog(m_current->alert);
    m_dialog = dialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::ApplicationModal);
    if (QWidget *window = QApplication::activeWindow()) {
        // Without being its child: an alert must outlive the window over which it stands.
        dialog->winId();
        dialog->windowHandle()->setTransientParent(window->windowHandle());
    }
    connect(dialog, &QDialog::finished, this,
            [this, dialog, request = m_current] { answer(request, dialog->chosenButton()); });
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void AlertDialogs::answer(const std::shared_ptr<Request> &request, int button)
{
    {
        const std::lock_guard lock(m_mutex);
        if (request->isAnswered)
            return;
        request->isAnswered = true;
        request->button = button;
        if (request->loop)
            request->loop->quit();
        std::erase(m_waiting, request);
    }
    m_answered.notify_all();
    if (request != m_current)
        return;
    m_current.reset();
    if (QDialog *dialog = m_dialog; dialog && dialog->isVisible())
        dialog->close();
    // In this order, so that no call slips in between two alerts.
    showNext();
    request->gate.reset();
}

void AlertDialogs::end()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    answerAll();
}

void AlertDialogs::answerAll()
{
    std::deque<std::shared_ptr<Request>> waiting;
    {
        const std::lock_guard lock(m_mutex);
        waiting = m_waiting;
    }
    for (const auto &request : waiting)
        answer(request, 0);
    if (const auto current = m_current)
        answer(current, 0);
}

} // namespace platform
