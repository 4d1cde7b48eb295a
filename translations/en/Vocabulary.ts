<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Vocabulary</name>
    <message>
        <source>%ld unknown words, %ld total words</source>
        <translation>%1 unknown words, %2 words in all</translation>
    </message>
    <message>
        <source>&lt;Various Values&gt;</source>
        <translation>‹Various values›</translation>
    </message>
    <message>
        <source>add</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>addDuplicateMsg</source>
        <translation>The same pair of words stands in your vocabulary, so it was not added again.</translation>
    </message>
    <message>
        <source>addDuplicateTitle</source>
        <translation>You have this word already</translation>
    </message>
    <message>
        <source>addWordButtonTitle</source>
        <translation>New word</translation>
    </message>
    <message>
        <source>addWordMenuItemTitle</source>
        <translation>New word</translation>
    </message>
    <message>
        <source>allStatus</source>
        <translation>Words in all: %1</translation>
    </message>
    <message>
        <source>allWordsHeadding</source>
        <translation>All words</translation>
    </message>
    <message>
        <source>allWordsInfoText</source>
        <translation>Everything that you have collected in this language.</translation>
    </message>
    <message>
        <source>allWordsLabel</source>
        <translation>All words</translation>
    </message>
    <message>
        <source>cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Comment</translation>
    </message>
    <message>
        <source>commentTableColumnTitle</source>
        <translation>Comment</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>deleteDuplicates</source>
        <translation>Remove duplicates</translation>
    </message>
    <message>
        <source>displaySearchResultsInfo</source>
        <translation>Words that match “%1”.</translation>
    </message>
    <message>
        <source>displaySynonymsHeader</source>
        <translation>Synonyms</translation>
    </message>
    <message>
        <source>displaySynonymsInfo</source>
        <translation>Words that share a meaning or a spelling with another word.</translation>
    </message>
    <message>
        <source>dontAskAgain</source>
        <translation>Don't ask again</translation>
    </message>
    <message numerus="yes">
        <source>duplicatesDeleted</source>
        <translation>
            <numerusform>One duplicate was removed.</numerusform>
            <numerusform>%n duplicates were removed.</numerusform>
        </translation>
    </message>
    <message>
        <source>lastAskedTableColumnTitle</source>
        <translation>Last asked</translation>
    </message>
    <message>
        <source>levelsLabel</source>
        <translation>Memory levels</translation>
    </message>
    <message>
        <source>longHeadding</source>
        <translation>Long term</translation>
    </message>
    <message>
        <source>longInfoText</source>
        <translation>Nearly there: these words come back after three days.</translation>
    </message>
    <message>
        <source>midHeadding</source>
        <translation>Mid term</translation>
    </message>
    <message>
        <source>midInfoText</source>
        <translation>These words come back after a day.</translation>
    </message>
    <message>
        <source>nativeHeadding</source>
        <translation>Native</translation>
    </message>
    <message>
        <source>nativeInfoText</source>
        <translation>You know these by heart. They come back after a week.</translation>
    </message>
    <message>
        <source>nativeStatus</source>
        <translation>%1 words, %2 of them no longer asked, of %3</translation>
    </message>
    <message>
        <source>noWordsAdded</source>
        <translation>No words yet. Add your first one with “New word” or Ctrl+N.</translation>
    </message>
    <message>
        <source>noWordsInLevel</source>
        <translation>No words here</translation>
    </message>
    <message>
        <source>noWordsInLevelSmall</source>
        <translation>Words arrive as you answer them in a quiz. A search or tags may also hide them.</translation>
    </message>
    <message>
        <source>noWordsUnknown</source>
        <translation>No unknown words here. Time for some new ones!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>quizSelectedWords</source>
        <translation>Quiz the selected words</translation>
    </message>
    <message>
        <source>reallyDelete</source>
        <translation>Delete the selected words?</translation>
    </message>
    <message>
        <source>reallyDeleteDuplicates</source>
        <translation>Remove duplicate words?</translation>
    </message>
    <message>
        <source>reallyDeleteDuplicatesMsg</source>
        <translation>Of words with the same two texts the one that you know best stays.</translation>
    </message>
    <message>
        <source>reallyDeleteMsg</source>
        <translation>What you have learned of them goes with them.</translation>
    </message>
    <message>
        <source>searchPlaceholder</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>searchStatus</source>
        <translation>%1 of %2 words found</translation>
    </message>
    <message>
        <source>selectAllTagsButtonTitle</source>
        <translation>All</translation>
    </message>
    <message numerus="yes">
        <source>selectedStatus</source>
        <translation>
            <numerusform>one selected</numerusform>
            <numerusform>%n selected</numerusform>
        </translation>
    </message>
    <message>
        <source>selectNoneTagsButtonTitle</source>
        <translation>None</translation>
    </message>
    <message>
        <source>separateWithComma</source>
        <translation>Separate with commas</translation>
    </message>
    <message>
        <source>shortHeadding</source>
        <translation>Short term</translation>
    </message>
    <message>
        <source>shortInfoText</source>
        <translation>These words come back after three hours.</translation>
    </message>
    <message>
        <source>showAllWords</source>
        <translation>Show all words</translation>
    </message>
    <message>
        <source>showSynonyms</source>
        <translation>Show synonyms</translation>
    </message>
    <message>
        <source>synonymsStatus</source>
        <translation>%1 synonyms of %2 words</translation>
    </message>
    <message>
        <source>tagsFilter</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>tagsTableColumnTitle</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>toggleStatus</source>
        <translation>Switch between word count and sync status</translation>
    </message>
    <message>
        <source>tooManyWordsMsg</source>
        <translation>Each part of one text is paired with each part of the other. Please enter fewer parts at once.</translation>
    </message>
    <message>
        <source>tooManyWordsTitle</source>
        <translation>That makes too many words</translation>
    </message>
    <message>
        <source>topicTags</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>ultraShortHeadding</source>
        <translation>Ultra short term</translation>
    </message>
    <message>
        <source>ultraShortInfoText</source>
        <translation>Just met: these words come back after a quarter of an hour.</translation>
    </message>
    <message>
        <source>unknownHeadding</source>
        <translation>Unknown</translation>
    </message>
    <message>
        <source>unknownInfoText</source>
        <translation>New words start here, ready for their first quiz.</translation>
    </message>
    <message>
        <source>unknownWarningText</source>
        <translation>That’s a lot of unknown words. Learn some of them before you add more.</translation>
    </message>
    <message>
        <source>Various Values</source>
        <translation>‹Various tags›</translation>
    </message>
    <message>
        <source>wordPopOverAddMore</source>
        <translation>Add and next</translation>
    </message>
    <message>
        <source>wordPopOverEdit</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>wordsStatus</source>
        <translation>%1 of %2 words</translation>
    </message>
    <message>
        <source>wordTable</source>
        <translation>Words</translation>
    </message>
    <message numerus="yes">
        <source>wordsDeletedLine</source>
        <translation>
            <numerusform>%n word deleted</numerusform>
            <numerusform>%n words deleted</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>wordsRemovedLine</source>
        <translation>
            <numerusform>%n word removed</numerusform>
            <numerusform>%n words removed</numerusform>
        </translation>
    </message>
    <message>
        <source>wordRemovedLine</source>
        <translation>‘%1’ was removed</translation>
    </message>
    <message>
        <source>tagAddedLine</source>
        <translation>‘%1’ has got a tag</translation>
    </message>
    <message numerus="yes">
        <source>wordsChangedLine</source>
        <translation>
            <numerusform>%n word changed</numerusform>
            <numerusform>%n words changed</numerusform>
        </translation>
    </message>
    <message>
        <source>wordChangedLine</source>
        <translation>‘%1’ changed</translation>
    </message>
    <message>
        <source>newWordNotAddedLine</source>
        <translation>The new word ‘%1’ wasn’t added</translation>
    </message>
    <message numerus="yes">
        <source>newWordsNotAddedLine</source>
        <translation>
            <numerusform>%n new word wasn’t added</numerusform>
            <numerusform>%n new words weren’t added</numerusform>
        </translation>
    </message>
    <message>
        <source>changesNotSavedLine</source>
        <translation>The changes to ‘%1’ weren’t saved</translation>
    </message>
    <message numerus="yes">
        <source>changesToManyNotSavedLine</source>
        <translation>
            <numerusform>The changes to %n word weren’t saved</numerusform>
            <numerusform>The changes to %n words weren’t saved</numerusform>
        </translation>
    </message>
    <message>
        <source>undoLineAction</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>bringBack</source>
        <translation>Bring back</translation>
    </message>
    <message>
        <source>cannotUndoLine</source>
        <translation>This can’t be undone any more: its words have changed since</translation>
    </message>
    <message>
        <source>languageNotLoaded</source>
        <translation>‘%1’ could not be opened.

Your words are not shown, but nothing was changed or deleted. The file is
%2

You can choose another language above.</translation>
    </message>
    <message>
        <source>languageNotLoadedButBackup</source>
        <translation>‘%1’ could not be opened.

Your words are not shown, but nothing was changed or deleted. The newest backup that opens is
%2

You can choose another language above.</translation>
    </message>
    <message numerus="yes">
        <source>wordsAddedLine</source>
        <translation>
            <numerusform>%n word added</numerusform>
            <numerusform>%n words added</numerusform>
        </translation>
    </message>
    <message>
        <source>fileNearlyFull</source>
        <translation>The file of this language holds %1 of %2 MiB. Beyond that it is still saved, but can't be opened any more; the last version that can is kept in the folder “Rescued”.</translation>
    </message>
    <message>
        <source>fileTooFull</source>
        <translation>The file of this language holds %1 MiB: beyond %2 MiB it is saved, but can't be opened any more. Before you quit, delete words until it holds less. The last version that can be opened lies in the folder “Rescued”.</translation>
    </message>
</context>
</TS>
