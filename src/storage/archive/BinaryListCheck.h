#pragma once

#include <QByteArrayView>

/**
 * Whether the bytes are a binary property list that can be unfolded into a tree with bounded memory and
 * depth. The library that unfolds it copies an object for each reference to it, so that a short file of
 * nested references would fill any memory.
 */
bool isBoundedBinaryList(QByteArrayView bytes);
