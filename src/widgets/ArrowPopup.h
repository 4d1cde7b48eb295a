#pragma once

#include <QWidget>

/**
 * A borderless tool window with an arrow that points at what it belongs to. It grabs nothing: the windows
 * beneath stay usable. Escape asks to close it.
 */
class ArrowPopup : public QWidget
{
    Q_OBJECT

public:
    explicit ArrowPopup(QWidget *parent);

    /** The content's parent becomes the popup. */
    void setContent(QWidget *content);
    /** Shows the popup at the side of the rectangle that has room, with its arrow at the rectangle's middle. */
    void showBeside(QWidget *widget, const QRect &rectangle);

signals:
    void escapePressed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    Qt::Edge m_arrowEdge = Qt::LeftEdge;
    int m_arrowPosition = 0;
};
