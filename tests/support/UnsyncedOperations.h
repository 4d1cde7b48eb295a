#pragma once

#include "files/FileOperations.h"

#include <QtGlobal>

/** Doesn't wait for the disk, which would take most of a test's time. */
class UnsyncedOperations : public files::FileOperations
{
public:
    UnsyncedOperations()
        : m_previous(files::installOperations(this))
    {
    }
    ~UnsyncedOperations() override { files::installOperations(m_previous); }
    UnsyncedOperations(const UnsyncedOperations &) = delete;
    UnsyncedOperations &operator=(const UnsyncedOperations &) = delete;

    int sync(int file) override
    {
        Q_UNUSED(file)
        return 0;
    }

private:
    files::FileOperations *m_previous;
};
