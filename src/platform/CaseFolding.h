#pragma once

#include <QString>

#include <string>

namespace platform {

/**
 * Compares character by character without regard to case: by the values of the case-folded code points, the
 * same in every locale. Gives -1, 0 or 1.
 */
int compareCaseInsensitive(QStringView a, QStringView b);

/** Appends the folded code points of the text; comparing such keys yields the order of the above. */
void appendCaseFolded(std::u32string &key, QStringView text);

} // namespace platform
