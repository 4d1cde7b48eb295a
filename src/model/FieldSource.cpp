#include "model/FieldSource.h"

#include "model/CodingNumbers.h"

#include <QJsonArray>

bool MapSource::next()
{
    if (m_next == m_map.constEnd())
        return false;
    m_key = m_next.key().toUtf8();
    m_value = m_next.value();
    ++m_next;
    return true;
}

std::optional<QString> MapSource::text()
{
    return m_value.isString() ? std::optional(m_value.toString()) : std::nullopt;
}

std::optional<double> MapSource::real()
{
    return m_value.isDouble() ? std::optional(m_value.toDouble()) : std::nullopt;
}

qint64 MapSource::integer()
{
    // Whole numbers are kept exactly, beyond what a real can hold.
    const double number = m_value.toDouble();
    return std::trunc(number) == number ? m_value.toInteger() : coding::integerFromReal(number);
}

bool MapSource::flag()
{
    return m_value.isBool() ? m_value.toBool() : m_value.toDouble() != 0;
}

platform::TextSet MapSource::texts()
{
    platform::TextSet texts;
    const QJsonArray array = m_value.toArray();
    for (const QJsonValue member : array) {
        if (member.isString())
            texts.insert(member.toString());
    }
    return texts;
}

void MapSource::record(const Read &read)
{
    if (!m_value.isObject())
        return;
    MapSource source(m_value.toObject());
    read(source);
}

void MapSource::records(const Read &read)
{
    const QJsonArray array = m_value.toArray();
    for (const QJsonValue member : array) {
        MapSource source(member.toObject());
        read(source);
    }
}
