#pragma once

#include "document/WordEdits.h"

/** How a word is found again that was changed or added: ids alone aren't unique. */
struct WordIdentity
{
    qint64 creationID = 0;
    QString yourWord;
    QString foreignWord;

    static WordIdentity of(const TAVWord &word)
    {
        return {word.creationID(), word.yourWord(), word.foreignWord()};
    }
    bool operator==(const WordIdentity &) const = default;
};

/** One action of the user, and what takes it back. It works on whatever object stands for the language then.
 */
struct UndoStep
{
    enum class Kind {
        Deletion,
        Duplicates,
        Edit,
        TagDrop,
        CancelledAddition,
        /** What was typed into the editor and never saved: taking this back writes it. */
        UnsavedTexts
    };
    struct ChangedWord
    {
        /** The word as the action has left it. */
        WordIdentity word;
        /** What it gets back. */
        WordEdits::Content content;
    };

    Kind kind = Kind::Deletion;
    /** Words that come back, the same objects. */
    TAVWordList removed = {};
    QList<ChangedWord> changed = {};
    /** Words that go again. */
    QList<WordIdentity> added = {};
    /** Told apart from other steps by this; given by the history. */
    quint64 number = 0;

    bool isEmpty() const { return removed.isEmpty() && changed.isEmpty() && added.isEmpty(); }
    /**
     * Takes the action back in memory, as far as its words can be found again. False if there was nothing to
     * do any more.
     */
    bool takeBack(TAVLexicon &vocabulary) const;
};

/** Looks at words before and after an edit, and tells what takes it back. */
class EditRecorder
{
public:
    /** To be made before the edit. The vocabulary must outlive this object. */
    EditRecorder(const TAVLexicon &vocabulary, TAVWordList words);
    /** To be called after it, and before anything else changes the list of words. */
    UndoStep step(UndoStep::Kind kind) const;

private:
    const TAVLexicon &m_vocabulary;
    TAVWordList m_words;
    QList<WordEdits::Content> m_contents;
    TAVWordList m_allWords;
};
