#pragma once

#include <QByteArrayView>

/**
 * Whether the bytes are a binary property list that the library can unfold into a tree without harm. It
 * copies an object for each reference to it, so that a short file of nested references would fill any memory,
 * and it ends the process over a text with a null in it.
 */
bool isHarmlessBinaryList(QByteArrayView bytes);
