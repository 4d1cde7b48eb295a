#pragma once

#include "model/TAVLexicon.h"

#include <QString>
#include <QUrl>

/** Loads and saves vocabulary files, and keeps their backups. Failures show their own alerts. */
class TAVStorageManager
{
public:
    static constexpr const char *extension = "tavv";

    /** "<foreign> - <your>", also the name of the vocabulary's file. */
    static QString displayNameForVocabulary(const TAVLexicon &vocabulary);
    /**
     * The file's path in the vocabulary folder. Empty for names that would lead out of that folder, as only a
     * foreign file can bring them in; a save to an empty path fails with its alert.
     */
    static QString savePathForVocabulary(const TAVLexicon &vocabulary);
    static QUrl saveUrlForVocabularyWithName(const QString &name);

    /**
     * The ordinary save, after each change. Returns whether the file was written. The vocabulary is held, as
     * a failure's alert runs an event loop.
     */
    static bool saveVocabulary(TAVLexiconRef vocabulary);
    static bool saveVocabularyToTAVVFile(TAVLexiconRef vocabulary, const QString &path);
    static bool saveVocabularyToLXAFile(TAVLexiconRef vocabulary, const QString &path);

    /** Chooses the form by the extension. Absent when the file cannot be had. */
    static TAVLexiconRef vocabularyFromFile(const QString &path);
    static TAVLexiconRef vocabularyFromTAVVFile(const std::optional<QString> &path);
    static TAVLexiconRef vocabularyFromLXAFile(const std::optional<QString> &path);

    /** Deletes old backups, then old rescued copies, in the background; returns at once. */
    static void tidyBackups();

    /** Forgets the last backup of the run. */
    static void resetForTest();
};
