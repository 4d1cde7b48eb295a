#include "quiz/forms/ReturnKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

ReturnKey::ReturnKey(QWidget *page, std::function<void()> step)
    : QObject(page)
    , m_step(std::move(step))
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
    if (keyEvent->isAutoRepeat())
        return true;
    auto *button = qobject_cast<QPushButton *>(QApplication::focusWidget());
    if (button && static_cast<QWidget *>(watched)->isAncestorOf(button) && button->isEnabled())
        button->click();
    else
        m_step();
    return true;
}
