#pragma once

#include <QColor>
#include <QWidget>

/** A thin bar in translucent white, made to stand on a DarkBand. */
class TAVProgressBar : public QWidget
{
    Q_OBJECT

public:
    explicit TAVProgressBar(QWidget *parent = nullptr);

    /** Questions reached, and how many of them were answered correctly; the bar shows the first. */
    void setProgress(quint64 reached, quint64 correct);
    void setTotal(quint64 total);
    quint64 progress() const { return m_progress; }
    quint64 correct() const { return m_correct; }
    quint64 total() const { return m_total; }
    /** progress over total; a total of 0 is divided by as it stands. */
    double progressFraction() const { return m_progressFraction; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void updateFraction();

    quint64 m_progress = 30;
    quint64 m_correct = 0;
    quint64 m_total = 100;
    double m_progressFraction = 0.3;
    double m_cornerRadius = 4.0;
    QColor m_backgroundColor;
    QColor m_progressColor;
};
