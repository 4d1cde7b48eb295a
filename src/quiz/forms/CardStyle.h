#pragma once

#include <QColor>
#include <QPalette>
#include <QPixmap>

class QLabel;
class QPushButton;
class QString;
class QWidget;

/** How things look that stand on the card, whose colours are given and don't follow a dark palette. */
namespace CardStyle {

/** Light colours for all controls on the card; the accent is the system's. */
QPalette palette(const QPalette &system);

/** Takes the font by this factor larger than the window's. */
void enlarge(QWidget *widget, double factor, bool bold = false);
/** Gives the one button that Return presses the accent colour, or takes it away. */
void makeDefault(QPushButton *button, bool isDefault = true);
/** The picture of that name in the card's text colour, square, in so many pixels. */
QPixmap picture(const QString &name, int size, qreal devicePixelRatio);
/** The same on a label, the opacity is 0 to 1. */
void setPicture(QLabel *label, const QString &name, int size, double opacity = 1.0);
/** A round spot, as the legend of a chart shows it. */
void setDot(QLabel *label, const QColor &color);
/** Hidden, the widget goes on taking up its room, so that nothing around it moves. */
void keepPlaceWhenHidden(QWidget *widget);
/** Colours a label's text. */
void setTextColor(QLabel *label, const QColor &color);

} // namespace CardStyle
