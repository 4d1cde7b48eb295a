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

} // namespace

namespace storage {

bool isInVocabularyFolder(const QString &path)
{
    return QFileInfo(path).path() == AppGround::vocabularyFolderPath();
}

files::Result<> writeVocabularyFile(const QString &path, const QByteArray &bytes)
{
    return isInVocabularyFolder(path) ? journal().write(path, bytes) : files::writeInPlace(path, bytes);
}

void finishTornWrites()
{
    const QStringList mended =
        journal().settle(isWholeStream, [](const QString &path, const QByteArray &bytes) {
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
