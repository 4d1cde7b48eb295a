#include "quiz/forms/FlashCardRestart.h"

#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace std::chrono_literals;

namespace {

constexpr int countdownSeconds = 5;

}

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
            [this] { m_restartCountdown >= 0 ? endCountdown() : restartCountdown(); });
    showCountdown();
}

void FlashCardRestart::restartCountdown()
{
    if (m_restartCountdown < 0) {
        m_restartCountdown = countdownSeconds;
        m_timer = platform::clock().startTimer(1s, true, [this] { restartCountdown(); });
    } else if (m_restartCountdown == 0) {
        endCountdown();
        emit restartRequested();
        return;
    } else {
        --m_restartCountdown;
    }
    showCountdown();
}

void FlashCardRestart::endCountdown()
{
    m_timer.reset();
    m_restartCountdown = -1;
    showCountdown();
}

void FlashCardRestart::showCountdown()
{
    const bool isRunning = m_restartCountdown >= 0;
    m_button->setText(isRunning ? platform::localized("Learn", "countdownStop")
                                : platform::localized("Learn", "countdownInfo"));
    m_countdownField->setVisible(isRunning);
    m_countdownField->setText(QStringLiteral("%1s").arg(m_restartCountdown));
}
