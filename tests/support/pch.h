#pragma once

#include <gtest/gtest.h>

#include <QtCore>

#include <memory>
#include <vector>

/** Lets a failed comparison show the text rather than its bytes. */
inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}
