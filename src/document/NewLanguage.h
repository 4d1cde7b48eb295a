#pragma once

#include "model/TAVLexicon.h"

/** The rules by which a language gets its names, which are also the name of its file. */
namespace NewLanguage {

/** Without white space around it; "Unknown" if nothing is left. */
QString foreignName(const QString &typed);
/** The same, and never ending in a bracket: such a file would be taken for a conflicted copy, and deleted. */
QString yourName(const QString &typed);
/** An empty vocabulary. Where both names are the same in lower case, the user's becomes "My Language". */
TAVLexiconRef make(const QString &yourLanguage, const QString &foreignLanguage);

} // namespace NewLanguage
