#pragma once

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace platform {

/**
 * The settings store. A value of a wrong type reads as if it were absent, as the file can be edited by hand;
 * then the registered default counts. Keys may hold any character. Belongs to the main thread; reading is
 * safe from any.
 */
class Settings
{
public:
    virtual ~Settings() = default;

    /** The stored value, else the registered default, else an invalid variant. */
    virtual QVariant value(const QString &key) const = 0;
    virtual void setValue(const QString &key, const QVariant &value) = 0;
    virtual void remove(const QString &key) = 0;
    /** Values that count where nothing is stored; kept in memory only. */
    virtual void registerDefaults(const QVariantMap &defaults) = 0;
    /** What was registered for the key, else an invalid variant. */
    virtual QVariant registeredDefault(const QString &key) const = 0;
    /** Writes pending changes out. */
    virtual void synchronize() = 0;

    bool contains(const QString &key) const { return value(key).isValid(); }
    /** Reads a bool, qint64, double or QString. A real that is not finite is as good as absent. */
    template <typename T> std::optional<T> read(const QString &key) const;
};

/** One settings file in the given folder, which is made at the first write. */
std::unique_ptr<Settings> makeSystemSettings(const QString &folder);

} // namespace platform
