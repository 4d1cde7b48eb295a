#pragma once

#include "platform/Clock.h"

#include <QKeyEvent>
#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

class QWidget;

/**
 * Keeps what is typed while a panel is on its way to the keyboard, and hands it to the panel's first field in
 * order. Without this, the first letters of a word that is typed at once would go to the list, or to a box
 * whose choice they would change.
 *
 * Keys with a command, Escape, and keys to other windows are left alone. The keeping ends, and what was kept
 * is dropped, when the user turns to something else, or the keyboard doesn't come within a second.
 */
class KeptKeys : public QObject
{
    Q_OBJECT

public:
    /** The panel is typed into, and the window is the one over which it comes; both must outlive this object.
     */
    KeptKeys(QWidget *panel, QWidget *window);
    ~KeptKeys() override;

    /** The panel is asked for; what was kept already stays. */
    void begin();
    /** The field is about to get the keyboard, and with it what was kept. */
    void deliverTo(QWidget *field);
    /** Ends the keeping without a trace. While keys are being handed over, those left are kept. */
    void drop();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isOurs(const QObject *object) const;
    void end();
    void deliver();

    QWidget *m_panel;
    QPointer<QWidget> m_window;
    QPointer<QWidget> m_field;
    std::vector<std::unique_ptr<QKeyEvent>> m_keys;
    bool m_isKeeping = false;
    bool m_isDelivering = false;
    std::unique_ptr<platform::Timer> m_limit;
};
