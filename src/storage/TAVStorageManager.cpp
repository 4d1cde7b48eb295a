#include "storage/TAVStorageManager.h"

#include "app/ground/AppGround.h"
#include "app/ground/Rescue.h"
#include "files/Files.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "storage/Backups.h"
#include "storage/Overwriting.h"
#include "storage/SafeSaves.h"
#include "storage/StorageAlerts.h"
#include "storage/VocabularyFiles.h"
#include "storage/archive/ArchiveDecoder.h"
#include "storage/archive/ArchiveEncoder.h"
#include "usage/logging/DDLog.h"

#include <QFileInfo>
#include <QJsonParseError>

using namespace Qt::StringLiterals;

namespace {

constexpr int ddLogLevel = ddlog::levelAll;
constexpr QLatin1StringView archiveRootClass = "TAVLexicon"_L1;
constexpr QLatin1StringView archiveExtension = "lxa"_L1;

/** The alerts only say that a file could not be had. Why, stands in the log. */
void logFailure(const char *operation, const QString &path, const files::Error &error)
{
    DDLogError(QStringLiteral("StorageM > %1 > %2: %3").arg(QLatin1String(operation), path, error.text()));
}

/** A slash would lead into another folder, and a null would end the name early. */
bool isFileName(const QString &name)
{
    return !name.contains(u'/') && !name.contains(QChar::Null);
}

QString pathInVocabularyFolder(const QString &name)
{
    const QString folder = AppGround::vocabularyFolderPath();
    if (folder.isEmpty() || !isFileName(name))
        return {};
    return QStringLiteral("%1/%2.%3").arg(folder, name, QLatin1String(TAVStorageManager::extension));
}

} // namespace

QString TAVStorageManager::displayNameForVocabulary(const TAVLexicon &vocabulary)
{
    return QStringLiteral("%1 - %2").arg(vocabulary.foreignLanguageName(), vocabulary.yourLanguageName());
}

QString TAVStorageManager::savePathForVocabulary(const TAVLexicon &vocabulary)
{
    return pathInVocabularyFolder(displayNameForVocabulary(vocabulary));
}

QUrl TAVStorageManager::saveUrlForVocabularyWithName(const QString &name)
{
    const QString path = pathInVocabularyFolder(name);
    return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
}

bool TAVStorageManager::saveVocabulary(TAVLexiconRef vocabulary)
{
    return vocabulary && saveVocabularyToTAVVFile(vocabulary, savePathForVocabulary(*vocabulary));
}

bool TAVStorageManager::saveVocabularyToTAVVFile(TAVLexiconRef vocabulary, const QString &path)
{
    if (!vocabulary)
        return false;
    const QByteArray json = vocabulary->jsonRepresentation();
    if (json.size() > storage::maxWritableJson) {
        QJsonParseError error;
        error.error = QJsonParseError::DocumentTooLarge;
        storage::showError(error.errorString());
        return false;
    }
    const std::optional<QByteArray> compressed = storage::compressed(json);
    if (!compressed) {
        storage::showSaveFailure(*vocabulary, storage::Failure::Compression);
        return false;
    }
    if (storage::isInVocabularyFolder(path))
        storage::rescueBeforeSave(path, *vocabulary, json.size());
    if (const files::Result<> written = storage::writeVocabularyFile(path, *compressed); !written) {
        logFailure("saveVoc", path, written.error());
        storage::showSaveFailure(*vocabulary, storage::Failure::Write, written.error());
        return false;
    }
    storage::noteWritten(path, json.size());
    storage::backUpIfDue(path);
    return true;
}

bool TAVStorageManager::saveVocabularyToLXAFile(TAVLexiconRef vocabulary, const QString &path)
{
    if (!vocabulary)
        return false;
    const QByteArray archive = ArchiveEncoder::archive(
        archiveRootClass, [&vocabulary](ArchiveEncoder &encoder) { vocabulary->encodeWithCoder(encoder); });
    platform::diagnosticLog(u"VocController > saveVoc > created lxa data"_s);
    const files::Result<> written =
        archive.isEmpty() ? files::Result<>(files::Error()) : files::writeInPlace(path, archive);
    if (!written) {
        logFailure("saveVoc", path, written.error());
        storage::showSaveFailure(*vocabulary, storage::Failure::Write, written.error());
        return false;
    }
    return true;
}

TAVLexiconRef TAVStorageManager::vocabularyFromFile(const QString &path)
{
    const files::Identity identity = files::identityOf(path);
    const bool isArchive = QFileInfo(path).suffix() == archiveExtension;
    const TAVLexiconRef vocabulary = isArchive ? vocabularyFromLXAFile(path) : vocabularyFromTAVVFile(path);
    if (vocabulary) {
        vocabulary->setFileNameWhereLoadedFrom(QFileInfo(path).fileName());
        storage::noteLoaded(path, identity, vocabulary);
    }
    return vocabulary;
}

TAVLexiconRef TAVStorageManager::vocabularyFromTAVVFile(const std::optional<QString> &path)
{
    if (!path) {
        DDLogError(u"StorageM > vocFromTAVVFile > path is nil"_s);
        return nullptr;
    }
    const files::Result<QByteArray> bytes = files::read(*path, storage::maxReadableFile);
    if (!bytes && !bytes.failedBy(files::Reason::TooLarge)) {
        logFailure("vocFromTAVVFile", *path, bytes.error());
        storage::showLoadFailure(*path, storage::Failure::FileRead);
        return nullptr;
    }
    // What is too large to be read is too large to be decompressed.
    const std::optional<QByteArray> json = bytes ? storage::decompressed(*bytes) : std::nullopt;
    if (!json) {
        storage::showLoadFailure(*path, storage::Failure::Decompression);
        return nullptr;
    }
    storage::noteSize(*path, json->size());
    return TAVLexicon::initWithJson(*json);
}

TAVLexiconRef TAVStorageManager::vocabularyFromLXAFile(const std::optional<QString> &path)
{
    if (!path) {
        DDLogError(u"StorageM > vocFromTAVVFile > path is nil"_s);
        return nullptr;
    }
    const files::Result<QByteArray> bytes = files::read(*path, ArchiveDecoder::maxBytes);
    if (bytes.failedBy(files::Reason::NotFound))
        return nullptr;
    if (!bytes)
        logFailure("vocFromLXAFile", *path, bytes.error());
    TAVLexiconRef vocabulary;
    const bool isRead = bytes && ArchiveDecoder::unarchive(
                                     *bytes, archiveRootClass, [&vocabulary](const ArchiveDecoder &decoder) {
                                         vocabulary = TAVLexicon::initWithCoder(decoder);
                                     });
    if (!isRead) {
        storage::showArchiveLoadFailure(*path);
        return nullptr;
    }
    return vocabulary;
}

void TAVStorageManager::tidyBackups()
{
    // The folder is asked for here, as folders belong to the main thread.
    platform::services().queues->globalAsync([folder = AppGround::backupFolderPath()] {
        storage::tidyBackupsIn(folder);
        rescue::tidy();
    });
}

void TAVStorageManager::resetForTest()
{
    storage::forgetLastBackup();
    storage::forgetWritten();
}
