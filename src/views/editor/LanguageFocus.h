#pragma once

#include <QFocusEvent>

/** Whether the focus really moves between fields, and isn't just lent to a menu or another window. */
inline bool movesBetweenFields(const QFocusEvent &event)
{
    return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason &&
           event.reason() != Qt::MenuBarFocusReason;
}
