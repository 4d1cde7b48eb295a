#include "model/FieldSink.h"

#include <QJsonArray>
#include <QLocale>

QJsonObject MapSink::mapOf(const Record &write)
{
    MapSink sink;
    write(sink);
    return sink.m_map;
}

void MapSink::text(QLatin1StringView key, const QString &value)
{
    m_map.insert(key, value);
}

void MapSink::texts(QLatin1StringView key, const platform::TextSet &values)
{
    m_map.insert(key, QJsonArray::fromStringList(values.values()));
}

void MapSink::integer(QLatin1StringView key, qint64 value)
{
    m_map.insert(key, value);
}

void MapSink::real(QLatin1StringView key, double value)
{
    m_map.insert(key, value);
}

void MapSink::flag(QLatin1StringView key, bool value)
{
    m_map.insert(key, value);
}

void MapSink::record(QLatin1StringView key, const Record &write)
{
    m_map.insert(key, mapOf(write));
}

void MapSink::records(QLatin1StringView key, qsizetype count, const NumberedRecord &write)
{
    QJsonArray array;
    for (qsizetype i = 0; i < count; ++i)
        array.append(mapOf([&write, i](FieldSink &sink) { write(sink, i); }));
    m_map.insert(key, array);
}

QByteArray JsonTextSink::textOf(const Record &write)
{
    JsonTextSink sink;
    sink.appendRecord(write);
    return sink.m_text;
}

void JsonTextSink::text(QLatin1StringView key, const QString &value)
{
    appendKey(key);
    appendText(value);
}

void JsonTextSink::texts(QLatin1StringView key, const platform::TextSet &values)
{
    appendKey(key);
    m_text += '[';
    bool isFirst = true;
    for (const QString &value : values) {
        if (!isFirst)
            m_text += ',';
        isFirst = false;
        appendText(value);
    }
    m_text += ']';
}

void JsonTextSink::integer(QLatin1StringView key, qint64 value)
{
    appendKey(key);
    m_text += QByteArray::number(value);
}

void JsonTextSink::real(QLatin1StringView key, double value)
{
    appendKey(key);
    m_text += QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

void JsonTextSink::flag(QLatin1StringView key, bool value)
{
    appendKey(key);
    m_text += value ? "true" : "false";
}

void JsonTextSink::record(QLatin1StringView key, const Record &write)
{
    appendKey(key);
    appendRecord(write);
}

void JsonTextSink::records(QLatin1StringView key, qsizetype count, const NumberedRecord &write)
{
    appendKey(key);
    m_text += '[';
    for (qsizetype i = 0; i < count; ++i) {
        if (i > 0)
            m_text += ',';
        appendRecord([&write, i](FieldSink &sink) { write(sink, i); });
    }
    m_text += ']';
}

void JsonTextSink::appendRecord(const Record &write)
{
    m_text += '{';
    m_isFirst = true;
    write(*this);
    m_text += '}';
    m_isFirst = false;
}

void JsonTextSink::appendKey(QLatin1StringView key)
{
    m_text += m_isFirst ? "\"" : ",\"";
    m_isFirst = false;
    m_text.append(key.data(), key.size());
    m_text += "\":";
}

void JsonTextSink::appendText(QStringView text)
{
    m_text += '"';
    const char16_t *from = text.utf16();
    const char16_t *const end = from + text.size();
    while (from < end) {
        const char16_t *plain = from;
        while (plain < end && *plain >= 0x20 && *plain != u'"' && *plain != u'\\')
            ++plain;
        m_text += QStringView(from, plain).toUtf8();
        if (plain == end)
            break;
        if (*plain == u'"' || *plain == u'\\') {
            m_text += '\\';
            m_text += char(*plain);
        } else {
            m_text += "\\u" + QByteArray::number(*plain, 16).rightJustified(4, '0');
        }
        from = plain + 1;
    }
    m_text += '"';
}
