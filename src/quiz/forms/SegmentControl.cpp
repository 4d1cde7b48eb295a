#include "quiz/forms/SegmentControl.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr double radius = 6.0;
constexpr QSize padding(20, 8);

/** One segment. It leaves Return to the page's default button, as no push button would. */
class Segment : public QAbstractButton
{
public:
    explicit Segment(QWidget *parent)
        : QAbstractButton(parent)
    {
        setCheckable(true);
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_Hover);
    }

    QSize sizeHint() const override { return fontMetrics().size(Qt::TextSingleLine, text()) + 2 * padding; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QRectF place = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        // Only the corners at the ends of the row are round: the other ones lie outside the clip.
        const QWidget *row = parentWidget();
        if (x() > 0)
            place.setLeft(-2 * radius);
        if (geometry().right() < row->width() - 1)
            place.setRight(width() + 2 * radius);
        QPainterPath frame;
        frame.addRoundedRect(place, radius, radius);
        const bool isLit = isChecked() || (isEnabled() && underMouse());
        const QColor accent = palette().color(QPalette::Highlight);
        QColor background = palette().color(QPalette::Base);
        if (isLit)
            background = isChecked() ? accent : accent.lighter(185);
        painter.fillPath(frame, background);
        painter.setPen(QColor(0, 0, 0, 70));
        painter.drawPath(frame);
        if (x() > 0)
            painter.drawLine(QPointF(0.5, 0.5), QPointF(0.5, height() - 0.5));
        painter.setPen(palette().color(isChecked() ? QPalette::HighlightedText : QPalette::ButtonText));
        if (hasFocus()) {
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(rect().adjusted(4, 4, -4, -4), radius / 2, radius / 2);
        }
        painter.drawText(rect(), Qt::AlignCenter, text());
    }
};

} // namespace

SegmentControl::SegmentControl(QWidget *parent)
    : QWidget(parent)
    , m_group(new QButtonGroup(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
}

void SegmentControl::addSegment(const QString &text)
{
    auto *segment = new Segment(this);
    segment->setText(text);
    segment->setChecked(m_group->buttons().isEmpty());
    m_group->addButton(segment, int(m_group->buttons().size()));
    layout()->addWidget(segment);
}

void SegmentControl::setSegmentEnabled(int segment, bool enabled)
{
    m_group->button(segment)->setEnabled(enabled);
}

int SegmentControl::selectedSegment() const
{
    return m_group->checkedId();
}

void SegmentControl::setSelectedSegment(int segment)
{
    if (QAbstractButton *button = m_group->button(segment))
        button->setChecked(true);
}
