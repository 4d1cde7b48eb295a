#include "model/FieldSink.h"

#include <QJsonArray>
#include <QLocale>

#include <charconv>

namespace {

/** Writes a character above the ASCII range and returns the position behind it. */
char *appendUtf8(char *out, char32_t character)
{
    const auto continuation = [character](int shift) { return char(0x80 | (character >> shift & 0x3f)); };
    if (character < 0x800) {
        *out++ = char(0xc0 | character >> 6);
    } else {
        if (character < 0x10000) {
            *out++ = char(0xe0 | character >> 12);
        } else {
            *out++ = char(0xf0 | character >> 18);
            *out++ = continuation(12);
        }
        *out++ = continuation(6);
    }
    *out++ = continuation(0);
    return out;
}

/** Half a surrogate pair is no character; written as it is, it would make the whole file unreadable. */
char32_t withoutSurrogate(char16_t unit)
{
    return QChar::isSurrogate(unit) ? char32_t(QChar::ReplacementCharacter) : unit;
}

} // namespace

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
    sink.m_buffer.truncate(sink.m_length);
    return sink.m_buffer;
}

void JsonTextSink::text(QLatin1StringView key, const QString &value)
{
    appendKey(key);
    appendText(value);
}

void JsonTextSink::texts(QLatin1StringView key, const platform::TextSet &values)
{
    appendKey(key);
    append("[");
    bool isFirst = true;
    for (const QString &value : values) {
        if (!isFirst)
            append(",");
        isFirst = false;
        appendText(value);
    }
    append("]");
}

void JsonTextSink::integer(QLatin1StringView key, qint64 value)
{
    appendKey(key);
    char digits[20];
    append({digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr});
}

void JsonTextSink::real(QLatin1StringView key, double value)
{
    appendKey(key);
    append(QByteArray::number(value, 'g', QLocale::FloatingPointShortest));
}

void JsonTextSink::flag(QLatin1StringView key, bool value)
{
    appendKey(key);
    append(value ? QByteArrayView("true") : QByteArrayView("false"));
}

void JsonTextSink::record(QLatin1StringView key, const Record &write)
{
    appendKey(key);
    appendRecord(write);
}

void JsonTextSink::records(QLatin1StringView key, qsizetype count, const NumberedRecord &write)
{
    appendKey(key);
    append("[");
    for (qsizetype i = 0; i < count; ++i) {
        if (i > 0)
            append(",");
        appendRecord([&write, i](FieldSink &sink) { write(sink, i); });
    }
    append("]");
}

void JsonTextSink::appendRecord(const Record &write)
{
    append("{");
    m_isFirst = true;
    write(*this);
    append("}");
    m_isFirst = false;
}

void JsonTextSink::appendKey(QLatin1StringView key)
{
    append(m_isFirst ? QByteArrayView("\"") : QByteArrayView(",\""));
    m_isFirst = false;
    append({key.data(), key.size()});
    append("\":");
}

void JsonTextSink::append(QByteArrayView bytes)
{
    std::copy(bytes.begin(), bytes.end(), room(bytes.size()));
    m_length += bytes.size();
}

char *JsonTextSink::room(qsizetype size)
{
    if (m_buffer.size() - m_length < size)
        m_buffer.resize(2 * m_buffer.size() + size);
    return m_buffer.data() + m_length;
}

void JsonTextSink::appendText(QStringView text)
{
    // The longest form of a character is an escape by number.
    constexpr qsizetype maxEscapeLength = 6;
    char *const start = room(text.size() * maxEscapeLength + 2);
    char *out = start;
    *out++ = '"';
    const char16_t *const end = text.utf16() + text.size();
    for (const char16_t *unit = text.utf16(); unit < end; ++unit) {
        if (*unit >= 0x80) {
            const bool isPair =
                QChar::isHighSurrogate(*unit) && unit + 1 < end && QChar::isLowSurrogate(unit[1]);
            out =
                appendUtf8(out, isPair ? QChar::surrogateToUcs4(unit[0], unit[1]) : withoutSurrogate(*unit));
            unit += isPair ? 1 : 0;
        } else if (*unit < 0x20) {
            const QByteArray number = QByteArray::number(*unit, 16).rightJustified(4, '0');
            out = std::copy(number.begin(), number.end(), std::copy_n("\\u", 2, out));
        } else {
            if (*unit == u'"' || *unit == u'\\')
                *out++ = '\\';
            *out++ = char(*unit);
        }
    }
    *out++ = '"';
    m_length += out - start;
}
