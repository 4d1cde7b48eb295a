#pragma once

#include <QFocusEvent>

#include <utility>

/**
 * Tells when a field begins and ends to be edited. Lending the focus to a menu or to another window is no
 * end; getting the focus together with the window is a beginning, unless the field was only waiting for it.
 */
class LanguageFocus
{
public:
    bool begins(const QFocusEvent &event)
    {
        const bool wasEdited = std::exchange(m_isEdited, true);
        return !wasEdited || movesBetweenFields(event);
    }
    bool ends(const QFocusEvent &event)
    {
        if (movesBetweenFields(event))
            m_isEdited = false;
        return movesBetweenFields(event);
    }
    /** Whether hiding the field ends anything. */
    bool endsByHiding(const QEvent &event)
    {
        return !event.spontaneous() && std::exchange(m_isEdited, false);
    }

private:
    static bool movesBetweenFields(const QFocusEvent &event)
    {
        return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason &&
               event.reason() != Qt::MenuBarFocusReason;
    }

    bool m_isEdited = false;
};
