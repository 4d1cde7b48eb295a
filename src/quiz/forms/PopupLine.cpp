#include "quiz/forms/PopupLine.h"

#include "platform/Texts.h"
#include "quiz/QuizRun.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace {

constexpr int spacing = 6;

}

PopupLine::PopupLine(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
    , m_endButton(new QPushButton(this))
{
    m_label->setObjectName(QStringLiteral("popupLineLabel"));
    m_label->setTextFormat(Qt::PlainText);
    m_endButton->setObjectName(QStringLiteral("popupLineEndButton"));
    m_endButton->setText(platform::localized("Quiz", "popupEndQuiz"));
    // It reads as the end of the line, not as one more button of the page.
    m_endButton->setFlat(true);
    m_endButton->setCursor(Qt::PointingHandCursor);
    QFont underlined = m_endButton->font();
    underlined.setUnderline(true);
    m_endButton->setFont(underlined);
    m_endButton->setFixedWidth(m_endButton->fontMetrics().horizontalAdvance(m_endButton->text()) +
                               2 * spacing);
    auto *dot = new QLabel(QStringLiteral("·"), this);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    row->addStretch(1);
    for (QWidget *part :
         {static_cast<QWidget *>(m_label), static_cast<QWidget *>(dot), static_cast<QWidget *>(m_endButton)})
        row->addWidget(part);
    row->addStretch(1);
    connect(m_endButton, &QPushButton::clicked, this, &PopupLine::endChosen);
}

void PopupLine::setProgress(const RunProgress &progress)
{
    const QLocale locale;
    m_label->setText(platform::localized("Quiz", "popupLine")
                         .arg(locale.toString(progress.reached), locale.toString(progress.total)));
}
