#include "document/VocabularyDocument.h"

#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"

#include <QSet>

namespace {

/** False if the write failed. */
bool take(ChangeStep step, const TAVLexiconRef &vocabulary)
{
    switch (step) {
    case ChangeStep::DropLevelLists:
        vocabulary->invalidateCachedWordLists();
        break;
    case ChangeStep::BuildSynonyms:
        vocabulary->buildSynonyms();
        break;
    case ChangeStep::BuildTagsIndex:
        vocabulary->buildTagsIndex();
        break;
    case ChangeStep::Flag:
        vocabulary->setNeedsSync(true);
        break;
    case ChangeStep::Mark:
        DropBoxController::sharedManager()->markFileAsNeedsSync(*vocabulary);
        break;
    case ChangeStep::Save:
        return TAVStorageManager::saveVocabulary(vocabulary);
    case ChangeStep::RequestSync:
        DropBoxController::sharedManager()->syncWithDropbox();
        break;
    }
    return true;
}

} // namespace

TAVLexiconRef VocabularyDocument::presentVersionOf(const TAVLexiconRef &given) const
{
    if (!given || !m_vocabulary)
        return given;
    const bool isSameFile = TAVStorageManager::displayNameForVocabulary(*given) ==
                            TAVStorageManager::displayNameForVocabulary(*m_vocabulary);
    return isSameFile ? m_vocabulary : given;
}

ChangeOutcome VocabularyDocument::proceed(Change change, int piece, TAVLexiconRef vocabulary)
{
    ChangeOutcome outcome;
    outcome.touched = ChangeSteps::touchedBy(change);
    const bool isHeard = m_isListShown || !ChangeSteps::isOfWordList(change);
    for (const ChangeStep step : ChangeSteps::piece(change, piece)) {
        if (!isHeard && (step == ChangeStep::Mark || step == ChangeStep::RequestSync))
            continue;
        if ((!vocabulary && step != ChangeStep::RequestSync) || take(step, vocabulary))
            continue;
        outcome.isSaved = false;
        if (const char *line = ChangeSteps::lineOfFailedSave(change))
            platform::diagnosticLog(QLatin1String(line));
    }
    return outcome;
}

TAVWordRef VocabularyDocument::beginAddition(TAVLexicon &vocabulary)
{
    const auto word = std::make_shared<TAVWord>(QString(), QString(), QString());
    vocabulary.addWord(word);
    return word;
}

ChangeOutcome VocabularyDocument::deleteWords(TAVLexiconRef vocabulary, const TAVWordList &words)
{
    vocabulary->removeWords(words);
    ChangeOutcome outcome = commit(Change::WordsDeleted, std::move(vocabulary));
    outcome.removedWords = words;
    return outcome;
}

ChangeOutcome VocabularyDocument::cancelAddition(TAVLexiconRef vocabulary, const TAVWordList &words)
{
    if (vocabulary)
        vocabulary->removeWords(words);
    ChangeOutcome outcome = commit(Change::AdditionCancelled, std::move(vocabulary));
    outcome.removedWords = words;
    return outcome;
}

ChangeOutcome VocabularyDocument::dropTag(TAVLexiconRef vocabulary, const TAVWordRef &word,
                                          const QString &tag)
{
    word->addTag(tag);
    word->setModificationID(platform::secondsSince1970(platform::clock()));
    return commit(Change::TagDropped, std::move(vocabulary));
}

ChangeOutcome VocabularyDocument::removeDuplicates(TAVLexiconRef vocabulary)
{
    ChangeOutcome outcome = commit(Change::DuplicatesRemoved, vocabulary);
    if (!outcome.isSaved)
        return outcome;
    TAVWordList removed = vocabulary->allWords();
    vocabulary->deleteDuplicates();
    const QSet<TAVWordRef> left(vocabulary->allWords().begin(), vocabulary->allWords().end());
    removed.removeIf([&left](const TAVWordRef &word) { return left.contains(word); });
    outcome = proceed(Change::DuplicatesRemoved, 1, std::move(vocabulary));
    outcome.removedWords = removed;
    return outcome;
}

ChangeOutcome VocabularyDocument::restoreWords(TAVLexiconRef vocabulary, const TAVWordList &words)
{
    vocabulary->restoreWords(words);
    return commit(Change::Undone, std::move(vocabulary));
}
