#pragma once

#include <QString>
#include <QStringList>

#include <memory>

namespace platform {

/**
 * Where the desktop wants a program of this user to keep its files. None of these folders is made here,
 * except that the user's folder for all programs' data exists once it was asked for.
 */
class Folders
{
public:
    virtual ~Folders() = default;
    /** Per-user folders for application data, the preferred one first; empty if the system names none. */
    virtual QStringList applicationSupportDirectories() const = 0;
    /** This program's own. Empty if the system names none. */
    virtual QString cacheDirectory() const = 0;
    /** This program's own. Empty if the system names none. */
    virtual QString configDirectory() const = 0;
    /** For sockets and locks of this user's running programs. */
    virtual QString runtimeDirectory() const = 0;
};

std::unique_ptr<Folders> makeSystemFolders();

} // namespace platform
