#pragma once

#include "platform/Services.h"

#include <QLatin1String>

#include <optional>
#include <utility>

/**
 * One key of the settings store that may be absent: its type (bool, qint64, double or QString) and its owner.
 * Everybody may read it, but only the owner's own code can write it; others don't compile. The key is a
 * QString where it is made at run time. Writing belongs to the main thread; reading is safe from any.
 */
template <typename T, typename Owner, typename Key = QLatin1String> class OptionalSetting
{
public:
    constexpr explicit OptionalSetting(Key key)
        : m_key(std::move(key))
    {
    }

    QString key() const { return m_key; }
    /** A stored value of another type is as good as absent. */
    std::optional<T> value() const { return platform::settings().read<T>(m_key); }

private:
    friend Owner;
    void set(const T &value) const { platform::settings().setValue(m_key, value); }

    Key m_key;
};

/** A setting that has a default. */
template <typename T, typename Owner, typename Key = QLatin1String>
class Setting : public OptionalSetting<T, Owner, Key>
{
public:
    constexpr Setting(Key key, T defaultValue)
        : OptionalSetting<T, Owner, Key>(std::move(key))
        , m_defaultValue(std::move(defaultValue))
    {
    }

    /** The default where nothing of the type is stored. */
    T value() const { return OptionalSetting<T, Owner, Key>::value().value_or(m_defaultValue); }

private:
    T m_defaultValue;
};
