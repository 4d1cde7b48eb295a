#include "model/FieldSink.h"

#include <QJsonArray>
#include <QLocale>

#include <charconv>

namespace {

/** Writes a character above the ASCII range; gives the position behind it. */
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
    char digits[20];
    m_text.append(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr - digits);
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
    // Room for the longest form of each character, which is an escape by number.
    constexpr qsizetype longestEscape = 6;
    const qsizetype start = m_text.size();
    m_text.resize(start + text.size() * longestEscape + 2);
    char *out = m_text.data() + start;
    *out++ = '"';
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t character = text[i].unicode();
        if (QChar::isSurrogate(character)) {
            const bool isPair =
                QChar::isHighSurrogate(character) && i + 1 < text.size() && text[i + 1].isLowSurrogate();
            character =
                isPair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : char32_t(QChar::ReplacementCharacter);
            i += isPair ? 1 : 0;
        }
        if (character >= 0x80) {
            out = appendUtf8(out, character);
        } else if (character < 0x20) {
            out = std::copy_n(
                QByteArray("\\u00" + QByteArray::number(character, 16).rightJustified(2, '0')).data(),
                longestEscape, out);
        } else {
            if (character == u'"' || character == u'\\')
                *out++ = '\\';
            *out++ = char(character);
        }
    }
    *out++ = '"';
    m_text.truncate(out - m_text.data());
}
