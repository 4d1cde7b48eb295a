#pragma once

#include <QPainterPath>
#include <QPointer>
#include <QWidget>

/**
 * A borderless tool window with an arrow that points at what it belongs to. It grabs nothing and takes no
 * focus when it comes: the windows beneath stay usable. It follows its parent's window, and goes with it.
 */
class ArrowPopup : public QWidget
{
    Q_OBJECT

public:
    explicit ArrowPopup(QWidget *parent);

    /** The popup becomes the content's owner. */
    void setContent(QWidget *content);
    /** Shows the popup at the side of the rectangle that has room, its arrow at the rectangle's middle. */
    void showBeside(QWidget *widget, const QRect &rectangle);

signals:
    /** By its key, or as the window manager closes the popup. */
    void escapePressed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();
    /** Body and arrow in one. */
    QPainterPath outline() const;
    void updateMask();

    QPointer<QWidget> m_anchorWidget;
    QRect m_anchor;
    Qt::Edge m_arrowEdge = Qt::LeftEdge;
    /** Along that edge, in pixels. */
    int m_arrowPosition = 0;
};
