#include "widgets/M3TokenButton.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace {

constexpr int buttonHeight = 20;
constexpr int roomBesideTitle = 20;

QFont titleFont()
{
    QFont font(QStringLiteral("Helvetica"));
    font.setPixelSize(12);
    return font;
}

} // namespace

M3TokenButton::M3TokenButton(const QString &token, QWidget *parent)
    : QAbstractButton(parent)
{
    setText(token);
    // An ampersand in a text is no access key.
    setShortcut(QKeySequence());
    setAccessibleName(token);
    setCheckable(true);
    setFont(titleFont());
    setFocusPolicy(Qt::TabFocus);
    m_width = std::min(fontMetrics().horizontalAdvance(token) + roomBesideTitle, QWIDGETSIZE_MAX);
    setGeometry(0, 0, 50, buttonHeight);
}

QRect M3TokenButton::boundingRect() const
{
    return QRect(pos(), QSize(m_width, buttonHeight));
}

void M3TokenButton::paintEvent(QPaintEvent *)
{
    const bool isLit = isDown() || isChecked();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight).darker(130), 1.5)
                              : QPen(Qt::NoPen));
    painter.setBrush(isLit ? QColor::fromRgbF(0.42f, 0.69f, 0.95f) : QColor::fromRgbF(0.82f, 0.91f, 0.98f));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -2, -2), 2, 2);
    painter.setPen(isChecked() && !isDown() ? QColor(Qt::white) : QColor(0x55, 0x55, 0x55));
    painter.drawText(rect().adjusted(1, 1, -2, -2), Qt::AlignCenter | Qt::TextSingleLine, text());
}

void M3TokenButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_isPressed = true;
    m_pressedAt = event->pos();
}

void M3TokenButton::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_isPressed || (event->pos() - m_pressedAt).manhattanLength() < QApplication::startDragDistance())
        return;
    m_isPressed = false;
    startDrag();
}

void M3TokenButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !std::exchange(m_isPressed, false) ||
        !rect().contains(event->pos()))
        return;
    click();
}

void M3TokenButton::startDrag()
{
    auto *dragged = new QMimeData;
    dragged->setText(text());
    // The button may go with its token while the drag runs.
    auto *drag = new QDrag(window());
    drag->setMimeData(dragged);
    drag->setPixmap(grab());
    drag->setHotSpot(m_pressedAt);
    drag->exec(Qt::CopyAction);
}
