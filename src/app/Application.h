#pragma once

#include <QApplication>

#include <functional>

/** The application object of the program. */
class Application : public QApplication
{
    Q_OBJECT

public:
    /**
     * Whether a window can be shown at all is only found out here: without a display one line is written to
     * the standard error stream, and the process ends with 1.
     */
    Application(int &argc, char **argv);

    /** Asked before the program ends. */
    void setShouldTerminate(std::function<bool()> shouldTerminate);

    /** An exception that nobody caught ends the process where it was thrown, instead of being swallowed. */
    bool notify(QObject *receiver, QEvent *event) noexcept override;

    /** Lets the end of the user's session, or Ctrl+C in a terminal, end the program in good order. */
    void quitOnSignals();

protected:
    bool event(QEvent *event) override;

private:
    std::function<bool()> m_shouldTerminate;
};
