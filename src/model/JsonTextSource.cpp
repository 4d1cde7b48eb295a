#include "model/JsonTextSource.h"

#include "files/Utf8.h"
#include "model/CodingNumbers.h"

#include <charconv>

namespace {

/** Deeper nesting counts as no JSON, as recursion must end somewhere. */
constexpr int maxNesting = 1024;

} // namespace

bool JsonTextSource::readRecord(QByteArrayView json, const Read &read)
{
    if (json.startsWith(files::byteOrderMark))
        json = json.sliced(files::byteOrderMark.size());
    if (!json.isValidUtf8())
        return false;
    JsonTextSource source(json);
    if (!source.opens('{'))
        return false;
    source.readRecordBody(read);
    source.skipSpace();
    return !source.m_hasFailed && source.m_position == source.m_end;
}

void JsonTextSource::fail()
{
    m_hasFailed = true;
    m_position = m_end;
}

void JsonTextSource::skipSpace()
{
    while (m_position < m_end &&
           (*m_position == ' ' || *m_position == '\n' || *m_position == '\r' || *m_position == '\t'))
        ++m_position;
}

char JsonTextSource::peek()
{
    skipSpace();
    return m_position < m_end ? *m_position : '\0';
}

bool JsonTextSource::accept(char byte)
{
    if (peek() != byte)
        return false;
    ++m_position;
    return true;
}

void JsonTextSource::expect(char byte)
{
    if (!accept(byte))
        fail();
}

void JsonTextSource::passDigits()
{
    if (!isDigit())
        fail();
    while (isDigit())
        ++m_position;
}

bool JsonTextSource::next()
{
    if (m_hasValue)
        passValue();
    m_hasValue = false;
    if (!m_isOpen || m_hasFailed)
        return false;
    if (accept('}')) {
        m_isOpen = false;
        return false;
    }
    if (!m_isFirst)
        expect(',');
    m_isFirst = false;
    expect('"');
    bool hasEscapes = false;
    m_key = rawText(hasEscapes);
    if (hasEscapes) {
        m_unescapedKey = unescaped(m_key).toUtf8();
        m_key = m_unescapedKey;
    }
    expect(':');
    m_hasValue = !m_hasFailed;
    return m_hasValue;
}

bool JsonTextSource::takeIf(bool isExpected)
{
    const bool isTaken = m_hasValue && isExpected;
    if (isTaken)
        m_hasValue = false;
    return isTaken;
}

bool JsonTextSource::startsNumber()
{
    const char byte = peek();
    return byte == '-' || (byte >= '0' && byte <= '9');
}

std::optional<QString> JsonTextSource::text()
{
    return takeIf(peek() == '"') ? std::optional(textValue()) : std::nullopt;
}

std::optional<double> JsonTextSource::real()
{
    return takeIf(startsNumber()) ? std::optional(number().real) : std::nullopt;
}

qint64 JsonTextSource::integer()
{
    return takeIf(startsNumber()) ? number().integer : 0;
}

bool JsonTextSource::flag()
{
    if (takeIf(startsNumber()))
        return number().real != 0;
    const bool isTrue = peek() == 't';
    passValue();
    m_hasValue = false;
    return isTrue;
}

platform::TextSet JsonTextSource::texts()
{
    platform::TextSet texts;
    if (takeIf(peek() == '[')) {
        forEachMember([this, &texts] {
            if (peek() == '"')
                texts.insert(sharedTextValue());
            else
                passValue();
        });
    }
    return texts;
}

void JsonTextSource::record(const Read &read)
{
    if (takeIf(peek() == '{') && opens('{'))
        readRecordBody(read);
}

void JsonTextSource::records(const Read &read)
{
    if (!takeIf(peek() == '['))
        return;
    forEachMember([this, &read] {
        if (peek() != '{') {
            passValue();
            MapSource none{QJsonObject()};
            read(none);
        } else if (opens('{')) {
            readRecordBody(read);
        }
    });
}

bool JsonTextSource::opens(char bracket)
{
    expect(bracket);
    if (++m_depth > maxNesting)
        fail();
    return !m_hasFailed;
}

template <typename Call> void JsonTextSource::forEachMember(Call call)
{
    if (!opens('['))
        return;
    if (!accept(']')) {
        do {
            call();
        } while (accept(','));
        expect(']');
    }
    closed();
}

