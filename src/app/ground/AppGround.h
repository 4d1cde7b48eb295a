#pragma once

#include "platform/InputSources.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class TAVFile;

/**
 * The ground that everything stands on: folders, the listing of the languages on disk, dates, the locale's
 * name, and the keyboard's input sources.
 */
class AppGround
{
public:
    virtual ~AppGround() = default;

    /**
     * The program's own folder, made if it is missing. Must run once before any other folder accessor. When
     * the system names no folder for application data, an alert tells so and the program is asked to end.
     */
    static QString applicationSupportFolder();
    /** Each makes its folder if it is missing and returns its path. A failure shows at the first write there.
     */
    static QString backupFolderPath();
    static QString vocabularyFolderPath();
    static QString logsFolderPath();
    static QString uploadFolderPath();
    static QString downloadFolderPath();

    /** A further folder of ours, which is not made: absolute path below the program's own folder. */
    static QString ownFolderPath(const QString &name);

    /**
     * One entry for each vocabulary file, in the order of the folder. A file whose name ends in a closing
     * parenthesis before its extension is a conflicted copy: it is rescued and deleted, not listed.
     */
    static QList<std::shared_ptr<TAVFile>> loadAllAvailableLanguages();
    static QStringList loadAllAvailableLanguagePaths();

    /** Local midnight of today. */
    static QDateTime todaysDate();
    /** Localised phrase of the time between then and now, in either direction. An invalid date: never. */
    static QString timeSinceDate(const QDateTime &date);
    /** The user's language by its own name, without its region. */
    static QString selectedLocaleName();
    /** A locale's name like "de-AT", told in its own language: "Deutsch (Österreich)". */
    static QString localeDisplayName(const QString &localeName);
    /** The name up to its first opening parenthesis, trimmed. */
    static QString nameWithoutRegion(const QString &localeDisplayName);

    /** The selectable input sources as they are known now, remembered for namesForInputSources(). Any thread.
     */
    static QList<platform::InputSourceRef> allInputSources(bool includeAllInstalled);
    /**
     * Names of the sources that allInputSources() returned last, whatever the given list holds: as many as it
     * is long.
     */
    static QStringList namesForInputSources(const QList<platform::InputSourceRef> &sources);

    /** Forgets the paths and lists that live for a run, so that a test can start anew. */
    static void resetForTest();
};
