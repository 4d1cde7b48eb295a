#pragma once

#include <QProcess>
#include <QStringList>

/** The virtual X server of this test program, and the programs that run on it. */
namespace virtualdisplay {

/** Whether the server and the tools that the tests need are installed and it runs. */
bool isRunning();
/** Runs a program on the display to its end. */
bool run(const QString &program, const QStringList &arguments);

} // namespace virtualdisplay
