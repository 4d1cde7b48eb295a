#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

class QObject;

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

/** How much is listened to a server. */
struct Bounds
{
    qint64 largestAnswer = 64 * 1024; // bytes
    /** Without a byte for so long, the server is given up. */
    int silenceMs = 10000;
    /** However busily the server sends, it is not listened to any longer. */
    int patienceMs = 20000;
};

/**
 * Reads the announcement in the background and hands it over on the main thread, unless the context was
 * destroyed before. Whatever goes wrong, taken is never called: too large, too slow, no map at the top.
 */
void fetch(const QUrl &address, QObject *context, std::function<void(const QJsonObject &)> taken,
           const Bounds &bounds = {});

} // namespace announcement
