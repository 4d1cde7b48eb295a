#include "storage/archive/ArchiveDecoder.h"

#include "files/Utf8.h"
#include "storage/archive/BinaryListCheck.h"
#include "storage/archive/PlistNode.h"

#include <cmath>
#include <cstdlib>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/**
 * Steps that one archive may take to read, about one for each field, list member and character. A vocabulary
 * of 100,000 words takes a tenth; only objects that are referred to again and again come near.
 */
constexpr qint64 maxSteps = qint64(64) * 1000 * 1000;

struct ClassNames
{
    QLatin1StringView immutableName;
    QLatin1StringView mutableName;
};
constexpr ClassNames listClasses = {"NSArray"_L1, "NSMutableArray"_L1};
constexpr ClassNames setClasses = {"NSSet"_L1, "NSMutableSet"_L1};
constexpr ClassNames textClasses = {"NSString"_L1, "NSMutableString"_L1};
constexpr QLatin1StringView dateClass = "NSDate"_L1;

QString utf8OfNode(plist_t node)
{
    char *bytes = nullptr;
    uint64_t length = 0;
    plist_get_data_val(node, &bytes, &length);
    const std::unique_ptr<char, decltype(&std::free)> owner(bytes, &std::free);
    return files::textFromUtf8({bytes, qsizetype(length)});
}

/** Calls with each member until the call returns false. */
template <typename Call> void forEachMember(plist_t array, Call call)
{
    plist_array_iter position = nullptr;
    plist_array_new_iter(array, &position);
    const std::unique_ptr<void, decltype(&std::free)> owner(position, &std::free);
    plist_t member = nullptr;
    do {
        plist_array_next_item(array, position, &member);
    } while (member && call(member));
}

} // namespace

/** The objects of an archive by number, and how its reading goes. */
class ArchiveTable
{
public:
    explicit ArchiveTable(QByteArrayView bytes)
    {
        if (bytes.size() > ArchiveDecoder::maxBytes)
            return;
        const std::optional<HarmlessList> list = harmlessBinaryList(bytes);
        if (!list)
            return;
        m_hasNulls = list->hasNulls;
        plist_t root = nullptr;
        plist_from_bin(list->bytes.constData(), uint32_t(list->bytes.size()), &root);
        m_root.reset(root);
        const plist_t objects = itemOf(root, "$objects", PLIST_ARRAY);
        if (!objects)
            return;
        forEachMember(objects, [this](plist_t object) {
            m_objects.push_back(object);
            return true;
        });
    }

    bool isReadable() const { return m_isReadable && !m_objects.empty(); }
    void fail() { m_isReadable = false; }
    /** Whether that many steps may still be taken. */
    bool take(qint64 steps)
    {
        m_stepsLeft -= steps;
        if (m_stepsLeft < 0)
            fail();
        return m_isReadable;
    }

    plist_t rootReference() const
    {
        const plist_t top = itemOf(m_root.get(), "$top", PLIST_DICT);
        return top ? plist_dict_get_item(top, "root") : nullptr;
    }

    /** What a value stands for: itself, or the object that it refers to. Null when absent. */
    plist_t resolved(plist_t value)
    {
        if (!value || plist_get_node_type(value) != PLIST_UID)
            return value;
        uint64_t index = 0;
        plist_get_uid_val(value, &index);
        if (index == 0)
            return nullptr;
        if (index >= m_objects.size() || plist_get_node_type(m_objects[index]) == PLIST_UID) {
            fail();
            return nullptr;
        }
        return m_objects[index];
    }

    plist_t field(plist_t object, QLatin1StringView key)
    {
        return m_isReadable ? resolved(plist_dict_get_item(object, key.data())) : nullptr;
    }

    /** Null, and the archive unreadable, if the value is anything but an object of that class. */
    plist_t objectOfClass(plist_t value, const ClassNames &names)
    {
        const plist_t object = resolved(value);
        if (object && plist_get_node_type(object) == PLIST_DICT && take(plist_dict_get_size(object)) &&
            isOfClass(object, names))
            return object;
        fail();
        return nullptr;
    }

    /** A null value is absent. */
    std::optional<QString> text(plist_t value)
    {
        if (!value)
            return std::nullopt;
        QString text;
        switch (plist_get_node_type(value)) {
        case PLIST_STRING:
            text = textOfNode(value);
            break;
        case PLIST_DICT:
            if (const plist_t object = objectOfClass(value, textClasses))
                text = textOfObject(object);
            break;
        default:
            fail();
        }
        take(1 + text.size());
        return text;
    }

    /** Calls with each member of a list or set. */
    template <typename Call> void members(plist_t value, const ClassNames &names, Call call)
    {
        const plist_t object = objectOfClass(value, names);
        if (!object)
            return;
        const plist_t list = resolved(plist_dict_get_item(object, "NS.objects"));
        if (!list || plist_get_node_type(list) != PLIST_ARRAY) {
            fail();
            return;
        }
        forEachMember(list, [&](plist_t member) {
            if (take(1))
                call(member);
            return m_isReadable;
        });
    }

private:
    static plist_t itemOf(plist_t node, const char *key, plist_type type)
    {
        if (!node || plist_get_node_type(node) != PLIST_DICT)
            return nullptr;
        const plist_t item = plist_dict_get_item(node, key);
        return item && plist_get_node_type(item) == type ? item : nullptr;
    }

