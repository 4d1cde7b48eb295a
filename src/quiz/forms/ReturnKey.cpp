#include "quiz/forms/ReturnKey.h"

#include "widgets/KeyReleases.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

ReturnKey::ReturnKey(QWidget *page, std::function<void()> step, std::function<bool()> isBusy)
    : QObject(page)
    , m_step(std::move(step))
    , m_isBusy(std::move(isBusy))
    , m_releases(KeyReleases::ofApplication())
{
    page->installEventFilter(this);
}

bool ReturnKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto *keyEvent = static_cast<QKeyEvent *>(event);
    if (keyEvent->key() != Qt::Key_Return && keyEvent->key() != Qt::Key_Enter)
        return QObject::eventFilter(watched, event);
    keyEvent->accept();
    auto *page = static_cast<QWidget *>(watched);
    if (keyEvent->isAutoRepeat() || m_releases->isRepeat(*keyEvent) || !page->isVisible() ||
        (m_isBusy && m_isBusy()))
        return true;
    auto *button = qobject_cast<QPushButton *>(QApplication::focusWidget());
    if (button && page->isAncestorOf(button) && button->isEnabled())
        button->click();
    else
        m_step();
    return true;
}
