#include "platform/CaseFolding.h"

namespace platform {

namespace {

// QString's own comparison folds code points too, but orders by code units, which puts all characters beyond
// the basic plane before its last ones.
char32_t nextFolded(const QChar *&position, const QChar *end)
{
    const char16_t unit = (position++)->unicode();
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? unit + (u'a' - u'A') : unit;
    if (QChar::isHighSurrogate(unit) && position != end && position->isLowSurrogate())
        return QChar::toCaseFolded(QChar::surrogateToUcs4(unit, (position++)->unicode()));
    return QChar::toCaseFolded(char32_t(unit));
}

} // namespace

int compareCaseInsensitive(QStringView a, QStringView b)
{
    const QChar *left = a.begin();
    const QChar *right = b.begin();
    while (left != a.end() && right != b.end()) {
        const char32_t leftFolded = nextFolded(left, a.end());
        const char32_t rightFolded = nextFolded(right, b.end());
        if (leftFolded != rightFolded)
            return leftFolded < rightFolded ? -1 : 1;
    }
    return int(left != a.end()) - int(right != b.end());
}

void appendCaseFolded(std::u32string &key, QStringView text)
{
    for (const QChar *position = text.begin(); position != text.end();)
        key.push_back(nextFolded(position, text.end()));
}

} // namespace platform
