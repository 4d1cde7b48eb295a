#include "storage/LanguageName.h"

#include <QStringList>

namespace {

/** A file name holds 255 bytes: two language names, and in a backup's name date, time and extension. */
constexpr qsizetype maxBytes = 100;

} // namespace

bool isPossibleLanguageName(const QString &name)
{
    if (!name.isValidUtf16() || name.toUtf8().size() > maxBytes)
        return false;
    // A file that holds its extension twice is not found again.
    if (name.contains(QLatin1String(".tavv"), Qt::CaseInsensitive))
        return false;
    return std::none_of(name.begin(), name.end(), [](QChar character) {
        return character == QLatin1Char('/') || character.category() == QChar::Other_Control;
    });
}
