#pragma once

#include <QJsonObject>

/** An announcement with nothing wrong, valid from 1000 to 2000 seconds after 1970. */
inline QJsonObject wholeAnnouncement()
{
    return {{QStringLiteral("title"), QStringLiteral("News")},
            {QStringLiteral("message"), QStringLiteral("There is news.")},
            {QStringLiteral("validFrom"), 1000},
            {QStringLiteral("validTo"), 2000},
            {QStringLiteral("buttonTitle"), QStringLiteral("Read")},
            {QStringLiteral("url"), QStringLiteral("https://example.org/news")},
            {QStringLiteral("alternateButtonTitle"), QStringLiteral("Other")},
            {QStringLiteral("alternateUrl"), QStringLiteral("http://example.org/plain")},
            {QStringLiteral("displayedIn"), QStringLiteral("all")},
            {QStringLiteral("uuid"), QStringLiteral("6ba7b810-9dad-11d1-80b4-00c04fd430c8")}};
}
