#include "platform/Folders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <pwd.h>
#include <unistd.h>

namespace platform {

namespace {

/** A relative path in these variables is to be ignored. */
QString absolutePathFromEnvironment(const char *variable)
{
    const QString path = QFile::decodeName(qgetenv(variable));
    return path.startsWith(u'/') ? QDir::cleanPath(path) : QString();
}

QString homeDirectory()
{
    const QString fromEnvironment = absolutePathFromEnvironment("HOME");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    const passwd *user = getpwuid(getuid());
    const QString path = user && user->pw_dir ? QFile::decodeName(user->pw_dir) : QString();
    return path.startsWith(u'/') ? QDir::cleanPath(path) : QString();
}

QString baseDirectory(const char *variable, const QString &belowHome)
{
    const QString named = absolutePathFromEnvironment(variable);
    if (!named.isEmpty())
        return named;
    const QString home = homeDirectory();
    return home.isEmpty() ? QString() : QDir::cleanPath(home + u'/' + belowHome);
}

QString ownDirectory(const char *variable, const QString &belowHome)
{
    const QString base = baseDirectory(variable, belowHome);
    return base.isEmpty() ? QString() : base + QStringLiteral("/Tavimo");
}

class SystemFolders : public Folders
{
public:
    QStringList applicationSupportDirectories() const override
    {
        const QString path = baseDirectory("XDG_DATA_HOME", QStringLiteral(".local/share"));
        if (path.isEmpty())
            return {};
        // A fresh account has no such folder yet; programs are to make it, closed to others.
        if (!QFileInfo::exists(path) && QDir().mkpath(path))
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return {path};
    }
    QString cacheDirectory() const override
    {
        return ownDirectory("XDG_CACHE_HOME", QStringLiteral(".cache"));
    }
    QString configDirectory() const override
    {
        return ownDirectory("XDG_CONFIG_HOME", QStringLiteral(".config"));
    }
    QString runtimeDirectory() const override
    {
        const QString path = absolutePathFromEnvironment("XDG_RUNTIME_DIR");
        const QFileInfo folder(path);
        if (!path.isEmpty() && folder.isDir() && folder.isWritable() && folder.ownerId() == getuid())
            return path;
        return cacheDirectory();
    }
};

} // namespace

std::unique_ptr<Folders> makeSystemFolders()
{
    return std::make_unique<SystemFolders>();
}

} // namespace platform
