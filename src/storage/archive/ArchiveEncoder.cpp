#include "storage/archive/ArchiveEncoder.h"

#include "storage/archive/PlistNode.h"

#include <QHash>

#include <cstdlib>

using namespace Qt::StringLiterals;

/** Numbers the objects of an archive as they come. */
class ArchiveWriter
{
public:
    ArchiveWriter()
        : m_objects(plist_new_array())
    {
        append(plist_new_string("$null"));
    }

    static plist_t absent() { return plist_new_uid(0); }

    /** A reference to the text; equal texts share one object. */
    plist_t text(const QString &value)
    {
        const auto known = m_texts.constFind(value);
        if (known != m_texts.constEnd())
            return plist_new_uid(*known);
        // The container's texts end at a null.
        const QByteArray bytes = QString(value).replace(QChar::Null, QChar::ReplacementCharacter).toUtf8();
        const uint64_t number = append(plist_new_string(bytes.constData()));
        m_texts.insert(value, number);
        return plist_new_uid(number);
    }

    /** A reference to a new object, whose fields the call adds. */
    template <typename Write> plist_t object(QLatin1StringView className, Write write)
    {
        const plist_t fields = plist_new_dict();
        const uint64_t number = append(fields);
        write(fields);
        plist_dict_set_item(fields, archive::classKey, plist_new_uid(classNumber(className)));
        return plist_new_uid(number);
    }

    /** The whole archive, in the container's bytes. */
    QByteArray bytesWithRoot(plist_t root)
    {
        const plist_t top = plist_new_dict();
        plist_dict_set_item(top, "root", root);
        const PlistNode archive(plist_new_dict());
        plist_dict_set_item(archive.get(), "$version", plist_new_uint(100000));
        plist_dict_set_item(archive.get(), "$archiver", plist_new_string("NSKeyedArchiver"));
        plist_dict_set_item(archive.get(), "$top", top);
        plist_dict_set_item(archive.get(), "$objects", m_objects.release());
        char *bytes = nullptr;
        uint32_t length = 0;
        plist_to_bin(archive.get(), &bytes, &length);
        const QByteArray copy(bytes, qsizetype(length));
        plist_to_bin_free(bytes);
        return copy;
    }

private:
    uint64_t append(plist_t object)
    {
        plist_array_append_item(m_objects.get(), object);
        return m_count++;
    }

    uint64_t classNumber(QLatin1StringView className)
    {
        const auto known = m_classes.constFind(className);
        if (known != m_classes.constEnd())
            return *known;
        const plist_t ancestors = plist_new_array();
        plist_array_append_item(ancestors, plist_new_string(className.data()));
        if (constexpr QLatin1StringView prefix = "NSMutable"_L1; className.startsWith(prefix)) {
            const QByteArray base = "NS" + QByteArray(className.sliced(prefix.size()).data());
            plist_array_append_item(ancestors, plist_new_string(base.constData()));
        }
        plist_array_append_item(ancestors, plist_new_string("NSObject"));
        const plist_t description = plist_new_dict();
        plist_dict_set_item(description, "$classname", plist_new_string(className.data()));
        plist_dict_set_item(description, "$classes", ancestors);
        const uint64_t number = append(description);
        m_classes.insert(className, number);
        return number;
    }

    PlistNode m_objects;
    uint64_t m_count = 0;
    QHash<QString, uint64_t> m_texts;
    QHash<QLatin1StringView, uint64_t> m_classes;
};

QByteArray ArchiveEncoder::archive(QLatin1StringView rootClass, const Write &write)
{
    ArchiveWriter writer;
    const plist_t root = writer.object(rootClass, [&](plist_t fields) {
        ArchiveEncoder encoder(writer, fields);
        write(encoder);
    });
    return writer.bytesWithRoot(root);
}

void ArchiveEncoder::text(QLatin1StringView key, const std::optional<QString> &value)
{
    plist_dict_set_item(m_fields, key.data(), value ? m_writer.text(*value) : ArchiveWriter::absent());
}

void ArchiveEncoder::textSet(QLatin1StringView key, const QStringList &values)
{
    const plist_t set = m_writer.object("NSMutableSet"_L1, [&](plist_t fields) {
        const plist_t members = plist_new_array();
        for (const QString &value : values)
            plist_array_append_item(members, m_writer.text(value));
        plist_dict_set_item(fields, "NS.objects", members);
    });
    plist_dict_set_item(m_fields, key.data(), set);
}

void ArchiveEncoder::integer(QLatin1StringView key, qint64 value)
{
    plist_dict_set_item(m_fields, key.data(), plist_new_uint(uint64_t(value)));
}

void ArchiveEncoder::flag(QLatin1StringView key, bool value)
{
    plist_dict_set_item(m_fields, key.data(), plist_new_bool(value));
}

void ArchiveEncoder::date(QLatin1StringView key, const QDateTime &value)
{
    if (!value.isValid()) {
        plist_dict_set_item(m_fields, key.data(), ArchiveWriter::absent());
        return;
    }
    const double seconds = double(value.toMSecsSinceEpoch()) / 1000 - archive::secondsTo2001;
    const plist_t date = m_writer.object("NSDate"_L1, [seconds](plist_t fields) {
        plist_dict_set_item(fields, "NS.time", plist_new_real(seconds));
    });
    plist_dict_set_item(m_fields, key.data(), date);
}

void ArchiveEncoder::object(QLatin1StringView key, QLatin1StringView className, const Write &write)
{
    const plist_t object = m_writer.object(className, [&](plist_t fields) {
        ArchiveEncoder encoder(m_writer, fields);
        write(encoder);
    });
    plist_dict_set_item(m_fields, key.data(), object);
}

void ArchiveEncoder::objects(QLatin1StringView key, QLatin1StringView className, qsizetype count,
                             const NumberedWrite &write)
{
    const plist_t list = m_writer.object("NSMutableArray"_L1, [&](plist_t fields) {
        const plist_t members = plist_new_array();
        for (qsizetype i = 0; i < count; ++i) {
            plist_array_append_item(members, m_writer.object(className, [&](plist_t memberFields) {
                ArchiveEncoder encoder(m_writer, memberFields);
                write(encoder, i);
            }));
        }
        plist_dict_set_item(fields, "NS.objects", members);
    });
    plist_dict_set_item(m_fields, key.data(), list);
}
