#pragma once

#include "platform/Alerts.h"
#include "platform/MainDispatcher.h"

#include <QObject>
#include <QPointer>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

class QDialog;

namespace platform {

/**
 * Alerts as modal dialogs, one at a time in the order in which they were asked for; the dispatcher's gate is
 * closed meanwhile. Belongs to the main thread; show() may be called from any.
 */
class AlertDialogs : public QObject, public Alerts
{
    Q_OBJECT

public:
    /** The dispatcher outlives this object. */
    explicit AlertDialogs(MainDispatcher &dispatcher);
    ~AlertDialogs() override;

    int show(const Alert &alert) override;
    /** The program was asked to end: every alert that stands or waits gets its first button. Main thread
     * only.
     */
    void answerAll();
    /** The same, and for every later one too, so that nobody waits for a user who has left. */
    void end();

private:
    struct Request;

    int waitOnMainThread(const std::shared_ptr<Request> &request);
    void showNext();
    void answer(const std::shared_ptr<Request> &request, int button);

    MainDispatcher &m_dispatcher;
    std::mutex m_mutex;
    std::condition_variable m_answered;
    std::deque<std::shared_ptr<Request>> m_waiting;
    bool m_isEnding = false;
    /** The request on the screen. Main thread only, like the dialog. */
    std::shared_ptr<Request> m_current;
    QPointer<QDialog> m_dialog;
};

} // namespace platform
