#include "storage/SafeSaves.h"

#include "app/ground/AppGround.h"
#include "app/ground/Rescue.h"
#include "files/Files.h"
#include "files/Journal.h"
#include "platform/DiagnosticLog.h"
#include "storage/VocabularyFiles.h"

#include <QFileInfo>

namespace {

files::Journal journal()
{
    return files::Journal(AppGround::ownFolderPath(QStringLiteral("Journal")));
}

/** Somebody may have deleted all folders while the program runs, and the words are in memory alone. */
void makeFoldersAnew(const QString &vocabularyFolder)
{
    if (files::exists(vocabularyFolder))
        return;
    std::ignore = files::makeFolder(QFileInfo(vocabularyFolder).path());
    std::ignore = files::makeFolder(vocabularyFolder);
}

} // namespace

namespace storage {

bool isInVocabularyFolder(const QString &path)
{
    return QFileInfo(path).path() == AppGround::vocabularyFolderPath();
}

files::Result<> writeVocabularyFile(const QString &path, const QByteArray &bytes)
{
    if (!isInVocabularyFolder(path))
        return files::writeInPlace(path, bytes);
    makeFoldersAnew(QFileInfo(path).path());
    return journal().write(path, bytes);
}

void finishTornWrites()
{
    const QStringList mended = journal().settle(AppGround::vocabularyFolderPath(), isWholeStream,
                                                [](const QString &path, const QByteArray &bytes) {
                                                    return rescue::keep(QFileInfo(path).fileName(), bytes);
                                                });
    for (const QString &path : mended)
        platform::diagnosticLog(QStringLiteral("StorageM > finished the write of %1").arg(path));
}

void forgetWrites(const QString &path)
{
    journal().forget(path);
}

} // namespace storage
