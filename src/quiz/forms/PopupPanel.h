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
    /** For so long it takes no key: what comes is meant for the program in which the user was typing. */
    void ignoreKeys(std::chrono::milliseconds time);

signals:
    void escapePressed();
    /** The panel is about to close, whatever closes it. */
    void closing();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void bring();
    /** The remembered place, or one on a screen if no screen reaches there. */
    QPoint placeToShow() const;
    /** From now on until the desktop has done it, moves are the program's own. */
    void expectOwnMoves();
    /** Whether moves at present are the program's own, and not remembered. */
    bool ignoresWindowMove() const { return !isVisible() || m_ownMoves || m_shakeTimer; }

    double m_windowXPos = 20.0;
    double m_windowYPos = 20.0;
    QPoint m_dragStart;
    bool m_isDragging = false;
    std::unique_ptr<platform::Timer> m_ownMoves;
    std::unique_ptr<platform::Timer> m_deafness;
    std::unique_ptr<platform::Timer> m_shakeTimer;
    int m_shakeStep = 0;
};