    QString textOfNode(plist_t node) const
    {
        char *text = nullptr;
        plist_get_string_val(node, &text);
        const std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
        if (!m_hasNulls)
            return files::textFromUtf8(text);
        return files::textFromUtf8(QByteArray(text).replace('\xff', '\0')).replace(u'\xffff', QChar::Null);
    }

    QString textOfObject(plist_t object)
    {
        if (const plist_t plain = itemOf(object, "NS.string", PLIST_STRING))
            return textOfNode(plain);
        if (const plist_t bytes = itemOf(object, "NS.bytes", PLIST_DATA))
            return utf8OfNode(bytes);
        fail();
        return {};
    }

    bool isOfClass(plist_t object, const ClassNames &names)
    {
        const plist_t description = resolved(plist_dict_get_item(object, archive::classKey));
        const plist_t name = itemOf(description, "$classname", PLIST_STRING);
        if (!name)
            return false;
        const auto isNamed = [&names](plist_t text) {
            return plist_string_val_compare(text, names.immutableName.data()) == 0 ||
                   plist_string_val_compare(text, names.mutableName.data()) == 0;
        };
        if (isNamed(name))
            return true;
        bool isSubclass = false;
        if (const plist_t classes = itemOf(description, "$classes", PLIST_ARRAY)) {
            forEachMember(classes, [&](plist_t ancestor) {
                isSubclass = plist_get_node_type(ancestor) == PLIST_STRING && isNamed(ancestor);
                return !isSubclass && take(1);
            });
        }
        return isSubclass;
    }

    PlistNode m_root;
    std::vector<plist_t> m_objects;
    bool m_hasNulls = false;
    qint64 m_stepsLeft = maxSteps;
    bool m_isReadable = true;
};

bool ArchiveDecoder::unarchive(QByteArrayView archive, QLatin1StringView rootClass, const Read &read)
{
    ArchiveTable table(archive);
    if (!table.isReadable())
        return false;
    if (const plist_t root = table.objectOfClass(table.rootReference(), {rootClass, rootClass}))
        read(ArchiveDecoder(table, root));
    return table.isReadable();
}

std::optional<QString> ArchiveDecoder::text(QLatin1StringView key) const
{
    return m_table.text(m_table.field(m_fields, key));
}

std::optional<QStringList> ArchiveDecoder::textSet(QLatin1StringView key) const
{
    const plist_t set = m_table.field(m_fields, key);
    if (!set)
        return std::nullopt;
    QStringList texts;
    m_table.members(set, setClasses, [this, &texts](plist_t member) {
        if (const std::optional<QString> text = m_table.text(m_table.resolved(member)))
            texts.append(*text);
        else
            m_table.fail();
    });
    return texts;
}

qint64 ArchiveDecoder::integer(QLatin1StringView key) const
{
    const plist_t value = m_table.field(m_fields, key);
    if (!value)
        return 0;
    switch (plist_get_node_type(value)) {
    case PLIST_UINT: {
        uint64_t number = 0;
        plist_get_uint_val(value, &number);
        return qint64(number);
    }
    case PLIST_REAL: {
        constexpr double limit = 9223372036854775808.0;
        double number = 0;
        plist_get_real_val(value, &number);
        return number > -limit && number < limit ? qint64(number) : 0;
    }
    case PLIST_BOOLEAN: {
        uint8_t flag = 0;
        plist_get_bool_val(value, &flag);
        return flag;
    }
    default:
        m_table.fail();
        return 0;
    }
}

bool ArchiveDecoder::flag(QLatin1StringView key) const
{
    return integer(key) != 0;
}

QDateTime ArchiveDecoder::date(QLatin1StringView key) const
{
    const plist_t value = m_table.field(m_fields, key);
    const plist_t object = value ? m_table.objectOfClass(value, {dateClass, dateClass}) : nullptr;
    if (!object)
        return {};
    const plist_t time = plist_dict_get_item(object, "NS.time");
    double seconds = 0;
    if (time && plist_get_node_type(time) == PLIST_REAL)
        plist_get_real_val(time, &seconds);
    else
        seconds = double(ArchiveDecoder(m_table, object).integer("NS.time"_L1));
    seconds += archive::secondsTo2001;
    // Hundreds of thousands of years away, a calendar means nothing.
    if (!(std::abs(seconds) < 1e13))
        return {};
    return QDateTime::fromMSecsSinceEpoch(std::llround(seconds * 1000), Qt::UTC);
}

void ArchiveDecoder::object(QLatin1StringView key, QLatin1StringView className, const Read &read) const
{
    const plist_t value = m_table.field(m_fields, key);
    const plist_t object = value ? m_table.objectOfClass(value, {className, className}) : nullptr;
    if (object)
        read(ArchiveDecoder(m_table, object));
}

void ArchiveDecoder::objects(QLatin1StringView key, QLatin1StringView className, const Read &read) const
{
    const plist_t list = m_table.field(m_fields, key);
    if (!list)
        return;
    m_table.members(list, listClasses, [&](plist_t member) {
        if (const plist_t object = m_table.objectOfClass(member, {className, className}))
            read(ArchiveDecoder(m_table, object));
    });
}
