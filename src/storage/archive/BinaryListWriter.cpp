#include "storage/archive/BinaryListWriter.h"

#include <QString>
#include <QtEndian>

#include <algorithm>
#include <bit>
#include <limits>

namespace {

/** The upper half of an object's first byte; the lower one tells its size or count. */
enum Kind : quint8 {
    Flag = 0x00,
    Integer = 0x10,
    Real = 0x20,
    Ascii = 0x50,
    Utf16 = 0x60,
    Reference = 0x80,
    List = 0xa0,
    Map = 0xd0
};

template <typename T> void append(QByteArray &bytes, T value)
{
    char bigEndian[sizeof(T)];
    qToBigEndian(value, bigEndian);
    bytes.append(bigEndian, qsizetype(sizeof(T)));
}

template <typename T> QByteArray number(quint8 firstByte, T value)
{
    QByteArray object(1, char(firstByte));
    append(object, value);
    return object;
}

QByteArray integerObject(qint64 value)
{
    // Only the widest form has a sign.
    if (value >= 0 && value <= std::numeric_limits<quint8>::max())
        return number(Integer, quint8(value));
    if (value >= 0 && value <= std::numeric_limits<quint32>::max())
        return number(Integer | 2, quint32(value));
    return number(Integer | 3, value);
}

/** A large count has an object of its own. */
QByteArray counted(Kind kind, size_t count)
{
    constexpr quint8 countFollows = 0xf;
    if (count < countFollows)
        return {1, char(kind | count)};
    return char(kind | countFollows) + integerObject(qint64(count));
}

void appendNumbers(QByteArray &object, const std::vector<BinaryListWriter::Number> &numbers)
{
    for (const BinaryListWriter::Number number : numbers)
        append(object, number);
}

} // namespace

BinaryListWriter::Number BinaryListWriter::text(QStringView value)
{
    const bool isAscii =
        std::all_of(value.begin(), value.end(), [](QChar unit) { return unit.unicode() < 0x80; });
    QByteArray object = counted(isAscii ? Ascii : Utf16, size_t(value.size()));
    if (isAscii)
        return add(object + value.toLatin1());
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isPair =
            value[i].isHighSurrogate() && i + 1 < value.size() && value[i + 1].isLowSurrogate();
        if (isPair)
            append(object, value[i++].unicode());
        const bool isHalf = !isPair && value[i].isSurrogate();
        append(object, isHalf ? char16_t(QChar::ReplacementCharacter) : value[i].unicode());
    }
    return add(object);
}

BinaryListWriter::Number BinaryListWriter::integer(qint64 value)
{
    return shared(integerObject(value));
}

BinaryListWriter::Number BinaryListWriter::real(double value)
{
    return add(number(Real | 3, std::bit_cast<quint64>(value)));
}

BinaryListWriter::Number BinaryListWriter::flag(bool value)
{
    return shared({1, char(Flag | (value ? 9 : 8))});
}

BinaryListWriter::Number BinaryListWriter::reference(quint32 value)
{
    if (value >= m_references.size())
        m_references.resize(size_t(value) + 1);
    Number &reference = m_references[value];
    // Should the very first object be a reference, it is merely written once more.
    if (reference == 0)
        reference = add(number(Reference | 3, value));
    return reference;
}

BinaryListWriter::Number BinaryListWriter::list(const std::vector<Number> &members)
{
    QByteArray object = counted(List, members.size());
    appendNumbers(object, members);
    return add(object);
}

BinaryListWriter::Number BinaryListWriter::map(const std::vector<Number> &keys,
                                               const std::vector<Number> &values)
{
    Q_ASSERT(keys.size() == values.size());
    QByteArray object = counted(Map, keys.size());
    appendNumbers(object, keys);
    appendNumbers(object, values);
    return add(object);
}

BinaryListWriter::Number BinaryListWriter::add(const QByteArray &object)
{
    m_offsets.push_back(quint64(m_bytes.size()));
    m_bytes += object;
    return Number(m_offsets.size() - 1);
}

BinaryListWriter::Number BinaryListWriter::shared(const QByteArray &object)
{
    const auto known = m_shared.constFind(object);
    if (known != m_shared.constEnd())
        return *known;
    const Number number = add(object);
    m_shared.insert(object, number);
    return number;
}

QByteArray BinaryListWriter::bytesWithTop(Number top)
{
    constexpr qsizetype unusedBytes = 6;
    const auto table = quint64(m_bytes.size());
    const bool isLong = table > std::numeric_limits<quint32>::max();
    for (const quint64 offset : m_offsets) {
        if (isLong)
            append(m_bytes, offset);
        else
            append(m_bytes, quint32(offset));
    }
    m_bytes.append(unusedBytes, '\0');
    append(m_bytes, quint8(isLong ? sizeof(quint64) : sizeof(quint32)));
    append(m_bytes, quint8(sizeof(Number)));
    append(m_bytes, quint64(m_offsets.size()));
    append(m_bytes, quint64(top));
    append(m_bytes, table);
    return m_bytes;
}
