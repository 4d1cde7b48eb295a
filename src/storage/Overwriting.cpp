#include "storage/Overwriting.h"

#include "app/ground/Rescue.h"
#include "platform/Services.h"
#include "storage/VocabularyFiles.h"

#include <QHash>
#include <QMutex>
#include <QSet>

#include <memory>

namespace {

/** What this run knows of one path. */
struct Known
{
    files::Identity written;
    files::Identity loaded;
    /** Older objects of the same file lack what has come into it meanwhile. */
    std::weak_ptr<TAVLexicon> loadedInto;
    qsizetype jsonSize = 0;
    QDateTime rescued;
};

struct Run
{
    QMutex mutex;
    QHash<QString, Known> paths;
};

Run &run()
{
    static Run current;
    return current;
}

using Pair = std::pair<QString, QString>;

bool lacksAny(const TAVLexicon &vocabulary, const TAVLexicon &other)
{
    QSet<Pair> present;
    for (const TAVWordRef &word : vocabulary.allWords())
        present.insert({word->yourWord(), word->foreignWord()});
    const TAVWordList &words = other.allWords();
    return std::any_of(words.begin(), words.end(), [&present](const TAVWordRef &word) {
        return !present.contains({word->yourWord(), word->foreignWord()});
    });
}

bool wouldLose(const QByteArray &bytes, const TAVLexicon &vocabulary)
{
    const std::optional<QByteArray> json = storage::decompressed(bytes);
    // There are words in it all the same, or may be.
    if (!json)
        return !bytes.isEmpty();
    const TAVLexiconRef present = TAVLexicon::initWithJson(*json);
    return present && lacksAny(vocabulary, *present);
}

bool isWithinAnHour(const QDateTime &time)
{
    return time.isValid() && qAbs(time.secsTo(platform::clock().now())) < 3600;
}

} // namespace

void storage::noteLoaded(const QString &path, const files::Identity &identity,
                         const TAVLexiconRef &vocabulary)
{
    const QMutexLocker lock(&run().mutex);
    Known &known = run().paths[path];
    known.loaded = identity;
    known.loadedInto = vocabulary;
}

void storage::noteWritten(const QString &path, qsizetype jsonSize)
{
    const QMutexLocker lock(&run().mutex);
    Known &known = run().paths[path];
    known.written = files::identityOf(path);
    known.jsonSize = jsonSize;
}

void storage::noteSize(const QString &path, qsizetype jsonSize)
{
    const QMutexLocker lock(&run().mutex);
    run().paths[path].jsonSize = jsonSize;
}

qsizetype storage::knownSize(const QString &path)
{
    const QMutexLocker lock(&run().mutex);
    return run().paths.value(path).jsonSize;
}

void storage::rescueBeforeSave(const QString &path, const TAVLexicon &vocabulary, qsizetype jsonSize)
{
    const files::Identity present = files::identityOf(path);
    if (!present.isValid())
        return;
    Known known;
    {
        const QMutexLocker lock(&run().mutex);
        known = run().paths.value(path);
    }
    const bool isOurs = present == known.written;
    const bool isWhatWasLoaded = present == known.loaded && known.loadedInto.lock().get() == &vocabulary;
    if (jsonSize > maxReadableJson && (!isOurs || known.jsonSize <= maxReadableJson)) {
        rescue::keepFile(path);
        return;
    }
    if (isOurs || isWhatWasLoaded || isWithinAnHour(known.rescued))
        return;
    const files::Result<QByteArray> bytes = files::read(path, maxReadableFile);
    if (bytes ? !wouldLose(*bytes, vocabulary) : !bytes.failedBy(files::Reason::TooLarge))
        return;
    if (rescue::keepFile(path)) {
        const QMutexLocker lock(&run().mutex);
        run().paths[path].rescued = platform::clock().now();
    }
}

void storage::forgetWritten()
{
    const QMutexLocker lock(&run().mutex);
    run().paths.clear();
}
