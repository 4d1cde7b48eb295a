#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringView>

#include <vector>

/**
 * Writes the objects of a binary property list one behind the other, in time and room that grow with their
 * number alone. Each call gives the number by which later ones refer to the object. Equal integers, flags and
 * references share one; whoever has equal texts keeps their number.
 */
class BinaryListWriter
{
public:
    using Number = quint32;

    /** Half of a surrogate pair becomes U+FFFD; all else is kept, nulls included. */
    Number text(QStringView value);
    Number integer(qint64 value);
    Number real(double value);
    Number flag(bool value);
    /** A reference into the table of a keyed archive. */
    Number reference(quint32 value);
    Number list(const std::vector<Number> &members);
    /** A map; the keys are texts. */
    Number map(const std::vector<Number> &keys, const std::vector<Number> &values);

    /** The whole list with that object at its top. To be called last. */
    QByteArray bytesWithTop(Number top);

private:
    Number add(const QByteArray &object);
    /** One number for all objects of these bytes. */
    Number shared(const QByteArray &object);

    QByteArray m_bytes = "bplist00";
    std::vector<quint64> m_offsets;
    QHash<QByteArray, Number> m_shared;
    /** By value; 0 for those that were not made yet. */
    std::vector<Number> m_references;
};
