#pragma once

#include <QAbstractButton>

/**
 * A text that is turned on and off, and that can be dragged as text. It toggles on release, so that a drag
 * doesn't.
 */
class M3TokenButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit M3TokenButton(const QString &token, QWidget *parent = nullptr);

    /** The frame, as wide as the title needs. */
    QRect boundingRect() const;
    QSize sizeHint() const override { return boundingRect().size(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    /** Runs the drag; returns when it is over. */
    virtual void startDrag();

private:
    /** Measured once; a cloud of thousands asks for it at each drawing. */
    int m_width = 0;
    QPoint m_pressedAt;
    bool m_isPressed = false;
};
