#include "storage/archive/BinaryListCheck.h"

#include <optional>
#include <vector>

namespace {

constexpr int maxNesting = 32;
/** What a node of the tree takes in memory, and how much all together may take. */
constexpr quint64 bytesPerNode = 160;
constexpr quint64 maxBytes = quint64(1) << 30;

class Check
{
public:
    explicit Check(const QByteArray &bytes)
        : m_list{bytes, false}
    {
    }

    const HarmlessList &list() const { return m_list; }

    bool run()
    {
        constexpr QByteArrayView header = "bplist00";
        constexpr quint64 trailerSize = 32;
        const QByteArrayView bytes = m_list.bytes;
        if (!bytes.startsWith(header) || quint64(bytes.size()) < quint64(header.size()) + trailerSize)
            return false;
        const quint64 trailer = quint64(bytes.size()) - trailerSize;
        m_offsetSize = number(trailer + 6, 1);
        m_referenceSize = number(trailer + 7, 1);
        const quint64 count = number(trailer + 8, 8);
        const quint64 root = number(trailer + 16, 8);
        m_offsetTable = number(trailer + 24, 8);
        if (!isNumberSize(m_offsetSize) || !isNumberSize(m_referenceSize) || m_offsetTable > trailer ||
            count > (trailer - m_offsetTable) / m_offsetSize)
            return false;
        m_objects.resize(count);
        return visit(root, 0) && m_objects[root].bytes <= maxBytes;
    }

private:
    struct Object
    {
        /** How many levels of containers it opens, itself included. */
        int height = 0;
        /** Memory of its whole tree; 0 means that it has not been visited. */
        quint64 bytes = 0;
    };
    struct Body
    {
        quint64 start = 0;
        quint64 count = 0;
    };

    static bool isNumberSize(quint64 size) { return (size >= 1 && size <= 4) || size == 8; }

    /** Big-endian; the caller has made sure that it lies within the bytes. */
    quint64 number(quint64 position, quint64 size) const
    {
        quint64 value = 0;
        for (quint64 i = 0; i < size; ++i)
            value = value << 8 | quint8(m_list.bytes.at(qsizetype(position + i)));
        return value;
    }

    bool fits(quint64 start, quint64 count, quint64 size) const
    {
        return start <= m_offsetTable && count <= (m_offsetTable - start) / size;
    }

    /** Where the content of a counted object starts, and its count, which may stand in a number of its own.
     */
    std::optional<Body> bodyAt(quint64 position) const
    {
        const quint64 low = number(position, 1) & 0xf;
        if (low < 15)
            return Body{position + 1, low};
        if (!fits(position + 1, 1, 1))
            return std::nullopt;
        const quint64 marker = number(position + 1, 1);
        const quint64 size = quint64(1) << (marker & 0xf);
        if ((marker >> 4) != 1 || size > 8 || !fits(position + 2, size, 1))
            return std::nullopt;
        return Body{position + 2 + size, number(position + 2, size)};
    }

    std::optional<quint64> positionOf(quint64 index) const
    {
        if (index >= m_objects.size())
            return std::nullopt;
        const quint64 position = number(m_offsetTable + index * m_offsetSize, m_offsetSize);
        return position >= 8 && position < m_offsetTable ? std::optional(position) : std::nullopt;
    }

    bool isText(quint64 index) const
    {
        const std::optional<quint64> position = positionOf(index);
        const quint64 type = position ? number(*position, 1) >> 4 : 0;
        return type == 0x5 || type == 0x6;
    }

    /** The library ends the process when it is asked for a text with a null in it. */
    void replaceNulls(const Body &text, quint64 size)
    {
        for (quint64 i = 0; i < text.count; ++i) {
            const quint64 position = text.start + i * size;
            if (number(position, size) != 0)
                continue;
            m_list.bytes.replace(qsizetype(position), qsizetype(size), QByteArray(qsizetype(size), '\xff'));
            m_list.hasNulls = true;
        }
    }

    bool visit(quint64 index, int depth)
    {
        const std::optional<quint64> position = positionOf(index);
        if (!position)
            return false;
        // An object that is still being visited has no height yet; the depth ends a cycle.
        if (m_objects[index].bytes > 0)
            return depth + m_objects[index].height <= maxNesting;

        const quint64 type = number(*position, 1) >> 4;
        switch (type) {
        case 0x4:
        case 0x5:
        case 0x6: {
            const std::optional<Body> body = bodyAt(*position);
            const quint64 size = type == 0x6 ? 2 : 1;
            if (!body || !fits(body->start, body->count, size))
                return false;
            if (type != 0x4)
                replaceNulls(*body, size);
            m_objects[index].bytes = bytesPerNode + 2 * size * body->count;
            return true;
        }
        case 0xa:
        case 0xd: {
            const std::optional<Body> body = bodyAt(*position);
            const quint64 parts = type == 0xd ? 2 : 1;
            return depth < maxNesting && body && fits(body->start, body->count, parts * m_referenceSize) &&
                   visitMembers(index, *body, parts, depth);
        }
        default: {
            const quint64 low = number(*position, 1) & 0xf;
            const quint64 size = type == 0x8 ? low + 1 : quint64(1) << low;
            const bool isNumber = type == 0x1 || type == 0x2 || type == 0x3 || type == 0x8;
            if (type != 0x0 && (!isNumber || size > 16 || !fits(*position + 1, size, 1)))
                return false;
            m_objects[index].bytes = bytesPerNode;
            return true;
        }
        }
    }

    bool visitMembers(quint64 index, const Body &body, quint64 parts, int depth)
    {
        Object container{1, bytesPerNode};
        for (quint64 i = 0; i < parts * body.count; ++i) {
            const quint64 member = number(body.start + i * m_referenceSize, m_referenceSize);
            const bool isKey = parts == 2 && i < body.count;
            if ((isKey && !isText(member)) || !visit(member, depth + 1))
                return false;
            container.height = std::max(container.height, m_objects[member].height + 1);
            container.bytes += m_objects[member].bytes;
            if (container.bytes > maxBytes)
                return false;
        }
        m_objects[index] = container;
        return true;
    }

    HarmlessList m_list;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_offsetTable = 0;
    std::vector<Object> m_objects;
};

} // namespace

std::optional<HarmlessList> harmlessBinaryList(QByteArrayView bytes)
{
    Check check(QByteArray::fromRawData(bytes.data(), bytes.size()));
    if (!check.run())
        return std::nullopt;
    if (!check.list().hasNulls)
        return check.list();
    // In a damaged list, the bytes of a text may belong to something else too.
    Check again(check.list().bytes);
    return again.run() && !again.list().hasNulls ? std::optional(check.list()) : std::nullopt;
}
