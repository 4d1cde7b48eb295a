#pragma once

#include <QAbstractButton>

/** A level's picture and name, to be switched on and off; off, it is dimmed. */
class LevelButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit LevelButton(QWidget *parent = nullptr);

    static constexpr double alphaOn = 1.0;
    static constexpr double alphaOff = 0.4;
    /** Switches and dims. */
    void setActive(bool active);
    double alpha() const { return m_alpha; }
    void setLevel(int level) { m_level = level; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_level = 0;
    double m_alpha = alphaOn;
};
