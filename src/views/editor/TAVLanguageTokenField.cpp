#include "views/editor/TAVLanguageTokenField.h"

#include <QLineEdit>

TAVLanguageTokenField::TAVLanguageTokenField(QWidget *parent)
    : TokenField(parent)
{
    input()->installEventFilter(this);
}

bool TAVLanguageTokenField::eventFilter(QObject *watched, QEvent *event)
{
    const bool isHandled = TokenField::eventFilter(watched, event);
    if (watched != input())
        return isHandled;
    if (event->type() == QEvent::FocusIn && m_focus.begins(*static_cast<QFocusEvent *>(event))) {
        if (m_ohDelegate)
            m_ohDelegate->languageTokenFieldDidBecomeActive(this);
    } else if ((event->type() == QEvent::FocusOut && m_focus.ends(*static_cast<QFocusEvent *>(event))) ||
               (event->type() == QEvent::Hide && m_focus.endsByHiding(*event))) {
        emit textShouldEndEditing();
        if (m_ohDelegate)
            m_ohDelegate->languageTokenFieldDidLoseFocus(this);
    }
    return isHandled;
}
