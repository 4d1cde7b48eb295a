#include "quiz/Announcement.h"

#include "quiz/AnnouncementText.h"
#include "support/TestServices.h"

#include <QJsonDocument>
#include <QTcpServer>
#include <QTcpSocket>

namespace {

/** Answers each request with the given bytes; keeps the line open if it is told to. */
class SmallServer : public QTcpServer
{
public:
    SmallServer(const QByteArray &answer, bool ends)
        : m_answer(answer)
        , m_ends(ends)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                socket->readAll();
                socket->write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + m_answer);
                if (m_ends)
                    socket->disconnectFromHost();
            });
        });
    }
    QUrl address() const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/messages/message.json").arg(serverPort()));
    }

private:
    QByteArray m_answer;
    bool m_ends;
};

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
    const QByteArray good = QJsonDocument(wholeAnnouncement()).toJson();
    const struct
    {
        const char *name;
        QByteArray answer;
        bool ends;
        bool isTaken;
    } cases[] = {
        {"an announcement", good, true, true},
        {"a list", "[1, 2]", true, false},
        {"no JSON", "<html>", true, false},
        {"nothing", "", true, false},
        {"too much", good + QByteArray(50 * 1024 * 1024, ' '), true, false},
        {"an answer that never ends", good, false, false},
    };
    for (const auto &[name, answer, ends, isTaken] : cases) {
        const SmallServer server(answer, ends);
        QObject context;
        int taken = 0;
        announcement::fetch(server.address(), &context, [&taken](const QJsonObject &) { ++taken; },
                            {64 * 1024, 300, 1000});
        services.queues.drain();
        EXPECT_EQ(taken, int(isTaken)) << name;
    }
}

TEST_F(AnnouncementTest, NobodyIsToldWhoIsGone)
{
    const SmallServer server(QJsonDocument(wholeAnnouncement()).toJson(), true);
    auto context = std::make_unique<QObject>();
    bool taken = false;
    announcement::fetch(server.address(), context.get(), [&taken](const QJsonObject &) { taken = true; });
    context.reset();
    services.queues.drain();
    EXPECT_FALSE(taken);
}

} // namespace
