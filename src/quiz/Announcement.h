#pragma once

#include "platform/Http.h"

#include <QJsonObject>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

/** A message of the maker to all users, as it stands on the announcement server. */
struct Announcement
{
    QString title;
    QString message;
    /** First and last second of validity since 1970, both included. */
    qint64 validFrom = 0;
    qint64 validTo = 0;
    QString buttonTitle;
    QString url;
    QString alternateButtonTitle;
    QString alternateUrl;
    /** Which edition shows it. */
    QString displayedIn;
    /** Dismisses the announcement as a key of the settings, so that it must have the form of a UUID. */
    QString uuid;

    /** Absent if any of the keys is missing or of the wrong type. */
    static std::optional<Announcement> fromDictionary(const QJsonObject &dictionary);

    /** For this edition, and within its time. */
    bool isDue(qint64 secondsSince1970) const;
};

namespace announcement {

/** The address on the deployer's server; empty without a server. */
QUrl address();

/**
 * Reads the announcement in the background and hands it over on the main thread, unless the call was
 * destroyed before. Whatever goes wrong, taken is never called: too large, too slow, no map at the top.
 * Returns null for an empty address.
 */
[[nodiscard]] std::unique_ptr<platform::HttpCall> fetch(const QUrl &address,
                                                        std::function<void(const QJsonObject &)> taken);

} // namespace announcement
