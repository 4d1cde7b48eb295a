#include "platform/desktop/SingleInstance.h"

#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/StartCall.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

namespace {

const QByteArray answerWord = QByteArrayLiteral("ok\n");
/** Between two tries while the first process is just starting or ending. */
constexpr int pauseInMs = 50;

QString socketPath(const QString &folder)
{
    return folder + QLatin1String("/tavimo.socket");
}

} // namespace

SingleInstance::SingleInstance(const QString &folder)
    : m_folder(folder)
{
}

SingleInstance::~SingleInstance()
{
    // First the socket, then the lock: nobody may own the lock while our socket still stands.
    delete m_server;
    if (m_lock >= 0)
        close(m_lock);
}

SingleInstance::Role SingleInstance::start(std::chrono::milliseconds patience)
{
    if (!QDir(m_folder).exists()) {
        QDir().mkpath(m_folder);
        QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    const QByteArray lockPath = QFile::encodeName(m_folder + QLatin1String("/tavimo.lock"));
    m_lock = open(lockPath.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (m_lock < 0) {
        diagnosticLog(
            QLatin1String("SingleInstance > start > can't open %1").arg(QFile::decodeName(lockPath)));
        return Role::unwritable;
    }
    const QDeadlineTimer deadline(patience);
    do {
        if (takeLock()) {
            listen();
            return Role::first;
        }
        // Not every file system knows locks.
        if (errno != EWOULDBLOCK && errno != EINTR)
            return Role::unwritable;
        if (callFirst(int(deadline.remainingTime())))
            return Role::second;
        QThread::msleep(pauseInMs);
    } while (!deadline.hasExpired());
    return Role::blocked;
}

bool SingleInstance::takeLock()
{
    return flock(m_lock, LOCK_EX | LOCK_NB) == 0;
}

bool SingleInstance::callFirst(int patienceInMs)
{
    QLocalSocket socket;
    socket.connectToServer(socketPath(m_folder));
    if (!socket.waitForConnected(patienceInMs))
        return false;
    QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty())
        token = qgetenv("DESKTOP_STARTUP_ID");
    socket.write(startCall::lineFor(token));
    return socket.waitForReadyRead(patienceInMs) && socket.readAll().startsWith(answerWord);
}

void SingleInstance::listen()
{
    // We hold the lock, so that a socket found here was left behind by a run that is over.
    QLocalServer::removeServer(socketPath(m_folder));
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstance::acceptCall);
    if (!m_server->listen(socketPath(m_folder)))
        diagnosticLog(QLatin1String("SingleInstance > listen > %1").arg(m_server->errorString()));
}

void SingleInstance::acceptCall()
{
    while (QLocalSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readCall(socket); });
        readCall(socket);
    }
}

void SingleInstance::readCall(QLocalSocket *socket)
{
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() >= startCall::maxBytes)
            socket->abort();
        return;
    }
    if (const auto token = startCall::tokenOf(socket->readLine(startCall::maxBytes))) {
        // Answered at once, whatever this program is showing: the caller waits for it.
        socket->write(answerWord);
        socket->flush();
        services().queues->mainAsync(this, [this, token = *token] { Q_EMIT startedAgain(token); });
    }
    socket->disconnectFromServer();
}

} // namespace platform
