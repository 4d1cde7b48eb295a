#include "quiz/forms/FlashCardRestart.h"

#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

FlashCardRestart::FlashCardRestart(QWidget *parent)
    : QWidget(parent)
    , m_button(new QPushButton(this))
    , m_countdownField(new QLabel(this))
{
    m_button->setObjectName(QStringLiteral("countdownButton"));
    m_button->setMinimumSize(160, 30);
    m_countdownField->setObjectName(QStringLiteral("countdownField"));
    m_countdownField->setMinimumWidth(m_countdownField->fontMetrics().horizontalAdvance(u'0') * 4);
    CardStyle::keepPlaceWhenHidden(m_countdownField);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 8);
    row->addStretch(1);
    row->addWidget(m_button);
    row->addWidget(m_countdownField);
    row->addStretch(1);
    connect(m_button, &QPushButton::clicked, this,
            [this] { m_isRunning ? emit stopRequested() : emit startRequested(); });
    showCountdown(-1);
}

void FlashCardRestart::showCountdown(int secondsLeft)
{
    m_isRunning = secondsLeft >= 0;
    m_button->setText(m_isRunning ? platform::localized("Learn", "countdownStop")
                                  : platform::localized("Learn", "countdownInfo"));
    m_countdownField->setVisible(m_isRunning);
    m_countdownField->setText(QStringLiteral("%1s").arg(secondsLeft));
}
