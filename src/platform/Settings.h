#pragma once

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace platform {

enum class SettingsState {
    Sound,
    /** Parts of the file could not be read, and are as good as absent. */
    Damaged,
    /** Nothing can be stored, or nothing be read: values last as long as the program runs. */
    Unusable
};

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
    /** As it was found when the store was opened. */
    virtual SettingsState state() const { return SettingsState::Sound; }

    bool contains(const QString &key) const { return value(key).isValid(); }
    /** Reads a bool, qint64, double or QString. A real that is not finite is as good as absent. */
    template <typename T> std::optional<T> read(const QString &key) const;
};

/** The settings file in the folder. */
QString settingsPath(const QString &folder);

/** One settings file in the given folder, which is made if it is missing. Never waits. */
std::unique_ptr<Settings> makeSystemSettings(const QString &folder);

} // namespace platform