void JsonTextSource::readRecordBody(const Read &read)
{
    m_isFirst = true;
    m_isOpen = true;
    read(*this);
    while (next())
        continue;
    // From here on, next() goes on with the record that holds this one.
    m_isFirst = false;
    m_isOpen = true;
    closed();
}

void JsonTextSource::passValue()
{
    switch (peek()) {
    case '{':
        if (opens('{')) {
            passMembers();
            closed();
        }
        return;
    case '[':
        forEachMember([this] { passValue(); });
        return;
    case '"':
        textValue();
        return;
    case 't':
        return passLiteral("true");
    case 'f':
        return passLiteral("false");
    case 'n':
        return passLiteral("null");
    default:
        number();
    }
}

void JsonTextSource::passMembers()
{
    if (accept('}'))
        return;
    do {
        bool hasEscapes = false;
        expect('"');
        rawText(hasEscapes);
        expect(':');
        passValue();
    } while (accept(','));
    expect('}');
}

void JsonTextSource::passLiteral(QByteArrayView literal)
{
    if (QByteArrayView(m_position, m_end).startsWith(literal))
        m_position += literal.size();
    else
        fail();
}

JsonTextSource::Number JsonTextSource::number()
{
    skipSpace();
    const char *const start = m_position;
    if (m_position < m_end && *m_position == '-')
        ++m_position;
    passDigits();
    bool isWhole = true;
    if (m_position < m_end && *m_position == '.') {
        isWhole = false;
        ++m_position;
        passDigits();
    }
    if (m_position < m_end && (*m_position == 'e' || *m_position == 'E')) {
        isWhole = false;
        ++m_position;
        if (m_position < m_end && (*m_position == '+' || *m_position == '-'))
            ++m_position;
        passDigits();
    }
    Number number;
    if (m_hasFailed)
        return number;
    if (isWhole && std::from_chars(start, m_position, number.integer).ec == std::errc()) {
        number.real = double(number.integer);
    } else {
        // Infinite where it is too large, which is not the same as a 0.
        number.real = QString::fromLatin1(start, m_position - start).toDouble();
        number.integer = coding::integerFromReal(number.real);
    }
    return number;
}

QByteArrayView JsonTextSource::rawText(bool &hasEscapes)
{
    const char *const start = m_position;
    while (m_position < m_end && *m_position != '"') {
        if (*m_position == '\\' && m_position + 1 < m_end) {
            hasEscapes = true;
            ++m_position;
        }
        ++m_position;
    }
    if (m_position >= m_end) {
        fail();
        return {};
    }
    return {start, m_position++};
}

QString JsonTextSource::textValue()
{
    expect('"');
    bool hasEscapes = false;
    const QByteArrayView raw = rawText(hasEscapes);
    return hasEscapes ? unescaped(raw) : files::textFromUtf8(raw);
}

QString JsonTextSource::sharedTextValue()
{
    expect('"');
    bool hasEscapes = false;
    const QByteArrayView raw = rawText(hasEscapes);
    QString &text = m_sharedTexts[raw];
    if (text.isEmpty() && !raw.isEmpty())
        text = unescaped(raw);
    return text;
}

QString JsonTextSource::unescaped(QByteArrayView raw)
{
    QString text;
    while (!raw.isEmpty()) {
        const qsizetype escape = raw.indexOf('\\');
        text += files::textFromUtf8(raw.first(escape < 0 ? raw.size() : escape));
        if (escape < 0)
            break;
        static constexpr QByteArrayView letters = "\"\\/bfnrt";
        static constexpr QByteArrayView meanings = "\"\\/\b\f\n\r\t";
        const char letter = raw[escape + 1];
        raw = raw.sliced(escape + 2);
        if (const qsizetype known = letters.indexOf(letter); known >= 0) {
            text += QLatin1Char(meanings[known]);
            continue;
        }
        ushort unit = 0;
        const char *const digits = raw.data();
        if (letter != 'u' || raw.size() < 4 ||
            std::from_chars(digits, digits + 4, unit, 16).ptr != digits + 4) {
            fail();
            return {};
        }
        text += QChar(unit);
        raw = raw.sliced(4);
    }
    return text;
}
