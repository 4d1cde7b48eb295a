#include "app/ground/Rescue.h"

#include "app/ground/AppGround.h"
#include "files/Files.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <mutex>
#include <tuple>

namespace {

constexpr qint64 maxFolderBytes = qint64(256) << 20;
constexpr qint64 maxAgeDays = 90;
/** Larger files are no vocabularies. */
constexpr qint64 maxCopyBytes = qint64(64) << 20;
/** The file system takes 255 bytes, of which the stamp and a number need some. */
constexpr qsizetype maxNameBytes = 225;

/** One at a time, so that two threads don't keep the same twice. */
std::mutex &mutex()
{
    static std::mutex mutex;
    return mutex;
}

struct Copy
{
    QString path;
    /** The name under which the file was kept. */
    QString fileName;
    /** When it was made, in a form that sorts by time. */
    QString stamp;
    qint64 size = 0;
};

bool isNewer(const Copy &a, const Copy &b)
{
    return std::tie(a.stamp, a.path) > std::tie(b.stamp, b.path);
}

QString stampOf(const QDateTime &time)
{
    return time.toTimeZone(platform::clock().timeZone()).toString(QStringLiteral("yyyy-MM-dd-HH-mm-ss"));
}

/** Conflicted copies have longer names than any language; cut, they find their place all the same. */
QString fittingName(const QString &fileName)
{
    const QFileInfo info(fileName);
    const QString extension = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
    QByteArray base = info.completeBaseName().toUtf8();
    if (base.size() + extension.toUtf8().size() <= maxNameBytes)
        return fileName;
    base.truncate(std::max<qsizetype>(maxNameBytes - extension.toUtf8().size(), 0));
    // Not within a character.
    while (!base.isValidUtf8())
        base.chop(1);
    return QString::fromUtf8(base) + extension;
}

/** The name of the vocabulary's file, also for a copy of one of its backups. */
QString withoutStamps(const QString &fileName)
{
    static const QRegularExpression stamps(QStringLiteral("(?:-\\d{4}(?:-\\d\\d){5})+(?=\\.[^.]*$)"));
    return QString(fileName).remove(stamps);
}

/** By file name, the newest of each first. */
using Copies = std::map<QString, QList<Copy>>;

Copies copiesIn(const QString &folder)
{
    static const QRegularExpression form(
        QStringLiteral("^(.*)-(\\d{4}-\\d\\d-\\d\\d-\\d\\d-\\d\\d-\\d\\d(?:-\\d+)?)(\\.[^.]*)?$"),
        QRegularExpression::DotMatchesEverythingOption);
    Copies copies;
    const files::Result<QList<files::Entry>> entries = files::list(folder);
    if (!entries)
        return copies;
    for (const files::Entry &entry : *entries) {
        const QRegularExpressionMatch match = form.match(entry.name);
        if (!match.hasMatch() || entry.isFolder)
            continue;
        const QString fileName = match.captured(1) + match.captured(3);
        copies[fileName].append({folder + u'/' + entry.name, fileName, match.captured(2), entry.size});
    }
    for (auto &[name, list] : copies) {
        std::sort(list.begin(), list.end(), isNewer);
    }
    return copies;
}

QString freePath(const QString &folder, const QString &fileName)
{
    const QFileInfo info(fileName);
    const QString base = folder + u'/' + info.completeBaseName() + u'-' + stampOf(platform::clock().now());
    const QString extension = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
    QString path = base + extension;
    for (int n = 2; files::exists(path); ++n)
        path = base + QStringLiteral("-%1").arg(n) + extension;
    return path;
}

} // namespace

QString rescue::folderPath()
{
    return AppGround::ownFolderPath(QStringLiteral("Rescued"));
}

bool rescue::keep(const QString &wholeName, const QByteArray &bytes)
{
    const std::lock_guard lock(mutex());
    const QString fileName = fittingName(wholeName);
    const QString folder = folderPath();
    const Copies copies = copiesIn(folder);
    if (const auto found = copies.find(fileName); found != copies.end()) {
        const Copy &newest = found->second.first();
        const files::Result<QByteArray> kept =
            newest.size == bytes.size() ? files::read(newest.path, maxCopyBytes) : files::Error();
        if (kept && *kept == bytes)
            return true;
    }
    std::ignore = files::makeFolder(folder);
    const QString path = freePath(folder, fileName);
    const files::Result<> made = files::writePrivate(path, bytes);
    platform::diagnosticLog(made ? QStringLiteral("rescue > kept %1").arg(path)
                                 : QStringLiteral("rescue > %1: %2").arg(path, made.error().text()));
    return bool(made);
}

bool rescue::keepFile(const QString &path)
{
    const files::Result<QByteArray> bytes = files::read(path, maxCopyBytes);
    if (bytes)
        return keep(QFileInfo(path).fileName(), *bytes);
    platform::diagnosticLog(QStringLiteral("rescue > %1: %2").arg(path, bytes.error().text()));
    return false;
}

void rescue::tidy()
{
    const std::lock_guard lock(mutex());
    const QString oldest = stampOf(platform::clock().now().addDays(-maxAgeDays));
    QList<Copy> newest;
    QList<Copy> others;
    qint64 total = 0;
    // Each backup has a name of its own; all of a language's would be the newest of their names, for ever.
    Copies ofVocabularies;
    for (const auto &[name, list] : copiesIn(folderPath()))
        ofVocabularies[withoutStamps(name)] += list;
    for (auto &[name, list] : ofVocabularies) {
        std::sort(list.begin(), list.end(), isNewer);
        for (const Copy &copy : std::as_const(list))
            total += copy.size;
        newest.append(list.first());
        others += list.sliced(1);
    }
    for (QList<Copy> *list : {&others, &newest}) {
        std::sort(list->rbegin(), list->rend(), isNewer);
        for (const Copy &copy : std::as_const(*list)) {
            const bool isOld = list == &others && copy.stamp < oldest;
            if ((isOld || total > maxFolderBytes) && files::remove(copy.path))
                total -= copy.size;
        }
    }
}
