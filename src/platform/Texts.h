#pragma once

#include <QString>

namespace platform {

/**
 * The user-visible text of a key in a table, in the user's language, else in English, else the key itself.
 * A number fills %n and picks the plural form; %1, %2, ... are left for the caller to fill.
 */
QString localized(const char *table, const char *key, const char *comment = nullptr, int n = -1);

/** The same for a key of the default table, which is named "Default". */
QString localized(const char *key);

/** The language, script and region that the user's desktop is set to, like "de-AT"; "en" if none is set. */
QString userLocaleName();

/**
 * The name of a locale with the script that the environment's name for it tells by a modifier, which the
 * system's list of languages leaves out: "sr-RS" and "sr_RS@latin" give "sr-Latn-RS".
 */
QString localeNameWithScript(const QString &name, const QString &environmentName);

/** Loads English and, above it, the texts of the given locale's language. Ends with the application object.
 */
void installTexts(const QString &localeName);

} // namespace platform
