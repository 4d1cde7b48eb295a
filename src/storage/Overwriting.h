#pragma once

#include "files/Files.h"
#include "model/TAVLexicon.h"

#include <QString>

/**
 * What this run knows of vocabulary files. Saves go to the path that a vocabulary's names make, whatever
 * stands there; what they would destroy that nobody has seen in this run is rescued first. Any thread may
 * call.
 */
namespace storage {

/**
 * For a file that was just loaded: what this object lacks later, the user has taken out. The identity is the
 * one from before the file was read: somebody else may have written it since.
 */
void noteLoaded(const QString &path, const files::Identity &identity, const TAVLexiconRef &vocabulary);
/** For a file that was just written, and the size of the JSON that was packed into it. */
void noteWritten(const QString &path, qsizetype jsonSize);
/** For a file that was just unpacked. */
void noteSize(const QString &path, qsizetype jsonSize);
/** The size of the JSON in the file when it was last loaded or saved in this run; 0 if it never was. */
qsizetype knownSize(const QString &path);

/**
 * Before the file is overwritten. Its bytes are kept if it holds a word that the vocabulary lacks, or can't
 * be read, unless this run has written it last; at most once an hour for each file. They are also kept if it
 * can be read and what replaces it never will.
 */
void rescueBeforeSave(const QString &path, const TAVLexicon &vocabulary, qsizetype jsonSize);

/** Starts a new run. */
void forgetWritten();

} // namespace storage
