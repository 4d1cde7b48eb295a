#pragma once

#include <QFlags>

#include <span>

/** Every kind of change that the program makes to a vocabulary or its file, apart from a sync's own. */
enum class Change {
    // Of the word list and its editor, see ChangeSteps::isOfWordList()

    /** Another level, or another vocabulary, is shown. */
    LevelSwitched,
    WordsEdited,
    WordsAdded,
    WordsDeleted,
    /** The empty word of an addition went again. */
    AdditionCancelled,
    TagDropped,
    DuplicatesRemoved,
    Undone,

    // Of a quiz

    /** What the user had decided about an answer has changed its word; the end of a run alone flags nothing.
     */
    DecisionTaken,
    AnswerTyped,
    TypingRunEnded,
    CardBooked,
    /** The mark of a last flash card, booked by the end of the run. */
    LastCardBooked,
    CardRunEnded,
    PopupAnswered,
    PopupRunEnded,

    // Of whoever brings words

    WordsImported,
    FirstLanguageMade,
};

/** What follows a change. Each change has its own of these, in its own order. */
enum class ChangeStep {
    DropLevelLists,
    BuildSynonyms,
    BuildTagsIndex,
    /** The vocabulary has changes that wait for a sync. */
    Flag,
    /** The sync engine writes the file to the shared folder at its next run. */
    Mark,
    /** A failure was told by its alert. The piece goes on; whether the change does is its caller's. */
    Save,
    RequestSync,
};

/** What of a vocabulary a change can touch; for views that decide what to show anew. */
enum class Touched { Nothing = 0, Levels = 1, Tags = 2, Texts = 4, List = 8 };
Q_DECLARE_FLAGS(TouchedParts, Touched)
Q_DECLARE_OPERATORS_FOR_FLAGS(TouchedParts)

namespace ChangeSteps {

/** Steps that follow each other without anything of a view between them. */
using Piece = std::span<const ChangeStep>;

/** One at least. */
int numberOfPieces(Change change);
/** Pieces are counted from 0. */
Piece piece(Change change, int number);
TouchedParts touchedBy(Change change);
/** Such a change marks nothing and asks for no sync before the list was shown for the first time. */
bool isOfWordList(Change change);
/** The line of the diagnostic log that a failed save leaves; null for none. */
const char *lineOfFailedSave(Change change);

} // namespace ChangeSteps
