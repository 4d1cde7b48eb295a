#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/** On the result page of flash cards: starts the countdown to the same words again, and stops it. */
class FlashCardRestart : public QWidget
{
    Q_OBJECT

public:
    explicit FlashCardRestart(QWidget *parent);

    /** Seconds left; below 0: no countdown runs. */
    void showCountdown(int secondsLeft);

signals:
    void startRequested();
    void stopRequested();

private:
    QPushButton *m_button = nullptr;
    QLabel *m_countdownField = nullptr;
    bool m_isRunning = false;
};
