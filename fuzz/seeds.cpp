// Writes one small example for each fuzzer to start from: fuzz_seeds <folder>

#include "BenchServices.h"
#include "model/TAVLexicon.h"
#include "storage/VocabularyFiles.h"
#include "storage/archive/ArchiveEncoder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 1;
    const BenchServices services;
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
    const QByteArray archive = ArchiveEncoder::archive(
        "TAVLexicon"_L1, [&vocabulary](ArchiveEncoder &encoder) { vocabulary->encodeWithCoder(encoder); });
    const QByteArray json = vocabulary->jsonRepresentation();
    const std::pair<QString, QByteArray> seeds[] = {
        {u"tavv/seed"_s, json},
        {u"lxa/seed"_s, archive},
        {u"load/tavv"_s, storage::compressed(json).value_or(QByteArray())},
        {u"load/lxa"_s, archive},
        {u"announcement/seed"_s,
         R"({"title":"News","message":"Text","validFrom":1,"validTo":2000000000,"buttonTitle":"More",)"
         R"("url":"https://example.org","alternateButtonTitle":"","alternateUrl":"","displayedIn":"all",)"
         R"("uuid":"6f9619ff-8b86-d011-b42d-00c04fc964ff"})"},
        {u"startcall/seed"_s, "reopen token_TIME1\n"},
        {u"drop/seed"_s, QByteArray(reinterpret_cast<const char *>(u" lesson 1\n"), 20)},
        {u"settings/seed"_s, "[General]\nlastActiveLanguage=Italian - English\nbackgroundColor=3\n"
                             "bgQuizWindowXOrigin=1.5\naskForYourWord=true\n"},
    };
    const QString folder = QString::fromLocal8Bit(argv[1]);
    return std::all_of(std::begin(seeds), std::end(seeds),
                       [&folder](const auto &seed) { return write(folder + u'/' + seed.first, seed.second); })
               ? 0
               : 1;
}
