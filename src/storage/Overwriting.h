#pragma once

#include "model/TAVLexicon.h"

#include <QString>

/**
 * Saves go to the path that a vocabulary's names make, whatever stands there. What they would destroy that
 * nobody has seen in this run is rescued first. Any thread may call.
 */
namespace storage {

/** For a file that was just loaded: what its object lacks later, the user has taken out. */
void noteLoaded(const QString &path);
/** For a file that was just written. */
void noteWritten(const QString &path, bool isReadable);

/**
 * Before the file is overwritten. Its bytes are kept if it holds a word that the vocabulary lacks, or can't
 * be read, unless this run has written it last; at most once an hour for each file. They are also kept if it
 * can be read and what replaces it never will.
 */
void rescueBeforeSave(const QString &path, const TAVLexicon &vocabulary, bool isReadable);

/** Starts a new run. */
void forgetWritten();

} // namespace storage
