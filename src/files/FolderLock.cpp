#include "files/FolderLock.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace files {

FolderLock::FolderLock(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/.lock"));
    m_file = open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    if (m_file < 0)
        return;
    if (flock(m_file, LOCK_EX | LOCK_NB) == 0)
        m_state = State::Held;
    else if (errno == EWOULDBLOCK)
        m_state = State::TakenByAnother;
}

FolderLock::~FolderLock()
{
    if (m_file >= 0)
        close(m_file);
}

} // namespace files
