#pragma once

#include <QByteArrayView>
#include <QString>

namespace files {

inline constexpr QByteArrayView byteOrderMark = "\xef\xbb\xbf";

/**
 * One text out of a file in UTF-8. QString::fromUtf8() takes a mark at the start for the beginning of a whole
 * file and drops it; in a word that a user has pasted, it is a character.
 */
inline QString textFromUtf8(QByteArrayView bytes)
{
    QString text = QString::fromUtf8(bytes);
    if (bytes.startsWith(byteOrderMark))
        text.prepend(QChar::ByteOrderMark);
    return text;
}

} // namespace files
