// Writes one small vocabulary in both forms, for the fuzzers to start from: fuzz_seeds <folder>

#include "FuzzServices.h"
#include "model/TAVLexicon.h"
#include "storage/archive/ArchiveEncoder.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

bool write(const QString &folder, const QByteArray &bytes)
{
    QFile file(folder + u"/seed"_s);
    return QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 1;
    const FuzzServices services;
    const auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->setYourFacultativeWords({u"to"_s});
    for (quint64 level = 0; level < 6; ++level) {
        const auto word = std::make_shared<TAVWord>(u"to go"_s, u"ändern \"x\""_s, u"note"_s);
        word->setLevel(level);
        word->setTags({u"a"_s, u"lesson 1"_s});
        word->setLastAsked(platform::clock().now());
        word->setFallenDownCounter(level);
        word->setDontAskAgain(level > 3);
        vocabulary->addWord(word);
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QByteArray archive = ArchiveEncoder::archive(
        "TAVLexicon"_L1, [&vocabulary](ArchiveEncoder &encoder) { vocabulary->encodeWithCoder(encoder); });
    return write(folder + u"/tavv"_s, vocabulary->jsonRepresentation()) && write(folder + u"/lxa"_s, archive)
               ? 0
               : 1;
}
