#pragma once

#include <QString>

/** Copies of vocabulary files, in case one gets lost or damaged. */
namespace storage {

/** Copies the saved file, unless its language has the last backup of this run or that one is too young. */
void backUpIfDue(const QString &savedPath);

/** Deletes backups of more than 30 days, all or none. May run in the background. */
void tidyBackupsIn(const QString &folder);

/** As at the start of a run. */
void forgetLastBackup();

} // namespace storage
