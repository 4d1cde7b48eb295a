#include "document/VocabularyDocument.h"

#include "platform/Services.h"
#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"

#include <QSet>

namespace {

/** False if the change ends here. */
bool take(ChangeStep step, const TAVLexiconRef &vocabulary, SyncHears syncHears, ChangeOutcome &outcome)
{
    switch (step) {
    case ChangeStep::DropLevelLists:
        vocabulary->invalidateCachedWordLists();
        return true;
    case ChangeStep::BuildSynonyms:
        vocabulary->buildSynonyms();
        return true;
    case ChangeStep::BuildTagsIndex:
        vocabulary->buildTagsIndex();
        return true;
    case ChangeStep::Flag:
        vocabulary->setNeedsSync(true);
        return true;
    case ChangeStep::Mark:
        if (syncHears == SyncHears::Yes)
            DropBoxController::sharedManager()->markFileAsNeedsSync(*vocabulary);
        return true;
    case ChangeStep::Save:
        outcome.isSaved = TAVStorageManager::saveVocabulary(vocabulary);
        return true;
    case ChangeStep::SaveOrStop:
        outcome.isSaved = TAVStorageManager::saveVocabulary(vocabulary);
        return outcome.isSaved;
    case ChangeStep::RequestSync:
        if (syncHears == SyncHears::Yes)
            DropBoxController::sharedManager()->syncWithDropbox();
        return true;
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

ChangeOutcome VocabularyDocument::proceed(Change change, int piece, TAVLexiconRef vocabulary,
                                          SyncHears syncHears)
{
    ChangeOutcome outcome;
    if (!vocabulary)
        return outcome;
    outcome.touched = ChangeSteps::touchedBy(change);
    for (const ChangeStep step : ChangeSteps::piece(change, piece)) {
        if (!take(step, vocabulary, syncHears, outcome))
            break;
    }
    return outcome;
}

ChangeOutcome VocabularyDocument::deleteWords(TAVLexiconRef vocabulary, const TAVWordList &words,
                                              SyncHears syncHears)
{
    vocabulary->removeWords(words);
    ChangeOutcome outcome = commit(Change::WordsDeleted, std::move(vocabulary), syncHears);
    outcome.removedWords = words;
    return outcome;
}

ChangeOutcome VocabularyDocument::dropTag(TAVLexiconRef vocabulary, const TAVWordRef &word,
                                          const QString &tag, SyncHears syncHears)
{
    word->addTag(tag);
    word->setModificationID(platform::secondsSince1970(platform::clock()));
    return commit(Change::TagDropped, std::move(vocabulary), syncHears);
}

ChangeOutcome VocabularyDocument::removeDuplicates(TAVLexiconRef vocabulary, SyncHears syncHears)
{
    ChangeOutcome outcome = commit(Change::DuplicatesRemoved, vocabulary, syncHears);
    if (!outcome.isSaved)
        return outcome;
    TAVWordList removed = vocabulary->allWords();
    vocabulary->deleteDuplicates();
    const QSet<TAVWordRef> left(vocabulary->allWords().begin(), vocabulary->allWords().end());
    removed.removeIf([&left](const TAVWordRef &word) { return left.contains(word); });
    outcome = proceed(Change::DuplicatesRemoved, 1, std::move(vocabulary), syncHears);
    outcome.removedWords = removed;
    return outcome;
}

ChangeOutcome VocabularyDocument::restoreWords(TAVLexiconRef vocabulary, const TAVWordList &words,
                                               SyncHears syncHears)
{
    vocabulary->restoreWords(words);
    return commit(Change::Undone, std::move(vocabulary), syncHears);
}
