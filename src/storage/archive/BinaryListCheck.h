#pragma once

#include <QByteArray>

#include <optional>

/** A binary property list that the library can unfold into a tree without harm. */
struct HarmlessList
{
    /** Shares the given bytes where nothing had to be replaced. */
    QByteArray bytes;
    /** Whether texts hold stand-ins: the byte 0xff, or U+FFFF in one of wide characters, for each null. */
    bool hasNulls = false;
};

/**
 * Absent if the bytes are no binary property list or a harmful one. The library copies an object for each
 * reference to it, so that a short file of nested references would fill any memory, and it ends the process
 * over a text with a null in it.
 */
std::optional<HarmlessList> harmlessBinaryList(QByteArrayView bytes);
