#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>

/** A server on this machine that does with each request whatever the test likes. */
class HttpServer : public QTcpServer
{
public:
    /** Called once for each request, when its head and the body that this announces have come. */
    using Behaviour = std::function<void(QTcpSocket &socket, const QByteArray &request)>;

    explicit HttpServer(Behaviour behaviour)
        : m_behaviour(std::move(behaviour))
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            ++connections;
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
                ++disconnections;
                m_partial.remove(socket);
                socket->deleteLater();
            });
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
        });
    }

    QUrl url(const QString &path = QStringLiteral("/")) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(path));
    }

    static QByteArray answer(const QByteArray &statusAndHeaders, const QByteArray &body)
    {
        return "HTTP/1.1 " + statusAndHeaders + "\r\nContent-Length: " + QByteArray::number(body.size()) +
               "\r\n\r\n" + body;
    }

    int connections = 0;
    int disconnections = 0;
    QList<QByteArray> requests;

private:
    void read(QTcpSocket &socket)
    {
        QByteArray &request = m_partial[&socket];
        request += socket.readAll();
        const qsizetype head = request.indexOf("\r\n\r\n");
        if (head < 0)
            return;
        const qsizetype field = request.toLower().indexOf("content-length:");
        const qsizetype length =
            field < 0 || field > head ? 0 : request.mid(field + 15).split('\r').first().trimmed().toInt();
        if (request.size() < head + 4 + length)
            return;
        requests.append(std::exchange(request, {}));
        m_behaviour(socket, requests.constLast());
    }

    Behaviour m_behaviour;
    QHash<QTcpSocket *, QByteArray> m_partial;
};
