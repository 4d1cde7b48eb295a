#pragma once

#include "files/Result.h"
#include "model/TAVLexicon.h"

#include <QString>

/** What a user is told when a vocabulary's file can't be read or written. Any thread may call. */
namespace storage {

enum class Failure { FileRead, Decompression, Compression, Write };

/** With a way to the backups, of which the newest one that opens is named. */
void showLoadFailure(const QString &path, Failure failure);
void showArchiveLoadFailure(const QString &path);
/** The error says why a write failed; the default one of a failed compression says nothing. */
void showSaveFailure(const TAVLexicon &vocabulary, Failure failure, const files::Error &error = {});
/** A text of a library, as it stands. */
void showError(const QString &text);

} // namespace storage
