#include "app/ground/AppGround.h"

#include "app/ground/Rescue.h"
#include "app/ground/TAVFile.h"
#include "files/FileOperations.h"
#include "files/Files.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"

#include <QCoreApplication>
#include <QFile>

#include <mutex>

#include <unicode/locid.h>

namespace {

/** All that lives for a run of the program. */
struct RunState
{
    QString supportPath;
    QString vocabularyPath;
    QString logsPath;
    QString uploadPath;
    QString downloadPath;
    QString backupPath;
    QList<platform::InputSourceRef> inputSources;
};

RunState &state()
{
    static RunState runState;
    return runState;
}

/** For the list of input sources: readers of files in the background renew it too. */
std::mutex &listMutex()
{
    static std::mutex mutex;
    return mutex;
}

QString madeFolder(const QString &path)
{
    // A failure shows when something is written there.
    std::ignore = files::makeFolder(path);
    return path;
}

void tellMissingSupportFolder()
{
    platform::services().alerts->show({QStringLiteral("Alert"),
                                       QStringLiteral("Can't find application support folder"),
                                       {QStringLiteral("Quit")}});
    // Queued, as a request to quit is lost while the event loop does not run yet.
    platform::services().queues->mainAsync(nullptr, [] { QCoreApplication::quit(); });
}

bool isVocabularyFileName(const QString &name)
{
    const QString extension = QStringLiteral(".tavv");
    const qsizetype position = name.indexOf(extension, 0, Qt::CaseInsensitive);
    return position >= 0 && position == name.size() - extension.size();
}

/** Such a name leads to no file here; without a word in the log, nobody could tell why a language is gone. */
void logBrokenNames(const QString &folder)
{
    QByteArrayList names;
    files::operations().list(QFile::encodeName(folder), &names);
    for (const QByteArray &name : std::as_const(names)) {
        if (!QByteArrayView(name).isValidUtf8())
            platform::diagnosticLog(QStringLiteral("AppGround > loadAllAvailableLanguages > no UTF-8: %1")
                                        .arg(QString::fromLatin1(name.toPercentEncoding(" ()"))));
    }
}

QString phrase(const char *key, qint64 number)
{
    return platform::localized("Default", key, nullptr, int(number));
}

} // namespace

QString AppGround::applicationSupportFolder()
{
    RunState &run = state();
    if (files::exists(run.supportPath))
        return run.supportPath;

    const QStringList folders = platform::services().folders->applicationSupportDirectories();
    if (folders.isEmpty()) {
        tellMissingSupportFolder();
        return run.supportPath;
    }
    run.supportPath = folders.constFirst() + QStringLiteral("/Tavimo");
    if (run.vocabularyPath.isEmpty()) {
        run.vocabularyPath = run.supportPath + QStringLiteral("/Vocabularies");
        run.logsPath = run.supportPath + QStringLiteral("/Logs");
        run.uploadPath = run.supportPath + QStringLiteral("/Upload");
        run.downloadPath = run.supportPath + QStringLiteral("/Download");
        run.backupPath = run.supportPath + QStringLiteral("/Backups");
    }
    return madeFolder(run.supportPath);
}

QString AppGround::backupFolderPath()
{
    return madeFolder(state().backupPath);
}

QString AppGround::vocabularyFolderPath()
{
    return madeFolder(state().vocabularyPath);
}

QString AppGround::logsFolderPath()
{
    return madeFolder(state().logsPath);
}

QString AppGround::uploadFolderPath()
{
    return madeFolder(state().uploadPath);
}

QString AppGround::downloadFolderPath()
{
    return madeFolder(state().downloadPath);
}

QString AppGround::ownFolderPath(const QString &name)
{
    return state().supportPath + u'/' + name;
}

QList<std::shared_ptr<TAVFile>> AppGround::loadAllAvailableLanguages()
{
    QList<std::shared_ptr<TAVFile>> languages;
    const QString folder = vocabularyFolderPath();
    const files::Result<QList<files::Entry>> entries = files::list(folder);
    if (!entries)
        return languages;
    logBrokenNames(folder);
    for (const files::Entry &entry : *entries) {
        if (!isVocabularyFileName(entry.name))
            continue;
        const QString path = folder + u'/' + entry.name;
        // One that can't be removed now is met again at the next listing.
        if (entry.name.endsWith(QLatin1String(").tavv"))) {
            rescue::keepFile(path);
            std::ignore = files::remove(path);
        } else {
            languages.append(std::make_shared<TAVFile>(path));
        }
    }
    return languages;
}

