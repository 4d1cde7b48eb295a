#pragma once

#include <QAbstractButton>

/**
 * One of the buttons that choose what the vocabulary view shows: picture, name, number of words, and a marker
 * while it is on. A click only reports; whoever owns the buttons turns them on and off.
 */
class MemoryLevelButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit MemoryLevelButton(QWidget *parent = nullptr);

    qint64 count() const { return m_count; }
    void setCount(qint64 count);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void nextCheckState() override {}
    bool event(QEvent *event) override;

private:
    qint64 m_count = 0;
};
