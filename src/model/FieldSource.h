#pragma once

#include "platform/OrderedSet.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QJsonObject>
#include <QString>

#include <functional>
#include <optional>

/**
 * Walks through the fields of a record, which come from a map or from the text of a file. A value that nobody
 * reads is passed over; one of another type than it is read as counts as absent.
 */
class FieldSource
{
public:
    using Read = std::function<void(FieldSource &)>;

    FieldSource() = default;
    FieldSource(const FieldSource &) = delete;
    FieldSource &operator=(const FieldSource &) = delete;
    virtual ~FieldSource() = default;

    /** Goes on to the next field of the record; false behind the last. */
    virtual bool next() = 0;
    /** The present field's key, in UTF-8. Valid until its value is read. */
    virtual QByteArrayView key() const = 0;

    // The present field's value, to be read once at most

    virtual std::optional<QString> text() = 0;
    virtual std::optional<double> real() = 0;
    /** A real is cut toward zero; 0 for what does not fit. */
    virtual qint64 integer() = 0;
    /** Numbers other than 0 are true. */
    virtual bool flag() = 0;
    /** The texts among the members of a list. */
    virtual platform::TextSet texts() = 0;
    virtual void record(const Read &read) = 0;
    /** Reads each member of a list; one that is no record reads as one without fields. */
    virtual void records(const Read &read) = 0;
};

/** The fields of a map. */
class MapSource : public FieldSource
{
public:
    explicit MapSource(const QJsonObject &map)
        : m_map(map)
        , m_next(m_map.constBegin())
    {
    }

    bool next() override;
    QByteArrayView key() const override { return m_key; }
    std::optional<QString> text() override;
    std::optional<double> real() override;
    qint64 integer() override;
    bool flag() override;
    platform::TextSet texts() override;
    void record(const Read &read) override;
    void records(const Read &read) override;

private:
    const QJsonObject m_map;
    QJsonObject::const_iterator m_next;
    QByteArray m_key;
    QJsonValue m_value;
};