QStringList AppGround::loadAllAvailableLanguagePaths()
{
    QStringList paths;
    const QList<std::shared_ptr<TAVFile>> files = loadAllAvailableLanguages();
    for (const std::shared_ptr<TAVFile> &file : files)
        paths.append(file->filePath());
    return paths;
}

QDateTime AppGround::todaysDate()
{
    const QTimeZone zone = platform::clock().timeZone();
    const QDate today = platform::clock().now().toTimeZone(zone).date();
    const QDateTime start = today.startOfDay(zone);
    // An invalid day would be stored as one of 1970, and all later ones in its place.
    return start.isValid() ? start : today.startOfDay(Qt::UTC);
}

QString AppGround::timeSinceDate(const QDateTime &date)
{
    if (!date.isValid())
        return platform::localized("never");
    const qint64 seconds = qAbs(date.msecsTo(platform::clock().now())) / 1000;
    const qint64 minutes = seconds / 60;
    const qint64 hours = seconds / 3600;
    const qint64 days = seconds / 86400;
    if (minutes <= 1)
        return platform::localized("1 Minute");
    if (minutes <= 59)
        return phrase(QT_TRANSLATE_NOOP("Default", "%ld Minutes"), minutes);
    if (hours <= 1)
        return platform::localized("1 Hour");
    if (hours <= 23)
        return phrase(QT_TRANSLATE_NOOP("Default", "%ld Hours"), hours);
    if (days <= 1)
        return platform::localized("1 Day");
    if (days <= 6)
        return phrase(QT_TRANSLATE_NOOP("Default", "%ld Days"), days);
    if (days <= 13)
        return platform::localized("1 Week");
    if (days <= 29)
        return phrase(QT_TRANSLATE_NOOP("Default", "%ld Weeks"), days / 7);
    if (days <= 59)
        return platform::localized("1 Month");
    if (days <= 364)
        return phrase(QT_TRANSLATE_NOOP("Default", "%ld Months"), days / 30);
    if (days <= 729)
        return platform::localized("1 Year");
    return phrase(QT_TRANSLATE_NOOP("Default", "%ld Years"), days / 365);
}

QString AppGround::selectedLocaleName()
{
    return nameWithoutRegion(localeDisplayName(platform::userLocaleName()));
}

QString AppGround::localeDisplayName(const QString &localeName)
{
    const QByteArray name = localeName.toLatin1();
    UErrorCode error = U_ZERO_ERROR;
    const icu::Locale locale =
        icu::Locale::forLanguageTag(icu::StringPiece(name.constData(), int32_t(name.size())), error);
    if (U_FAILURE(error))
        return localeName;
    icu::UnicodeString displayName;
    locale.getDisplayName(locale, displayName);
    return QString(reinterpret_cast<const QChar *>(displayName.getBuffer()), displayName.length());
}

QString AppGround::nameWithoutRegion(const QString &localeDisplayName)
{
    // Chinese names come with wide parentheses.
    const qsizetype narrow = localeDisplayName.indexOf(u'(');
    const qsizetype wide = localeDisplayName.indexOf(QChar(0xff08));
    if (narrow < 0 && wide < 0)
        return localeDisplayName;
    const qsizetype cut = narrow < 0 ? wide : wide < 0 ? narrow : std::min(narrow, wide);
    return localeDisplayName.left(cut).trimmed();
}

QList<platform::InputSourceRef> AppGround::allInputSources(bool includeAllInstalled)
{
    platform::InputSources &inputSources = *platform::services().inputSources;
    QList<platform::InputSourceRef> offered = inputSources.createInputSourceList(false);
    if (includeAllInstalled)
        offered = inputSources.createInputSourceList(true);

    QList<platform::InputSourceRef> selectable;
    for (const platform::InputSourceRef &source : std::as_const(offered)) {
        if (source && source->isSelectCapable)
            selectable.append(source);
    }
    if (offered.isEmpty())
        platform::diagnosticLog(QStringLiteral("AppDelegate > allInputSources > NO SOURCES"));
    const std::lock_guard lock(listMutex());
    return state().inputSources = selectable;
}

QStringList AppGround::namesForInputSources(const QList<platform::InputSourceRef> &sources)
{
    const std::lock_guard lock(listMutex());
    const QList<platform::InputSourceRef> &last = state().inputSources;
    QStringList names;
    for (qsizetype i = 0; i < std::min(sources.size(), last.size()); ++i)
        names.append(last.at(i)->localizedName);
    return names;
}

void AppGround::resetForTest()
{
    state() = RunState();
}
