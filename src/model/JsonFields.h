#pragma once

#include "model/CodingNumbers.h"
#include "platform/OrderedSet.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

#include <optional>

/** Fields of a map from a file. A value of another type than expected reads as an absent one. */
namespace coding {

inline std::optional<QString> textIfAny(const QJsonValue &value)
{
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

inline qint64 integerOf(const QJsonValue &value)
{
    // Whole numbers first: they are kept exactly, beyond what a real can hold.
    const double real = value.toDouble();
    return std::trunc(real) == real ? value.toInteger() : integerFromReal(real);
}

inline bool flagOf(const QJsonValue &value)
{
    return value.isBool() ? value.toBool() : value.toDouble() != 0;
}

inline platform::TextSet textSetOf(const QJsonValue &value)
{
    platform::TextSet texts;
    const QJsonArray array = value.toArray();
    for (const QJsonValue member : array) {
        if (member.isString())
            texts.insert(member.toString());
    }
    return texts;
}

} // namespace coding
