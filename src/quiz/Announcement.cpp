#include "quiz/Announcement.h"

#include "DeployerValues.h"
#include "platform/Services.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QUuid>

#include <cmath>

namespace {

bool take(const QJsonValue &value, QString &text)
{
    text = value.toString();
    return value.isString();
}

bool take(const QJsonValue &value, qint64 &number)
{
    constexpr double largest = 1e15;
    const double real = value.toDouble();
    if (!value.isDouble() || std::trunc(real) != real || std::abs(real) > largest)
        return false;
    number = qint64(real);
    return true;
}

/** Empty if anything goes wrong. */
QByteArray read(const QUrl &address, const announcement::Bounds &bounds)
{
    QNetworkAccessManager network;
    QNetworkRequest request(address);
    request.setTransferTimeout(bounds.silenceMs);
    request.setMaximumRedirectsAllowed(3);
    const std::unique_ptr<QNetworkReply> reply(network.get(request));
    reply->setReadBufferSize(bounds.largestAnswer + 1);
    const QDeadlineTimer patience(bounds.patienceMs);
    QByteArray answer;
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
        answer += reply->read(bounds.largestAnswer + 1 - answer.size());
        if (answer.size() > bounds.largestAnswer || patience.hasExpired())
            reply->abort();
    });
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    return reply->error() == QNetworkReply::NoError ? answer : QByteArray();
}

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

void announcement::fetch(const QUrl &address, QObject *context,
                         std::function<void(const QJsonObject &)> taken, const Bounds &bounds)
{
    if (!address.isValid() || address.isEmpty())
        return;
    platform::Queues *queues = platform::services().queues;
    // Made here, as the context may be gone by the time the answer is there.
    const auto guard = std::make_shared<QPointer<QObject>>(context);
    queues->globalAsync([queues, address, guard, taken = std::move(taken), bounds] {
        const QJsonDocument document = QJsonDocument::fromJson(read(address, bounds));
        if (!document.isObject())
            return;
        queues->mainAsync(nullptr, [guard, taken, dictionary = document.object()] {
            if (*guard)
                taken(dictionary);
        });
    });
}
