#pragma once

#include "files/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/** What stands beside the plain write of a vocabulary's file, so that no stop in its middle costs a word. */
namespace storage {

/** Whether it is the file of a language, rather than an export or any other. */
bool isInVocabularyFolder(const QString &path);

/**
 * Writes the file in place; one of the vocabulary folder through the journal, and into a new folder if that
 * one was deleted meanwhile. An export or any other file has no record.
 */
files::Result<> writeVocabularyFile(const QString &path, const QByteArray &bytes);

/**
 * Finishes writes that an earlier run could not bring to their end. For the start, before any listing. What
 * finds no place in its file is rescued.
 */
void finishTornWrites();

/** To be called before a language's file is deleted or renamed. */
void forgetWrites(const QString &path);

} // namespace storage
