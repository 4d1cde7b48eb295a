#include "storage/TAVStorageManager.h"

#include "app/ground/AppGround.h"
#include "files/Files.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "storage/Backups.h"
#include "storage/SafeSaves.h"
#include "storage/VocabularyFiles.h"
#include "storage/archive/ArchiveDecoder.h"
#include "storage/archive/ArchiveEncoder.h"
#include "usage/logging/DDLog.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonParseError>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int ddLogLevel = ddlog::levelAll;
constexpr QLatin1StringView archiveRootClass = "TAVLexicon"_L1;
constexpr QLatin1StringView archiveExtension = "lxa"_L1;

enum class Failure { FileRead, Decompression, Compression, Write };

QString nameOfFailure(Failure failure)
{
    switch (failure) {
    case Failure::FileRead:
        return QStringLiteral("(File read error)");
    case Failure::Decompression:
        return QStringLiteral("(Decompression error)");
    case Failure::Compression:
        return QStringLiteral("(Compression error)");
    case Failure::Write:
        break;
    }
    return QStringLiteral("(Write error)");
}

/** The last path component without its extension. */
QString nameForMessages(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

/** The alerts only say that a file could not be had. Why, stands in the log. */
void logFailure(const char *operation, const QString &path, const files::Error &error)
{
    DDLogError(QStringLiteral("StorageM > %1 > %2: %3").arg(QLatin1String(operation), path, error.text()));
}

int showError(const QString &text, const QStringList &buttons, const QString &additionalLine = {})
{
    return platform::services().alerts->show({u"Error"_s, text, buttons, additionalLine});
}

/** Programs are started from the main thread, while the sync reads files on its own. */
void openBackupFolder(const QString &folder)
{
    const QCoreApplication *application = QCoreApplication::instance();
    if (!application || application->thread() == QThread::currentThread())
        platform::services().browser->openFolder(folder);
    else
        platform::services().queues->mainAsync(
            nullptr, [folder] { platform::services().browser->openFolder(folder); });
}

void showLoadFailure(const QString &path, Failure failure)
{
    const QString backupFolder = AppGround::backupFolderPath();
    const QString text = QStringLiteral("The selected language '%1' could not be loaded. %2\nGo to "
                                        "'~/Library/Application Support/Tavimo/Backups' to restore from the "
                                        "last backup copy.");
    const int button = showError(text.arg(nameForMessages(path), nameOfFailure(failure)),
                                 {u"OK"_s, u"Go to backups folder"_s}, backupFolder);
    if (button == 1)
        openBackupFolder(backupFolder);
}

void showSaveFailure(const TAVLexicon &vocabulary, Failure failure)
{
    const QString text = QStringLiteral(
        "The selected language '%1' could not be saved. %2\nPlease restart Tavimo and try again.");
    showError(text.arg(vocabulary.foreignLanguageName(), nameOfFailure(failure)), {u"OK"_s});
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
        showError(error.errorString(), {u"OK"_s});
        return false;
    }
    const std::optional<QByteArray> compressed = storage::compressed(json);
    if (!compressed) {
        showSaveFailure(*vocabulary, Failure::Compression);
        return false;
    }
    if (const files::Result<> written = storage::writeVocabularyFile(path, *compressed); !written) {
        logFailure("saveVoc", path, written.error());
        showSaveFailure(*vocabulary, Failure::Write);
        return false;
    }
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
        showSaveFailure(*vocabulary, Failure::Write);
        return false;
    }
    return true;
}

TAVLexiconRef TAVStorageManager::vocabularyFromFile(const QString &path)
{
    const bool isArchive = QFileInfo(path).suffix() == archiveExtension;
    const TAVLexiconRef vocabulary = isArchive ? vocabularyFromLXAFile(path) : vocabularyFromTAVVFile(path);
    if (vocabulary)
        vocabulary->setFileNameWhereLoadedFrom(QFileInfo(path).fileName());
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
        showLoadFailure(*path, Failure::FileRead);
        return nullptr;
    }
    // What is too large to be read is too large to be decompressed.
    const std::optional<QByteArray> json = bytes ? storage::decompressed(*bytes) : std::nullopt;
    if (!json) {
        showLoadFailure(*path, Failure::Decompression);
        return nullptr;
    }
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
        const QString text = QStringLiteral("The selected language '%1' could not be loaded.");
        showError(text.arg(nameForMessages(*path)), {u"OK"_s});
        return nullptr;
    }
    return vocabulary;
}

void TAVStorageManager::tidyBackups()
{
    // The folder is asked for here, as folders belong to the main thread.
    platform::services().queues->globalAsync(
        [folder = AppGround::backupFolderPath()] { storage::tidyBackupsIn(folder); });
}

void TAVStorageManager::resetForTest()
{
    storage::forgetLastBackup();
}
