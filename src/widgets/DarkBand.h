#pragma once

#include <QWidget>

/** A strip that is dark in every palette; labels in it show the light text that belongs on it. */
class DarkBand : public QWidget
{
    Q_OBJECT

public:
    explicit DarkBand(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
