#pragma once

#include <QColor>
#include <QWidget>

/** The result of a quiz: correct, misspelled (or skipped), and what remains as wrong. */
class TAVPieChart : public QWidget
{
    Q_OBJECT

public:
    explicit TAVPieChart(QWidget *parent = nullptr);

    /** Shares from 0 to 1. */
    void setCorrectPercent(double share);
    void setMisspelledPercent(double share);
    double correctPercent() const { return m_correctPercent; }
    double misspelledPercent() const { return m_misspelledPercent; }

    static QColor correctColor();
    static QColor wrongColor();
    static QColor misspelledColor();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double m_correctPercent = 0.7;
    double m_misspelledPercent = 0.1;
};
