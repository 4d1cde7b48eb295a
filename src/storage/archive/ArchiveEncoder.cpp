#include "storage/archive/ArchiveEncoder.h"

#include "storage/archive/BinaryListWriter.h"
#include "storage/archive/PlistNode.h"

#include <QHash>

#include <vector>

using namespace Qt::StringLiterals;

using Number = BinaryListWriter::Number;

/** The keys of an object and what stands under them. */
struct ArchiveFields
{
    void add(Number key, Number value)
    {
        keys.push_back(key);
        values.push_back(value);
    }

    std::vector<Number> keys;
    std::vector<Number> values;
};

/** Numbers the objects of an archive as they come: an object before those that it refers to. */
class ArchiveWriter
{
public:
    ArchiveWriter() { place(list.text(u"$null")); }

    Number key(QLatin1StringView key)
    {
        const auto known = m_keys.constFind(key);
        return known != m_keys.constEnd() ? *known : *m_keys.insert(key, list.text(QString(key)));
    }
    Number absent() { return list.reference(0); }

    /** A reference to the text; equal texts share one object. */
    Number text(const QString &value)
    {
        quint32 &number = m_texts[value];
        // Number 0 is taken.
        if (number == 0)
            number = place(list.text(value));
        return list.reference(number);
    }

    /** A reference to a new object, whose fields the call adds. */
    template <typename Write> Number object(QLatin1StringView className, Write write)
    {
        const quint32 number = place(0);
        ArchiveFields fields;
        write(fields);
        fields.add(key(QLatin1StringView(archive::classKey)), list.reference(classNumber(className)));
        m_objects[number] = list.map(fields.keys, fields.values);
        return list.reference(number);
    }

    /** The whole archive, in the container's bytes. */
    QByteArray bytesWithRoot(Number root)
    {
        ArchiveFields archive;
        archive.add(key("$version"_L1), list.integer(100000));
        archive.add(key("$archiver"_L1), list.text(u"NSKeyedArchiver"));
        archive.add(key("$top"_L1), list.map({key("root"_L1)}, {root}));
        archive.add(key("$objects"_L1), list.list(m_objects));
        return list.bytesWithTop(list.map(archive.keys, archive.values));
    }

    BinaryListWriter list;

private:
    /** The number of the object in the archive. */
    quint32 place(Number object)
    {
        m_objects.push_back(object);
        return quint32(m_objects.size() - 1);
    }

    quint32 classNumber(QLatin1StringView className)
    {
        const auto known = m_classes.constFind(className);
        if (known != m_classes.constEnd())
            return *known;
        std::vector<Number> ancestors = {list.text(QString(className))};
        if (constexpr QLatin1StringView prefix = "NSMutable"_L1; className.startsWith(prefix))
            ancestors.push_back(list.text("NS"_L1 + className.sliced(prefix.size())));
        ancestors.push_back(list.text(u"NSObject"));
        const quint32 number = place(list.map({key("$classname"_L1), key("$classes"_L1)},
                                              {list.text(QString(className)), list.list(ancestors)}));
        m_classes.insert(className, number);
        return number;
    }

    std::vector<Number> m_objects;
    QHash<QLatin1StringView, Number> m_keys;
    QHash<QString, quint32> m_texts;
    QHash<QLatin1StringView, quint32> m_classes;
};

QByteArray ArchiveEncoder::archive(QLatin1StringView rootClass, const Write &write)
{
    ArchiveWriter writer;
    const Number root = writer.object(rootClass, [&](ArchiveFields &fields) {
        ArchiveEncoder encoder(writer, fields);
        write(encoder);
    });
    return writer.bytesWithRoot(root);
}

void ArchiveEncoder::add(QLatin1StringView key, quint32 value)
{
    m_fields.add(m_writer.key(key), value);
}

void ArchiveEncoder::text(QLatin1StringView key, const std::optional<QString> &value)
{
    add(key, value ? m_writer.text(*value) : m_writer.absent());
}

void ArchiveEncoder::textSet(QLatin1StringView key, const QStringList &values)
{
    add(key, m_writer.object("NSMutableSet"_L1, [&](ArchiveFields &fields) {
        std::vector<Number> members;
        for (const QString &value : values)
            members.push_back(m_writer.text(value));
        fields.add(m_writer.key("NS.objects"_L1), m_writer.list.list(members));
    }));
}

void ArchiveEncoder::integer(QLatin1StringView key, qint64 value)
{
    add(key, m_writer.list.integer(value));
}

void ArchiveEncoder::flag(QLatin1StringView key, bool value)
{
    add(key, m_writer.list.flag(value));
}

void ArchiveEncoder::date(QLatin1StringView key, const QDateTime &value)
{
    if (!value.isValid()) {
        add(key, m_writer.absent());
        return;
    }
    const double seconds = double(value.toMSecsSinceEpoch()) / 1000 - archive::secondsTo2001;
    add(key, m_writer.object("NSDate"_L1, [&](ArchiveFields &fields) {
        fields.add(m_writer.key("NS.time"_L1), m_writer.list.real(seconds));
    }));
}

void ArchiveEncoder::object(QLatin1StringView key, QLatin1StringView className, const Write &write)
{
    add(key, m_writer.object(className, [&](ArchiveFields &fields) {
        ArchiveEncoder encoder(m_writer, fields);
        write(encoder);
    }));
}

void ArchiveEncoder::objects(QLatin1StringView key, QLatin1StringView className, qsizetype count,
                             const NumberedWrite &write)
{
    add(key, m_writer.object("NSMutableArray"_L1, [&](ArchiveFields &fields) {
        std::vector<Number> members;
        members.reserve(size_t(count));
        for (qsizetype i = 0; i < count; ++i) {
            members.push_back(m_writer.object(className, [&](ArchiveFields &memberFields) {
                ArchiveEncoder encoder(m_writer, memberFields);
                write(encoder, i);
            }));
        }
        fields.add(m_writer.key("NS.objects"_L1), m_writer.list.list(members));
    }));
}
