#pragma once

#include <QAbstractButton>

/** A button that is not drawn: a place that takes clicks. It takes no focus. */
class HiddenButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit HiddenButton(QWidget *parent = nullptr)
        : QAbstractButton(parent)
    {
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent *) override {}
};
