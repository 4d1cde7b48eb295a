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

    /**
     * Lets the end of the user's session, or Ctrl+C in a terminal, end the program in good order, from now on
     * and whatever event loop runs: an alert can stand long before run().
     */
    void quitOnSignals();

    /** Runs the event loop; returns at once if the program was asked to end before. The process's result. */
    int run();

Q_SIGNALS:
    /**
     * The program has agreed to end: what asks the user something now must not go on waiting. If its event
     * loop doesn't run yet, nothing that the start goes on to ask may wait either; else a last save may still
     * have something to tell.
     */
    void ending(bool isRunning);

protected:
    bool event(QEvent *event) override;

private:
    void quitOnSignal();

    std::function<bool()> m_shouldTerminate;
    bool m_isRunning = false;
    bool m_isEnding = false;
};
