#include "quiz/Announcement.h"

#include "quiz/AnnouncementText.h"
#include "support/TestServices.h"

#include <QJsonDocument>

namespace {

using AnnouncementTest = ServicesTest;

TEST_F(AnnouncementTest, EveryKeyIsRequiredInItsOwnType)
{
    ASSERT_TRUE(Announcement::fromDictionary(wholeAnnouncement()));
    const QJsonObject whole = wholeAnnouncement();
    for (const QString &key : whole.keys()) {
        QJsonObject lacking = whole;
        lacking.remove(key);
        EXPECT_FALSE(Announcement::fromDictionary(lacking)) << key.toStdString();
        QJsonObject wrong = whole;
        wrong.insert(key, whole.value(key).isString() ? QJsonValue(7) : QJsonValue(QStringLiteral("7")));
        EXPECT_FALSE(Announcement::fromDictionary(wrong)) << key.toStdString();
    }
    for (const double number : {1000.5, 1e300}) {
        QJsonObject odd = whole;
        odd.insert(QStringLiteral("validTo"), number);
        EXPECT_FALSE(Announcement::fromDictionary(odd)) << number;
    }
    // Dismissing must never switch one of the program's own settings on.
    QJsonObject hostile = whole;
    hostile.insert(QStringLiteral("uuid"), QStringLiteral("isEnableUserStatistics"));
    EXPECT_FALSE(Announcement::fromDictionary(hostile));
}

TEST_F(AnnouncementTest, IsDueWithinItsTimeBothEndsIncluded)
{
    Announcement found = *Announcement::fromDictionary(wholeAnnouncement());
    EXPECT_FALSE(found.isDue(999));
    EXPECT_TRUE(found.isDue(1000));
    EXPECT_TRUE(found.isDue(2000));
    EXPECT_FALSE(found.isDue(2001));
    found.displayedIn = QStringLiteral("appstore");
    EXPECT_FALSE(found.isDue(1500));
}

TEST_F(AnnouncementTest, AServerCanGiveAnAnnouncementAndNothingElse)
{
    using platform::HttpError;
    const QUrl address(QStringLiteral("https://example.org/messages/message.json"));
    const QByteArray good = QJsonDocument(wholeAnnouncement()).toJson();
    const std::pair<platform::HttpResponse, bool> cases[] = {
        {{.status = 200, .body = good}, true},      {{.status = 200, .body = "[1, 2]"}, false},
        {{.status = 200, .body = "<html>"}, false}, {{.status = 200}, false},
        {{.status = 404, .body = good}, false},     {{.error = HttpError::network}, false},
    };
    for (const auto &[response, isTaken] : cases) {
        services.http.answerNext(response);
        int taken = 0;
        const auto call = announcement::fetch(address, [&taken](const QJsonObject &) { ++taken; });
        EXPECT_EQ(taken, 0) << "only from the event loop";
        services.queues.drain();
        EXPECT_EQ(taken, int(isTaken)) << response.status << response.body.constData();
    }
    EXPECT_EQ(services.http.requests.constLast().url, address);
    EXPECT_LE(services.http.requests.constLast().limits.maxAnswerBytes, 1024 * 1024);

    // Nobody is told who is gone, and without a server nobody is asked.
    services.http.answerNext({.status = 200, .body = good});
    announcement::fetch(address, [](const QJsonObject &) { ADD_FAILURE() << "gone"; }).reset();
    services.queues.drain();
    const qsizetype before = services.http.requests.size();
    EXPECT_EQ(announcement::fetch(QUrl(), [](const QJsonObject &) {}), nullptr);
    EXPECT_EQ(services.http.requests.size(), before);
}

} // namespace
