#pragma once

#include "platform/Clock.h"

#include <QWidget>

#include <memory>

class QLabel;
class QPushButton;

/** On the result page of flash cards: starts the countdown to the same words again, and stops it. */
class FlashCardRestart : public QWidget
{
    Q_OBJECT

public:
    explicit FlashCardRestart(QWidget *parent);

    /** One second of the countdown; the first call starts it. */
    void restartCountdown();
    void endCountdown();

signals:
    /** The countdown has run out. */
    void restartRequested();

private:
    void showCountdown();

    QPushButton *m_button = nullptr;
    QLabel *m_countdownField = nullptr;
    std::unique_ptr<platform::Timer> m_timer;
    /** Seconds left; below 0 when none runs. */
    int m_restartCountdown = -1;
};
