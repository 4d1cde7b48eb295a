<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Vocabulary</name>
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
        <source>comment</source>
        <translation>Comment</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>dontAskAgain</source>
        <translation>Don't ask again</translation>
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
        <source>reallyDeleteMsg</source>
        <translation>What you have learned of them goes with them.</translation>
    </message>
    <message>
        <source>separateWithComma</source>
        <translation>Separate with commas</translation>
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
</context>
</TS>
