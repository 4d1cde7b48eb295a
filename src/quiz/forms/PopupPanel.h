#pragma once

#include "platform/Clock.h"

#include <QPoint>
#include <QWidget>

#include <functional>
#include <memory>

/**
 * The window of the popup quiz. It comes up in front of all programs where the user last left it, and goes
 * out of sight without closing. It has no frame, so it can be dragged by any free place.
 */
class PopupPanel : public QWidget
{
    Q_OBJECT

public:
    /** Takes up the place of the last time. */
    PopupPanel();

    /** Shows it at its place. */
    void showInPlace();
    /**
     * Brings it in front of all programs, with the keyboard. Where the desktop doesn't allow that, shows a
     * notification with the text instead; choosing that brings the panel, if it is still wanted by then.
     */
    void bringToFront(const QString &text, const std::function<bool()> &isStillWanted);
    void putOutOfSight();
    void shake();

signals:
    /** The panel is about to close, whatever closes it. */
    void closing();

protected:
    void moveEvent(QMoveEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void bring();

    /** Moves at present are the program's own, and not remembered. */
    bool m_ignoreWindowMove = true;
    double m_windowXPos = 20.0;
    double m_windowYPos = 20.0;
    QPoint m_dragStart;
    bool m_isDragging = false;
    std::unique_ptr<platform::Timer> m_shakeTimer;
    int m_shakeStep = 0;
};
