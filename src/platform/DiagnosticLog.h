#pragma once

#include <QString>

#include <functional>

namespace platform {

/** Writes one plain line to the standard error stream. Any thread may call it. */
void diagnosticLog(const QString &line);

/** A test listens here; an empty function ends that. */
void setDiagnosticLogListener(std::function<void(const QString &)> listener);

} // namespace platform
