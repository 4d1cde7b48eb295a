#include "storage/StorageAlerts.h"

#include "app/ground/AppGround.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "storage/Backups.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

using storage::Failure;

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

int show(const QString &text, const QStringList &buttons, const QString &additionalLine = {})
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

QString explanation(const files::Error &error)
{
    switch (error.reason) {
    case files::Reason::NoSpace:
        return platform::localized("Storage", "noRoom");
    case files::Reason::NoPermission:
        return platform::localized("Storage", "noPermission");
    case files::Reason::LinkToNothing:
        return platform::localized("Storage", "linkToNothing");
    case files::Reason::NotRegular:
        return platform::localized("Storage", "notAFile");
    default:
        return error.number != 0 ? error.text() : QString();
    }
}

} // namespace

void storage::showLoadFailure(const QString &path, Failure failure)
{
    keepAllBackups();
    const QString backupFolder = AppGround::backupFolderPath();
    const QString newest = newestBackupThatOpens(QFileInfo(path).fileName());
    const QString line =
        newest.isEmpty() ? backupFolder
                         : backupFolder + u'\n' + platform::localized("Storage", "newestBackup").arg(newest);
    const QString text = QStringLiteral("The selected language '%1' could not be loaded. %2\nGo to "
                                        "'~/Library/Application Support/Tavimo/Backups' to restore from the "
                                        "last backup copy.");
    const int button = show(text.arg(nameForMessages(path), nameOfFailure(failure)),
                            {u"OK"_s, u"Go to backups folder"_s}, line);
    if (button == 1)
        openBackupFolder(backupFolder);
}

void storage::showArchiveLoadFailure(const QString &path)
{
    const QString text = QStringLiteral("The selected language '%1' could not be loaded.");
    show(text.arg(nameForMessages(path)), {u"OK"_s});
}

void storage::showSaveFailure(const TAVLexicon &vocabulary, Failure failure, const files::Error &error)
{
    const QString text = QStringLiteral(
        "The selected language '%1' could not be saved. %2\nPlease restart Tavimo and try again.");
    // The advice of the text would lose the words, which are now in memory alone.
    const QString line =
        QString(explanation(error) + u'\n' + platform::localized("Storage", "wordsAreSafe")).trimmed();
    show(text.arg(vocabulary.foreignLanguageName(), nameOfFailure(failure)), {u"OK"_s}, line);
}

void storage::showError(const QString &text)
{
    show(text, {u"OK"_s});
}
