#include "platform/Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QUrl>

#include <cmath>
#include <mutex>

namespace platform {

namespace {

bool isText(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<QString>();
}

template <typename T> std::optional<T> readAs(const QVariant &value);

template <> std::optional<bool> readAs(const QVariant &value)
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

template <> std::optional<qint64> readAs(const QVariant &value)
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

template <> std::optional<double> readAs(const QVariant &value)
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
    return readAs<qint64>(value);
}

template <> std::optional<QString> readAs(const QVariant &value)
{
    return isText(value) ? std::optional(value.toString()) : std::nullopt;
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
    {
        const QFileInfo file(settingsPath(folder));
        // Reading from a pipe would wait for somebody at its other end for ever. So would the store for the
        // end of a lock that is none.
        if (folder.isEmpty() || isInTheWay(file) ||
            isInTheWay(QFileInfo(file.filePath() + QLatin1String(".lock"))))
            return;
        makeFolder(folder);
        m_store.emplace(file.filePath(), QSettings::IniFormat);
        const bool isUsable = m_store->isWritable() && m_store->status() != QSettings::AccessError;
        if (isUsable)
            m_state =
                m_store->status() == QSettings::FormatError ? SettingsState::Damaged : SettingsState::Sound;
    }

    QVariant value(const QString &key) const override
    {
        const std::lock_guard lock(m_mutex);
        const QVariant stored = m_store ? m_store->value(escaped(key)) : m_unstored.value(key);
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
        if (m_store)
            m_store->setValue(escaped(key), value);
        else
            m_unstored.insert(key, value);
    }
    void remove(const QString &key) override
    {
        const std::lock_guard lock(m_mutex);
        if (m_store)
            m_store->remove(escaped(key));
        m_unstored.remove(key);
    }
    void registerDefaults(const QVariantMap &defaults) override
    {
        const std::lock_guard lock(m_mutex);
        m_defaults.insert(defaults);
    }
    void synchronize() override
    {
        const std::lock_guard lock(m_mutex);
        if (m_store)
            m_store->sync();
    }
    SettingsState state() const override { return m_state; }

private:
    static bool isInTheWay(const QFileInfo &file) { return file.exists() && !file.isFile(); }
    static void makeFolder(const QString &folder)
    {
        if (!QFileInfo::exists(folder) && QDir().mkpath(folder))
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    mutable std::mutex m_mutex;
    /** Absent where no settings file can be. */
    std::optional<QSettings> m_store;
    QVariantMap m_unstored;
    QVariantMap m_defaults;
    SettingsState m_state = SettingsState::Unusable;
};

} // namespace

template <typename T> std::optional<T> Settings::read(const QString &key) const
{
    const std::optional<T> stored = readAs<T>(value(key));
    return stored ? stored : readAs<T>(registeredDefault(key));
}

template std::optional<bool> Settings::read(const QString &key) const;
template std::optional<qint64> Settings::read(const QString &key) const;
template std::optional<double> Settings::read(const QString &key) const;
template std::optional<QString> Settings::read(const QString &key) const;

QString settingsPath(const QString &folder)
{
    return folder + QLatin1String("/settings.ini");
}

std::unique_ptr<Settings> makeSystemSettings(const QString &folder)
{
    return std::make_unique<FileSettings>(folder);
}

} // namespace platform
