#include "views/editor/TAVLanguageTokenField.h"

#include "views/editor/LanguageFocus.h"

#include <QLineEdit>

TAVLanguageTokenField::TAVLanguageTokenField(QWidget *parent)
    : TokenField(parent)
{
    input()->installEventFilter(this);
}

bool TAVLanguageTokenField::eventFilter(QObject *watched, QEvent *event)
{
    const bool isHandled = TokenField::eventFilter(watched, event);
    const bool comes = event->type() == QEvent::FocusIn;
    if (watched != input() || (!comes && event->type() != QEvent::FocusOut) ||
        !movesBetweenFields(*static_cast<QFocusEvent *>(event)))
        return isHandled;
    if (!comes)
        emit textShouldEndEditing();
    if (m_ohDelegate) {
        if (comes)
            m_ohDelegate->languageTokenFieldDidBecomeActive(this);
        else
            m_ohDelegate->languageTokenFieldDidLoseFocus(this);
    }
    return isHandled;
}
