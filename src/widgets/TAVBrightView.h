#pragma once

#include <QWidget>

/** A backdrop in one bright grey. */
class TAVBrightView : public QWidget
{
    Q_OBJECT

public:
    explicit TAVBrightView(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
