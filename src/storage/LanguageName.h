#pragma once

#include <QString>

/**
 * Whether a language of that name can have a file, which is named after it. Refused are slashes, control and
 * broken characters, the file extension itself, and names too long for a file name.
 */
bool isPossibleLanguageName(const QString &name);
