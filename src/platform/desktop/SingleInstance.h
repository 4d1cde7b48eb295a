#pragma once

#include <QObject>
#include <QString>

#include <chrono>

class QLocalServer;
class QLocalSocket;

namespace platform {

/**
 * One running program for one user: two would write the same files. A lock that the system drops with its
 * process decides who is the first, so that a crashed run leaves nothing that could lock the user out; a
 * local socket lets a second start call the first.
 */
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Role {
        /** This process is the one that runs. */
        first,
        /** Another runs, and has been told. */
        second,
        /** Another runs but doesn't answer. */
        blocked,
        /** The folder can't be written to, or its file system knows no locks, so that nobody knows. */
        unwritable
    };

    /** The folder is this user's alone; it is made if it is missing. */
    explicit SingleInstance(const QString &folder);
    ~SingleInstance() override;

    /** Finds out the role; waits at most this long for another process to answer. */
    Role start(std::chrono::milliseconds patience);

Q_SIGNALS:
    /**
     * The program was started once more; with the token, if any, by which its window may come to the front.
     * While an alert stands, this waits; the other process doesn't.
     */
    void startedAgain(const QByteArray &activationToken);

private:
    bool takeLock();
    bool callFirst(int patienceInMs);
    void listen();
    void acceptCall();
    void readCall(QLocalSocket *socket);

    QString m_folder;
    int m_lock = -1;
    QLocalServer *m_server = nullptr;
};

} // namespace platform
