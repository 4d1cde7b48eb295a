#pragma once

#include "document/ChangeSteps.h"
#include "document/UndoHistory.h"
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

/** What became of an edit. */
struct EditOutcome : ChangeOutcome
{
    /** What takes it back, also after a failed save, as the changes are in memory then. */
    UndoStep step;
};

/**
 * The current vocabulary, and the one owner of what follows a change: whoever has changed words on the user's
 * behalf, here or by the model as an answer does, commits that kind of change and never thinks of indexes,
 * flags, marks, saves and syncs. Each kind has its steps in one table, see ChangeSteps.h.
 *
 * An operation changes the words and does the first piece of those steps. Where a view has something to do
 * before the rest, it calls the next piece itself. Operations work on the vocabulary that they are given,
 * which need not be the current one: a quiz and the editor keep the object that they were opened with. What
 * they change of the current language can be taken back, whether its save succeeded or not.
 *
 * Main thread only.
 */
class VocabularyDocument : public VocabularySource
{
public:
    /** Absent before the first language was loaded. */
    TAVLexiconRef vocabulary() const override { return m_vocabulary; }
    /** Called by the vocabulary view alone, which saves and shows what it is given. */
    void setVocabulary(const TAVLexiconRef &vocabulary);
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

    /**
     * Gives the word what was typed, or makes several of it. The change is WordsEdited, or WordsAdded for one
     * that was only being typed. A word that has left the vocabulary meanwhile comes back.
     */
    EditOutcome editWord(Change change, TAVLexiconRef vocabulary, const TAVWordRef &word,
                         const WordEdits::Content &typed);
    /** Gives each word what is common; see WordEdits::applyToMany(). */
    EditOutcome editWords(TAVLexiconRef vocabulary, const TAVWordList &words, const WordEdits::Content &typed,
                          const WordEdits::VariousTexts &various);
    ChangeOutcome deleteWords(TAVLexiconRef vocabulary, const TAVWordList &words);
    /**
     * Takes back words that were only being typed. The placeholder is another empty word that stays behind,
     * or absent; it goes when this is undone.
     */
    ChangeOutcome cancelAddition(TAVLexiconRef vocabulary, const TAVWordList &words,
                                 const TAVWordRef &placeholder = nullptr);
    ChangeOutcome dropTag(TAVLexiconRef vocabulary, const TAVWordRef &word, const QString &tag);
    /** With the save before and the one behind; the first to fail ends it. */
    ChangeOutcome removeDuplicates(TAVLexiconRef vocabulary);

    // Taking back

    UndoHistory &history() { return m_history; }
    /** Keeps what was typed for these words and not saved, so that it can be brought back. */
    void rememberUnsaved(const TAVLexicon &vocabulary, const TAVWordList &words,
                         const WordEdits::Content &typed, const WordEdits::VariousTexts &various);
    /** The same for a new word that was not added. */
    void rememberUnsavedAddition(const TAVLexicon &vocabulary, const WordEdits::Content &typed);
    /** Takes an edit back in memory alone, because another one comes in its place. */
    void withdraw(TAVLexicon &vocabulary, const UndoStep &step);
    /** Takes the latest step back. Absent if its words are not to be found any more; it is dropped then. */
    std::optional<ChangeOutcome> undo();

private:
    bool isOfHistory(const TAVLexicon &vocabulary) const;
    /** Returns its number in the history, 0 if it isn't kept there. */
    quint64 remember(const TAVLexicon &vocabulary, const UndoStep &step);

    TAVLexiconRef m_vocabulary;
    UndoHistory m_history;
    bool m_isListShown = false;
};
