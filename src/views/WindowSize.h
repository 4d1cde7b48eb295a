#pragma once

class QWidget;

/** Keeps the size of the main window from one run to the next. */
class WindowSize
{
public:
    /** As it was left, if it was; never larger than the screen. */
    static void restore(QWidget &window);
    static void remember(const QWidget &window);
};
