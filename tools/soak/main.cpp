#include "app/ground/AppGround.h"
#include "storage/SafeSaves.h"
#include "storage/TAVStorageManager.h"
#include "support/TestServices.h"
#include "support/Words.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

TAVLexiconRef withWords(int count)
{
    const auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->setForeignLanguageName(u"Italian"_s);
    vocabulary->setYourLanguageName(u"English"_s);
    TAVWordList words;
    for (int i = 0; i < count; ++i)
        words.append(makeWord({u"word %1"_s.arg(i * 7919), u"parola %1"_s.arg(i * 104729)}));
    vocabulary->batchAddWords(words);
    return vocabulary;
}

void tell(const char *what, qint64 words)
{
    std::printf("%s %lld\n", what, static_cast<long long>(words));
    std::fflush(stdout);
}

/** As at a start of the program; -1 if there is no file yet, -2 if it can't be read. */
qint64 wordsFound()
{
    storage::finishTornWrites();
    const QString path = TAVStorageManager::savePathForVocabulary(*withWords(0));
    if (!QFileInfo::exists(path))
        return -1;
    const TAVLexiconRef vocabulary = TAVStorageManager::vocabularyFromFile(path);
    return vocabulary ? vocabulary->countAllWords() : -2;
}

} // namespace

/** tavimo_soak <folder> [words]: tells what it finds, then saves so many words, or without end any number. */
int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    TestServices services;
    // The real disk, and a folder that outlives this process.
    files::installOperations(nullptr);
    TestFolders folders(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    platform::Services installed = platform::services();
    installed.folders = &folders;
    platform::installServices(installed);
    AppGround::applicationSupportFolder();

    tell("found", wordsFound());
    const bool isEndless = argc < 3;
    do {
        const int words = isEndless ? 200 + QRandomGenerator::global()->bounded(3000) : atoi(argv[2]);
        const TAVLexiconRef vocabulary = withWords(words);
        tell("saving", words);
        if (TAVStorageManager::saveVocabulary(vocabulary))
            tell("saved", words);
        else
            tell("failed", words);
    } while (isEndless);
    tell("found", wordsFound());
    return 0;
}
