#pragma once

#include <QByteArray>
#include <QString>

/**
 * Copies of vocabulary files that a rule of the program is about to destroy, in the folder Rescued. They cost
 * some room and save years of learning. Where a copy can't be made, the log says so and the rule takes its
 * course. Any thread may call.
 */
namespace rescue {

/** The folder's path, whether it exists or not. */
QString folderPath();

/**
 * Keeps the bytes under the file's name, which is cut where it is too long, and the present time, unless the
 * newest copy of that name holds the same. Returns whether a copy of them exists now.
 */
bool keep(const QString &fileName, const QByteArray &bytes);
/** The same for a file as it stands. */
bool keepFile(const QString &path);

/**
 * Drops copies of more than 90 days, but not the newest of a vocabulary and its backups; then, while the
 * folder is larger than 256 MiB, the oldest, those newest ones last.
 */
void tidy();

} // namespace rescue
