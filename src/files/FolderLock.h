#pragma once

#include <QString>

namespace files {

/**
 * Tells other programs, of this session or another one, that somebody works with a folder. The system drops
 * it with its process, so that a crash leaves nothing behind that could lock the user out.
 */
class FolderLock
{
public:
    enum class State {
        Held,
        TakenByAnother,
        /** The folder can't be written to, or its file system knows no locks. */
        Unavailable
    };

    /** Tries to take it; never waits. */
    explicit FolderLock(const QString &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    State state() const { return m_state; }

private:
    int m_file = -1;
    State m_state = State::Unavailable;
};

} // namespace files
