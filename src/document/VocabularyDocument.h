#pragma once

#include "document/ChangeSteps.h"
#include "document/WordEdits.h"
#include "model/TAVLexicon.h"

/** What became of a change, or of one piece of it. */
struct ChangeOutcome
{
    /** False if a save failed, which its alert has told. The changed words stay in memory. */
    bool isSaved = true;
    TouchedParts touched;
    /** Words that left the vocabulary, the same objects, in its order. */
    TAVWordList removedWords = {};
};

/**
 * The current vocabulary, and the one owner of what follows a change: whoever has changed words on the user's
 * behalf, here or by the model as an answer does, commits that kind of change and never thinks of indexes,
 * flags, marks, saves and syncs. Each kind has its steps in one table, see ChangeSteps.h.
 *
 * An operation changes the words and does the first piece of those steps. Where a view has something to do
 * before the rest, it calls the next piece itself. Operations work on the vocabulary that they are given,
 * which need not be the current one: a quiz and the editor keep the object that they were opened with.
 *
 * Main thread only.
 */
class VocabularyDocument : public VocabularySource
{
public:
    /** Absent before the first language was loaded. */
    TAVLexiconRef vocabulary() const override { return m_vocabulary; }
    /** Called by the vocabulary view alone, which saves and shows what it is given. */
    void setVocabulary(const TAVLexiconRef &vocabulary) { m_vocabulary = vocabulary; }
    /** From now on the sync hears of what is changed in the word list. */
    void setListShown() { m_isListShown = true; }
    /**
     * For whoever has worked on a vocabulary for longer: the object that stands for it now. That is the
     * current one if it comes from the same file, as after a reload, else the given one.
     */
    TAVLexiconRef presentVersionOf(const TAVLexiconRef &given) const;

    /** Does the steps of one piece. Without a vocabulary only the request for a sync is left of them. */
    ChangeOutcome proceed(Change change, int piece, TAVLexiconRef vocabulary);
    /** The first piece, for a change that was made elsewhere, as the model books an answer. */
    ChangeOutcome commit(Change change, TAVLexiconRef vocabulary)
    {
        return proceed(change, 0, std::move(vocabulary));
    }

    /** An empty word, in memory only until the next save; the user is going to type it. */
    TAVWordRef beginAddition(TAVLexicon &vocabulary);

    // Changes of words, each with its first piece

    ChangeOutcome deleteWords(TAVLexiconRef vocabulary, const TAVWordList &words);
    /** Takes back words that were only being typed. */
    ChangeOutcome cancelAddition(TAVLexiconRef vocabulary, const TAVWordList &words);
    ChangeOutcome dropTag(TAVLexiconRef vocabulary, const TAVWordRef &word, const QString &tag);
    /** With the save before and the one behind; the first to fail ends it. */
    ChangeOutcome removeDuplicates(TAVLexiconRef vocabulary);
    /** Puts words back that had been removed, as they were; see TAVLexicon::restoreWords(). */
    ChangeOutcome restoreWords(TAVLexiconRef vocabulary, const TAVWordList &words);

private:
    TAVLexiconRef m_vocabulary;
    bool m_isListShown = false;
};
