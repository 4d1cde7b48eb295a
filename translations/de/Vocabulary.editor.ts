<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Vocabulary</name>
    <message>
        <source>&lt;Various Values&gt;</source>
        <translation>‹Verschiedene Werte›</translation>
    </message>
    <message>
        <source>add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>addDuplicateMsg</source>
        <translation>Dasselbe Wortpaar steht in deinem Vokabular und wurde nicht noch einmal hinzugefügt.</translation>
    </message>
    <message>
        <source>addDuplicateTitle</source>
        <translation>Dieses Wort hast du schon</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>dontAskAgain</source>
        <translation>Nicht mehr fragen</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>quizSelectedWords</source>
        <translation>Ausgewählte Wörter abfragen</translation>
    </message>
    <message>
        <source>reallyDelete</source>
        <translation>Ausgewählte Wörter löschen?</translation>
    </message>
    <message>
        <source>reallyDeleteMsg</source>
        <translation>Was du davon gelernt hast, geht mit verloren.</translation>
    </message>
    <message>
        <source>separateWithComma</source>
        <translation>Mit Komma trennen</translation>
    </message>
    <message>
        <source>tooManyWordsMsg</source>
        <translation>Jeder Teil des einen Textes wird mit jedem Teil des anderen gepaart. Bitte gib weniger Teile auf einmal ein.</translation>
    </message>
    <message>
        <source>tooManyWordsTitle</source>
        <translation>Das ergibt zu viele Wörter</translation>
    </message>
    <message>
        <source>topicTags</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>Various Values</source>
        <translation>‹Verschiedene Schlagwörter›</translation>
    </message>
    <message>
        <source>wordPopOverAddMore</source>
        <translation>Hinzufügen und weiter</translation>
    </message>
    <message>
        <source>wordPopOverEdit</source>
        <translation>Sichern</translation>
    </message>
</context>
</TS>
