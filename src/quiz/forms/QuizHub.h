#pragma once

class QWidget;

/** What the quiz forms ask of the main window. */
class QuizHub
{
public:
    virtual ~QuizHub() = default;
    virtual QWidget *mainWindow() const = 0;
    /** While the popup quiz runs, no tab and no language can be chosen. */
    virtual void disableAllToolbarItems() = 0;
    virtual void enableAllToolbarItems() = 0;
};
