#include "files/PathLock.h"

#include <QDir>
#include <QFileInfo>

#include <map>

namespace files {

namespace {

struct Entry
{
    std::mutex mutex;
    /** Those who hold or wait for it. */
    int users = 0;
};

/** The locks that are in use now. */
struct Registry
{
    std::mutex mutex;
    std::map<QString, Entry> entries;
};

Registry &registry()
{
    static Registry registry;
    return registry;
}

} // namespace

QString canonicalPath(const QString &path)
{
    // As many links as the system itself follows.
    constexpr int maxLinks = 40;
    QString current = path.startsWith(u'/') ? path : QDir::currentPath() + u'/' + path;
    for (int links = 0; links <= maxLinks; ++links) {
        while (current.size() > 1 && current.endsWith(u'/'))
            current.chop(1);
        const QFileInfo info(current);
        if (const QString canonical = info.canonicalFilePath(); !canonical.isEmpty())
            return canonical;
        // A link to a file that doesn't exist yet is another name of that file.
        if (!info.isSymLink())
            break;
        current = info.symLinkTarget();
    }
    const qsizetype slash = current.lastIndexOf(u'/');
    const QString folder = canonicalPath(current.first(std::max<qsizetype>(slash, 1)));
    return (folder.endsWith(u'/') ? folder : folder + u'/') + current.sliced(slash + 1);
}

PathLock::PathLock(const QString &path)
    : m_canonicalPaths{canonicalPath(path), QString()}
{
    lock(m_canonicalPaths[0]);
}

PathLock::PathLock(const QString &path, const QString &other)
    : m_canonicalPaths{canonicalPath(path), canonicalPath(other)}
{
    if (m_canonicalPaths[0] == m_canonicalPaths[1])
        m_canonicalPaths[1].clear();
    else if (m_canonicalPaths[1] < m_canonicalPaths[0])
        std::swap(m_canonicalPaths[0], m_canonicalPaths[1]);
    lock(m_canonicalPaths[0]);
    if (!m_canonicalPaths[1].isEmpty())
        lock(m_canonicalPaths[1]);
}

PathLock::~PathLock()
{
    Registry &locks = registry();
    const std::lock_guard guard(locks.mutex);
    for (const QString &path : m_canonicalPaths) {
        const auto found = locks.entries.find(path);
        if (found == locks.entries.end())
            continue;
        found->second.mutex.unlock();
        if (--found->second.users == 0)
            locks.entries.erase(found);
    }
}

void PathLock::lock(const QString &canonical)
{
    Registry &locks = registry();
    std::mutex *mutex = nullptr;
    {
        const std::lock_guard guard(locks.mutex);
        Entry &entry = locks.entries[canonical];
        ++entry.users;
        mutex = &entry.mutex;
    }
    // Outside of the registry's own lock, so that nobody else waits for this file.
    mutex->lock();
}

} // namespace files
