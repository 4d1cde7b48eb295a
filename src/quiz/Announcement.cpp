#include "quiz/Announcement.h"

#include "DeployerValues.h"
#include "platform/Services.h"

#include <QJsonDocument>
#include <QUuid>

#include <cmath>

using namespace std::chrono_literals;

namespace {

bool take(const QJsonValue &value, QString &text)
{
    text = value.toString();
    return value.isString();
}

bool take(const QJsonValue &value, qint64 &number)
{
    constexpr double maxNumber = 1e15;
    const double real = value.toDouble();
    if (!value.isDouble() || std::trunc(real) != real || std::abs(real) > maxNumber)
        return false;
    number = qint64(real);
    return true;
}

/** It holds a few texts. */
constexpr platform::HttpLimits limits{qint64(64) * 1024, 10s, 20s};

} // namespace

std::optional<Announcement> Announcement::fromDictionary(const QJsonObject &dictionary)
{
    Announcement found;
    const auto has = [&dictionary](const char *key, auto &field) {
        return take(dictionary.value(QLatin1String(key)), field);
    };
    const bool isWhole =
        has("title", found.title) && has("message", found.message) && has("validFrom", found.validFrom) &&
        has("validTo", found.validTo) && has("buttonTitle", found.buttonTitle) && has("url", found.url) &&
        has("alternateButtonTitle", found.alternateButtonTitle) && has("alternateUrl", found.alternateUrl) &&
        has("displayedIn", found.displayedIn) && has("uuid", found.uuid);
    if (!isWhole || QUuid::fromString(found.uuid).isNull())
        return std::nullopt;
    return found;
}

bool Announcement::isDue(qint64 secondsSince1970) const
{
    return displayedIn != QLatin1String("appstore") && secondsSince1970 >= validFrom &&
           secondsSince1970 <= validTo;
}

QUrl announcement::address()
{
    const QLatin1String host(deployer::announcementHost);
    if (host.isEmpty())
        return {};
    return QUrl(QLatin1String("https://") + host + QLatin1String("/messages/message.json"), QUrl::StrictMode);
}

std::unique_ptr<platform::HttpCall> announcement::fetch(const QUrl &address,
                                                        std::function<void(const QJsonObject &)> taken)
{
    if (!address.isValid() || address.isEmpty())
        return nullptr;
    const auto take = [taken = std::move(taken)](const platform::HttpResponse &response) {
        const QJsonDocument document = QJsonDocument::fromJson(response.body);
        if (response.isSuccess() && document.isObject())
            taken(document.object());
    };
    return platform::services().http->send({.url = address, .limits = limits}, take);
}
