#pragma once

#include <QString>
#include <QStringList>

namespace platform {

struct Alert
{
    QString title;
    QString text;
    /** From the default button on; one to three. */
    QStringList buttons;
    /** Shown small under the text; for instance the real folder where the text names another machine's. */
    QString additionalLine = {};
};

/**
 * Modal alerts. The only nested event loop of the program; while one stands, the program's own calls to the
 * main thread wait, see MainDispatcher.
 */
class Alerts
{
public:
    virtual ~Alerts() = default;
    /**
     * Shows the alert and waits. Returns the index of the chosen button, 0 when it was dismissed or the
     * program is ending. May be called from any thread; a background thread waits for the main thread's
     * answer.
     */
    virtual int show(const Alert &alert) = 0;
};

} // namespace platform
