#include "widgets/ArrowPopup.h"

#include <QBitmap>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr int arrowLength = 10;
constexpr int arrowHalfWidth = 9;
constexpr int cornerRadius = 8;

/** A position as near to the wanted one as lets the length lie within the range. */
int within(int wanted, int length, int first, int last)
{
    return std::max(first, std::min(wanted, last - length + 1));
}

} // namespace

ArrowPopup::ArrowPopup(QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(arrowLength, arrowLength, arrowLength, arrowLength);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void ArrowPopup::setContent(QWidget *content)
{
    layout()->addWidget(content);
}

void ArrowPopup::showBeside(QWidget *widget, const QRect &rectangle)
{
    if (m_anchorWidget)
        m_anchorWidget->window()->removeEventFilter(this);
    m_anchorWidget = widget;
    m_anchor = rectangle;
    widget->window()->installEventFilter(this);
    ensurePolished();
    layout()->activate();
    adjustSize();
    place();
    show();
    raise();
}

void ArrowPopup::place()
{
    if (!m_anchorWidget)
        return;
    const QRect anchor(m_anchorWidget->mapToGlobal(m_anchor.topLeft()), m_anchor.size());
    const QScreen *onScreen = m_anchorWidget->screen();
    const QRect room = onScreen ? onScreen->availableGeometry() : anchor;
    const QPoint middle = anchor.center();
    QPoint corner;
    if (room.right() - anchor.right() >= width())
        m_arrowEdge = Qt::LeftEdge;
    else if (anchor.left() - room.left() >= width())
        m_arrowEdge = Qt::RightEdge;
    else
        m_arrowEdge = room.bottom() - anchor.bottom() >= height() ? Qt::TopEdge : Qt::BottomEdge;

    if (m_arrowEdge == Qt::LeftEdge || m_arrowEdge == Qt::RightEdge) {
        corner.setX(m_arrowEdge == Qt::LeftEdge ? anchor.right() + 1 : anchor.left() - width());
        corner.setY(within(middle.y() - height() / 2, height(), room.top(), room.bottom()));
        m_arrowPosition = middle.y() - corner.y();
    } else {
        corner.setY(m_arrowEdge == Qt::TopEdge ? anchor.bottom() + 1 : anchor.top() - height());
        corner.setX(within(middle.x() - width() / 2, width(), room.left(), room.right()));
        corner.setY(within(corner.y(), height(), room.top(), room.bottom()));
        m_arrowPosition = middle.x() - corner.x();
    }
    move(corner);
    updateMask();
    update();
}

QPainterPath ArrowPopup::outline() const
{
    const QRectF body = QRectF(rect()).adjusted(arrowLength, arrowLength, -arrowLength, -arrowLength);
    const bool isSide = m_arrowEdge == Qt::LeftEdge || m_arrowEdge == Qt::RightEdge;
    const double reach = cornerRadius + arrowHalfWidth;
    const double start = isSide ? body.top() : body.left();
    const double end = isSide ? body.bottom() : body.right();
    const double at =
        std::clamp<double>(m_arrowPosition, start + reach, std::max(start + reach, end - reach));
    QPolygonF arrow;
    switch (m_arrowEdge) {
    case Qt::LeftEdge:
        arrow << QPointF(body.left() + 1, at - arrowHalfWidth) << QPointF(1, at)
              << QPointF(body.left() + 1, at + arrowHalfWidth);
        break;
    case Qt::RightEdge:
        arrow << QPointF(body.right() - 1, at - arrowHalfWidth) << QPointF(width() - 1, at)
              << QPointF(body.right() - 1, at + arrowHalfWidth);
        break;
    case Qt::TopEdge:
        arrow << QPointF(at - arrowHalfWidth, body.top() + 1) << QPointF(at, 1)
              << QPointF(at + arrowHalfWidth, body.top() + 1);
        break;
    case Qt::BottomEdge:
        arrow << QPointF(at - arrowHalfWidth, body.bottom() - 1) << QPointF(at, height() - 1)
              << QPointF(at + arrowHalfWidth, body.bottom() - 1);
        break;
    }
    QPainterPath frame;
    frame.addRoundedRect(body, cornerRadius, cornerRadius);
    QPainterPath tip;
    tip.addPolygon(arrow);
    tip.closeSubpath();
    return frame.united(tip);
}

void ArrowPopup::updateMask()
{
    // Where nothing composes the windows, what is translucent would be black.
    QBitmap mask(size());
    mask.clear();
    QPainter painter(&mask);
    painter.setPen(QPen(Qt::color1, 1.5));
    painter.setBrush(Qt::color1);
    painter.drawPath(outline());
    painter.end();
    setMask(mask);
}

void ArrowPopup::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.35f);
    painter.setPen(line);
    painter.setBrush(palette().window());
    painter.drawPath(outline());
}

void ArrowPopup::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        emit escapePressed();
    else
        QWidget::keyPressEvent(event);
}

void ArrowPopup::closeEvent(QCloseEvent *event)
{
    // The window manager's way of closing is no other way than Escape.
    emit escapePressed();
    QWidget::closeEvent(event);
}

void ArrowPopup::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (isVisible())
        place();
}

bool ArrowPopup::eventFilter(QObject *watched, QEvent *event)
{
    auto *window = qobject_cast<QWidget *>(watched);
    if (window && (event->type() == QEvent::Hide ||
                   (event->type() == QEvent::WindowStateChange && window->isMinimized())))
        hide();
    else if (isVisible() && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        place();
    return QWidget::eventFilter(watched, event);
}
