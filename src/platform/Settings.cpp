#include "platform/Settings.h"

#include <QSettings>
#include <QUrl>

#include <cmath>
#include <mutex>
#include <optional>

namespace platform {

namespace {

bool isText(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<QString>();
}

std::optional<bool> readBoolean(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<bool>())
        return value.toBool();
    if (!isText(value))
        return std::nullopt;
    const QString text = value.toString();
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 || text == QLatin1String("1"))
        return true;
    if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0 || text == QLatin1String("0"))
        return false;
    return std::nullopt;
}

std::optional<qint64> readInteger(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Long:
    case QMetaType::QString:
        break;
    default:
        return std::nullopt;
    }
    bool isReadable = false;
    const qint64 number = value.toLongLong(&isReadable);
    return isReadable ? std::optional(number) : std::nullopt;
}

std::optional<double> readReal(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<double>()) {
        const double number = value.toDouble();
        return std::isfinite(number) ? std::optional(number) : std::nullopt;
    }
    if (isText(value)) {
        bool isReadable = false;
        const double number = value.toString().toDouble(&isReadable);
        return isReadable && std::isfinite(number) ? std::optional(number) : std::nullopt;
    }
    return readInteger(value);
}

std::optional<QString> readText(const QVariant &value)
{
    return isText(value) ? std::optional(value.toString()) : std::nullopt;
}

/** The stored value if it can be read, else the default if that can, else the type's zero. */
template <typename Read> auto readOr(const Settings &settings, const QString &key, Read read)
{
    if (const auto stored = read(settings.value(key)))
        return *stored;
    using Value = typename decltype(read(QVariant()))::value_type;
    return read(settings.registeredDefault(key)).value_or(Value());
}

/** The file format folds slashes and knows no empty key; only escaped keys can hold any character. */
QString escaped(const QString &key)
{
    return key.isEmpty() ? QStringLiteral("%") : QString::fromLatin1(QUrl::toPercentEncoding(key));
}

class FileSettings : public Settings
{
public:
    explicit FileSettings(const QString &folder)
        : m_store(folder + QLatin1String("/settings.ini"), QSettings::IniFormat)
    {
    }

    QVariant value(const QString &key) const override
    {
        const std::lock_guard lock(m_mutex);
        const QVariant stored = m_store.value(escaped(key));
        return stored.isValid() ? stored : m_defaults.value(key);
    }
    QVariant registeredDefault(const QString &key) const override
    {
        const std::lock_guard lock(m_mutex);
        return m_defaults.value(key);
    }
    void setValue(const QString &key, const QVariant &value) override
    {
        const std::lock_guard lock(m_mutex);
        m_store.setValue(escaped(key), value);
    }
    void remove(const QString &key) override
    {
        const std::lock_guard lock(m_mutex);
        m_store.remove(escaped(key));
    }
    void registerDefaults(const QVariantMap &defaults) override
    {
        const std::lock_guard lock(m_mutex);
        m_defaults.insert(defaults);
    }
    void synchronize() override
    {
        const std::lock_guard lock(m_mutex);
        m_store.sync();
    }

private:
    mutable std::mutex m_mutex;
    QSettings m_store;
    QVariantMap m_defaults;
};

} // namespace

bool Settings::boolean(const QString &key) const
{
    return readOr(*this, key, readBoolean);
}

qint64 Settings::integer(const QString &key) const
{
    return readOr(*this, key, readInteger);
}

double Settings::real(const QString &key) const
{
    return readOr(*this, key, readReal);
}

QString Settings::text(const QString &key) const
{
    return readOr(*this, key, readText);
}

std::unique_ptr<Settings> makeSystemSettings(const QString &folder)
{
    return std::make_unique<FileSettings>(folder);
}

} // namespace platform
