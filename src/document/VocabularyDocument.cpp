#include "document/VocabularyDocument.h"

#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"

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

bool isWithoutText(const TAVWord &word)
{
    return word.yourWord().isEmpty() && word.foreignWord().isEmpty();
}

} // namespace

void VocabularyDocument::setVocabulary(const TAVLexiconRef &vocabulary)
{
    m_vocabulary = vocabulary;
    m_history.follow(vocabulary ? TAVStorageManager::displayNameForVocabulary(*vocabulary) : QString());
}

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

EditOutcome VocabularyDocument::editWord(Change change, TAVLexiconRef vocabulary, const TAVWordRef &word,
                                         const WordEdits::Content &typed)
{
    // A word of the panel may have gone, as by a deletion whose save failed.
    if (word->weakVocForSort() == vocabulary && !vocabulary->allWords().contains(word))
        vocabulary->restoreWords({word});
    // In a list shown from its end, the row of a new word is another word's, which is overwritten then.
    const bool isNew = change == Change::WordsAdded && isWithoutText(*word);
    const EditRecorder recorder(*vocabulary, {word});
    if (WordEdits::holdsSeveral(typed))
        WordEdits::applyPairs(*vocabulary, word, typed);
    else
        WordEdits::applyToWord(*word, typed);
    UndoStep step = recorder.step(UndoStep::Kind::Edit);
    if (!isNew)
        step.number = remember(*vocabulary, step);
    return {commit(change, std::move(vocabulary)), std::move(step)};
}

EditOutcome VocabularyDocument::editWords(TAVLexiconRef vocabulary, const TAVWordList &words,
                                          const WordEdits::Content &typed,
                                          const WordEdits::VariousTexts &various)
{
    const EditRecorder recorder(*vocabulary, words);
    WordEdits::applyToMany(words, typed, various);
    UndoStep step = recorder.step(UndoStep::Kind::Edit);
    step.number = remember(*vocabulary, step);
    return {commit(Change::WordsEdited, std::move(vocabulary)), std::move(step)};
}

ChangeOutcome VocabularyDocument::deleteWords(TAVLexiconRef vocabulary, const TAVWordList &words)
{
    const EditRecorder recorder(*vocabulary, words);
    vocabulary->removeWords(words);
    remember(*vocabulary, recorder.step(UndoStep::Kind::Deletion));
    ChangeOutcome outcome = commit(Change::WordsDeleted, std::move(vocabulary));
    outcome.removedWords = words;
    return outcome;
}

ChangeOutcome VocabularyDocument::cancelAddition(TAVLexiconRef vocabulary, const TAVWordList &words,
                                                 const TAVWordRef &placeholder)
{
    if (vocabulary) {
        const EditRecorder recorder(*vocabulary, words);
        vocabulary->removeWords(words);
        UndoStep step = recorder.step(UndoStep::Kind::CancelledAddition);
        step.removed.removeIf([](const TAVWordRef &word) { return isWithoutText(*word); });
        if (!step.removed.isEmpty() && placeholder)
            step.added.append(WordIdentity::of(*placeholder));
        remember(*vocabulary, step);
    }
    ChangeOutcome outcome = commit(Change::AdditionCancelled, std::move(vocabulary));
    outcome.removedWords = words;
    return outcome;
}

ChangeOutcome VocabularyDocument::dropTag(TAVLexiconRef vocabulary, const TAVWordRef &word,
                                          const QString &tag)
{
    const EditRecorder recorder(*vocabulary, {word});
    word->addTag(tag);
    word->setModificationID(platform::secondsSince1970(platform::clock()));
    remember(*vocabulary, recorder.step(UndoStep::Kind::TagDrop));
    return commit(Change::TagDropped, std::move(vocabulary));
}

ChangeOutcome VocabularyDocument::removeDuplicates(TAVLexiconRef vocabulary)
{
    ChangeOutcome outcome = commit(Change::DuplicatesRemoved, vocabulary);
    if (!outcome.isSaved)
        return outcome;
    const TAVWordList before = vocabulary->allWords();
    const EditRecorder recorder(*vocabulary, before);
    vocabulary->deleteDuplicates();
    const UndoStep step = recorder.step(UndoStep::Kind::Duplicates);
    remember(*vocabulary, step);
    outcome = proceed(Change::DuplicatesRemoved, 1, std::move(vocabulary));
    outcome.removedWords = step.removed;
    return outcome;
}

// Taking back

bool VocabularyDocument::isOfHistory(const TAVLexicon &vocabulary) const
{
    return TAVStorageManager::displayNameForVocabulary(vocabulary) == m_history.language();
}

quint64 VocabularyDocument::remember(const TAVLexicon &vocabulary, const UndoStep &step)
{
    return isOfHistory(vocabulary) ? m_history.remember(step) : 0;
}

void VocabularyDocument::rememberUnsaved(const TAVLexicon &vocabulary, const TAVWordList &words,
                                         const WordEdits::Content &typed,
                                         const WordEdits::VariousTexts &various)
{
    UndoStep step{UndoStep::Kind::UnsavedTexts};
    for (const TAVWordRef &word : words) {
        WordEdits::Content content = typed;
        if (words.size() > 1) {
            const TAVWordRef scratch = word->copy();
            WordEdits::applyToMany({scratch}, typed, various);
            content = WordEdits::contentOf(*scratch);
        }
        step.changed.append({WordIdentity::of(*word), content});
    }
    remember(vocabulary, step);
}

void VocabularyDocument::rememberUnsavedAddition(const TAVLexicon &vocabulary,
                                                 const WordEdits::Content &typed)
{
    UndoStep step{UndoStep::Kind::UnsavedTexts};
    step.removed = WordEdits::newWordsFrom(typed);
    remember(vocabulary, step);
}

void VocabularyDocument::withdraw(TAVLexicon &vocabulary, const UndoStep &step)
{
    step.takeBack(vocabulary);
    m_history.forget(step.number);
}

std::optional<ChangeOutcome> VocabularyDocument::undo()
{
    if (m_history.isEmpty() || !m_vocabulary)
        return std::nullopt;
    const UndoStep step = m_history.takeLast();
    // What was never saved can be undone again once it is.
    const bool isEdit = step.kind == UndoStep::Kind::UnsavedTexts;
    const EditRecorder recorder(*m_vocabulary, isEdit ? m_vocabulary->allWords() : TAVWordList());
    if (!step.takeBack(*m_vocabulary))
        return std::nullopt;
    if (isEdit)
        remember(*m_vocabulary, recorder.step(UndoStep::Kind::Edit));
    return commit(Change::Undone, m_vocabulary);
}
