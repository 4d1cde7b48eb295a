#include "quiz/forms/SegmentControl.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QToolButton>

SegmentControl::SegmentControl(QWidget *parent)
    : QWidget(parent)
    , m_group(new QButtonGroup(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    connect(m_group, &QButtonGroup::idToggled, this, [this](int segment, bool on) {
        if (on)
            emit selectedSegmentChanged(segment);
    });
}

void SegmentControl::addSegment(const QString &text)
{
    // A tool button, so that Return is left to the page's default button.
    auto *button = new QToolButton(this);
    button->setText(text);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setChecked(m_group->buttons().isEmpty());
    m_group->addButton(button, int(m_group->buttons().size()));
    layout()->addWidget(button);
    styleSegments();
}

void SegmentControl::styleSegments()
{
    const int last = int(m_group->buttons().size()) - 1;
    for (int i = 0; i <= last; ++i) {
        const QString style = QStringLiteral(
            "QToolButton { background: palette(base); color: palette(text); border: 1px solid rgba(0,0,0,60);"
            " %1 padding: 7px 20px; }"
            "QToolButton:disabled { color: rgba(0,0,0,90); }"
            "QToolButton:checked { background: palette(highlight); color: palette(highlighted-text); }"
            "QToolButton:focus { border: 2px solid palette(highlight); padding: 6px 19px; }"
            "QToolButton:checked:focus { border: 2px solid rgba(0,0,0,110); }");
        QString corners;
        if (i == 0)
            corners += QLatin1String("border-top-left-radius: 6px; border-bottom-left-radius: 6px;");
        if (i == last)
            corners += QLatin1String("border-top-right-radius: 6px; border-bottom-right-radius: 6px;");
        if (i > 0)
            corners += QLatin1String("border-left: none;");
        m_group->button(i)->setStyleSheet(style.arg(corners));
    }
}

void SegmentControl::setSegmentText(int segment, const QString &text)
{
    m_group->button(segment)->setText(text);
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
