#pragma once

class QWidget;

/** Keeps the size of the main window from one run to the next. */
namespace WindowSize {

/** As it was left, if it was; never larger than the screen. */
void restore(QWidget &window);
void remember(const QWidget &window);

} // namespace WindowSize
