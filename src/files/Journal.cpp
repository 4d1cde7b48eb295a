#include "files/Journal.h"

#include "files/Files.h"
#include "files/OpenFile.h"
#include "files/PathLock.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <fcntl.h>

namespace files {

namespace {

/** Files beyond this are none that this program writes in place. */
constexpr qint64 maxFileBytes = qint64(1) << 30;
constexpr QLatin1StringView recordSuffix{".record"};
/** A record that is still being written. */
constexpr QLatin1StringView draftSuffix{".draft"};

QString hashOf(const QByteArray &bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

/** Null if there is no such file, or none that can be read. */
QByteArray bytesOf(const QString &path)
{
    OpenFile file(path, O_RDONLY);
    const Result<QByteArray> bytes =
        file.state() ? file.readAll(maxFileBytes) : Result<QByteArray>(file.state().error());
    if (!bytes)
        return {};
    return (*bytes).isNull() ? QByteArray("") : *bytes;
}

} // namespace

/** What is going to be written, where, and in the place of what. */
struct Journal::Record
{
    QString path;
    /** Empty if the file did not exist. */
    QString oldHash;
    QByteArray bytes;

    /** One line of JSON, then the bytes. */
    QByteArray serialized() const
    {
        const QJsonObject head{{QStringLiteral("path"), path},
                               {QStringLiteral("length"), bytes.size()},
                               {QStringLiteral("old"), oldHash},
                               {QStringLiteral("new"), hashOf(bytes)}};
        return QJsonDocument(head).toJson(QJsonDocument::Compact) + '\n' + bytes;
    }
    /** Absent if anything of it is missing. */
    static std::optional<Record> fromSerialized(const QByteArray &serialized)
    {
        const qsizetype end = serialized.indexOf('\n');
        const QJsonObject head =
            QJsonDocument::fromJson(serialized.first(std::max<qsizetype>(end, 0))).object();
        const Record record{head.value(QLatin1String("path")).toString(),
                            head.value(QLatin1String("old")).toString(), serialized.sliced(end + 1)};
        if (record.path.isEmpty() || head.value(QLatin1String("length")).toInteger() != record.bytes.size() ||
            head.value(QLatin1String("new")).toString() != hashOf(record.bytes))
            return std::nullopt;
        return record;
    }
};

QString Journal::recordPath(const QString &path) const
{
    const QByteArray name = canonicalPath(path).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return m_folder + u'/' + QString::fromLatin1(hash) + recordSuffix;
}

void Journal::put(const QString &path, const QByteArray &bytes) const
{
    std::ignore = makeFolder(m_folder);
    const QByteArray old = bytesOf(path);
    const Record record{path, old.isNull() ? QString() : hashOf(old), bytes};
    const QString target = recordPath(path);
    const QString draft = target + draftSuffix;
    const QByteArray draftName = QFile::encodeName(draft);
    OpenFile file(draft, O_WRONLY | O_CREAT, 0600);
    // Renamed when it is whole, so that a record that can be read can be believed.
    if (file.state() && file.overwrite(record.serialized()) &&
        operations().rename(draftName, QFile::encodeName(target)) >= 0)
        std::ignore = syncFolderOf(target);
    else
        operations().remove(draftName);
}

Result<> Journal::write(const QString &path, const QByteArray &bytes) const
{
    if (!isPath(path))
        return Error::fromSystem(ENOENT);
    const PathLock lock(path);
    put(path, bytes);
    const Result<> written = overwriteLocked(path, bytes, NewFile::Private);
    if (written)
        operations().remove(QFile::encodeName(recordPath(path)));
    return written;
}

void Journal::forget(const QString &path) const
{
    const PathLock lock(path);
    operations().remove(QFile::encodeName(recordPath(path)));
}

QStringList Journal::settle(const QString &folder, const IsWhole &isWhole, const Keep &keep) const
{
    QStringList mended;
    const Result<QList<Entry>> entries = list(m_folder);
    if (!entries)
        return mended;
    for (const Entry &entry : *entries) {
        const bool isRecord = entry.name.endsWith(recordSuffix);
        if (!isRecord && !entry.name.endsWith(draftSuffix))
            continue;
        const QString recordName = m_folder + u'/' + entry.name;
        const std::optional<Record> record =
            isRecord ? Record::fromSerialized(bytesOf(recordName)) : std::nullopt;
        bool isSettled = true;
        if (record) {
            const QByteArray present = bytesOf(record->path);
            const QString presentHash = hashOf(present);
            const bool isTorn = QFileInfo(record->path).path() == folder && !present.isNull() &&
                                presentHash != record->oldHash && presentHash != hashOf(record->bytes) &&
                                !isWhole(present);
            if (isTorn) {
                isSettled = bool(files::writeInPlace(record->path, record->bytes));
                if (isSettled)
                    mended.append(record->path);
            } else if (presentHash != hashOf(record->bytes)) {
                isSettled = keep(record->path, record->bytes);
            }
        }
        if (isSettled)
            std::ignore = remove(recordName);
    }
    return mended;
}

} // namespace files
