#pragma once

#include <QString>

/** Copies of vocabulary files, in case one gets lost or damaged. */
namespace storage {

/**
 * Copies the saved file. Does nothing if the last backup of this run was of the same language, or is not more
 * than a quarter of an hour old.
 */
void backUpIfDue(const QString &savedPath);

/**
 * Deletes the backups that are more than 30 days old: all of them if at least 21 entries stay, or if there
 * are fewer than 20 entries in all; otherwise none. The newest of each language that goes is rescued first.
 * Any thread may call.
 */
void tidyBackupsIn(const QString &folder);

/**
 * The path of the newest backup of the vocabulary file of that name, among those that can be unpacked; empty
 * if there is none. Any thread may call.
 */
QString newestBackupThatOpens(const QString &fileName);

/**
 * From now on, and until the end of the run, no backup is deleted without a rescued copy: somebody may need
 * it.
 */
void keepAllBackups();

/** Starts a new run, as far as backups are concerned. */
void forgetLastBackup();

} // namespace storage
